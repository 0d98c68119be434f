// SPDX-License-Identifier: Apache-2.0
//
// Every operation with each of its server calls failing in turn.
#include <algorithm>

#include "tests/harness/library_test.h"
#include "tests/sweep/operations.h"

using harness::countLines;
using harness::Outcome;
using standin::Call;
using sweep::CallPattern;
using sweep::Operation;

namespace {

struct Trial : Outcome {
    std::vector<Call> serverCalls;
    int lastRecord = 0;
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

bool matches(const std::vector<CallPattern>& patterns, const Call& call)
{
    return find(patterns, call) != nullptr;
}

/** What the report of the call's failure names. */
std::string reporterOf(const Operation& operation, const Call& failed)
{
    const CallPattern* const pattern = find(operation.goesOn, failed);
    if (pattern != nullptr && !pattern->reporter.empty()) {
        return pattern->reporter;
    }
    return operation.prefix.empty() ? operation.name : operation.prefix;
}

/** Drops the destroys of own handles that follow call `number`; a handle that is left out leaks, which is
 * told at the end. */
void dropReleases(std::vector<Call>& calls, std::size_t number)
{
    while (calls.size() > number && calls.back().function == "QV_Destroy_Object") {
        calls.pop_back();
    }
}

std::string withoutCode(const Call& call)
{
    const std::string line = call.line();
    return line.substr(0, line.rfind(" = "));
}

class Sweep : public harness::LibraryTest, public ::testing::WithParamInterface<Operation> {
protected:
    /** The operation's second use in a new process, so that an earlier result is there to be replaced. */
    Trial runAgain(const std::function<void()>& script)
    {
        restart();
        connect(0);
        sweep::prepare(GetParam());
        harness::captureOutput([] { EXPECT_GT(use(), 0); });
        script();
        const Outcome outcome = record(use);
        return {outcome, standin::calls(), LastRecNo};
    }
    static int use()
    {
        sweep::Inputs inputs("EC-1", {"db_object_id", "doc_type"});
        return GetParam().run(inputs);
    }
    void failCall(std::size_t number, const Trial& clean);
    static void expectPatternsOccur(const Trial& clean, const std::vector<CallPattern>& patterns);
    static void expectSameCalls(const Trial& failing, std::size_t number, const Trial& clean);
    static void expectResult(const Trial& failing, int result, int code);
    static void expectOneReport(const Trial& failing, const std::string& reporter);
};

/** A row that names a call which is never made would silently test nothing. */
void Sweep::expectPatternsOccur(const Trial& clean, const std::vector<CallPattern>& patterns)
{
    for (const CallPattern& pattern : patterns) {
        EXPECT_TRUE(std::any_of(clean.serverCalls.begin(), clean.serverCalls.end(),
                                [&](const Call& call) { return matches({pattern}, call); }))
            << "never called: " << pattern.function << ' ' << pattern.argument;
    }
}

/** As far as the failing run went it made the calls of the clean one. */
void Sweep::expectSameCalls(const Trial& failing, std::size_t number, const Trial& clean)
{
    for (std::size_t index = 0; index < failing.serverCalls.size(); ++index) {
        const Call& call = failing.serverCalls[index];
        const Call& expected = clean.serverCalls[index];
        const bool isTheFailed = index + 1 == number;
        EXPECT_EQ(call.code, isTheFailed ? -7 : 0);
        EXPECT_EQ(call.function, expected.function);
        if (!isTheFailed) { // a failed create has no handle to show
            EXPECT_EQ(withoutCode(call), withoutCode(expected));
        }
    }
}

void Sweep::expectResult(const Trial& failing, int result, int code)
{
    EXPECT_EQ(failing.result, result);
    EXPECT_TRUE(GetParam().hasOwnHandles || entries == result);
    EXPECT_EQ(QV_RC, code);
    EXPECT_EQ(FromList, GetParam().resultKind);
}

void Sweep::expectOneReport(const Trial& failing, const std::string& reporter)
{
    EXPECT_EQ(failing.output, "****** first text second text .\n");
    EXPECT_EQ(failing.errorLog, harness::errorBlock(reporter, "first text second text "));
    EXPECT_EQ(lastError(), "first text second text \n");
    EXPECT_EQ(countLines(failing.accessLog, ") = -7"), 1);
    EXPECT_EQ(countLines(failing.accessLog, "SWEEP1 - first text"), 1);
    EXPECT_EQ(countLines(failing.accessLog, "SWEEP2 - second text"), 1);
}

void Sweep::failCall(std::size_t number, const Trial& clean)
{
    const Call& failed = clean.serverCalls[number - 1];
    SCOPED_TRACE("with call " + std::to_string(number) + " failing: " + withoutCode(failed));
    Trial failing = runAgain([&] {
        standin::forgetCalls();
        standin::answerCall(number, -7, {{"SWEEP1", "first text"}, {"SWEEP2", "second text"}});
    });
    const bool isUnchecked = matches(GetParam().unchecked, failed);
    const bool goesOn = isUnchecked || matches(GetParam().goesOn, failed);

    if (!goesOn && GetParam().hasOwnHandles) {
        dropReleases(failing.serverCalls, number);
    }
    ASSERT_EQ(failing.serverCalls.size(), goesOn ? clean.serverCalls.size() : number);
    expectSameCalls(failing, number, clean);
    expectResult(failing, goesOn ? clean.result : 0, goesOn ? 0 : -7);
    EXPECT_EQ(failing.lastRecord, goesOn ? clean.lastRecord : -1);
    if (isUnchecked) {
        EXPECT_EQ(failing.output + failing.errorLog, "");
        EXPECT_EQ(failing.accessLog, clean.accessLog);
    } else {
        expectOneReport(failing, reporterOf(GetParam(), failed));
    }
}

TEST_P(Sweep, AFailingCallIsReportedOnceAndStopsTheOperationWhereItShould)
{
    const Trial clean = runAgain([] {});
    EXPECT_EQ(clean.output + clean.errorLog, "");
    ASSERT_FALSE(clean.serverCalls.empty());
    expectPatternsOccur(clean, GetParam().goesOn);
    expectPatternsOccur(clean, GetParam().unchecked);
    expectPatternsOccur(clean, GetParam().testedElsewhere);
    for (std::size_t number = 1; number <= clean.serverCalls.size(); ++number) {
        if (!matches(GetParam().testedElsewhere, clean.serverCalls[number - 1])) {
            failCall(number, clean);
        }
    }
}

TEST_P(Sweep, APositiveCodeIsSuccess)
{
    const Trial clean = runAgain([] {});
    const Trial positive = runAgain([&] {
        standin::forgetCalls();
        for (std::size_t number = 1; number <= clean.serverCalls.size(); ++number) {
            standin::answerCall(number, 3, {{"SWEEP1", "not to be read"}});
        }
    });
    EXPECT_EQ(positive.result, clean.result);
    EXPECT_EQ(positive.output + positive.errorLog, "");
    EXPECT_EQ(countLines(positive.accessLog), countLines(clean.accessLog));
    ASSERT_EQ(positive.serverCalls.size(), clean.serverCalls.size());
    for (std::size_t index = 0; index < clean.serverCalls.size(); ++index) {
        EXPECT_EQ(withoutCode(positive.serverCalls[index]), withoutCode(clean.serverCalls[index]));
        EXPECT_EQ(positive.serverCalls[index].code, 3);
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, Sweep, ::testing::ValuesIn(sweep::allOperations()),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
