// SPDX-License-Identifier: Apache-2.0
#include "server/structure/cycles.h"

#include <algorithm>
#include <map>
#include <memory>

#include "server/base/errors.h"

namespace qvserver {

namespace {

std::string itemAt(const Values& values, std::string_view path)
{
    return std::string(withoutTrailingBlanks(valueOf(values, path)));
}

/** A search through the structure from one item, down to its components or up to where it is used. */
class Search {
public:
    Search(Store& store, const Class& lines, std::string start, std::string_view from, std::string_view to)
        : lookup_(store.lookup({&lines, {std::string(to)}}, from)), to_(to), found_({std::move(start)})
    {
        cameFrom_.emplace(found_.front(), "");
    }

    bool hasFound(const std::string& item) const { return cameFrom_.count(item) != 0; }
    bool isAtEnd() const { return next_ == found_.size(); }

    /** Looks one item further. */
    void advance()
    {
        const std::string item = found_[next_++];
        Rows rows({to_});
        lookup_->ask(item, 0);
        lookup_->find(rows, [](auto&&...) {});
        for (std::size_t row = 0; row < rows.size(); ++row) {
            std::string neighbour(withoutTrailingBlanks(rows.value(row, 0)));
            if (cameFrom_.emplace(neighbour, item).second) {
                found_.push_back(std::move(neighbour));
            }
        }
    }

    /** The items from `item` back to the start. */
    std::vector<std::string> wayBack(const std::string& item) const
    {
        std::vector<std::string> way = {item};
        while (way.back() != found_.front()) {
            way.push_back(cameFrom_.at(way.back()));
        }
        return way;
    }

private:
    std::unique_ptr<Lookup> lookup_;
    std::string to_;
    std::vector<std::string> found_; // in the order in which they were found
    std::size_t next_ = 0;
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
    // Both ways at once: a new part has nothing below it, a new assembly is used nowhere, so that one of the
    // two searches is soon at its end, and that is enough to know.
    Search down(store, objectClass, child, parentPath, childPath);
    Search up(store, objectClass, parent, childPath, parentPath);
    while (!down.hasFound(parent) && !up.hasFound(child)) {
        if (down.isAtEnd() || up.isAtEnd()) {
            return;
        }
        down.advance();
        up.advance();
    }
    std::vector<std::string> items;
    if (down.hasFound(parent)) {
        items = down.wayBack(parent);
        std::reverse(items.begin(), items.end());
    } else {
        items = up.wayBack(child);
    }
    items.insert(items.begin(), parent);
    failOfCycle(items, "the component was not stored");
}

void failOfCycle(const std::vector<std::string>& items, std::string_view remedy)
{
    std::string cycle;
    for (const std::string& item : items) {
        cycle.append(cycle.empty() ? "" : " > ").append(item);
    }
    fail(Failure::StructureCycle, "a structure must not contain itself: ", cycle, "; ", remedy);
}

} // namespace qvserver
