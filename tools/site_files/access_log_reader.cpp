// SPDX-License-Identifier: Apache-2.0
#include "tools/site_files/access_log_reader.h"

#include <cstdlib>
#include <fstream>
#include <optional>

#include "tools/process/failures.h"
#include "tools/process/files.h"

namespace tools {

namespace {

/** Reads "OPERATION- rc(FUNCTION::DETAIL) = CODE"; the detail may hold anything. */
std::optional<LoggedCall> callIn(const std::string& text, int line)
{
    const std::string head = "- rc(";
    const std::string tail = ") = ";
    const std::size_t begin = text.find(head);
    const std::size_t end = text.rfind(tail);
    if (begin == std::string::npos || end == std::string::npos || end < begin + head.size()) {
        return std::nullopt;
    }
    const std::string call = text.substr(begin + head.size(), end - begin - head.size());
    const std::size_t colons = call.find("::");
    std::string operation = text.substr(0, begin);
    operation.erase(operation.find_last_not_of("- ") + 1); // that of a delete ends in "- "
    return LoggedCall{line,
                      operation,
                      call.substr(0, colons),
                      colons == std::string::npos ? "" : call.substr(colons + 2),
                      static_cast<int>(std::strtol(text.c_str() + end + tail.size(), nullptr, 10)),
                      {}};
}

/** The text of "CODE - TEXT", which follows a failed call. */
std::optional<std::string> messageIn(const std::string& text)
{
    const std::size_t dash = text.find(" - ");
    return dash == std::string::npos || text.find(' ') != dash
               ? std::nullopt
               : std::optional<std::string>(text.substr(dash + 3));
}

} // namespace

std::vector<LoggedCall> readAccessLog(const std::string& path)
{
    std::ifstream file = openForReading(path);
    std::vector<LoggedCall> calls;
    bool isHeadSeen = false;
    int number = 0;
    for (std::string text; std::getline(file, text);) {
        ++number;
        isHeadSeen = isHeadSeen || text.find("logging all SDK access") != std::string::npos;
        if (const auto call = callIn(text, number)) {
            calls.push_back(*call);
        } else if (const auto message = messageIn(text); message && !calls.empty() && calls.back().code < 0) {
            calls.back().messages.push_back(*message);
        }
    }
    if (!isHeadSeen) {
        throw Refused(
            path +
            " is not an access log: its head is missing; QVL_LOG_FILE names where a program writes one");
    }
    return calls;
}

} // namespace tools
