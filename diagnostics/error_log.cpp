// SPDX-License-Identifier: Apache-2.0
#include <velrzm/errors.h>
#include <velrzm/logging.h>

#include "diagnostics/guard.h"
#include "diagnostics/log_files.h"

std::FILE* QVL_ErrLog_File = nullptr;
int QVL_ErrLog_FirstTime = 1;

using namespace velrzm;

namespace {

constexpr std::string_view beforeName = "Function ";
constexpr std::string_view afterName = " generated the following error:\n";
constexpr std::size_t longestName = 127 - beforeName.size() - afterName.size();
constexpr std::string_view dashes =
    "---------------------------------------------------------------------"; // 69

void writeError(const char* function, const char* text)
{
    if (QVL_ErrLog_File == nullptr) {
        return;
    }
    const std::string_view name = std::string_view(orEmpty(function)).substr(0, longestName);
    writeAtOnce(QVL_ErrLog_File, Line({beforeName, name, afterName, text, "\n", dashes, "\n"}, "", ""));
    writeLastError({text, "\n"});
}

} // namespace

void DisplayError(const char* function, const char* text)
{
    DisplayError(function, text,
                 "Check qvnmstr.trace file to get more information,\nand report to your administrator...");
}

void DisplayError(const char* function, const char* text, const char* /*hint*/)
{
    guardedWriting("DisplayError", [=] { writeError(function, text); });
}
