// SPDX-License-Identifier: Apache-2.0
#include "platform/server/explosion.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <optional>
#include <utility>

#include "platform/server/errors.h"
#include "platform/server/explosion_rows.h"
#include "platform/server/structure_cycle.h"

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
        fail(Failure::BadArgument, maxLevelParameter, '=', quoted(text),
             " is no number of levels; give a whole number, 0 or nothing for all levels");
    }
    return static_cast<std::size_t>(*whole);
}

/** What sorts the lines of a parent: numbers before other texts, and what was stored first before the rest.
 */
struct SortedLine {
    std::optional<Number> number;
    std::string_view text;
    std::int64_t id;
    std::uint32_t row;
};

bool operator<(const SortedLine& left, const SortedLine& right)
{
    const auto real = [](const Number& number) {
        return std::visit([](auto plain) { return static_cast<long double>(plain); }, number);
    };
    if (left.number && right.number) {
        const auto leftNumber = real(*left.number);
        const auto rightNumber = real(*right.number);
        return leftNumber != rightNumber ? leftNumber < rightNumber : left.id < right.id;
    }
    if (left.number || right.number) {
        return left.number.has_value();
    }
    return left.text != right.text ? left.text < right.text : left.id < right.id;
}

// What every line is read with, beside the columns that were asked for.
constexpr std::array neededPaths = {columnNames[1].path, columnNames[2].path};
constexpr std::size_t childColumn = 0;
constexpr std::size_t sequenceColumn = 1;

/** Numbers of texts, found by the text. It keeps hashes only; its user knows the texts. */
class TextIndex {
public:
    /** The number of `text`, `next` when it has none yet; `isText(number)` tells whether a number is that of
     * `text`. */
    template <typename IsText>
    std::uint32_t find(std::string_view text, std::uint32_t next, IsText isText)
    {
        if (2 * (size_ + 1) > slots_.size()) {
            grow();
        }
        const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
        Slot* slot = &slots_[hash & (slots_.size() - 1)];
        while (slot->number != none && (slot->hash != hash || !isText(slot->number))) {
            slot = slot == &slots_.back() ? slots_.data() : slot + 1;
        }
        if (slot->number == none) {
            *slot = {hash, next};
            ++size_;
        }
        return slot->number;
    }

private:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = none;
    };

    void grow()
    {
        constexpr std::size_t firstSize = 64; // a power of two, as all sizes are
        std::vector<Slot> larger(std::max(firstSize, 2 * slots_.size()));
        for (const Slot& old : slots_) {
            std::size_t place = old.hash & (larger.size() - 1);
            while (old.number != none && larger[place].number != none) {
                place = (place + 1) & (larger.size() - 1);
            }
            if (old.number != none) {
                larger[place] = old;
            }
        }
        slots_ = std::move(larger);
    }

    std::vector<Slot> slots_; // never full, each number as near behind the place of its hash as was free
    std::size_t size_ = 0;
};

/** Walks a structure. The lines of an item are read when it is first met, however often it occurs. */
class Walk {
public:
    Walk(Store& store, Query lines, std::string_view top, ExplosionRows& rows)
        : lookup_(store.lookup(std::move(lines), columnNames[0].path)), top_(top), rows_(rows), parts_(1)
    {
        partOfItem_.find(top_, 0, [](std::uint32_t /*number*/) { return false; });
    }

    void run(std::size_t maxLevel)
    {
        enter(0);
        while (!path_.empty()) {
            Step& step = path_.back();
            if (step.next == parts_[step.part].end) {
                parts_[step.part].onPath = false;
                path_.pop_back();
                continue;
            }
            const Line line = lines_[step.next++];
            addRow(line);
            if (maxLevel == 0 || path_.size() < maxLevel) {
                enter(line.part);
            }
        }
    }

private:
    /** A line: the row of its values, and its component. */
    struct Line {
        std::uint32_t row;
        std::uint32_t part;
    };
    /** An item: where its lines stand in `lines_`. */
    struct Part {
        std::uint32_t row = 0; // of a line with it as the component; none for the top
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
        bool known = false;
        bool onPath = false;
    };
    /** An item on the way from the top down, and the line that comes next. */
    struct Step {
        std::uint32_t part;
        std::uint32_t next;
    };
    std::string_view itemOf(std::uint32_t part) const
    {
        return part == 0 ? top_ : withoutTrailingBlanks(childOf(parts_[part].row));
    }

