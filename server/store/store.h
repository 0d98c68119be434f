// SPDX-License-Identifier: Apache-2.0
//
// The interface of a store.
#ifndef VELRZM_SERVER_STORE_STORE_H
#define VELRZM_SERVER_STORE_STORE_H

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server/base/class_table.h"
#include "server/store/query.h"
#include "server/store/rows.h"

namespace qvserver {

enum class Access { Read, Write };

/** Whether a change of an object counts as a save of it. */
enum class Count { Save, Nothing };

/** Which of several values a row was found for, and the id of its object. */
struct Match {
    std::size_t value;
    std::int64_t id;
};

/** Called with the numbers of bytes copied and in all; it may throw to end the copying. */
using CopyProgress = std::function<void(std::uintmax_t done, std::uintmax_t total)>;

/**
 * What the server needs of a database: objects with their values, queries, users, transactions. It knows the classes only
 * as the shape of its tables; what an object means is the business of the code above it. Every call fails with a
 * ServerError when the database does.
 */
class Store {
public:
    Store() = default;
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    virtual ~Store() = default;

    /** Begins a transaction, or within an open one a part that can be rolled back alone. */
    virtual void begin(Access access) = 0;
    /** Commits the transaction, or keeps its part; rolls it back when that fails. */
    virtual void commit() = 0;
    virtual void rollback() noexcept = 0;

    /** The next of the rising numbers that identify objects. */
    virtual std::int64_t nextNumber() = 0;
    /** The number that `nextNumber` returned last. */
    virtual std::int64_t lastNumber() = 0;
    /** Stores a new object; false when one with the same keys is stored. */
    virtual bool insert(const Class& objectClass, std::int64_t id, const Values& values) = 0;
    /** Sets `values` of an object; false when another one has the resulting keys. */
    virtual bool update(const Class& objectClass, std::int64_t id, const Values& values, Count count) = 0;
    /** Deletes an object; nothing happens when it is not stored. */
    virtual void remove(const Class& objectClass, std::int64_t id) = 0;
    /** All values of an object; none when it is not stored. */
    virtual Values values(const Class& objectClass, std::int64_t id) = 0;
    /** The rows of a query; they do not change with the store. */
    virtual std::shared_ptr<const Rows> select(const Query& query) = 0;
    /**
     * Carries out `query`, without its order, for each of `values` of the attribute `path`: all values in one trip to the
     * database. The values must be sorted, different from one another and without trailing blanks. Appends the rows to
     * `rows`, those of each value adjacent, the values in their order; returns a match for each row appended.
     */
    virtual std::vector<Match> selectForEach(const Query& query, std::string_view path,
                                             const std::vector<std::string_view>& values, Rows& rows) = 0;
    /** How many objects of a class are stored. */
    virtual std::int64_t count(const Class& objectClass) = 0;
    /** The paths beside those of the class of which an object has a value that is not empty. */
    virtual std::vector<std::string> addedPaths(const Class& objectClass) = 0;

    /** The database below, and its version. */
    virtual std::string engine() const = 0;
    /** Whether nothing can be changed. */
    virtual bool isReadOnly() const noexcept = 0;
    /** The version of the layout in which objects are stored. */
    virtual std::int64_t formatVersion() const = 0;
    /** The size of everything in bytes. */
    virtual std::uintmax_t size() const = 0;
    /** Fails when something in the store is damaged; reads all of it. */
    virtual void check() = 0;
    /** Checks what is committed at this moment and writes it to the empty file at `path`; others may go on reading and
     * writing. */
    virtual void copyTo(const std::string& path, const CopyProgress& progress) = 0;

    /** Whether the store has no users, so that anybody may use it. */
    virtual bool isOpenToAll() const noexcept = 0;
    virtual std::vector<std::string> userNames() = 0;
    /** The hash of the user's password; none for an unknown user. */
    virtual std::optional<std::string> passwordHash(std::string_view user) = 0;
    /** Adds a user, or changes the password of a known one. */
    virtual void putUser(std::string_view user, std::string_view passwordHash) = 0;
    virtual void removeUser(std::string_view user) = 0;
};

/** A transaction, or a part of one, that is rolled back unless it is committed. */
class Transaction {
public:
    Transaction(Store& store, Access access) : store_(store) { store_.begin(access); }
    ~Transaction()
    {
        if (!ended_) {
            store_.rollback();
        }
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit()
    {
        ended_ = true; // a commit that fails rolls back by itself
        store_.commit();
    }

private:
    Store& store_;
    bool ended_ = false;
};

/** Whether the query finds anything. */
bool exists(Store& store, Query query);

/** Fails because of something in the store that only damage can explain. */
[[noreturn]] void failDamaged(std::string_view what);

/** The rows of a query that finds something in every store that is not damaged; fails when it finds nothing. */
std::shared_ptr<const Rows> selectStored(Store& store, const Query& query);

/** The whole number in a row; fails when the store holds something else there. */
std::int64_t integerAt(const Rows& rows, std::size_t row, std::size_t column);

/** The ids of the objects that the query finds, whatever it selects. */
std::vector<std::int64_t> idsOf(Store& store, Query query);

} // namespace qvserver

#endif
