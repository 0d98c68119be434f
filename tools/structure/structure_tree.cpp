// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/structure_tree.h"

#include <algorithm>
#include <limits>

#include "tools/output/table.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"
#include "tools/structure/occurrences.h"

namespace tools {

namespace {

/** Walks a structure depth first. */
class Walk {
public:
    Walk(const ProductStructure& structure, Repeated repeated)
        : structure_(structure), repeated_(repeated), shownLevels_(structure.items.size(), 0)
    {}

    std::vector<TreeRow> rows()
    {
        enter({0, 1});
        while (!path_.empty()) {
            Step& step = path_.back();
            const std::vector<StructurePart>& parts = structure_.items[step.item].parts;
            if (step.next == parts.size()) {
                path_.pop_back();
            } else {
                enter(parts[step.next++]);
            }
        }
        return std::move(rows_);
    }

private:
    /** An item on the way down, and the part of it that comes next. */
    struct Step {
        std::size_t item;
        std::size_t next;
    };

    void enter(const StructurePart& part)
    {
        checkInterruption();
        const auto level = static_cast<int>(path_.size());
        const Branch branch = branchOf(part.item, level);
        rows_.push_back({level, part.item, part.quantity, branch});
        if (branch == Branch::Below) {
            path_.push_back({part.item, 0});
        }
    }

    /** Rows above stand for those below only if they go as deep. */
    Branch branchOf(std::size_t item, int level)
    {
        const int levels =
            structure_.levels == 0 ? std::numeric_limits<int>::max() : structure_.levels - level;
        if (structure_.items[item].parts.empty() || levels == 0) {
            return Branch::None;
        }
        if (repeated_ == Repeated::Referred && shownLevels_[item] >= levels) {
            return Branch::Above;
        }
        shownLevels_[item] = levels;
        return Branch::Below;
    }

    const ProductStructure& structure_;
    Repeated repeated_;
    std::vector<int> shownLevels_; // below each item
    std::vector<Step> path_;
    std::vector<TreeRow> rows_;
};

void append(std::vector<std::string>& texts, const std::vector<std::string>& more)
{
    texts.insert(texts.end(), more.begin(), more.end());
}

std::string drawn(const ProductStructure& structure, const std::vector<TreeRow>& rows,
                  std::size_t indentation)
{
    const bool refers =
        std::any_of(rows.begin(), rows.end(), [](const TreeRow& row) { return row.branch == Branch::Above; });
    Records records{{"item", "quantity"}, {}};
    append(records.columns, structure.attributes);
    if (refers) {
        records.columns.emplace_back();
    }
    std::vector<int> levels;
    for (const TreeRow& row : rows) {
        levels.push_back(row.level);
        const StructureItem& item = structure.items[row.item];
        records.rows.push_back({item.number, std::to_string(row.quantity)});
        append(records.rows.back(), item.values);
        if (refers) {
            records.rows.back().emplace_back(row.branch == Branch::Above ? "(see above)" : "");
        }
    }
    return treeText(records, levels, indentation);
}

} // namespace

std::vector<TreeRow> treeRows(const ProductStructure& structure, Repeated repeated)
{
    constexpr std::int64_t most = 1'000'000;
    if (repeated == Repeated::Expanded) {
        const std::int64_t number = sumOf(occurrences(structure, PartCount::Once));
        if (number > most) {
            throw Refused("the expanded tree has " + std::to_string(number) + " rows, more than " +
                          std::to_string(most) + "; --level limits the number of levels");
        }
    }
    return Walk(structure, repeated).rows();
}

Outcome treeOutcome(const ProductStructure& structure, Repeated repeated)
{
    const std::vector<TreeRow> rows = treeRows(structure, repeated);
    Outcome outcome{{{"level", "item_number", "quantity"}, {}}, Shape::List};
    append(outcome.records.columns, structure.attributes);
    outcome.records.columns.emplace_back("branch");
    for (const TreeRow& row : rows) {
        const StructureItem& item = structure.items[row.item];
        std::vector<std::string>& fields = outcome.records.rows.emplace_back(
            std::vector{std::to_string(row.level), item.number, std::to_string(row.quantity)});
        append(fields, item.values);
        fields.emplace_back(row.branch == Branch::Above   ? "above"
                            : row.branch == Branch::Below ? "below"
                                                          : "");
    }
    outcome.drawn[Format::Table] = [=] { return drawn(structure, rows, 0); };
    return outcome;
}

std::string drawnTree(const ProductStructure& structure, Repeated repeated, std::size_t indentation)
{
    return drawn(structure, treeRows(structure, repeated), indentation);
}

} // namespace tools
