// SPDX-License-Identifier: Apache-2.0
#include "tools/process/environment.h"

#include <cstdlib>

#include <unistd.h>

namespace tools {

// NOLINTBEGIN(concurrency-mt-unsafe): one thread
std::optional<std::string> environmentVariable(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

void setEnvironmentVariable(const char* name, const std::string& value)
{
    setenv(name, value.c_str(), 1);
}

void unsetEnvironmentVariable(const char* name)
{
    unsetenv(name);
}
// NOLINTEND(concurrency-mt-unsafe)

std::string environmentText(const char* name)
{
    return environmentVariable(name).value_or("");
}

std::vector<std::string> childEnvironment(const std::vector<std::string>& further)
{
    const std::string password = std::string(passwordVariable) + "=";
    std::vector<std::string> variables = further;
    for (char* const* variable = environ; *variable != nullptr; ++variable) {
        const std::string text = *variable;
        if (text.compare(0, password.size(), password) != 0) {
            variables.push_back(text);
        }
    }
    return variables;
}

} // namespace tools
