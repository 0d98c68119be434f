// SPDX-License-Identifier: Apache-2.0
//
// Stores with a product structure for the explosion to measure.
#ifndef VELRZM_BENCH_EXPLOSION_STORE_H
#define VELRZM_BENCH_EXPLOSION_STORE_H

#include <cstdint>
#include <memory>
#include <string>

#include <sqlite3.h>

namespace bench {

/**
 * Which items a structure is made of: each one once, with numbers in the order of the structure, as in a new
 * store, or with numbers far from those of their neighbours, as after years of use; or, on the lowest level,
 * standard parts.
 */
enum class Items { InOrder, Scattered, StandardParts };

struct CloseDatabase {
    void operator()(sqlite3* database) const noexcept { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/** Opens a database as fast as it can be used from one thread. */
Database openDatabase(const std::string& path);
Statement prepare(sqlite3* database, const std::string& sql);

constexpr const char* topItem = "TOP";
constexpr int structureLevels = 8;

/** The path of a store with a structure of that many lines on eight levels below `topItem`, made at first
 * use. */
const std::string& storeWithStructure(std::int64_t lines, Items items);

} // namespace bench

#endif
