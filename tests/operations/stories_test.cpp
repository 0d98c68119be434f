// SPDX-License-Identifier: Apache-2.0
//
// Tells the stories of operations: as they stand, and with what holds for every operation, since each of its calls
// may fail, any text is taken, and names and defaults are used up to the operation's bound.
#include <algorithm>
#include <clocale>
#include <iterator>

#include "tests/operations/stories.h"

using namespace harness;
using operations::Story;
using operations::StoryTest;

namespace {

/** `count` names: attribute1, attribute2, ... */
Lines numberedNames(int count)
{
    Lines names;
    for (int number = 1; number <= count; ++number) {
        names.push_back("attribute" + std::to_string(number));
    }
    return names;
}

TEST_P(StoryTest, IsToldAtEachTraceLevel)
{
    for (const Use& use : uses()) {
        for (const int level : {-1, 0, 1, 2, 3, 4, 5, 8, 9}) {
            expectStory(level, use);
        }
    }
}

using Operations = StoryTest;

TEST_P(Operations, ReportACallThatFailsAndGoOnOrEnd)
{
    for (const Use& use : uses()) {
        const std::vector<ToldCall> calls = expectStory(5, use);
        for (std::size_t number = 1; number <= calls.size(); ++number) {
            SCOPED_TRACE("with call " + std::to_string(number) + " failing");
            if (!calls[number - 1].isToldElsewhere) {
                expectStory(5, use, OtherAnswer{number, -7});
            }
        }
    }
}

TEST_P(Operations, CountAPositiveCodeAsSuccess)
{
    for (const Use& use : everyOperation()) {
        expectStory(5, use, OtherAnswer{0, 3});
    }
}

TEST_P(Operations, TakeAnyTextsWhole)
{
    setEnvironment("LOCPATH", LOCALES);
    for (const char* const locale : {"C", "de_DE.ISO-8859-1"}) {
        ASSERT_STREQ(std::setlocale(LC_CTYPE, locale), locale);
        for (Use use : everyOperation()) {
            char letter = 'a';
            for (Named& argument : use.arguments) {
                argument.value = argument.isFixed ? argument.value : std::string(10000, letter++) + "`z{\xe4";
            }
            expectStory(5, use);
        }
        std::setlocale(LC_CTYPE, "C");
        setEnvironment("LOCPATH", LOCALES);
    }
}

TEST_P(Operations, TakeNullAsEmpty)
{
    for (Use use : everyOperation()) {
        use.pairs.clear();
        const auto outcomeWith = [&](const std::optional<std::string>& text,
                                     std::optional<Selection> selection) {
            use.selection = std::move(selection);
            for (Named& argument : use.arguments) {
                argument.value = argument.isFixed ? argument.value : text;
            }
            return outcomeOf(5, use).story;
        };
        EXPECT_EQ(outcomeWith(std::nullopt, std::nullopt), outcomeWith("", Selection()));
    }
}

using SelectedNames = StoryTest;

TEST_P(SelectedNames, AreCapturedUpToTheBoundAndAskedForWhole)
{
    for (Use use : everyOperation()) {
        for (const int count : {0, 1, 28, 29, 30, 31, 48, 49, 50, 51, 60}) {
            use.selection->names = numberedNames(count);
            expectStory(0, use);
        }
        use.selection->names = {std::string(49, 'f'), std::string(50, 'l'), std::string(10000, 'e'), "last"};
        expectStory(5, use);
    }
}

using SiteDefaults = StoryTest;

TEST_P(SiteDefaults, AreUsedUpToTheBoundAndTheRestIsReported)
{
    for (const int count : {0, 19, 20, 60}) {
        std::vector<Named> entries;
        for (const std::string& name : numberedNames(count)) {
            entries.push_back({name, "value"});
        }
        for (Use use : everyOperation()) {
            for (auto& defaults : use.defaults) {
                defaults.second = entries;
            }
            expectStory(5, use);
        }
    }
}

std::vector<Story> storiesThat(bool (*fit)(const Use&))
{
    std::vector<Story> stories = operations::wholeStories();
    stories.erase(std::remove_if(stories.begin(), stories.end(),
                                 [=](const Story& story) { return !fit(story.scenes.back().use); }),
                  stories.end());
    return stories;
}

INSTANTIATE_TEST_SUITE_P(All, StoryTest, ::testing::ValuesIn(operations::allStories()), operations::nameOf);
INSTANTIATE_TEST_SUITE_P(All, Operations, ::testing::ValuesIn(operations::wholeStories()),
                         operations::nameOf);
INSTANTIATE_TEST_SUITE_P(All, SelectedNames, ::testing::ValuesIn(storiesThat([](const Use& use) {
                             return use.selection.has_value();
                         })),
                         operations::nameOf);
INSTANTIATE_TEST_SUITE_P(All, SiteDefaults, ::testing::ValuesIn(storiesThat([](const Use& use) {
                             return !use.defaults.empty();
                         })),
                         operations::nameOf);

} // namespace
