// SPDX-License-Identifier: Apache-2.0
//
// The stories in the files of this folder; docs/stories.md has the notation.
#ifndef VELRZM_TESTS_OPERATIONS_STORIES_H
#define VELRZM_TESTS_OPERATIONS_STORIES_H

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/harness/library_test.h"
#include "tests/harness/teller.h"
#include "tests/harness/use.h"

namespace operations {

using harness::Use;

/** A use and what leads to it. */
struct Scene {
    harness::Lines preparation;
    Use use;
    harness::Lines variants;
    bool isPart = false;
    harness::Lines lines;
};

struct Story {
    std::string name;
    std::vector<Scene> scenes;
};

/** Shows the name in the output of a failing test. */
void PrintTo(const Story& story, std::ostream* stream);

const std::vector<Story>& allStories();
/** Those that are told whole. */
std::vector<Story> wholeStories();
std::string nameOf(const ::testing::TestParamInfo<Story>& tested);

/** Prepares the process for a use of the scene. */
void prepare(const Scene& scene, const Use& use);

class StoryTest : public harness::LibraryTest, public ::testing::WithParamInterface<Story> {
protected:
    /** The last use, and those that the story is told for as well. */
    static std::vector<Use> uses();
    /** One of these for each operation. */
    static std::vector<Use> everyOperation();
    /** Expects the story in a new process, with that use as the last; the calls are those of the last use. */
    std::vector<harness::ToldCall> expectStory(int level, const Use& lastUse,
                                               std::optional<harness::OtherAnswer> answer = {});
    /** What the last use gives in a new process. */
    harness::Outcome outcomeOf(int level, const Use& lastUse);

private:
    /** Begins a process for the story. */
    void begin(int level);
    static void tell(harness::Teller& teller, const Scene& scene, const Use& use);
    static void expectPart(int level, const Scene& scene, const Use& use);
    static std::vector<harness::ToldCall> expectWhole(int level, const Scene& scene, Use use,
                                                      std::optional<harness::OtherAnswer> answer);
    static harness::Outcome recordUse(const Use& use, bool isPart);
};

} // namespace operations

#endif
