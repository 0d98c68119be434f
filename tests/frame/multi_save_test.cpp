// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using MultiSave = harness::LibraryTest;

namespace {

TEST_F(MultiSave, TheSwitchKnowsTwoValuesAndIsReadAtEveryCall)
{
    connect();
    for (const char* const setting : {"", "off", "Off", "OFF ", " 0", "00", "1", "ON"}) {
        setEnvironment("QV_MULTI_SAVE", setting);
        EXPECT_EQ(record(MultiSaveStart).calls, "QV_Start_Multisave() = 0\n") << setting;
        for (const char* const off : {"0", "OFF"}) {
            setEnvironment("QV_MULTI_SAVE", off);
            EXPECT_EQ(record(MultiSaveCommit).calls, "");
        }
        setEnvironment("QV_MULTI_SAVE", setting);
        EXPECT_EQ(record(MultiSaveCommit).calls, "QV_Commit_Multisave() = 0\n") << setting;
    }
}

} // namespace
