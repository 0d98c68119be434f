// SPDX-License-Identifier: Apache-2.0
//
// Headers of bills of material and the explosion.
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::errorBlock;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;
using harness::writeFile;

namespace {

class BomHeader : public harness::LibraryTest {
protected:
    static Outcome create(char* ecNumber, char* itemNumber, char** names)
    {
        return record([&] { return BomHeaderCreate(ecNumber, itemNumber, names); });
    }
    static Outcome create()
    {
        return create(Text("EC-1"), Text("BR-1"), Names({"db_object_id", "update_count"}));
    }
    /** The answer to the opening of a header that is not there. */
    static void answerNoHeader() { standin::answer("QV_Open_Object", -7, {{"Q100", "No such header"}}); }
};

TEST_F(BomHeader, AHeaderThatIsNotThereIsSavedOnTheSameObject)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT", "BomHeaderCreate site A\nBomHeaderCreate update_count 5\n");
        answerNoHeader();
        Text ecNumber("ec-12a");
        Text itemNumber("br-1b");
        const Outcome outcome = create(ecNumber, itemNumber, Names({"db_object_id", "desc"}));
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(entries, 1);
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(ecNumber.str() + ' ' + itemNumber.str(), "EC-12A BR-1B");
        EXPECT_EQ(NbSelectedAttribute, 2);
        EXPECT_STREQ(SelectedAttribute[0], "db_object_id");
        EXPECT_STREQ(SelectedAttribute[1], "desc");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "BomHeader") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-1B") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "EC-12A") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Open_Object(obj1) = -7
QV_Set_Object_Attr(obj1, "update_count", "") = 0
QV_Set_Object_Attr(obj1, "site", "A") = 0
QV_Set_Object_Attr(obj1, "update_count", "5") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "desc") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 BomHeaderCreate-----Start------------------------------.
2 BomHeaderCreate- Calling DefaultRead for BomHeaderCreate.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- site=A.
5 DefaultRead- update_count=5.
2 DefaultRead-----Exit----NbOfDefault=2--------.
2 BomHeaderCreate- rc(DefaultRead)=2.
2 BomHeaderCreate-   EC Number=EC-12A-.
2 BomHeaderCreate-   Item Number=BR-1B-.
2 BomHeaderCreate-     ... plus default attributes ....
2 BomHeaderCreate-     site=A-.
2 BomHeaderCreate-     update_count=5-.
2 BomHeaderCreate- Printing Selected Attributes ....
2 BomHeaderCreate-     db_object_id-.
2 BomHeaderCreate-     desc-.
5 BomHeaderCreate QV_Create_Object BomHeader : QV_RC=0.
2 BomHeaderCreate- Set Required Fields for cl_open.
2 BomHeaderCreate-   logical_key@item_number=BR-1B-.
5 BomHeaderCreate QV_Set_Object_Attr logical_key@item_number BR-1B: QV_RC=0.
2 BomHeaderCreate-   il_ec_number=EC-12A-.
5 BomHeaderCreate QV_Set_Object_Attr il_ec_number EC-12A: QV_RC=0.
2 BomHeaderCreate-   logical_key@loc_id=-.
5 BomHeaderCreate QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 BomHeaderCreate- Set  the Subscribes for the cl_open.
2 BomHeaderCreate-   db_object_id.
5 BomHeaderCreate QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
2 BomHeaderCreate- Open BomHeader Object.
5 BomHeaderCreate QV_Open_Object  : QV_RC=-7.
0 ****** No such header .
2 BomHeaderCreate- Set Required Fields for cl_save.
2 BomHeaderCreate-   update_count=-.
5 BomHeaderCreate QV_Set_Object_Attr update_count : QV_RC=0.
2 BomHeaderCreate-     site=A-.
5 BomHeaderCreate QV_Set_Object_Attr site A: QV_RC=0.
2 BomHeaderCreate-     update_count=5-.
5 BomHeaderCreate QV_Set_Object_Attr update_count 5: QV_RC=0.
2 BomHeaderCreate- Set  the Subscribes for the Save.
5 BomHeaderCreate QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 BomHeaderCreate QV_Subscribe_Object_Attr desc : QV_RC=0.
2 BomHeaderCreate- Execute Save method.
5 BomHeaderCreate QV_Save_Object  : QV_RC=0.
2 BomHeaderCreate-----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead -  site <=> A
DefaultRead -  update_count <=> 5
)")) + lines(R"(
BomHeaderCreate - ItemNumber= BR-1B , EcNumber= EC-12A
BomHeaderCreate -  site = A
BomHeaderCreate -  update_count = 5
BomHeaderCreate- rc(QV_Create_Object::BomHeader) = 0
BomHeaderCreate- rc(QV_Set_Object_Attr::logical_key@item_number=BR-1B) = 0
BomHeaderCreate- rc(QV_Set_Object_Attr::il_ec_number=EC-12A) = 0
BomHeaderCreate- rc(QV_Set_Object_Attr::logical_key@loc_id) = 0
BomHeaderCreate- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
BomHeaderCreate- rc(QV_Open_Object) = -7
Q100 - No such header
BomHeaderCreate- rc(QV_Set_Object_Attr::update_count) = 0
BomHeaderCreate- rc(QV_Set_Object_Attr::site=A) = 0
BomHeaderCreate- rc(QV_Set_Object_Attr::update_count=5) = 0
BomHeaderCreate- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
BomHeaderCreate- rc(QV_Subscribe_Object_Attr::desc) = 0
BomHeaderCreate- rc(QV_Save_Object) = 0
)"));
        EXPECT_EQ(outcome.errorLog, errorBlock("BomHeaderCreate", "No such header "));
        EXPECT_EQ(lastError(), "No such header \n");
    });
}

