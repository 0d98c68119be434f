// SPDX-License-Identifier: Apache-2.0
#include "tools/commands/environment_check.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

#include "tools/command_line/topics.h"
#include "tools/output/text.h"
#include "tools/process/environment.h"

namespace tools {

namespace {

/** What is wrong with a value that is not empty; "" for nothing. */
using Problem = std::string (*)(const std::string& value);

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

struct Check {
    std::string_view variable;
    Problem problem;
};

/** The variables that take some values only. */
constexpr std::array checks = {
    Check{"QVL_TRACE_LEVEL", notANumber},
    Check{"RZM_DEFAULT_DIRECTORY", notADirectory},
    Check{"QV_MULTI_SAVE", notASwitchForMultiSave},
    Check{"QVL_BOM_HEADER_CREATE", notASwitchForHeaders},
};

VariableFinding look(const std::string& name)
{
    const std::optional<std::string> value = environmentVariable(name.c_str());
    if (!value.has_value()) {
        return {name, "not set", false};
    }
    const auto* const check = std::find_if(checks.begin(), checks.end(),
                                           [&name](const Check& each) { return each.variable == name; });
    const std::string problem = value->empty() || check == checks.end() ? "" : check->problem(*value);
    const std::string shown = name == passwordVariable ? "set" : quoted(*value);
    return {name, shown + (problem.empty() ? "" : " ") + problem, !problem.empty()};
}

} // namespace

std::vector<VariableFinding> checkEnvironment()
{
    std::vector<VariableFinding> findings;
    for (const Topic& variable : environmentVariables()) {
        findings.push_back(look(variable.name));
    }
    return findings;
}

} // namespace tools
