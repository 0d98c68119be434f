// SPDX-License-Identifier: Apache-2.0
//
// The story of one use of the library: its server calls and everything that it writes, in the order in which
// it happens, and what it leaves behind. A test tells the story once for all trace levels, an event in a line:
//
//     EXPECT_EQ(outcome.story, story(R"(
//     BomHeaderCreate:
//     log @ - ItemNumber= BR-1
//     > QV_Create_Object(obj1, "BomHeader") = 0
//     2 @-     site=A-. > QV_Set_Object_Attr(obj1, "site", "A") = 0
//     2 @- Open BomHeader Object. > QV_Open_Object(obj1) = -7
//     ! Q100 - No such header
//     = 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[db_object_id, desc]
//     )"));
//
// docs/stories.md has the notation.
#ifndef VELRZM_TESTS_HARNESS_STORY_H
#define VELRZM_TESTS_HARNESS_STORY_H

#include <functional>
#include <map>
#include <string>

#include <velrzm/logging.h>

namespace harness {

/** What the global variables say, by their names; those of the current handles too. */
using State = std::map<std::string, std::string>;
State currentState();
/** The line that ends a story. */
std::string lineOf(const State& state);

/** What one use of the library gave and wrote. */
struct Outcome {
    int result = 0;
    std::string story;
    /** The same by channel: the server calls, standard output, and what was added to the two logs. */
    std::string calls;
    std::string output;
    std::string accessLog;
    std::string errorLog;

    /** The story from the first line that contains `text` on. */
    std::string storyFrom(const std::string& text) const;
};

/** Runs `use` and gathers what it does; `accessLog` and `errorLog` are the paths of the logs. */
Outcome recordStory(const std::function<int()>& use, const std::string& accessLog,
                    const std::string& errorLog);

/** The story as it is recorded at a trace level. `raw` begins on a line of its own; a tab is `\t`. */
std::string story(const std::string& raw, int level = QVL_Traces_Level);

} // namespace harness

#endif