TEST_F(BomHeader, AHeaderThatIsThereIsLeftAsItIs)
{
    connect(2);
    writeFile("QVL_RZM_DEFAULT", "BomHeaderCreate site A\n");
    const Outcome outcome = create();
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.errorLog, "");
    EXPECT_EQ(outcome.calls.substr(outcome.calls.find("QV_Open_Object")), "QV_Open_Object(obj1) = 0\n");
    const std::string end = lines(R"(
BomHeaderCreate- Open BomHeader Object.
BomHeaderCreate-----Exit------------entries/rc=1--------------------.
)");
    EXPECT_EQ(outcome.output.substr(outcome.output.size() - end.size()), end);
}

TEST_F(BomHeader, ThirtyNamesAreCapturedAndAllAreAskedForBeforeTheSave)
{
    connect();
    answerNoHeader();
    const Outcome outcome = create(Text(""), Text("BR-1"), Names(harness::numberedNames("attribute", 31)));
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(NbSelectedAttribute, 30);
    EXPECT_STREQ(SelectedAttribute[29], "attribute30");
    EXPECT_STREQ(SelectedAttribute[30], "");
    EXPECT_EQ(harness::countLines(outcome.calls, "QV_Subscribe_Object_Attr(obj1, \"attribute"), 31);
}

/** Of the calls that create the header only "update_count" may fail. */
TEST_F(BomHeader, AFailureBehindTheOpeningStopsTheCreation)
{
    connect();
    answerNoHeader();
    create();
    const std::vector<standin::Call> clean = standin::calls();
    ASSERT_EQ(clean.back().function, "QV_Save_Object");
    for (std::size_t number = 8; number <= clean.size(); ++number) {
        const standin::Call& failed = clean[number - 1];
        SCOPED_TRACE("with call " + std::to_string(number) + " failing: " + failed.line());
        restart();
        connect();
        answerNoHeader();
        standin::answerCall(number, -8, {{"E1", "refused"}});
        const Outcome outcome = create();
        const bool goesOn = failed.function == "QV_Set_Object_Attr" && failed.hasText("update_count");
        EXPECT_EQ(outcome.result, goesOn ? 1 : 0);
        EXPECT_EQ(QV_RC, goesOn ? 0 : -8);
        EXPECT_EQ(standin::calls().size(), goesOn ? clean.size() : number);
        EXPECT_EQ(outcome.output, "****** No such header .\n****** refused .\n");
    }
}

class BomExplosion : public harness::LibraryTest {
protected:
    static Outcome explode(std::vector<std::string> parameters, std::vector<std::string> values,
                           std::vector<std::string> names)
    {
        Names parameterArray(std::move(parameters));
        Names valueArray(std::move(values));
        Names nameArray(std::move(names));
        return record([&] { return BomExplode(parameterArray, valueArray, nameArray); });
    }
};

