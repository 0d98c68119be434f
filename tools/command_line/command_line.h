// SPDX-License-Identifier: Apache-2.0
//
// The command line: options that all commands share, and the command that it names.
#ifndef VELRZM_TOOLS_COMMAND_LINE_COMMAND_LINE_H
#define VELRZM_TOOLS_COMMAND_LINE_COMMAND_LINE_H

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/output/format.h"

namespace CLI {
class App;
}

namespace tools {

/** The options that all commands share. */
struct Settings {
    std::string store; // location, or just the path, of the store; empty: where the environment says
    std::string user;
    std::string passwordFile;
    std::optional<int> traceLevel;
    Format format = Format::Table;
    bool isPagerOff = false;
};

/** Forms of results and their names. */
using NamedFormats = std::vector<std::pair<std::string, Format>>;

/** The command line of one run. The functions below add the commands, each with an action; of these, `act` runs the
 * one that the parsed command line names. Options that all commands share are in `settings`. */
class CommandLine {
public:
    /** The settings are those that hold unless the command line says otherwise. */
    explicit CommandLine(Settings settings = {});
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /** Reads `arguments`. Throws WrongUsage when they make no sense. */
    void parse(std::vector<std::string> arguments);
    /** Runs the command that they name. */
    void act() const;

    CLI::App& app() { return *app_; }
    const Settings& settings() const { return settings_; }

    /** Adds a word that stands before others: "user" of "user add". */
    CLI::App& addGroup(const std::string& name, const std::string& description);
    /** Adds a command; `example` is the last line of its help. The description is a summary of one line and, after an
     * empty line, paragraphs with whatever else a reader should know. */
    CLI::App& addCommand(CLI::App& parent, const std::string& name, const std::string& description,
                         const std::string& example, std::function<void()> action);
    /** Gives a command forms of its results beyond those that all commands have. */
    void addFormats(CLI::App& command, const NamedFormats& further);

private:
    void addSharedOptions();
    void addFormat(CLI::App& command, const NamedFormats& offered);

    std::unique_ptr<CLI::App> app_;
    Settings settings_;
    std::function<void()> action_;
};

/** Each adds the commands of one subject. */
void addBatch(CommandLine& line);
void addDefaultsCommands(CommandLine& line);
void addDemo(CommandLine& line);
void addDoctor(CommandLine& line);
void addExport(CommandLine& line);
void addHelpCommands(CommandLine& line);
void addLogCommands(CommandLine& line);
void addOperationCommands(CommandLine& line);
void addImport(CommandLine& line);
void addStoreCommands(CommandLine& line);

} // namespace tools

#endif
