// SPDX-License-Identifier: Apache-2.0
//
// What "velrzm defaults check" knows about the operations, against what they do in their stories.
#include <algorithm>
#include <iterator>
#include <set>

#include "tests/operations/stories.h"
#include "tools/site_files/defaults_uses.h"

using harness::Use;
using tools::DefaultsUse;

namespace {

using Names = std::set<std::string>;

class DefaultsUses : public operations::StoryTest {
protected:
    /** Tells whether the calls set a default called "marked", and the attributes that they set behind it. */
    static std::pair<bool, Names> setBehindMarked()
    {
        const standin::Call* marked = nullptr;
        Names names;
        for (const standin::Call& call : standin::state().calls) {
            if (call.function != "QV_Set_Object_Attr") {
                continue;
            }
            if (call.arguments[1] == "\"marked\"") {
                marked = &call;
            } else if (marked != nullptr && call.arguments[0] == marked->arguments[0]) {
                names.insert(call.arguments[1].substr(1, call.arguments[1].size() - 2));
            }
        }
        return {marked != nullptr, names};
    }
};

TEST_P(DefaultsUses, AreThoseOfTheTable)
{
    for (const Use& use : everyOperation()) {
        SCOPED_TRACE(use.operation);
        const auto& table = tools::defaultsUses();
        const auto row = std::find_if(table.begin(), table.end(), [&](const DefaultsUse& candidate) {
            return candidate.operation == use.operation;
        });
        ASSERT_EQ(row != table.end() && row->effect != DefaultsUse::Effect::NamesTable,
                  !use.defaults.empty());
        if (use.defaults.empty()) {
            continue;
        }
        ASSERT_EQ(use.defaults.count(row->entries), 1U);
        const harness::Lines& lines = GetParam().scenes.back().lines;
        EXPECT_EQ(row->limit == DefaultsUse::Limit::First19,
                  std::count(lines.begin(), lines.end(), "usual") +
                          std::count(lines.begin(), lines.end(), "defaults usual") ==
                      1);
        bool isSet = false;
        Names afterwards;
        for (Use variant : uses()) { // what is set afterwards, whatever the operation is given
            variant.pairs.clear();
            variant.defaults[row->entries] = {{"marked", "value"}};
            expectStory(0, variant);
            auto [isSetHere, names] = setBehindMarked();
            names.erase("create_bomheader"); // the site asks for it elsewhere
            if (variant.operation == use.operation && isSetHere) {
                Names both;
                std::set_intersection(names.begin(), names.end(), afterwards.begin(), afterwards.end(),
                                      std::inserter(both, both.begin()));
                afterwards = isSet ? both : names;
                isSet = true;
            }
        }
        EXPECT_EQ(isSet, row->effect == DefaultsUse::Effect::SetOnObject);
        EXPECT_EQ(afterwards, Names(row->setAfterwards.begin(), row->setAfterwards.end()));
    }
}

INSTANTIATE_TEST_SUITE_P(All, DefaultsUses, ::testing::ValuesIn(operations::wholeStories()),
                         operations::nameOf);

} // namespace
