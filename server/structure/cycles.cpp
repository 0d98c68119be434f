// SPDX-License-Identifier: Apache-2.0
#include "server/structure/cycles.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "server/base/errors.h"

namespace qvserver {

namespace {

std::string itemAt(const Values& values, std::string_view path)
{
    return std::string(withoutTrailingBlanks(valueOf(values, path)));
}

/** A search through the structure from one item, level by level: down to its components, or up to where it is used. */
class Search {
public:
    /** The lines lead from the attribute `from` to the attribute `to`. */
    Search(Store& store, const Class& lines, const std::string& start, std::string_view from,
           std::string_view to)
        : store_(store), query_({&lines, {std::string(to)}}), from_(from), start_(start), level_({start}),
          cameFrom_({{start, ""}})
    {}

    bool hasFound(const std::string& item) const { return cameFrom_.count(item) != 0; }
    /** How many items the last level has that were not found before; none when the search is at its end. */
    std::size_t width() const noexcept { return level_.size(); }

    void findNextLevel()
    {
        Rows rows(query_.select);
        const std::vector<std::string_view> items(level_.begin(), level_.end());
        const std::vector<Match> matches = store_.selectForEach(query_, from_, items, rows);
        std::set<std::string> next;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            std::string neighbour(withoutTrailingBlanks(rows.value(row, 0)));
            if (cameFrom_.emplace(neighbour, items[matches[row].value]).second) {
                next.insert(std::move(neighbour));
            }
        }
        level_ = std::move(next);
    }

    /** The items from `item` back to the start. */
    std::vector<std::string> wayBack(const std::string& item) const
    {
        std::vector<std::string> way = {item};
        while (way.back() != start_) {
            way.push_back(cameFrom_.at(way.back()));
        }
        return way;
    }

private:
    Store& store_;
    Query query_;
    std::string_view from_;
    std::string start_;
    std::set<std::string> level_;
    std::map<std::string, std::string> cameFrom_;
};

} // namespace

void checkNoCycle(Store& store, const Class& objectClass, const Values& values)
{
    if (!objectClass.structureLine) {
        return;
    }
    const auto& [parentPath, childPath] = *objectClass.structureLine;
    const std::string parent = itemAt(values, parentPath);
    const std::string child = itemAt(values, childPath);
    // From both ends, each time where the level is smaller: below a new part there is nothing, a new assembly is used
    // nowhere, and when one of the searches ends without meeting the other item, there is no cycle.
    Search down(store, objectClass, child, parentPath, childPath);
    Search up(store, objectClass, parent, childPath, parentPath);
    while (!down.hasFound(parent) && !up.hasFound(child)) {
        if (down.width() == 0 || up.width() == 0) {
            return;
        }
        (down.width() <= up.width() ? down : up).findNextLevel();
    }
    std::vector<std::string> items;
    if (down.hasFound(parent)) {
        items = down.wayBack(parent);
        std::reverse(items.begin(), items.end());
    } else {
        items = up.wayBack(child);
    }
    items.insert(items.begin(), parent);
    failWithCycle(items, "the component was not stored");
}

void failWithCycle(const std::vector<std::string>& items, std::string_view remedy)
{
    std::string cycle;
    for (const std::string& item : items) {
        cycle.append(cycle.empty() ? "" : " > ").append(item);
    }
    fail(Failure::StructureCycle, "a structure must not contain itself: ", cycle, "; ", remedy);
}

} // namespace qvserver
