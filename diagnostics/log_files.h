// SPDX-License-Identifier: Apache-2.0
//
// The log files: opening and closing the access log and the error log, and the last-error file.
#ifndef VELRZM_DIAGNOSTICS_LOG_FILES_H
#define VELRZM_DIAGNOSTICS_LOG_FILES_H

#include <cstdio>
#include <memory>
#include <string_view>

#include "diagnostics/text.h"

namespace velrzm {

/** The library's version, which heads every log file. */
constexpr std::string_view version = "RZM 424.1 / QV 340";

/** A file that closes itself. */
struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

/** Writes the line with one write and flushes. Failures are ignored: there is nowhere to report them. */
void writeAtOnce(std::FILE* file, const Line& line) noexcept;

/** Reads the trace level and opens the access log and the error log, each only the first time in the process. */
void openLogs();
/** Closes both logs; they are not opened again in this process. */
void closeLogs() noexcept;

/** Overwrites the last-error file with the pieces. A file that cannot be opened is skipped. */
void writeLastError(std::initializer_list<Piece> pieces);

} // namespace velrzm

#endif
