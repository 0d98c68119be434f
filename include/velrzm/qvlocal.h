// SPDX-License-Identifier: Apache-2.0
//
// Administration of the stores of the local server, libqvlocal. The server itself is used through
// <velrzm/qv_sdk.h>.
//
// Conventions:
//  1. A store is named by its location, "sqlite:" and the path of its file.
//  2. Every function reports a failure by throwing StoreError, whose text says what is wrong and what to do;
//     nothing is changed then.
//  3. The functions need no logon. Whoever may write the file administers the store.
#ifndef VELRZM_QVLOCAL_H
#define VELRZM_QVLOCAL_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <velrzm/export.h>

namespace qvlocal {

/** A failure; `what()` says what is wrong with which value and what to do. */
class VELRZM_API StoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** The user's own store: "velrzm/store.db" in the user's data directory ("$XDG_DATA_HOME", "~/.local/share").
 */
VELRZM_API std::string defaultStore();

/** The store that a logon uses: what the environment variable QV_STORE names, else `defaultStore()`. */
VELRZM_API std::string currentStore();

/**
 * Makes a store and its first user. Folders on the way are made as well; what is already there is refused.
 *
 *     qvlocal::initializeStore(qvlocal::currentStore(), "jdoe", password);
 */
VELRZM_API void initializeStore(const std::string& location, const std::string& user,
                                const std::string& password);

/** Fails as initializeStore would when something is already there; for asking before a password is asked for. */
VELRZM_API void requireNoStore(const std::string& location);

/** What a store is and holds. */
struct StoreSummary {
    std::int64_t formatVersion; // of the form in which objects are kept
    std::uintmax_t bytes;       // that everything takes
    std::size_t users;
    std::vector<std::pair<std::string, std::size_t>> objects; // how many of each class, every class named
};

/** Looks at a store. */
VELRZM_API StoreSummary summarizeStore(const std::string& location);

/** Whether a file that is already there is replaced. */
enum class Replace { No, Yes };

/** Told how many bytes of how many are copied. What it throws ends the copying and reaches the caller. */
using BackupProgress = std::function<void(std::uintmax_t done, std::uintmax_t total)>;

/**
 * Writes a copy of a store to `file`, where it is a store of its own with the same users. It holds what was
 * committed when the copying began; others go on reading and writing meanwhile. The copy appears as a whole,
 * on the disk, or not at all.
 *
 *     qvlocal::backUpStore(qvlocal::currentStore(), "/backup/parts.db", qvlocal::Replace::Yes);
 */
VELRZM_API void backUpStore(const std::string& location, const std::string& file,
                            Replace replace = Replace::No, const BackupProgress& progress = {});

/** Adds a user who is not there yet. */
VELRZM_API void addUser(const std::string& location, const std::string& user, const std::string& password);

/** Removes a user; the objects that the user saved stay. */
VELRZM_API void removeUser(const std::string& location, const std::string& user);

/** Gives a user another password. */
VELRZM_API void setPassword(const std::string& location, const std::string& user,
                            const std::string& password);

/** The names of all users, sorted. */
VELRZM_API std::vector<std::string> listUsers(const std::string& location);

/**
 * Whether the server takes `path` as the path of an attribute: names of letters, digits and "_" that do not begin with
 * a digit, joined by "@", of 255 characters at most. Needs no store.
 */
VELRZM_API bool isAttributePath(const std::string& path);

/**
 * Loads the options of products from a CSV file with the columns "product", "feature" and "variant". Such a
 * file:
 *  - begins with a line that names its columns, in any order; a byte order mark before it does no harm;
 *  - has fields that are separated by commas; one that holds commas, line breaks or quotes stands in double
 * quotes, with quotes inside it doubled;
 *  - holds everything about the products that it names: what the store had of them is replaced, what it has
 * of others stays. So a file can be corrected and loaded again;
 *  - is loaded as a whole or not at all. The first wrong row is refused with file, line and reason; wrong are
 * another number of fields, an empty field, one that is too long, and a row that the file has already.
 *
 * @return the number of rows that were loaded.
 */
VELRZM_API std::size_t loadProductOptions(const std::string& location, const std::string& file);

/** Loads the option packages of products: "product", "package_id"; otherwise like loadProductOptions. */
VELRZM_API std::size_t loadProductPackages(const std::string& location, const std::string& file);

/**
 * Loads translation tables: "table", "from", "to". Their entries keep the file's order; a table has one entry
 * for each "from", and "to" may be empty. Otherwise like loadProductOptions, with tables in place of
 * products.
 *
 *     qvlocal::loadTranslationTables(qvlocal::currentStore(), "units.csv");
 */
VELRZM_API std::size_t loadTranslationTables(const std::string& location, const std::string& file);

} // namespace qvlocal

#endif
