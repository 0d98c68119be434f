// SPDX-License-Identifier: Apache-2.0
#include "tools/commands/environment_check.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "tools/output/text.h"
#include "tools/process/environment.h"

namespace tools {

namespace {

/** What is wrong with a value that is not empty; "" for nothing. */
using Problem = std::string (*)(const std::string& value);

std::string anyValue(const std::string& /*value*/)
{
    return "";
}

std::string notANumber(const std::string& value)
{
    return wholeNumber(value).has_value() ? "" : "is not a number, and the library takes it for 0";
}

std::string notADirectory(const std::string& value)
{
    std::error_code ignored;
    return std::filesystem::is_directory(value, ignored)
               ? ""
               : "is not a directory; name the one with the defaults file, or unset the variable";
}

std::string notASwitchForMultiSave(const std::string& value)
{
    const bool isKnown = value == "0" || value == "OFF" || value == "1" || value == "ON";
    return isKnown ? "" : "is neither 0 nor OFF, so multi-save stays on";
}

std::string notASwitchForHeaders(const std::string& value)
{
    const bool isKnown = value == "YES" || value == "NO";
    return isKnown ? "" : "is not YES, so no header is made";
}

struct Variable {
    const char* name;
    const char* whenUnset;
    Problem problem;
};

constexpr Variable variables[] = {
    {"QVL_TRACE_LEVEL", "the trace level is 0", notANumber},
    {"QVL_LOG_FILE", "no access log is written", anyValue},
    {"QVL_LOG_ERROR", "the command writes the error log into the state directory", anyValue},
    {"QVL_LAST_ERROR", "the command writes the last-error file into the state directory", anyValue},
    {"RZM_DEFAULT_DIRECTORY", "the shared defaults file is looked for in the working directory",
     notADirectory},
    {"QV_MULTI_SAVE", "multi-save is on", notASwitchForMultiSave},
    {"QVL_BOM_HEADER_CREATE", "no header is made with an item", notASwitchForHeaders},
    {"USER", "--user names the user", anyValue},
    {passwordVariable, "the command asks for the password", anyValue},
    {"PAGER", "long results on a terminal go through less", anyValue},
    {"NO_COLOR", "a terminal is shown colours", anyValue},
    {"QV_STORE", "the store is the user's own", anyValue},
};

VariableFinding look(const Variable& variable)
{
    const std::optional<std::string> value = environmentVariable(variable.name);
    if (!value.has_value()) {
        return {variable.name, std::string("not set: ") + variable.whenUnset, false};
    }
    const std::string shown = variable.name == std::string(passwordVariable) ? "set" : quoted(*value);
    const std::string problem = value->empty() ? "" : variable.problem(*value);
    return {variable.name, shown + (problem.empty() ? "" : " ") + problem, !problem.empty()};
}

} // namespace

std::vector<VariableFinding> checkEnvironment()
{
    std::vector<VariableFinding> findings;
    for (const Variable& variable : variables) {
        findings.push_back(look(variable));
    }
    return findings;
}

} // namespace tools
