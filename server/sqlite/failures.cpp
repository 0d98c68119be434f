// SPDX-License-Identifier: Apache-2.0
#include "server/sqlite/failures.h"

#include <algorithm>
#include <array>
#include <new>
#include <string>

#include "server/base/errors.h"

namespace qvserver {

namespace {

struct Meaning {
    int code; // without its extension
    Failure failure;
    const char* text;
};

static_assert(busyTimeoutSeconds == 10);
constexpr const char* busy =
    "another process kept the store busy for 10 seconds; nothing was changed, try again";
constexpr const char* notWritable =
    "the store cannot be written; check the permissions of the file and its folder";
constexpr const char* damaged = "the store is damaged, or it is not a store at all";

constexpr std::array meanings = {
    Meaning{SQLITE_BUSY, Failure::StoreBusy, busy},
    Meaning{SQLITE_LOCKED, Failure::StoreBusy, busy},
    Meaning{SQLITE_READONLY, Failure::StoreReadOnly, notWritable},
    Meaning{SQLITE_PERM, Failure::StoreReadOnly, notWritable},
    Meaning{SQLITE_CANTOPEN, Failure::StoreUnusable,
            "the store cannot be opened; check the permissions of the file and its folder"},
    Meaning{SQLITE_CORRUPT, Failure::StoreUnusable, damaged},
    Meaning{SQLITE_NOTADB, Failure::StoreUnusable, damaged},
    Meaning{SQLITE_FULL, Failure::StoreFailure, "no room is left on the disk; nothing was changed"},
};
constexpr Meaning otherMeaning = {SQLITE_ERROR, Failure::StoreFailure, "the database failed"};

} // namespace

void failWithCode(int code, std::string_view place, std::string_view reason)
{
    const int primary = code & 0xFF;
    if (primary == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    const auto* const known =
        std::find_if(meanings.begin(), meanings.end(),
                     [primary](const Meaning& meaning) { return meaning.code == primary; });
    const Meaning& meaning = known == meanings.end() ? otherMeaning : *known;
    fail(meaning.failure, place, place.empty() ? "" : ": ", meaning.text, " (", reason, ')');
}

void failWithCode(int code, sqlite3* database)
{
    const char* const file = sqlite3_db_filename(database, "main");
    failWithCode(code, file == nullptr ? "" : file, sqlite3_errmsg(database));
}

} // namespace qvserver
