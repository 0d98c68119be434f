// SPDX-License-Identifier: Apache-2.0
#include <velrzm/errors.h>
#include <velrzm/logging.h>

#include "diagnostics/log_files.h"

std::FILE* QVL_ErrLog_File = nullptr;
int QVL_ErrLog_FirstTime = 1;

using namespace velrzm;

void DisplayError(const char* function, const char* text)
{
    DisplayError(function, text,
                 "Check qvnmstr.trace file to get more information,\nand report to your administrator...");
}

void DisplayError(const char* function, const char* text, const char* /*hint*/)
{
    constexpr std::string_view dashes =
        "---------------------------------------------------------------------"; // 69

    if (QVL_ErrLog_File == nullptr) {
        return;
    }
    const BoundedText<128> head{"Function ", function, " generated the following error:\n"};
    writeAtOnce(QVL_ErrLog_File, Line({head.view(), text, "\n", dashes, "\n"}, "", ""));
    writeLastError({text, "\n"});
}
