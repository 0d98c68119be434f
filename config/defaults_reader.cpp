// SPDX-License-Identifier: Apache-2.0
//
// The defaults files: a shared one of the site and a local one, whose entries replace those of the shared
// file.
#include <velrzm/defaults.h>

#include <string>

#include "config/defaults_file.h"
#include "diagnostics/access_log.h"
#include "diagnostics/guard.h"
#include "diagnostics/trace.h"
#include "diagnostics/warning.h"

using namespace velrzm;

namespace {

constexpr const char* prefix = "DefaultRead";

/** The access-log lines of this reader depend on the trace level, unlike all others. */
template <class... Pieces>
void logFromLevel3(const Pieces&... pieces)
{
    if (traced(DefaultsLevel)) {
        accessLog(prefix, pieces...);
    }
}

void warnOfCut(const DefaultsEntry& entry)
{
    warn(prefix, "an entry of " + entry.operation + " is cut to the first " +
                     std::to_string(longestDefaultsLine) + " characters of its line: " + entry.file +
                     ", line " + std::to_string(entry.line));
}

/** The entries of `operation` in one of the files; none when the file cannot be opened. */
std::vector<DefaultsEntry> read(const std::string& path, const char* operation)
{
    std::optional<std::vector<DefaultsEntry>> entries = readDefaultsFile(path, operation);
    if (!entries) {
        return {};
    }
    trace(OperationLevel, prefix, "- Reading defaults from ", path);
    logFromLevel3("- Reading defaults from ", path);
    for (const DefaultsEntry& entry : *entries) {
        if (entry.isCut) {
            warnOfCut(entry);
        }
    }
    return *std::move(entries);
}

std::vector<DefaultsEntry> readShared(const char* operation)
{
    const std::optional<std::string> path = sharedDefaultsPath();
    if (!path) {
        warn(prefix, "the path of the shared defaults file has more than 255 characters; the file is skipped "
                     "(shorten RZM_DEFAULT_DIRECTORY)");
        return {};
    }
    return read(*path, operation);
}

int readDefaults(const VELUnicodeString& operation, VELListValVELUnicodeString& names,
                 VELListValVELUnicodeString& values)
{
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const VELUnicodeString wanted = operation; // the caller may have it in one of the lists
    trace(OperationLevel, prefix, "-----Start------------------------------");
    names.RemoveAll();
    values.RemoveAll();
    std::vector<DefaultsEntry> entries = readShared(wanted);
    overrideDefaults(entries, read(localDefaultsPath, wanted));
    for (const DefaultsEntry& entry : entries) {
        names.Append(entry.name.c_str());
        values.Append(entry.value.c_str());
        trace(CallLevel, prefix, "- ", entry.name, "=", entry.value);
        logFromLevel3("- ", entry.name, "<=>", entry.value);
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