TEST_F(BomExplosion, TheRowsOfTheReportAreTheCurrentList)
{
    atEachLevel([](int level) {
        standin::setRecords({{}, {}, {{"level", "2"}}});
        const Outcome outcome =
            explode({"item_number", "itm_doc_str"}, {"br-1", "no"}, {"level", "comp_item_number"});
        EXPECT_EQ(outcome.result, 3);
        EXPECT_EQ(entries, 3);
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_STREQ(FromList, "List");
        EXPECT_EQ(NbSelectedAttribute, 2);
        EXPECT_STREQ(SelectedAttribute[0], "level");
        EXPECT_STREQ(SelectedAttribute[1], "comp_item_number");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Create_Report(report1, "IndentedRetrievalStrmElm", "ExplosionRetrieval") = 0
QV_Set_Report_Attr(report1, "item_number", "br-1") = 0
QV_Set_Report_Attr(report1, "itm_doc_str", "no") = 0
QV_Set_Report_Attr(report1, "itm_doc_str", "*") = 0
QV_Subscribe_Report_Attr(report1, "level") = 0
QV_Subscribe_Report_Attr(report1, "comp_item_number") = 0
QV_Generate_Report(report1, list1) = 0
QV_SizeOf_List(list1, 3) = 0
)"));
        // The last line carries the name as part of its text, and nothing before it.
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 BomExplode-----Start------------------------------.
2 BomExplodePrinting Explosion Parameters ....
2 BomExplode   item_number=br-1-.
2 BomExplode   itm_doc_str=no-.
2 BomExplodePrinting Selected Attributes ....
2 BomExplode   level-.
2 BomExplode   comp_item_number-.
2 DestroyListOrReport-----Start-------.
2 DestroyListOrReport-----Exit--------.
5 BomExplode QV_Create_Report IndentedRetrievalStrmElm ExplosionRetrieval: QV_RC=0.
5 BomExplode QV_Set_Report_Attr item_number br-1: QV_RC=0.
5 BomExplode QV_Set_Report_Attr itm_doc_str no: QV_RC=0.
5 BomExplode QV_Set_Report_Attr itm_doc_str *: QV_RC=0.
5 BomExplode QV_Subscribe_Report_Attr level : QV_RC=0.
5 BomExplode QV_Subscribe_Report_Attr comp_item_number : QV_RC=0.
5 BomExplode QV_Generate_Report  : QV_RC=0.
5 BomExplode QV_SizeOf_List nb_of_entries 3: QV_RC=0.
2 BomExplode-----Exit-----------entries/rc=3-------.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
BomExplode- rc(QV_Create_Report::IndentedRetrievalStrmElm=ExplosionRetrieval) = 0
BomExplode- rc(QV_Set_Report_Attr::item_number=br-1) = 0
BomExplode- rc(QV_Set_Report_Attr::itm_doc_str=no) = 0
BomExplode- rc(QV_Set_Report_Attr::itm_doc_str=*) = 0
BomExplode- rc(QV_Subscribe_Report_Attr::level) = 0
BomExplode- rc(QV_Subscribe_Report_Attr::comp_item_number) = 0
BomExplode- rc(QV_Generate_Report) = 0
BomExplode- rc(QV_SizeOf_List::nb_of_entries=3) = 0
)"));
        std::string level2(10, '\0');
        EXPECT_EQ(record([&] { return GetValue(2, Text("level"), level2.data()); }).result, 1);
        EXPECT_STREQ(level2.c_str(), "2");

        // The next explosion gives the report and its rows back first.
        const Outcome next = explode({}, {}, {});
        EXPECT_EQ(next.result, 3);
        EXPECT_EQ(next.calls, lines(R"(
QV_Destroy_Report(report1) = 0
QV_Destroy_List(list1) = 0
QV_Create_Report(report2, "IndentedRetrievalStrmElm", "ExplosionRetrieval") = 0
QV_Set_Report_Attr(report2, "itm_doc_str", "*") = 0
QV_Generate_Report(report2, list2) = 0
QV_SizeOf_List(list2, 3) = 0
)"));
    });
}

TEST_F(BomExplosion, AFailedReportGivesNoRows)
{
    connect(2);
    entries = 5;
    standin::answer("QV_Generate_Report", -7, {{"Q1", "No such item"}});
    const Outcome outcome = explode({"item_number"}, {"BR-9"}, {});
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(entries, 0);
    EXPECT_EQ(QV_ListPtr, nullptr);
    const std::string end = lines(R"(
****** No such item .
BomExplode-----Exit-----------entries/rc=0-------.
)");
    EXPECT_EQ(outcome.output.substr(outcome.output.size() - end.size()), end);
}

TEST_F(BomExplosion, AReportThatCannotBeGivenBackIsToldAndReplaced)
{
    connect();
    standin::answer("QV_Generate_Report", -7);
    explode({}, {}, {}); // leaves a report without rows
    standin::answer("QV_Generate_Report", 0);
    standin::answer("QV_Destroy_Report", -7, {{"E1", "in use"}});
    standin::setRecords({{}});
    const Outcome outcome = explode({}, {}, {});
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.output, "****** in use .\n");
    EXPECT_EQ(outcome.errorLog, errorBlock("DestroyListOrReport", "in use "));
}

TEST_F(BomExplosion, MissingParameterValuesAreEmptyTexts)
{
    connect(2);
    Names parameters({"item_number", "ec_number"});
    Names values({"BR-1"}); // its closing null stands where the second value is missing
    const Outcome outcome = record([&] { return BomExplode(parameters, values, nullptr); });
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(harness::countLines(outcome.calls, R"("item_number", "BR-1")"), 1);
    EXPECT_EQ(harness::countLines(outcome.calls, R"("ec_number", "")"), 1);
    EXPECT_EQ(harness::countLines(outcome.output, "BomExplode   ec_number=-."), 1);
    EXPECT_EQ(record([&] { return BomExplode(parameters, nullptr, nullptr); }).result, 0);
    EXPECT_EQ(harness::countLines(standin::transcript(), R"("item_number", "")"), 1);
    EXPECT_EQ(record([] { return BomExplode(nullptr, nullptr, nullptr); }).result, 0);
    EXPECT_EQ(harness::countLines(standin::transcript(), "QV_Set_Report_Attr"), 1);
}

} // namespace
