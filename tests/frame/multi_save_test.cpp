// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::errorBlock;
using harness::Outcome;

namespace {

/** One of the three functions and what it writes and calls. */
struct Step {
    const char* name;
    int (*function)();
    const char* serverFunction;
    const char* reportedFunction;
    bool isStart;

    /** The lines at level 2 and at level 5 of a use that answers `code`; without a call when there is none.
     */
    std::string trace(int level, std::optional<int> code) const
    {
        const std::string prefix = name;
        std::string marked = "\n2 " + prefix + "-----Start-------------------------------------.\n";
        if (code) {
            marked += "5 " + prefix + ' ' + reportedFunction + "  : QV_RC=" + std::to_string(*code) + ".\n";
        }
        if (code && *code < 0) {
            marked += "0 ****** Refused .\n";
        }
        return atLevel(level, marked + "2 " + prefix + "-----Exit--------------------------------------.\n");
    }
    std::string logLine(int code) const
    {
        return std::string(name) + "- rc(" + reportedFunction + ") = " + std::to_string(code) + '\n';
    }
};

constexpr Step steps[] = {
    {"MultiSaveStart", MultiSaveStart, "QV_Start_Multisave", "QV_Start_MultiSave", true},
    {"MultiSaveCommit", MultiSaveCommit, "QV_Commit_Multisave", "QV_Commit_Multisave", false},
    {"MultiSaveDiscard", MultiSaveDiscard, "QV_Discard_Multisave", "QV_Discard_Multisave", false},
};

class MultiSave : public harness::LibraryTest {
protected:
    /** Uses each step with a multi-save open, at each level, the server answering `code`. */
    void eachStep(int code, const std::function<void(int level, const Step& step, const Outcome&)>& test)
    {
        for (const Step& step : steps) {
            SCOPED_TRACE(step.name);
            atEachLevel([&](int level) {
                MultiSaveStarted = 1;
                entries = 7;
                standin::answer(step.serverFunction, code, {{"E1", "Refused"}});
                test(level, step, record(step.function));
            });
        }
    }
};

TEST_F(MultiSave, StepsThatTheServerAcceptsGiveOne)
{
    for (const int code : {0, 3}) {
        eachStep(code, [code](int level, const Step& step, const Outcome& outcome) {
            EXPECT_EQ(outcome.result, 1);
            EXPECT_EQ(entries, 1);
            EXPECT_EQ(QV_RC, code);
            EXPECT_EQ(MultiSaveStarted, step.isStart ? 1 : 0);
            EXPECT_EQ(outcome.calls,
                      std::string(step.serverFunction) + "() = " + std::to_string(code) + '\n');
            EXPECT_EQ(outcome.output, step.trace(level, code));
            EXPECT_EQ(outcome.accessLog, step.logLine(code));
            EXPECT_EQ(outcome.errorLog, "");
        });
    }
}

TEST_F(MultiSave, StepsThatTheServerRefusesGiveZeroAndLeaveNoneOpen)
{
    eachStep(-7, [](int level, const Step& step, const Outcome& outcome) {
        EXPECT_EQ(outcome.result, 0);
        EXPECT_EQ(entries, 0);
        EXPECT_EQ(QV_RC, -7);
        EXPECT_EQ(MultiSaveStarted, 0);
        EXPECT_EQ(outcome.output, step.trace(level, -7));
        EXPECT_EQ(outcome.accessLog, step.logLine(-7) + "E1 - Refused\n");
        EXPECT_EQ(outcome.errorLog, errorBlock(step.name, "Refused "));
        EXPECT_EQ(lastError(), "Refused \n");

        // Neither end has anything to end now.
        for (const auto end : {MultiSaveCommit, MultiSaveDiscard}) {
            const Outcome next = record(end);
            EXPECT_EQ(next.result, 1);
            EXPECT_EQ(entries, 1);
            EXPECT_EQ(next.calls + next.accessLog, "");
        }
    });
}

TEST_F(MultiSave, AnEndWithoutAStartCallsNothing)
{
    for (const Step& step : {steps[1], steps[2]}) {
        atEachLevel([&](int level) {
            QV_RC = -5;
            const Outcome outcome = record(step.function);
            EXPECT_EQ(outcome.result, 1);
            EXPECT_EQ(entries, 1);
            EXPECT_EQ(QV_RC, -5);
            EXPECT_EQ(outcome.calls + outcome.accessLog, "");
            EXPECT_EQ(outcome.output, step.trace(level, std::nullopt));
        });
    }
}

TEST_F(MultiSave, OneBracketIsEndedOnceAndASecondStartIsCalledAgain)
{
    connect();
    for (const auto end : {MultiSaveCommit, MultiSaveDiscard}) {
        const Outcome outcome = record([&] { return MultiSaveStart() + MultiSaveStart() + end() + end(); });
        EXPECT_EQ(outcome.result, 4);
        const std::string ended = end == MultiSaveCommit ? "QV_Commit_Multisave" : "QV_Discard_Multisave";
        EXPECT_EQ(outcome.calls, "QV_Start_Multisave() = 0\nQV_Start_Multisave() = 0\n" + ended + "() = 0\n");
    }
    // The flag is that of the last start.
    MultiSaveStart();
    standin::answer("QV_Start_Multisave", -7);
    harness::captureOutput([] { EXPECT_EQ(MultiSaveStart(), 0); });
    EXPECT_EQ(record(MultiSaveCommit).calls, "");
}

TEST_F(MultiSave, TheSwitchTurnsEveryStepOff)
{
    for (const Step& step : steps) {
        for (const char* const setting : {"0", "OFF"}) {
            atEachLevel([&](int level) {
                setEnvironment("QV_MULTI_SAVE", setting);
                MultiSaveStarted = 1;
                entries = 7;
                QV_RC = -5;
                const Outcome outcome = record(step.function);
                EXPECT_EQ(outcome.result, 1);
                EXPECT_EQ(entries, 7);
                EXPECT_EQ(MultiSaveStarted, 1);
                EXPECT_EQ(QV_RC, -5);
                EXPECT_EQ(outcome.calls, "");
                EXPECT_EQ(outcome.output, level < 2
                                              ? ""
                                              : std::string(step.name) +
                                                    "-----Start-------------------------------------.\n");
                EXPECT_EQ(outcome.accessLog, std::string(step.name) + " --- OFF ---\n");
            });
        }
    }
}

TEST_F(MultiSave, TheSwitchKnowsTwoValuesAndIsReadAtEveryCall)
{
    connect();
    for (const char* const setting : {"", "off", "Off", "OFF ", " 0", "00", "1", "ON"}) {
        setEnvironment("QV_MULTI_SAVE", setting);
        EXPECT_EQ(record(MultiSaveStart).calls, "QV_Start_Multisave() = 0\n") << setting;
        setEnvironment("QV_MULTI_SAVE", "OFF");
        EXPECT_EQ(record(MultiSaveCommit).calls, "");
        setEnvironment("QV_MULTI_SAVE", setting);
        EXPECT_EQ(record(MultiSaveCommit).calls, "QV_Commit_Multisave() = 0\n") << setting;
    }
}

} // namespace
