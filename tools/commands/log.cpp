// SPDX-License-Identifier: Apache-2.0
//
// What was called, and what failed, according to an access log.
#include <algorithm>
#include <memory>

#include <CLI/App.hpp>

#include "tools/command_line/command_line.h"
#include "tools/output/text.h"
#include "tools/site_files/access_log_reader.h"

namespace tools {

namespace {

struct Summary {
    std::string operation;
    int calls = 0;
    int failures = 0;
    std::vector<std::string> messages; // each once
};

void summarize(const std::string& path, const Settings& settings)
{
    std::vector<Summary> summaries; // in the order in which the operations came first
    for (const LoggedCall& call : readAccessLog(path)) {
        auto found = std::find_if(summaries.begin(), summaries.end(), [&call](const Summary& summary) {
            return summary.operation == call.operation;
        });
        if (found == summaries.end()) {
            found = summaries.insert(found, Summary{call.operation, 0, 0, {}});
        }
        ++found->calls;
        found->failures += call.code < 0 ? 1 : 0;
        for (const std::string& message : call.messages) {
            if (std::find(found->messages.begin(), found->messages.end(), message) == found->messages.end()) {
                found->messages.push_back(message);
            }
        }
    }
    Records records{{"operation", "calls", "failures", "messages"}, {}};
    for (const Summary& summary : summaries) {
        records.rows.push_back({summary.operation, std::to_string(summary.calls),
                                std::to_string(summary.failures), joined(summary.messages, "; ")});
    }
    writeRecords(records, Shape::List, settings.format);
}

bool beginsRequest(const LoggedCall& call)
{
    return call.function.rfind("QV_Create_", 0) == 0 && call.function != "QV_Create_and_CheckIn_Doc";
}

bool isInput(const LoggedCall& call)
{
    return call.function.find("QV_Set_") != std::string::npos && !call.detail.empty();
}

void showFailures(const std::string& path, const Settings& settings)
{
    Records records{{"line", "operation", "call", "code", "message", "inputs"}, {}};
    std::vector<std::string> inputs; // of the request that is being made
    std::string operation;
    for (const LoggedCall& call : readAccessLog(path)) {
        if (beginsRequest(call) || call.operation != operation) {
            inputs.clear();
            operation = call.operation;
        }
        if (call.code < 0) {
            records.rows.push_back({std::to_string(call.line), call.operation, call.function,
                                    std::to_string(call.code), joined(call.messages, "; "),
                                    joined(inputs, ", ")});
        } else if (isInput(call)) {
            inputs.push_back(call.detail);
        }
    }
    writeRecords(records, Shape::List, settings.format);
}

void addLogCommand(CommandLine& line, CLI::App& group, const char* name, const char* description,
                   const char* example, void (*action)(const std::string&, const Settings&))
{
    const auto path = std::make_shared<std::string>();
    line.addCommand(group, name, description, example,
                    [&line, path, action] { action(*path, line.settings()); })
        .add_option("file", *path, "Access log, as QVL_LOG_FILE names it")
        ->required();
}

} // namespace

void addLogCommands(CommandLine& line)
{
    CLI::App& group =
        line.addGroup("log", "Show what was called and what failed, according to an access log\n\n"
                             "The library writes an access log when QVL_LOG_FILE names one.");
    addLogCommand(line, group, "summary", "Count the calls and failures of each operation in an access log",
                  "velrzm log summary access.log", summarize);
    addLogCommand(line, group, "failures", "Show each failed call with the inputs of its operation",
                  "velrzm log failures access.log", showFailures);
}

} // namespace tools
