// SPDX-License-Identifier: Apache-2.0
//
// Stores that are SQLite databases.
#ifndef VELRZM_SERVER_SQLITE_STORE_H
#define VELRZM_SERVER_SQLITE_STORE_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "server/sqlite/database.h"
#include "server/store/store.h"

namespace qvserver {

/** A store in a file, which several processes may use at a time, or in memory. */
class SqliteStore : public Store {
public:
    /** The store in the file at `path`. */
    static std::unique_ptr<Store> open(const std::string& path);
    /** Creates a store with one user at `path`, where nothing may exist; nothing is left there on failure. */
    static void create(const std::string& path, std::string_view user, std::string_view passwordHash);
    /** Fails like `create` when there is something at `path`. */
    static void requireNothingAt(const std::string& path);
    /** A new store in memory. */
    static std::unique_ptr<Store> inMemory();
    /** The files of a store at `path`: its own first, then those that exist beside it now and then. */
    static std::vector<std::string> filesAt(const std::string& path);

    void begin(Access access) override;
    void commit() override;
    void rollback() noexcept override;

    std::int64_t nextNumber() override;
    std::int64_t lastNumber() override;
    bool insert(const Class& objectClass, std::int64_t id, const Values& values) override;
    bool update(const Class& objectClass, std::int64_t id, const Values& values, Count count) override;
    void remove(const Class& objectClass, std::int64_t id) override;
    Values values(const Class& objectClass, std::int64_t id) override;
    std::shared_ptr<const Rows> select(const Query& query) override;
    std::vector<Match> selectForEach(const Query& query, std::string_view path,
                                     const std::vector<std::string_view>& values, Rows& rows) override;
    std::int64_t count(const Class& objectClass) override;
    std::vector<std::string> addedPaths(const Class& objectClass) override;

    std::string engine() const override;
    bool isReadOnly() const noexcept override { return database_.isReadOnly(); }
    std::int64_t formatVersion() const override;
    std::uintmax_t size() const override;
    void check() override { database_.checkIntegrity(); }
    void copyTo(const std::string& path, const CopyProgress& progress) override;

    bool isOpenToAll() const noexcept override { return inMemory_; }
    std::vector<std::string> userNames() override;
    std::optional<std::string> passwordHash(std::string_view user) override;
    void putUser(std::string_view user, std::string_view passwordHash) override;
    void removeUser(std::string_view user) override;

private:
    /** The statements of transactions, prepared ahead so that ending one does not need memory. */
    struct TransactionStatements {
        explicit TransactionStatements(sqlite3* database);
        SqliteStatement begin, beginImmediate, commit, rollback, savepoint, release, rollbackTo;
    };

    SqliteStore(const std::string& path, bool inMemory)
        : database_(path), statements_(database_.handle()), inMemory_(inMemory)
    {}
    static std::unique_ptr<SqliteStore> make(const std::string& path, bool inMemory = false);
    void rollBackTransaction() noexcept;
    void putAdded(std::int64_t id, std::string_view path, std::string_view value);

    SqliteDatabase database_;
    TransactionStatements statements_;
    bool inMemory_;
    int depth_ = 0; // of nested transactions
};

} // namespace qvserver

#endif
