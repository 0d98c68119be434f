// SPDX-License-Identifier: Apache-2.0
//
// Administration of the stores of the local server, libqvlocal. The server itself is used through
// <velrzm/qv_sdk.h>.
//
// Conventions:
//  1. A store is named by its location, "sqlite:" and the path of its file.
//  2. A function that fails throws StoreError, whose text says what is wrong and what to do; the store is not changed
//     then.
//  3. The functions need no logon. Whoever may write the file administers the store.
//  4. A process that was forked after a logon must not call them: the database takes the locks of its parent for its own.
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

/** The version of the local server, "0.1.0". */
VELRZM_API std::string version();

/**
 * The location of the user's own store: "velrzm/store.db" in the directory that XDG_DATA_HOME names, else in
 * "~/.local/share".
 */
VELRZM_API std::string defaultStore();

/** The location of the store that a logon uses: what the environment variable QV_STORE names, else `defaultStore()`. */
VELRZM_API std::string currentStore();

/**
 * Makes a store and its first user, and the folders on the way to it. Anything that is there already is refused.
 *
 *     qvlocal::initializeStore(qvlocal::currentStore(), "jdoe", password);
 */
VELRZM_API void initializeStore(const std::string& location, const std::string& user,
                                const std::string& password);

/** Fails as initializeStore would when something is there already; to find that out before asking for a password. */
VELRZM_API void requireNoStore(const std::string& location);

/** What a store is and holds. */
struct StoreSummary {
    std::string engine;         // the database and its version: "SQLite 3.40.1"
    bool isReadOnly;            // whether nothing can be changed
    std::int64_t formatVersion; // of the tables in the file
    std::uintmax_t bytes;       // of all its files
    std::size_t users;
    std::vector<std::pair<std::string, std::size_t>> objects; // every class, and how many of it are stored
};

/** Checks a store, all of which is read for it, and counts what it holds; a damaged one is a failure. */
VELRZM_API StoreSummary summarizeStore(const std::string& location);

/** Whether a file that is already there is replaced. */
enum class Replace { No, Yes };

/**
 * Told how many bytes of how many are copied. What it throws ends the copying and reaches the caller, a std::exception
 * as a StoreError with its text.
 */
using CopyProgress = std::function<void(std::uintmax_t done, std::uintmax_t total)>;

/**
 * Writes a copy of a store to `file`, where it is a store of its own with the same users. It holds what was committed
 * when the copying began; others go on reading and writing meanwhile. `file` appears when the copy is complete and on
 * the disk, or not at all; a process that is killed leaves `file`.unfinished, which the next copy to `file` removes. A
 * damaged store is not copied, and a store that somebody uses is not replaced.
 *
 *     qvlocal::backUpStore(qvlocal::currentStore(), "/backup/parts.db", qvlocal::Replace::Yes);
 */
VELRZM_API void backUpStore(const std::string& location, const std::string& file,
                            Replace replace = Replace::No, const CopyProgress& progress = {});

/**
 * Puts a copy of the store in `file` in the place of the one at `location`, or where one is missing. Nobody may use that
 * one, and `file` must not be damaged. The restored store has the users and objects of `file`, and appears when it is
 * complete and on the disk; what belonged to the old one goes with it. When the machine stops in the middle, restore again.
 *
 *     qvlocal::restoreStore("/backup/parts.db", qvlocal::currentStore());
 */
VELRZM_API void restoreStore(const std::string& file, const std::string& location,
                             const CopyProgress& progress = {});

/** Adds a user; a user of that name is refused. The name has 1 to 255 characters. */
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

/** An attribute by its path. */
struct AttributeName {
    std::string path; // "name", or "ai_obj@item_status" of a related object
    bool isRelated;   // whether it is that of a related object
};

/**
 * The attributes that objects of a class may have a value of: those of the class and of the classes that it is related
 * to, and those that a site added, as long as a stored object of these classes has a value of them.
 */
VELRZM_API std::vector<AttributeName> attributeNames(const std::string& location,
                                                     const std::string& className);

/**
 * Loads the options of products from a CSV file with the columns "product", "feature" and "variant". Such a
 * file:
 *  - begins with a line that names its columns, in any order; a byte order mark before it does no harm;
 *  - has fields separated by commas; a field that holds commas, line breaks or double quotes is put in double quotes,
 * and those inside it are doubled;
 *  - holds everything about the products that it names: it replaces what the store has of them, and leaves other products
 * alone. So a file can be corrected and loaded again;
 *  - is loaded as a whole or not at all. The failure names file, line and reason of the first wrong row: one with another
 * number of fields, with a field that is empty or too long, or that the file has already.
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
