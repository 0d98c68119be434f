// SPDX-License-Identifier: Apache-2.0
//
// Every operation with each of its server calls failing in turn: its story up to the call, the report, and
// how it goes on or ends.
#include <algorithm>
#include <limits>
#include <sstream>

#include "tests/harness/library_test.h"
#include "tests/sweep/operations.h"

using namespace harness;
using standin::Call;
using sweep::CallPattern;
using sweep::Operation;

namespace {

/** A story in lines, and the calls in it. */
struct Trial {
    std::vector<std::string> lines;
    std::vector<Call> calls;

    /** The line of call `number`; that of its report in the access log follows. */
    std::size_t lineOf(std::size_t number) const
    {
        std::size_t line = 0;
        for (; lines.at(line).compare(0, 5, "call ") != 0 || --number > 0; ++line) {
        }
        return line;
    }
    std::string text(std::size_t first, std::size_t end = std::numeric_limits<std::size_t>::max()) const
    {
        std::string text;
        for (std::size_t line = first; line < std::min(end, lines.size()); ++line) {
            text += lines[line] + '\n';
        }
        return text;
    }
};

/** The first pattern that the call matches; null when there is none. */
const CallPattern* find(const std::vector<CallPattern>& patterns, const Call& call)
{
    const auto found = std::find_if(patterns.begin(), patterns.end(), [&](const CallPattern& pattern) {
        return call.function == pattern.function &&
               (pattern.argument.empty() || call.hasText(pattern.argument)) &&
               (!pattern.value || call.hasText(*pattern.value));
    });
    return found == patterns.end() ? nullptr : &*found;
}

/** The line with another code: that of a call, of its report, or of what is left at the end. */
std::string withCode(std::string line, int code)
{
    for (const std::string& mark : {std::string(") = "), std::string(" QV_RC=")}) {
        const std::size_t begin = line.rfind(mark + '0');
        if (begin != std::string::npos) {
            return line.replace(begin + mark.size(), 1, std::to_string(code));
        }
    }
    return line;
}

/** The line without what stands between its brackets. */
std::string withoutDetails(const std::string& line)
{
    return line.substr(0, line.find('(') + 1) + line.substr(line.rfind(')'));
}

class Sweep : public LibraryTest, public ::testing::WithParamInterface<Operation> {
protected:
    /** The operation's second use in a new process, so that an earlier result is there to be replaced. */
    Trial runAgain(const std::function<void()>& script)
    {
        restart();
        connect(2);
        sweep::prepare(GetParam());
        captureOutput([] { EXPECT_GT(use(), 0); });
        script();
        std::istringstream told(record(use).story);
        Trial trial{{}, standin::calls()};
        for (std::string line; std::getline(told, line);) {
            trial.lines.push_back(line);
        }
        return trial;
    }
    static int use()
    {
        sweep::Inputs inputs("EC-1", {"db_object_id", "doc_type"});
        return GetParam().run(inputs);
    }
    void failCall(std::size_t number, const Trial& clean);
    /** The last lines of the story when a call has stopped the operation. */
    static std::string endWhenStopped(const Trial& clean);
    static void expectPatternsOccur(const Trial& clean, const std::vector<CallPattern>& patterns);
};

/** A row that names a call which is never made would silently test nothing. */
void Sweep::expectPatternsOccur(const Trial& clean, const std::vector<CallPattern>& patterns)
{
    for (const CallPattern& pattern : patterns) {
        EXPECT_TRUE(std::any_of(clean.calls.begin(), clean.calls.end(),
                                [&](const Call& call) { return find({pattern}, call) != nullptr; }))
            << "never called: " << pattern.function << ' ' << pattern.argument;
    }
}

std::string Sweep::endWhenStopped(const Trial& clean)
{
    const std::string& end = clean.lines.back();
    return GetParam().end + "= 0 FromList=" + GetParam().resultKind +
           " entries=" + std::to_string(GetParam().hasOwnHandles ? entries : 0) + " LastRecNo=-1 QV_RC=-7" +
           end.substr(end.find(" Selected")) + '\n';
}

void Sweep::failCall(std::size_t number, const Trial& clean)
{
    const Call& failed = clean.calls[number - 1];
    SCOPED_TRACE("with call " + std::to_string(number) + " failing: " + failed.line());
    Trial failing = runAgain([&] {
        standin::forgetCalls();
        standin::answerCall(number, -7, {{"SWEEP1", "first text"}, {"SWEEP2", "second text"}});
    });
    const std::size_t line = clean.lineOf(number);
    ASSERT_GT(failing.lines.size(), line + 1);
    const std::string& call = failing.lines[line];
    EXPECT_EQ(withoutDetails(call), "call " + failed.function + "() = -7"); // it fills no handle and no size
    if (find(GetParam().unchecked, failed) != nullptr) {
        EXPECT_EQ(failing.text(0), clean.text(0, line) + call + '\n' + clean.text(line + 1));
        return;
    }
    const CallPattern* const goesOn = find(GetParam().goesOn, failed);
    const std::string writer =
        goesOn != nullptr && !goesOn->reporter.empty() ? goesOn->reporter : GetParam().writer();
    const std::string& report = failing.lines[line + 1];
    EXPECT_EQ(withoutDetails(report), "log  " + writer + "- rc() = -7");
    if (goesOn == nullptr &&
        GetParam().hasOwnHandles) { // one that is left out leaks, which is told at the end
        failing.lines.erase(
            std::remove_if(failing.lines.begin() + static_cast<std::ptrdiff_t>(line), failing.lines.end(),
                           [](const std::string& told) { return told.find("call QV_Destroy_Object") == 0; }),
            failing.lines.end());
    }
    const std::string failure = '\n' + writer + R"(:
log SWEEP1 - first text
log SWEEP2 - second text
0 ****** first text second text .
err Function @ generated the following error:
err first text second text 
err ---------------------------------------------------------------------
)";
    EXPECT_EQ(failing.text(0), clean.text(0, line) + call + '\n' + report + '\n' +
                                   (goesOn != nullptr ? story(failure) + clean.text(line + 2)
                                                      : story(failure + endWhenStopped(clean))));
    EXPECT_EQ(lastError(), "first text second text \n");
}

TEST_P(Sweep, AFailingCallIsReportedOnceAndStopsTheOperationWhereItShould)
{
    const Trial clean = runAgain([] {});
    ASSERT_FALSE(clean.calls.empty());
    expectPatternsOccur(clean, GetParam().goesOn);
    expectPatternsOccur(clean, GetParam().unchecked);
    expectPatternsOccur(clean, GetParam().testedElsewhere);
    for (std::size_t number = 1; number <= clean.calls.size(); ++number) {
        if (find(GetParam().testedElsewhere, clean.calls[number - 1]) == nullptr) {
            failCall(number, clean);
        }
    }
}

TEST_P(Sweep, APositiveCodeIsSuccess)
{
    const Trial clean = runAgain([] {});
    const Trial positive = runAgain([&] {
        standin::forgetCalls();
        for (std::size_t number = 1; number <= clean.calls.size(); ++number) {
            standin::answerCall(number, 3, {{"SWEEP1", "not to be read"}});
        }
    });
    std::string expected;
    for (const std::string& line : clean.lines) {
        expected += withCode(line, 3) + '\n';
    }
    EXPECT_EQ(positive.text(0), expected);
}

INSTANTIATE_TEST_SUITE_P(Operations, Sweep, ::testing::ValuesIn(sweep::allOperations()),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
