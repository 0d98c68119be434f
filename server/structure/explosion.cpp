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
constexpr std::array parameterNames = {
    topParameter, changeParameter, maxLevelParameter,
    std::string_view("itm_doc_str"), // which documents to show with the items; a structure has none
};

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
    if (withoutTrailingBlanks(text).empty()) {
        return 0;
    }
    const auto number = parseNumber(text);
    const auto* const whole = number ? std::get_if<std::int64_t>(&*number) : nullptr;
    if (whole == nullptr || *whole < 0) {
        fail(Failure::BadArgument, maxLevelParameter, '=', inQuotes(text),
             " is no number of levels; give a whole number, 0 or nothing for all levels");
    }
    return static_cast<std::size_t>(*whole);
}

/** Makes a row of each line and occurrence of a structure, depth first. */
class Walk {
public:
    Walk(const Structure& structure, ExplosionRows& rows)
        : structure_(structure), rows_(rows), isOnPath_(structure.size())
    {}

    void run(std::size_t maxLevel)
    {
        enter(Structure::top);
        while (!path_.empty()) {
            Step& step = path_.back();
            if (step.next == structure_.endOfLinesOf(step.item)) {
                isOnPath_[step.item] = false;
                path_.pop_back();
                continue;
            }
            const Structure::Line& line = structure_.line(step.next++);
            const bool isLeaf = line.item == Structure::leaf;
            if (!isLeaf && isOnPath_[line.item]) {
                failWithCycle(line.item);
            }
            addRow(line);
            if (!isLeaf && (maxLevel == 0 || path_.size() < maxLevel)) {
                enter(line.item);
            }
        }
    }

private:
    /** An item on the way from the top down, and the line that comes next. */
    struct Step {
        std::uint32_t item;
        std::uint32_t next;
    };

    /** Goes down to an item, unless it has no lines. */
    void enter(std::uint32_t item)
    {
        const std::uint32_t first = structure_.firstLineOf(item);
        if (first != structure_.endOfLinesOf(item)) {
            isOnPath_[item] = true;
            path_.push_back({item, first});
        }
    }

    void addRow(const Structure::Line& line)
    {
        if (rows_.size() == static_cast<std::size_t>(std::numeric_limits<int>::max())) {
            fail(Failure::BadArgument, "the structure of ", inQuotes(structure_.itemNumber(Structure::top)),
                 " has more than ", rows_.size(), " rows, more than a list can hold; set ",
                 maxLevelParameter);
        }
        rows_.append(line.values, path_.size());
    }

    /** `again` is on the path and the component of a line at its end. */
    [[noreturn]] void failWithCycle(std::uint32_t again) const
    {
        std::vector<std::string> items;
        for (const Step& step : path_) {
            if (step.item == again || !items.empty()) {
                items.emplace_back(structure_.itemNumber(step.item));
            }
        }
        items.push_back(items.front());
        failOfCycle(items, "delete one of these components");
    }

    const Structure& structure_;
    ExplosionRows& rows_;
    std::vector<bool> isOnPath_; // of each item
    std::vector<Step> path_;
};

} // namespace

void ExplosionReport::set(std::string_view parameter, std::string_view value)
{
    if (std::find(parameterNames.begin(), parameterNames.end(), parameter) == parameterNames.end()) {
        std::string names;
        for (const std::string_view name : parameterNames) {
            names.append(names.empty() ? "" : ", ").append(name);
        }
        fail(Failure::BadArgument, "the report ", reportName, " has no parameter ", inQuotes(parameter),
             "; it has: ", names);
    }
    if (parameter == maxLevelParameter) {
        levelLimit(value); // to refuse it here and not later
    }
    parameters_.insert_or_assign(std::string(parameter), std::string(value));
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
    const std::string_view top = withoutTrailingBlanks(valueOf(parameters_, topParameter));
    if (top.empty()) {
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
    if (const auto change = valueOf(parameters_, changeParameter); !withoutTrailingBlanks(change).empty()) {
        lines.where.push_back(equals("il_ec_number", change));
    }
    lines.relatedMayMiss = true;

    auto rows = std::make_shared<ExplosionRows>(lines.select);
    for (const std::string& column : columns_) {
        column == levelColumn ? rows->addLevelColumn(column) : rows->addColumn(column, linePath(column));
    }
    Transaction transaction(store, Access::Read);
    if (!exists(store, {&classNamed(classes::item), {}, {equals("logical_key@item_number", top)}})) {
        fail(Failure::NotFound, "there is no item ", inQuotes(top), " to explode");
    }
    const std::size_t maxLevel = levelLimit(valueOf(parameters_, maxLevelParameter));
    const auto lookup = store.lookup(std::move(lines), columnNames[0].path);
    Structure structure(top, *lookup, rows->lines());
    structure.read(maxLevel);
    Walk(structure, *rows).run(maxLevel);
    transaction.commit();
    return rows;
}

} // namespace qvserver
