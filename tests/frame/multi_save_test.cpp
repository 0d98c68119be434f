// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

/** One of the three functions and what it calls. */
struct Step {
    std::string name;
    int (*function)();
    std::string serverFunction;
    std::string report; // how the report names it when it does so in another way
};

const Step start{"MultiSaveStart", MultiSaveStart, "QV_Start_Multisave", " as QV_Start_MultiSave"};
const Step commit{"MultiSaveCommit", MultiSaveCommit, "QV_Commit_Multisave", ""};
const Step discard{"MultiSaveDiscard", MultiSaveDiscard, "QV_Discard_Multisave", ""};

class MultiSave : public LibraryTest {
protected:
    /** Uses a step with or without a multi-save open, and another result than its own. */
    static int use(const Step& step, int started)
    {
        MultiSaveStarted = started;
        entries = 7;
        QV_RC = -5;
        return step.function();
    }
    /** The story of a step: its lines about the call, and what it leaves. */
    static std::string storyOf(const Step& step, const std::string& call, int result, int code)
    {
        return '\n' + step.name + ":\n2 @-----Start-------------------------------------.\n" + call +
               "2 @-----Exit--------------------------------------.\n= " + std::to_string(result) +
               " FromList= entries=" + std::to_string(result) + " LastRecNo=0 QV_RC=" + std::to_string(code) +
               " SelectedAttribute=[]\n";
    }
};

TEST_F(MultiSave, EachStepIsOneCall)
{
    for (const Step& step : {start, commit, discard}) {
        for (const int code : {0, 3, -7}) {
            SCOPED_TRACE(step.name + " answered by " + std::to_string(code));
            const std::string call = "> " + step.serverFunction + "() = " + std::to_string(code) +
                                     step.report + '\n' + (code < 0 ? "! E1 - Refused\n" : "");
            storiesOf([&] {
                standin::answer(step.serverFunction, code, {{"E1", "Refused"}});
                return use(step, 1);
            }).tell(storyOf(step, call, code < 0 ? 0 : 1, code));
            EXPECT_EQ(MultiSaveStarted, step.function == MultiSaveStart && code >= 0 ? 1 : 0);
        }
    }
}

TEST_F(MultiSave, AnEndWithoutAStartCallsNothing)
{
    for (const Step& step : {commit, discard}) {
        storiesOf([&] { return use(step, 0); }).tell(storyOf(step, "", 1, -5));
    }
}

TEST_F(MultiSave, TheSwitchTurnsEveryStepOff)
{
    for (const Step& step : {start, commit, discard}) {
        for (const char* const setting : {"0", "OFF"}) {
            storiesOf([&] {
                setEnvironment("QV_MULTI_SAVE", setting);
                return use(step, 1);
            }).tell('\n' + step.name + R"(:
2 @-----Start-------------------------------------.
log @ --- OFF ---
= 1 FromList= entries=7 LastRecNo=0 QV_RC=-5 SelectedAttribute=[]
)");
            EXPECT_EQ(MultiSaveStarted, 1);
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