    std::string_view childOf(std::uint32_t row) const { return rows_.lines().value(row, childColumn); }

    void addRow(const Line& line)
    {
        if (parts_[line.part].onPath) {
            failWithCycle(line);
        }
        if (rows_.size() == static_cast<std::size_t>(std::numeric_limits<int>::max())) {
            fail(Failure::BadArgument, "the structure of ", quoted(top_), " has more than ", rows_.size(),
                 " rows, more than a list can hold; set ", maxLevelParameter);
        }
        rows_.append(line.row, path_.size());
    }

    /** Goes down to an item, unless it has no lines. */
    void enter(std::uint32_t part)
    {
        if (!parts_[part].known) {
            read(part);
        }
        Part& entered = parts_[part];
        if (entered.begin != entered.end) {
            entered.onPath = true;
            path_.push_back({part, entered.begin});
        }
    }

    void read(std::uint32_t part)
    {
        Rows& values = rows_.lines();
        const std::size_t first = values.size();
        const std::vector<std::int64_t>& ids = lookup_->find(itemOf(part), values);
        parts_[part].known = true;
        parts_[part].begin = static_cast<std::uint32_t>(lines_.size());
        for (const SortedLine& line : sorted(first, ids)) {
            lines_.push_back({line.row, partOf(line.row)});
        }
        parts_[part].end = static_cast<std::uint32_t>(lines_.size());
    }

    /** The rows from `first` on, whose lines have these ids, in the order of the lines. */
    const std::vector<SortedLine>& sorted(std::size_t first, const std::vector<std::int64_t>& ids)
    {
        sorted_.clear();
        auto row = static_cast<std::uint32_t>(first);
        for (const std::int64_t id : ids) {
            const std::string_view sequence = withoutTrailingBlanks(rows_.lines().value(row, sequenceColumn));
            sorted_.push_back({parseNumber(sequence), sequence, id, row++});
        }
        std::sort(sorted_.begin(), sorted_.end());
        return sorted_;
    }

    /** The part that the component of a line is, a new one when no other line named it yet. */
    std::uint32_t partOf(std::uint32_t row)
    {
        const std::string_view item = withoutTrailingBlanks(childOf(row));
        const auto next = static_cast<std::uint32_t>(parts_.size());
        const auto part =
            partOfItem_.find(item, next, [&](std::uint32_t number) { return item == itemOf(number); });
        if (part == next) {
            parts_.push_back({row});
        }
        return part;
    }

    [[noreturn]] void failWithCycle(const Line& last) const
    {
        std::vector<std::string> items;
        std::string_view item = top_;
        for (const Step& step : path_) {
            if (step.part == last.part || !items.empty()) {
                items.emplace_back(item);
            }
            item = itemOf(lines_[step.next - 1].part);
        }
        items.push_back(items.front());
        failOfCycle(items, "delete one of these components");
    }

    std::unique_ptr<Lookup> lookup_;
    std::string_view top_;
    ExplosionRows& rows_;
    std::deque<Line> lines_; // of each known part together, in their order
    TextIndex partOfItem_;
    std::deque<Part> parts_; // the first is the top
    std::vector<Step> path_;
    std::vector<SortedLine> sorted_; // of the item that was read last
};

} // namespace

void ExplosionReport::set(std::string_view parameter, std::string_view value)
{
    if (std::find(parameterNames.begin(), parameterNames.end(), parameter) == parameterNames.end()) {
        std::string names;
        for (const std::string_view name : parameterNames) {
            names.append(names.empty() ? "" : ", ").append(name);
        }
        fail(Failure::BadArgument, "the report ", reportName, " has no parameter ", quoted(parameter),
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
    Query lines = {&classNamed("Component")};
    lines.select.assign(neededPaths.begin(), neededPaths.end());
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
    if (!exists(store, {&classNamed("ItemEngineeringData"), {}, {equals("logical_key@item_number", top)}})) {
        fail(Failure::NotFound, "there is no item ", quoted(top), " to explode");
    }
    Walk(store, std::move(lines), top, *rows).run(levelLimit(valueOf(parameters_, maxLevelParameter)));
    transaction.commit();
    return rows;
}

} // namespace qvserver
