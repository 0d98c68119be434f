// SPDX-License-Identifier: Apache-2.0
//
// The explosion of a structure through the library, three values of every row read, and beside it a recursive
// query on the same store file through the C interface of the database.
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <string>

#include <benchmark/benchmark.h>
#include <velrzm/velrzm.h>

#include "bench/explosion_memory.h"
#include "bench/explosion_store.h"
#include "bench/session.h"

namespace {

/** What was read: both ways must read the same. */
struct Reading {
    std::int64_t rows = 0;
    std::int64_t characters = 0;
    std::uint64_t check = 0;

    void add(const char* text)
    {
        const std::size_t length = std::strlen(text);
        characters += static_cast<std::int64_t>(length);
        check = check * 31 + (length == 0 ? 0 : static_cast<unsigned char>(text[length - 1])) + length;
    }
};

char parameterName[] = "item_number";
char level[] = "level";
char child[] = "comp_item_number";
char sequence[] = "comp_seq_nm";

Reading readExplosion()
{
    std::string top = bench::topItem;
    std::array<char*, 2> names = {parameterName, nullptr};
    std::array<char*, 2> values = {top.data(), nullptr};
    std::array<char*, 4> columns = {level, child, sequence, nullptr};
    std::array<char, QV_MAX_VALUE_LENGTH + 1> value = {};
    Reading reading;
    reading.rows = BomExplode(names.data(), values.data(), columns.data());
    for (int row = 0; row < reading.rows; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            GetValue(row, columns[column], value.data(), value.size());
            reading.add(value.data());
        }
    }
    return reading;
}

constexpr const char* recursiveQuery = R"(
    WITH RECURSIVE line(level, child, sequence, number) AS (
        SELECT 1, "logical_key@comp_item_number", "logical_key@comp_seq_nm",
               CAST("logical_key@comp_seq_nm" AS INTEGER)
        FROM "Component" WHERE "logical_key@item_number" = ?1
        UNION ALL
        SELECT line.level + 1, "logical_key@comp_item_number", "logical_key@comp_seq_nm",
               CAST("logical_key@comp_seq_nm" AS INTEGER)
        FROM line JOIN "Component" ON "logical_key@item_number" = line.child
        ORDER BY 1 DESC, 4)
    SELECT level, child, sequence FROM line)";

Reading readQuery(sqlite3_stmt* statement)
{
    sqlite3_bind_text(statement, 1, bench::topItem, -1, SQLITE_STATIC);
    Reading reading;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        ++reading.rows;
        for (int column = 0; column < 3; ++column) {
            reading.add(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
        }
    }
    sqlite3_reset(statement);
    return reading;
}

/** What the query reads from a store; read once. */
const Reading& readingOf(const std::string& store)
{
    static std::map<std::string, Reading> readings;
    const auto [found, isNew] = readings.try_emplace(store);
    if (isNew) {
        const auto database = bench::openDatabase(store);
        found->second = readQuery(bench::prepare(database.get(), recursiveQuery).get());
    }
    return found->second;
}

void measure(benchmark::State& state, const std::string& store, const std::function<Reading()>& read)
{
    const Reading& expected = readingOf(store);
    Reading last;
    for ([[maybe_unused]] auto _ : state) {
        last = read();
        if (last.rows != state.range(0) || last.rows != expected.rows || last.check != expected.check) {
            state.SkipWithError("the rows are not those of the query");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * last.rows);
    state.counters["time per row"] =
        benchmark::Counter(static_cast<double>(state.iterations() * last.rows),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void explosionByLibrary(benchmark::State& state, bench::Items items)
{
    const std::string& store = bench::storeWithStructure(state.range(0), items);
    const bench::Session session(store);
    if (!session.isConnected()) {
        state.SkipWithError("no connection");
        return;
    }
    const std::int64_t before = bench::heldBytes();
    bench::peakBytes();
    const Reading first = readExplosion(); // beside no result of an earlier one
    const std::int64_t ours = bench::peakBytes() - before - first.characters;
    measure(state, store, readExplosion);
    state.counters["bytes per row"] = static_cast<double>(ours) / static_cast<double>(state.range(0));
}

void explosionByQuery(benchmark::State& state, bench::Items items)
{
    const std::string& store = bench::storeWithStructure(state.range(0), items);
    const auto database = bench::openDatabase(store);
    const auto statement = bench::prepare(database.get(), recursiveQuery);
    measure(state, store, [&] { return readQuery(statement.get()); });
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(explosionByLibrary, inOrder, bench::Items::InOrder)
    ->Name("explosion/BomExplode")
    ->Apply(sizes);
BENCHMARK_CAPTURE(explosionByQuery, inOrder, bench::Items::InOrder)->Name("explosion/query")->Apply(sizes);
BENCHMARK_CAPTURE(explosionByLibrary, scattered, bench::Items::Scattered)
    ->Name("explosion of scattered numbers/BomExplode")
    ->Apply(sizes);
BENCHMARK_CAPTURE(explosionByQuery, scattered, bench::Items::Scattered)
    ->Name("explosion of scattered numbers/query")
    ->Apply(sizes);
BENCHMARK_CAPTURE(explosionByLibrary, standard, bench::Items::StandardParts)
    ->Name("explosion with standard parts/BomExplode")
    ->Apply(sizes);
BENCHMARK_CAPTURE(explosionByQuery, standard, bench::Items::StandardParts)
    ->Name("explosion with standard parts/query")
    ->Apply(sizes);

} // namespace
