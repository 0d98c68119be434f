// SPDX-License-Identifier: Apache-2.0
#include "bench/explosion_store.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numeric>
#include <stdexcept>
#include <utility>
#include <vector>

#include <velrzm/qvlocal.h>

#include "bench/log_folder.h"

namespace bench {

namespace {

void check(sqlite3* database, bool fine)
{
    if (!fine) {
        throw std::runtime_error(sqlite3_errmsg(database));
    }
}

void run(sqlite3* database, const char* sql)
{
    check(database, sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK);
}

/** How many lines each level has: from level to level more by the same factor, all together `lines`. */
std::array<std::int64_t, structureLevels> linesOfLevels(std::int64_t lines)
{
    const auto levelOf = [](double factor, std::size_t level) {
        return std::llround(std::pow(factor, static_cast<double>(level + 1)));
    };
    std::array<std::int64_t, structureLevels> counts = {};
    double low = 1;
    double high = 50; // whose sums are still far from the largest number
    for (int halving = 0; halving < 100; ++halving) {
        const double factor = (low + high) / 2;
        for (std::size_t level = 0; level < counts.size(); ++level) {
            counts[level] = levelOf(factor, level);
        }
        (std::accumulate(counts.begin(), counts.end(), std::int64_t(0)) > lines ? high : low) = factor;
    }
    for (std::size_t level = 0; level < counts.size(); ++level) {
        counts[level] = levelOf(low, level);
    }
    counts.back() += lines - std::accumulate(counts.begin(), counts.end(), std::int64_t(0));
    return counts;
}

/** Writes the lines of a structure straight into the tables, which takes seconds where saves take minutes. */
class StructureWriter {
public:
    StructureWriter(sqlite3* database, std::int64_t lines, Items items)
        : lines_(linesOfLevels(lines)), items_(items),
          standardParts_(std::max<std::int64_t>(1, lines / usesOfStandardPart)),
          item_(prepare(database, R"(INSERT OR IGNORE INTO "ItemEngineeringData" ("logical_key@item_number",
                                     "master_item@control") VALUES (?1, '1'))")),
          line_(prepare(database, R"(INSERT INTO "Component" ("logical_key@item_number",
                                     "logical_key@comp_item_number", "logical_key@comp_seq_nm")
                                     VALUES (?1, ?2, ?3))"))
    {}

    void write()
    {
        insert(item_.get(), {topItem});
        std::int64_t parents = 1;
        for (std::size_t level = 1; level <= lines_.size(); ++level) {
            const std::int64_t count = lines_.at(level - 1);
            std::int64_t sequence = 0;
            for (std::int64_t line = 0; line < count; ++line) {
                const std::int64_t parent = line * parents / count;
                sequence = line > 0 && (line - 1) * parents / count == parent ? sequence + 1 : 1;
                const std::string item = itemOf(level, line);
                insert(item_.get(), {item});
                insert(line_.get(), {itemOf(level - 1, parent), item, std::to_string(10 * sequence)});
            }
            parents = count;
        }
    }

private:
    static constexpr std::int64_t usesOfStandardPart = 50;

    /** The number of the item at a place of a level. */
    std::string itemOf(std::size_t level, std::int64_t place) const
    {
        constexpr std::int64_t numbers = 10000000;
        constexpr std::int64_t step =
            6180339; // the golden ratio: no two of some thousand neighbours are close
        if (level == 0) {
            return topItem;
        }
        const bool standard = items_ == Items::StandardParts && level == lines_.size();
        const std::int64_t made =
            std::accumulate(lines_.begin(), lines_.begin() + level - 1, std::int64_t(0)) +
            (standard ? place % standardParts_ : place);
        return "P" + std::to_string(numbers + (items_ == Items::Scattered ? made * step % numbers : made));
    }

    static void insert(sqlite3_stmt* statement, const std::vector<std::string>& values)
    {
        int index = 0;
        for (const std::string& value : values) {
            sqlite3_bind_text(statement, ++index, value.c_str(), -1, SQLITE_TRANSIENT);
        }
        check(sqlite3_db_handle(statement), sqlite3_step(statement) == SQLITE_DONE);
        sqlite3_reset(statement);
    }

    std::array<std::int64_t, structureLevels> lines_; // of each level
    Items items_;
    std::int64_t standardParts_;
    Statement item_;
    Statement line_;
};

std::string makeStore(std::int64_t lines, Items items)
{
    std::string path = logFolder() + "/structure-" + std::to_string(lines) + '-' +
                       std::to_string(static_cast<int>(items)) + ".db";
    qvlocal::initializeStore("sqlite:" + path, "bench", "bench");
    const Database database = openDatabase(path);
    run(database.get(), "BEGIN");
    StructureWriter(database.get(), lines, items).write();
    run(database.get(), "COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
    return path;
}

} // namespace

Database openDatabase(const std::string& path)
{
    sqlite3* database = nullptr;
    const int code =
        sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    Database opened(database);
    check(database, code == SQLITE_OK);
    return opened;
}

Statement prepare(sqlite3* database, const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr);
    Statement prepared(statement);
    check(database, code == SQLITE_OK);
    return prepared;
}

const std::string& storeWithStructure(std::int64_t lines, Items items)
{
    static std::map<std::pair<std::int64_t, Items>, std::string> paths;
    std::string& path = paths[{lines, items}];
    if (path.empty()) {
        path = makeStore(lines, items);
    }
    return path;
}

} // namespace bench
