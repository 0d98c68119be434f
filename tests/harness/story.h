// SPDX-License-Identifier: Apache-2.0
//
// The story of one use of the library: its server calls and everything that it writes, in the order in which
// it happens, and what it leaves behind. A test tells the story once for all trace levels, an event in a line:
//
//     EXPECT_EQ(outcome.story, story(R"(
//     BomHeaderCreate:
//     log @ - ItemNumber= BR-1
//     - QV_Destroy_Object(null) = 0
//     > QV_Create_Object(obj1, "BomHeader") = 0
//     2 @-     site=A-. > QV_Set_Object_Attr(obj1, "site", "A") = 0
//     2 @- Open BomHeader Object. > QV_Open_Object(obj1) = -7
//     ! Q100 - No such header
//     = 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[db_object_id, desc]
//     )"));
//
//     NAME:          who writes from here on; "@" at the beginning of a text or behind a blank stands for it
//     2 TEXT         a line on standard output from trace level 2 on; "*" instead of 2: at every level
//     log TEXT       a line of the access log
//     err TEXT       a line of the error log
//     - CALL         a server call alone
//     > CALL         a checked one: the call, its line on standard output, its line of the access log, that is
//                        - QV_Set_Object_Attr(obj1, "site", "A") = 0
//                        5 @ QV_Set_Object_Attr site A: QV_RC=0.
//                        log @- rc(QV_Set_Object_Attr::site=A) = 0
//     2 TEXT > CALL  a line on standard output and the checked call that it is about
//     > CALL as NAME "DETAIL" "DETAIL"
//                    the same, reported by another name or with other details than the texts of the call
//     ! CODE - TEXT  the report of a failure with one message: a line in the access log, one from level 0 on, and
//                    a block in the error log
//     defaults N     the reading of the operation's defaults, of which there are N:
//                        2 @- Calling DefaultRead for @.
//                        2 DefaultRead-----Start------------------------------.
//                        2 @- rc(DefaultRead)=N.
//     new CLASS      the current object, of which there is none yet, is given up and one made in its place:
//                        - QV_Destroy_Object(null) = 0
//                        > QV_Create_Object(obj1, "CLASS") = 0
//     = RESULT ...   the result, and what the global variables say at the end
//
// A clause is reported as the list operations do, by "AppendSelect- QV_Set_Clause-Select" and the like. Where an
// operation reads its defaults the story keeps the first line of the reader, which has tests of its own.
// What both logs gain between two other events is told by log: their lines do not show which came first.
#ifndef VELRZM_TESTS_HARNESS_STORY_H
#define VELRZM_TESTS_HARNESS_STORY_H

#include <functional>
#include <string>

#include <velrzm/logging.h>

namespace harness {

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
