// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <iterator>

#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::errorBlock;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;

namespace {

class CurrentResult : public harness::LibraryTest {
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
    atEachLevel([](int level) {
        ASSERT_EQ(QV_Create_Object(&QV_ObjPtr, "BomHeader"), 0);
        const Outcome outcome = record(DestroyListOrReport);
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(outcome.calls + outcome.accessLog, "");
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 DestroyListOrReport-----Start-------.
2 DestroyListOrReport-----Exit--------.
)"));
    });
}

TEST_F(CurrentResult, DestroyListOrReportLeavesTheRestOfTheResult)
{
    connect();
    Names names({"id", "desc"});
    EXPECT_EQ(open(names), 1);
    makeListAndReport();
    const Outcome outcome = record(DestroyListOrReport);
    EXPECT_EQ(outcome.calls, "QV_Destroy_Report(report1) = 0\nQV_Destroy_List(list1) = 0\n");
    EXPECT_EQ(QV_ListPtr, nullptr);
    EXPECT_EQ(QV_RepPtr, nullptr);
    EXPECT_NE(QV_ObjPtr, nullptr);
    EXPECT_STREQ(FromList, "Object");
    EXPECT_EQ(entries, 1);
    EXPECT_EQ(NbSelectedAttribute, 2);
}

TEST_F(CurrentResult, AReportThatIsNotDestroyedKeepsTheListFromBeingDestroyed)
{
    connect(2);
    makeListAndReport();
    standin::answer("QV_Destroy_Report", -7, {{"E1", "Busy"}});
    const Outcome outcome = record(DestroyListOrReport);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.calls, "QV_Destroy_Report(report1) = -7\n");
    EXPECT_EQ(outcome.output, lines(R"(
DestroyListOrReport-----Start-------.
****** Busy .
DestroyListOrReport-----Exit--------.
)"));
    EXPECT_EQ(outcome.errorLog, errorBlock("DestroyListOrReport", "Busy "));
    EXPECT_NE(QV_ListPtr, nullptr);
    EXPECT_EQ(QV_RC, -7);
}

TEST_F(CurrentResult, AListThatIsNotDestroyedIsReported)
{
    connect(0);
    makeListAndReport();
    standin::answer("QV_Destroy_Report", 3);
    standin::answer("QV_Destroy_List", -7, {{"E1", "Busy"}});
    const Outcome outcome = record(DestroyListOrReport);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.output, "****** Busy .\n");
    EXPECT_EQ(outcome.accessLog, lines(R"(
DestroyListOrReport- rc(QV_Destroy_Report) = 3
DestroyListOrReport- rc(QV_Destroy_List) = -7
E1 - Busy
)"));
}

TEST_F(CurrentResult, FiftyNamesAreCapturedAndEveryNameIsSubscribed)
{
    connect();
    for (const int count : {0, 1, 49, 50, 51, 60}) {
        Names names(harness::numberedNames("attribute", count));
        EXPECT_EQ(open(names), 1);
        const int captured = std::min(count, 50);
        EXPECT_EQ(NbSelectedAttribute, captured);
        for (int slot = 0; slot < captured; ++slot) {
            EXPECT_EQ(SelectedAttribute[slot], names.all()[static_cast<std::size_t>(slot)]);
        }
        const Outcome outcome = record([&] { return open(names); });
        EXPECT_EQ(harness::countLines(outcome.calls, "QV_Subscribe_Object_Attr("), count);
        EXPECT_EQ(outcome.output, "") << "names beyond the bound are no reason for a message";
    }
}

TEST_F(CurrentResult, ANameOfMoreThan49CharactersIsCapturedCutSubscribedWholeAndReported)
{
    atEachLevel([](int level) {
        const std::string fitting(49, 'f');
        const std::string longer(50, 'l');
        const std::string endless(10000, 'e');
        Names names({fitting, longer, endless, "desc"});
        Names shorterNames({fitting, "b", "c", "desc"});
        const Outcome plain = record([&] { return open(shorterNames); });
        const Outcome outcome = record([&] { return open(names); });
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(NbSelectedAttribute, 4);
        EXPECT_EQ(SelectedAttribute[0], fitting);
        EXPECT_EQ(SelectedAttribute[1], longer.substr(0, 49));
        EXPECT_EQ(SelectedAttribute[2], endless.substr(0, 49));
        EXPECT_STREQ(SelectedAttribute[3], "desc");
        for (const std::string& name : names.all()) {
            EXPECT_EQ(harness::countLines(outcome.calls, "\"" + name + "\""), 1);
        }
        // One line on either channel tells of both; the rest is as for short names.
        EXPECT_EQ(harness::countLines(outcome.output),
                  harness::countLines(plain.output) + (level >= 0 ? 1 : 0));
        EXPECT_EQ(harness::countLines(outcome.accessLog), harness::countLines(plain.accessLog) + 1);
        EXPECT_EQ(harness::countLines(outcome.accessLog, "EngineeringChangeOpen"),
                  harness::countLines(outcome.accessLog))
            << "the warning names the operation";
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_F(CurrentResult, AnObjectOperationLeavesTheListAlive)
{
    connect();
    makeListResult({{{"id", "EC-1"}}, {{"id", "EC-2"}}});
    Names names({"id"});
    const Outcome outcome = record([&] { return open(names); });
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(harness::countLines(outcome.calls, "QV_Destroy_List"), 0);
    EXPECT_NE(QV_ListPtr, nullptr);
    standin::setValue("id", "EC-OBJECT");
    char value[QV_MAX_VALUE_LENGTH + 1];
    EXPECT_EQ(GetValue(0, "id", value), 1);
    EXPECT_STREQ(value, "EC-OBJECT");
    EXPECT_EQ(GetValue(1, "id", value), 0);
}

TEST_F(CurrentResult, ACreateThatFailsLeavesAnEmptyObjectResult)
{
    connect();
    Names names({"id"});
    EXPECT_EQ(open(names), 1);
    standin::answer("QV_Create_Object", -7);
    const Outcome outcome = record([&] { return open(names); });
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(obj1) = 0
QV_Create_Object(null, "EngineeringChange") = -7
)"));
    EXPECT_STREQ(FromList, "Object");
    EXPECT_EQ(LastRecNo, -1);
    EXPECT_EQ(entries, 0);
    EXPECT_EQ(QV_RC, -7);
    EXPECT_EQ(QV_ObjPtr, nullptr);
}

} // namespace
