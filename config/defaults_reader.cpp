// SPDX-License-Identifier: Apache-2.0
//
// The defaults files: a shared one of the site and a local one, whose entries replace those of the shared
// file.
#include <velrzm/defaults.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "diagnostics/access_log.h"
#include "diagnostics/guard.h"
#include "diagnostics/log_files.h"
#include "diagnostics/trace.h"
#include "diagnostics/warning.h"

using namespace velrzm;

namespace {

constexpr const char* prefix = "DefaultRead";
constexpr const char* sharedName = "QVL_RZM_DEFAULT";
constexpr const char* localPath = "./My_QVL_RZM_DEFAULT";
constexpr std::size_t pieceBuffer = 64; // a line is read in pieces of at most 63 characters
constexpr std::size_t pathBuffer = 256;

/** The access-log lines of this reader depend on the trace level, unlike all others. */
template <class... Pieces>
void logFromLevel3(const Pieces&... pieces)
{
    if (traced(DefaultsLevel)) {
        accessLog(prefix, pieces...);
    }
}

/** The path of the shared file; none when the directory's name is too long for it. */
std::optional<std::string> sharedPath()
{
    const char* const directory = std::getenv("RZM_DEFAULT_DIRECTORY");
    const BoundedText<pathBuffer> path{directory == nullptr ? "." : directory, "/", sharedName};
    if (!path.fits()) {
        warn(prefix, "the path of the shared defaults file has more than 255 characters; the file is skipped "
                     "(shorten RZM_DEFAULT_DIRECTORY)");
        return std::nullopt;
    }
    return std::string(path.view());
}

/** What of a piece of a file is no comment. */
std::string withoutComment(const char* piece)
{
    return {piece, std::strcspn(piece, "#\n")};
}

/**
 * Calls `take(name, value)` for each entry of `operation` in the file; tells on the trace that it reads the
 * file.
 */
template <class Take>
void readEntries(const char* path, const VELUnicodeString& operation, const Take& take)
{
    const File file(std::fopen(path, "r"));
    if (!file) {
        return;
    }
    trace(OperationLevel, prefix, "- Reading defaults from ", path);
    logFromLevel3("- Reading defaults from ", path);
    std::array<char, pieceBuffer> piece{};
    while (std::fgets(piece.data(), static_cast<int>(piece.size()), file.get()) != nullptr) {
        const std::string entry = withoutComment(piece.data());
        if (entry.empty()) {
            continue;
        }
        VELToken tokens(entry.c_str());
        if (tokens.GetNextToken() == operation) {
            const VELUnicodeString name = tokens.GetNextToken();
            take(name, tokens.GetNextToken());
        }
    }
}

int readDefaults(const VELUnicodeString& operation, VELListValVELUnicodeString& names,
                 VELListValVELUnicodeString& values)
{
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const VELUnicodeString wanted = operation; // the caller may have it in one of the lists
    trace(OperationLevel, prefix, "-----Start------------------------------");
    names.RemoveAll();
    values.RemoveAll();
    const auto append = [&](const VELUnicodeString& name, const VELUnicodeString& value) {
        names.Append(name);
        values.Append(value);
    };
    if (const auto shared = sharedPath()) {
        readEntries(shared->c_str(), wanted, append);
    }
    readEntries(localPath, wanted, [&](const VELUnicodeString& name, const VELUnicodeString& value) {
        if (const int position = names.Locate(name)) {
            values.Replace(position, value);
        } else {
            append(name, value);
        }
    });
    for (int i = 1; i <= names.Size(); ++i) {
        trace(CallLevel, prefix, "- ", names[i], "=", values[i]);
        logFromLevel3("- ", names[i], "<=>", values[i]);
    }
    trace(OperationLevel, prefix, "-----Exit----NbOfDefault=", names.Size(), "--------");
    return names.Size();
}

} // namespace

int DefaultRead(const VELUnicodeString& operation, VELListValVELUnicodeString& names,
                VELListValVELUnicodeString& values)
{
    const auto none = [&] {
        names.RemoveAll();
        values.RemoveAll();
        return 0;
    };
    return guarded(
        prefix, [&] { return readDefaults(operation, names, values); }, none);
}
