// SPDX-License-Identifier: Apache-2.0
#include <array>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

// What the library starts with, taken before any test.
const char kindAtLoad = FromList[0];
const std::array numbersAtLoad = {QV_RC,           entries, LastRecNo, LastAttNo, NbSelectedAttribute,
                                  MultiSaveStarted};

class CurrentResult : public LibraryTest {
protected:
    static void makeListAndReport()
    {
        ASSERT_EQ(QV_Create_Report(&QV_RepPtr, "IndentedRetrievalStrmElm", "ExplosionRetrieval"), 0);
        ASSERT_EQ(QV_Generate_Report(QV_RepPtr, &QV_ListPtr), 0);
    }
    static int open() { return EngineeringChangeOpen(Text(""), Text("EC-1"), Names({"id", "desc"})); }
};

TEST_F(CurrentResult, HasRoomForTheTextsThatProgramsKnow)
{
    EXPECT_EQ(sizeof FromList, 10U);
    EXPECT_EQ(sizeof SelectedAttribute, 2500U);
}

TEST_F(CurrentResult, IsEmptyAtLoad)
{
    EXPECT_EQ(kindAtLoad, '\0');
    EXPECT_EQ(numbersAtLoad, (std::array{0, 0, 0, 0, 0, 0}));
}

TEST_F(CurrentResult, DestroyListOrReportLeavesTheRestOfTheResult)
{
    connect(2);
    EXPECT_EQ(open(), 1);
    makeListAndReport();
    EXPECT_EQ(record(DestroyListOrReport).story, story(R"(
DestroyListOrReport:
2 @-----Start-------. > QV_Destroy_Report(report1) = 0
> QV_Destroy_List(list1) = 0
2 @-----Exit--------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
    EXPECT_NE(QV_ObjPtr, nullptr);
    EXPECT_EQ(record(DestroyListOrReport).calls, "") << "there is neither";
}

TEST_F(CurrentResult, AReportThatIsNotDestroyedKeepsTheListFromBeingDestroyed)
{
    connect(2);
    makeListAndReport();
    standin::answer("QV_Destroy_Report", -7, {{"E1", "Busy"}});
    EXPECT_EQ(record(DestroyListOrReport).story, story(R"(
DestroyListOrReport:
2 @-----Start-------. > QV_Destroy_Report(report1) = -7
! E1 - Busy
2 @-----Exit--------.
= 1 FromList= entries=0 LastRecNo=0 QV_RC=-7 SelectedAttribute=[]
)"));
    EXPECT_NE(QV_ListPtr, nullptr);
}

TEST_F(CurrentResult, AnObjectOperationLeavesTheListAlive)
{
    connect();
    makeListResult({{{"id", "EC-1"}}, {{"id", "EC-2"}}});
    EXPECT_EQ(countLines(record(open).calls, "QV_Destroy_List"), 0);
    standin::script().values["id"] = "EC-OBJECT";
    char value[QV_MAX_VALUE_LENGTH + 1];
    EXPECT_EQ(GetValue(0, "id", value), 1);
    EXPECT_STREQ(value, "EC-OBJECT");
    EXPECT_EQ(GetValue(1, "id", value), 0);
}

} // namespace
