// SPDX-License-Identifier: Apache-2.0
#include "tools/site_files/defaults_check.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include <velrzm/qvlocal.h>

#include "tools/process/local_server.h"
#include "tools/site_files/defaults_uses.h"

namespace tools {
namespace {

using velrzm::DefaultsEntry;

/** The place of an entry: its file and line. */
using Place = std::pair<std::string, int>;

Place placeOf(const DefaultsEntry& entry)
{
    return {entry.file, entry.line};
}

std::vector<DefaultsEntry> entriesOf(const std::string& operation, const std::vector<DefaultsEntry>& entries)
{
    std::vector<DefaultsEntry> found;
    std::copy_if(entries.begin(), entries.end(), std::back_inserter(found),
                 [&operation](const DefaultsEntry& entry) { return entry.operation == operation; });
    return found;
}

/** The entries that are one too many for their operation. */
std::set<Place> entriesBeyondLimit(const std::vector<DefaultsEntry>& shared,
                                   const std::vector<DefaultsEntry>& local)
{
    std::set<Place> beyond;
    for (const DefaultsUse& use : defaultsUses()) {
        std::vector<DefaultsEntry> pairs = entriesOf(use.entries, shared);
        velrzm::overrideDefaults(pairs, entriesOf(use.entries, local));
        for (std::size_t place = defaultsLimit;
             use.limit == DefaultsUse::Limit::First19 && place < pairs.size(); ++place) {
            beyond.insert(placeOf(pairs[place]));
        }
    }
    return beyond;
}

/** Looks at the entries of files, one after another. */
class Checker {
public:
    explicit Checker(std::set<Place> beyondLimit) : beyondLimit_(std::move(beyondLimit)) {}

    void check(const DefaultsEntry& entry)
    {
        checkLineEnd(entry);
        const std::vector<DefaultsUse> uses = usesOfEntries(entry.operation);
        if (entry.isPiece) {
            checkLength(entry);
        } else if (uses.empty()) {
            complain(entry, "no defaults are read for " + entry.operation + ", only for " +
                                operationsWithDefaults());
        } else if (entry.value.empty()) {
            complain(entry, "the line has fewer than three words; write OPERATION ATTRIBUTE VALUE");
        } else {
            checkWords(entry, uses);
            checkRepetition(entry);
            checkEffect(entry, uses);
        }
    }

    const std::vector<DefaultsProblem>& problems() const { return problems_; }

private:
    /** Once for a file, which has the line ends of one system. */
    void checkLineEnd(const DefaultsEntry& entry)
    {
        if (entry.hasCarriageReturn && filesWithCarriageReturns_.insert(entry.file).second) {
            complain(
                entry,
                "the line holds a carriage return, which counts as a blank here but may become part of the "
                "value elsewhere; end lines with a line feed alone");
        }
    }

    /** Once for a line, of which there may be many pieces. */
    void checkLength(const DefaultsEntry& entry)
    {
        if (longLines_.insert(placeOf(entry)).second) {
            complain(entry,
                     "the line has more than " + std::to_string(velrzm::longestDefaultsLine) +
                         " characters; " +
                         (entry.isCut ? "the entry is cut there" : "what follows is read as another line") +
                         "; make it shorter");
        }
    }

    void checkWords(const DefaultsEntry& entry, const std::vector<DefaultsUse>& uses)
    {
        if (entry.hasFourthWord) {
            complain(
                entry,
                "only three words of the line are used, and a value holds no blanks; remove the others, or "
                "begin a comment with #");
        }
        const bool namesAttribute = uses.front().effect != DefaultsUse::Effect::NamesTable;
        if (namesAttribute && localServerServes() && !qvlocal::isAttributePath(entry.name)) {
            complain(entry, "the server refuses the attribute " + entry.name +
                                "; write names of letters, digits and _, joined by @");
        }
    }

    void checkRepetition(const DefaultsEntry& entry)
    {
        const auto [first, isNew] =
            lines_.emplace(std::tuple(entry.file, entry.operation, entry.name), entry.line);
        if (!isNew) {
            complain(entry, entry.name + " stands in line " + std::to_string(first->second) +
                                " as well; remove one of the two");
        }
    }

    /** Whether anything comes of the entry. */
    void checkEffect(const DefaultsEntry& entry, const std::vector<DefaultsUse>& uses)
    {
        std::string setters;
        for (const DefaultsUse& use : uses) {
            if (std::count(use.setAfterwards.begin(), use.setAfterwards.end(), entry.name) > 0) {
                setters.append(setters.empty() ? "" : ", ").append(use.operation);
            }
            if (use.effect == DefaultsUse::Effect::OnlyLogged) {
                complain(entry, std::string(use.operation) + " sets none of its defaults; remove the line");
            }
        }
        if (!setters.empty()) {
            complain(entry, entry.name + " is set afterwards, whatever stands here, by " + setters +
                                "; remove the line");
        }
        if (beyondLimit_.count(placeOf(entry)) > 0) {
            complain(entry, entry.operation + " takes " + std::to_string(defaultsLimit) +
                                " pairs from all files and this is one more; remove a line");
        }
    }

    void complain(const DefaultsEntry& entry, std::string text)
    {
        problems_.push_back({entry.file, entry.line, std::move(text)});
    }

    std::set<Place> beyondLimit_;
    std::set<std::string> filesWithCarriageReturns_;
    std::set<Place> longLines_;
    std::map<std::tuple<std::string, std::string, std::string>, int> lines_;
    std::vector<DefaultsProblem> problems_;
};

} // namespace

std::vector<DefaultsProblem> checkDefaults(const std::vector<DefaultsEntry>& shared,
                                           const std::vector<DefaultsEntry>& local)
{
    Checker checker(entriesBeyondLimit(shared, local));
    for (const auto* const entries : {&shared, &local}) {
        std::for_each(entries->begin(), entries->end(),
                      [&checker](const DefaultsEntry& entry) { checker.check(entry); });
    }
    return checker.problems();
}

} // namespace tools
