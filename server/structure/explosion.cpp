// SPDX-License-Identifier: Apache-2.0
#include "server/structure/explosion.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <utility>

#include "server/base/errors.h"
#include "server/structure/cycles.h"
#include "server/structure/explosion_rows.h"
#include "server/structure/structure.h"

namespace qvserver {

namespace {

constexpr std::string_view topParameter = "item_number";
constexpr std::string_view changeParameter = "ec_number";
constexpr std::string_view maxLevelParameter = "max_level";
constexpr std::string_view documentsParameter =
    "itm_doc_str"; // which documents to show; a structure has none

constexpr std::string_view levelColumn = "level";

/** Columns of the report that stand for attributes of the component. */
struct ColumnName {
    std::string_view name;
    std::string_view path;
};
constexpr std::array columnNames = {
    ColumnName{"item_number", "logical_key@item_number"},
    ColumnName{"comp_item_number", "logical_key@comp_item_number"},
    ColumnName{"comp_seq_nm", "logical_key@comp_seq_nm"},
};

std::string_view linePath(std::string_view column)
{
    const auto* const found = std::find_if(columnNames.begin(), columnNames.end(),
                                           [column](const ColumnName& name) { return name.name == column; });
    return found == columnNames.end() ? column : found->path;
}

std::size_t levelLimit(std::string_view text)
{
    const auto number = withoutTrailingBlanks(text).empty() ? ParsedNumber(0) : parseNumber(text);
    const auto* const whole = number ? std::get_if<std::int64_t>(&*number) : nullptr;
    if (whole == nullptr || *whole < 0) {
        fail(Failure::BadArgument, maxLevelParameter, '=', inQuotes(text),
             " is not a number of levels; give a whole number, 0 or nothing for all levels");
    }
    return *whole == 0 ? ExplosionReport::allLevels : static_cast<std::size_t>(*whole);
}

/** A row of the report takes 16 bytes; so many are far more than anybody reads, and far less than a machine has. */
constexpr std::size_t mostRows = 10'000'000;

/** A walk through a structure, depth first, over each occurrence of each line. */
class Walk {
public:
    /** Does not go below the level `maxLevel`. */
    Walk(const Structure& structure, std::size_t maxLevel)
        : structure_(structure), maxLevel_(maxLevel), isOnPath_(structure.size())
    {}

    /** Calls `visit(line, level)`; fails when the structure contains itself. */
    template <typename Visit>
    void run(Visit visit)
    {
        if (structure_.top() != Structure::leaf) {
            enter(structure_.top());
        }
        while (!path_.empty()) {
            Step& step = path_.back();
            if (step.next == structure_.item(step.item).endOfLines) {
                isOnPath_[step.item] = false;
                path_.pop_back();
                continue;
            }
            const Structure::Line& line = structure_.line(step.next++);
            const bool isLeaf = line.component == Structure::leaf;
            if (!isLeaf && isOnPath_[line.component]) {
                failAtCycle(line.component);
            }
            visit(line, path_.size());
            if (!isLeaf && path_.size() < maxLevel_) {
                enter(line.component);
            }
        }
    }

private:
    /** An item on the path from the top, and its line that comes next. */
    struct Step {
        std::uint32_t item;
        std::uint32_t next;
    };

    void enter(std::uint32_t item)
    {
        isOnPath_[item] = true;
        path_.push_back({item, structure_.item(item).firstLine});
    }

    /** Fails because a line of the last item on the path leads to `item`, which is on the path as well. */
    [[noreturn]] void failAtCycle(std::uint32_t item) const
    {
        std::vector<std::string> cycle;
        for (const Step& step : path_) {
            if (step.item == item || !cycle.empty()) {
                cycle.emplace_back(structure_.item(step.item).number);
            }
        }
        cycle.push_back(cycle.front());
        failWithCycle(cycle, "delete one of these components");
    }

    const Structure& structure_;
    std::size_t maxLevel_;
    std::vector<bool> isOnPath_; // of each item
    std::vector<Step> path_;
};

} // namespace

void ExplosionReport::set(std::string_view parameter, std::string_view value)
{
    if (parameter == topParameter) {
        top_ = withoutTrailingBlanks(value);
    } else if (parameter == changeParameter) {
        change_ = withoutTrailingBlanks(value);
    } else if (parameter == maxLevelParameter) {
        maxLevel_ = levelLimit(value);
    } else if (parameter != documentsParameter) {
        fail(Failure::BadArgument, "the report ", reportName, " has no parameter ", inQuotes(parameter),
             "; it has: ", topParameter, ", ", changeParameter, ", ", maxLevelParameter, ", ",
             documentsParameter);
    }
}

void ExplosionReport::subscribe(std::string_view path)
{
    checkPath(path);
    if (std::find(columns_.begin(), columns_.end(), path) == columns_.end()) {
        columns_.emplace_back(path);
    }
}

std::shared_ptr<const RowSet> ExplosionReport::generate(Store& store) const
{
    if (top_.empty()) {
        fail(Failure::BadArgument, "the report ", reportName, " needs the parameter ", topParameter,
             ", the item to explode");
    }
    Query lines = {&classNamed(classes::component)};
    lines.select.assign(Structure::columns.begin(), Structure::columns.end());
    for (const std::string& column : columns_) {
        const std::string_view path = linePath(column);
        if (column != levelColumn &&
            std::find(lines.select.begin(), lines.select.end(), path) == lines.select.end()) {
            lines.select.emplace_back(path);
        }
    }
    if (!change_.empty()) {
        lines.where.push_back(equals("il_ec_number", change_));
    }
    lines.relatedMayMiss = true;

    auto rows = std::make_shared<ExplosionRows>(lines.select);
    for (const std::string& column : columns_) {
        column == levelColumn ? rows->addLevelColumn(column) : rows->addColumn(column, linePath(column));
    }
    Transaction transaction(store, Access::Read);
    if (!exists(store, {&classNamed(classes::item), {}, {equals("logical_key@item_number", top_)}})) {
        fail(Failure::NotFound, "there is no item ", inQuotes(top_), " to explode");
    }
    const Structure structure(store, lines, top_, maxLevel_, rows->lines());
    transaction.commit();
    Walk walk(structure, maxLevel_);
    std::size_t count = 0;
    walk.run([this, &count](const Structure::Line& /*line*/, std::size_t /*level*/) {
        if (++count > mostRows) {
            fail(Failure::TooManyRows, "the explosion of the item ", inQuotes(top_), " has more than ",
                 mostRows, " rows; limit its levels with ", maxLevelParameter,
                 ", or explode its components one by one");
        }
    });
    rows->reserve(count);
    walk.run([&rows](const Structure::Line& line, std::size_t level) { rows->append(line.values, level); });
    return rows;
}

} // namespace qvserver
