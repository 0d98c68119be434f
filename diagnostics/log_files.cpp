// SPDX-License-Identifier: Apache-2.0
#include "diagnostics/log_files.h"

#include <cstdlib>
#include <utility>

#include <velrzm/logging.h>

#include "diagnostics/trace.h"

namespace velrzm {
namespace {

constexpr std::string_view stars =
    "*********************************************************************\n"; // 69
constexpr std::string_view product =
    "*****      VELRZM : VELOR/HXD - Quorvanemaster Integration      *****\n";
constexpr std::string_view accessPurpose =
    "*****         (logging all SDK access to Quorvanemastr)         *****\n";
constexpr std::string_view errorPurpose =
    "*****     (logging all SDK errors returned by Quorvanemastr)    *****\n";

const char* environmentOr(const char* variable, const char* otherwise) noexcept
{
    const char* const value = std::getenv(variable);
    return value == nullptr ? otherwise : value;
}

std::FILE* openLog(const char* path, std::string_view purpose)
{
    std::FILE* const log = std::fopen(path, "w");
    if (log != nullptr) {
        // Unbuffered, so that each line is one write to the file, however long it is.
        static_cast<void>(std::setvbuf(log, nullptr, _IONBF, 0));
        writeAtOnce(log, Line({version, "\n", stars, product, purpose, stars}, "", ""));
    }
    return log;
}

void readTraceLevel()
{
    if (const char* const level = std::getenv("QVL_TRACE_LEVEL")) {
        QVL_Traces_Level = std::atoi(level); // NOLINT(cert-err34-c): what is not a number means level 0
    }
}

void openAccessLog()
{
    const char* const path = std::getenv("QVL_LOG_FILE");
    writeToConsole({"LogFile=", path});
    if (path != nullptr) {
        writeToConsole({"Opening LogFile ", path});
        QVL_Log_File = openLog(path, accessPurpose);
    }
}

void openErrorLog()
{
    const char* const path = environmentOr("QVL_LOG_ERROR", "./QVL_LOG_ERROR");
    writeToConsole({"Opening Error LogFile ", path});
    QVL_ErrLog_File = openLog(path, errorPurpose);
}

void firstTime(int& flag, void (*action)())
{
    if (flag != 0) {
        action();
        flag = 0;
    }
}

void closeLog(std::FILE*& log) noexcept
{
    const File closed(std::exchange(log, nullptr));
}

} // namespace

void writeAtOnce(std::FILE* file, const Line& line) noexcept
{
    std::fwrite(line.data(), 1, line.size(), file);
    std::fflush(file);
}

void openLogs()
{
    firstTime(QVL_Traces_FirstTime, readTraceLevel);
    firstTime(QVL_Log_FirstTime, openAccessLog);
    firstTime(QVL_ErrLog_FirstTime, openErrorLog);
}

void closeLogs() noexcept
{
    closeLog(QVL_Log_File);
    closeLog(QVL_ErrLog_File);
}

void writeLastError(std::initializer_list<Piece> pieces)
{
    const File file(std::fopen(environmentOr("QVL_LAST_ERROR", "./QVL_LAST_ERROR"), "w"));
    if (file) {
        writeAtOnce(file.get(), Line(pieces, "", ""));
    }
}

} // namespace velrzm
