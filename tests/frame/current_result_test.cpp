// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class CurrentResult : public LibraryTest {
protected:
    static void makeListAndReport()
    {
        ASSERT_EQ(QV_Create_Report(&QV_RepPtr, "IndentedRetrievalStrmElm", "ExplosionRetrieval"), 0);
        ASSERT_EQ(QV_Generate_Report(QV_RepPtr, &QV_ListPtr), 0);
    }
    static int open(Names& names) { return EngineeringChangeOpen(Text(""), Text("EC-1"), names); }
};

TEST_F(CurrentResult, IsEmptyWhenTheLibraryIsLoaded)
{
    EXPECT_STREQ(FromList, "");
    EXPECT_EQ(sizeof FromList, 10U);
    EXPECT_EQ(sizeof SelectedAttribute, 2500U);
    int nbEntries = -1;
    int nbAttributes = -1;
    SizeOfAttributeValue(&nbEntries, &nbAttributes);
    EXPECT_EQ(nbEntries, 0);
    EXPECT_EQ(nbAttributes, 0);
    EXPECT_EQ(QV_ObjPtr, nullptr);
    EXPECT_EQ(QV_ListPtr, nullptr);
    EXPECT_EQ(QV_RepPtr, nullptr);
}

TEST_F(CurrentResult, DestroyListOrReportWithNeitherCallsNothing)
{
    atEachLevel([] {
        ASSERT_EQ(QV_Create_Object(&QV_ObjPtr, "BomHeader"), 0);
        EXPECT_EQ(record(DestroyListOrReport).story, story(R"(
DestroyListOrReport:
2 @-----Start-------.
2 @-----Exit--------.
= 1 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
    });
}

TEST_F(CurrentResult, DestroyListOrReportLeavesTheRestOfTheResult)
{
    connect(2);
    Names names({"id", "desc"});
    EXPECT_EQ(open(names), 1);
    makeListAndReport();
    EXPECT_EQ(record(DestroyListOrReport).story, story(R"(
DestroyListOrReport:
2 @-----Start-------. > QV_Destroy_Report(report1) = 0
> QV_Destroy_List(list1) = 0
2 @-----Exit--------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
    EXPECT_EQ(QV_ListPtr, nullptr);
    EXPECT_EQ(QV_RepPtr, nullptr);
    EXPECT_NE(QV_ObjPtr, nullptr);
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

TEST_F(CurrentResult, AListThatIsNotDestroyedIsReported)
{
    connect(0);
    makeListAndReport();
    standin::answer("QV_Destroy_Report", 3);
    standin::answer("QV_Destroy_List", -7, {{"E1", "Busy"}});
    EXPECT_EQ(record(DestroyListOrReport).story, story(R"(
DestroyListOrReport:
> QV_Destroy_Report(report1) = 3
> QV_Destroy_List(list1) = -7
! E1 - Busy
= 1 FromList= entries=0 LastRecNo=0 QV_RC=-7 SelectedAttribute=[]
)"));
}

TEST_F(CurrentResult, AnObjectOperationLeavesTheListAlive)
{
    connect();
    makeListResult({{{"id", "EC-1"}}, {{"id", "EC-2"}}});
    Names names({"id"});
    const Outcome outcome = record([&] { return open(names); });
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(countLines(outcome.calls, "QV_Destroy_List"), 0);
    EXPECT_NE(QV_ListPtr, nullptr);
    standin::setValue("id", "EC-OBJECT");
    char value[QV_MAX_VALUE_LENGTH + 1];
    EXPECT_EQ(GetValue(0, "id", value), 1);
    EXPECT_STREQ(value, "EC-OBJECT");
    EXPECT_EQ(GetValue(1, "id", value), 0);
}

} // namespace
