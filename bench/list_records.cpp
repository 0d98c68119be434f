// SPDX-License-Identifier: Apache-2.0
//
// Values of the first and of the last records of a list of 100,000 items.
#include <array>
#include <string>

#include <benchmark/benchmark.h>
#include <velrzm/velrzm.h>

#include "bench/explosion_store.h"
#include "bench/session.h"

namespace {

constexpr int items = 100000;

/** Lists the items of the structure, without the top. */
int listItems()
{
    std::array<std::string, 8> filters = {"P", "", "", "", "", "", "", "DEV"};
    char number[] = "logical_key@item_number";
    std::array<char*, 2> names = {number, nullptr};
    return ItemQuery(filters[0].data(), filters[1].data(), filters[2].data(), filters[3].data(),
                     filters[4].data(), filters[5].data(), filters[6].data(), filters[7].data(),
                     names.data());
}

/** Reads a value of record `record` and of the one behind it in turn, since a record stays loaded. */
void readRecords(benchmark::State& state, int record)
{
    const bench::Session session(bench::storeWithStructure(items, bench::Items::InOrder));
    if (!session.isConnected() || listItems() != items) {
        state.SkipWithError("no list of the items");
        return;
    }
    std::array<char, QV_MAX_VALUE_LENGTH + 1> value = {};
    int next = 0;
    for ([[maybe_unused]] auto _ : state) {
        GetValue(record + next, "logical_key@item_number", value.data(), value.size());
        next = 1 - next;
    }
    if (value.front() != 'P') {
        state.SkipWithError("a record without its item number");
    }
}
BENCHMARK_CAPTURE(readRecords, first, 0)->Name("record of a list/first");
BENCHMARK_CAPTURE(readRecords, last, items - 2)->Name("record of a list/last");

} // namespace
