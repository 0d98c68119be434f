// SPDX-License-Identifier: Apache-2.0
//
// Headers of bills of material and the explosion.
#include <array>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class BomHeader : public LibraryTest {
protected:
    static int create() { return BomHeaderCreate(Text("ec-12a"), Text("br-1b"), Names({"desc"})); }
    static void answerNoHeader() { standin::answer("QV_Open_Object", -7, {{"Q100", "No such header"}}); }
};

TEST_F(BomHeader, AHeaderThatIsNotThereIsSavedOnTheSameObject)
{
    storiesOf([] {
        writeFile("QVL_RZM_DEFAULT", "BomHeaderCreate site A\nBomHeaderCreate update_count 5\n");
        answerNoHeader();
        return create();
    }).tell(R"(
BomHeaderCreate:
2 @-----Start------------------------------.
defaults 2
2 @-   EC Number=EC-12A-.
2 @-   Item Number=BR-1B-.
2 @-     ... plus default attributes ....
2 @-     site=A-.
2 @-     update_count=5-.
2 @- Printing Selected Attributes ....
2 @-     desc-.
log @ - ItemNumber= BR-1B , EcNumber= EC-12A
log @ -  site = A
log @ -  update_count = 5
new BomHeader
2 @- Set Required Fields for cl_open.
2 @-   logical_key@item_number=BR-1B-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-1B") = 0
2 @-   il_ec_number=EC-12A-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-12A") = 0
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @- Set  the Subscribes for the cl_open.
2 @-   db_object_id. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @- Open BomHeader Object. > QV_Open_Object(obj1) = -7
! Q100 - No such header
2 @- Set Required Fields for cl_save.
2 @-   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @-     site=A-. > QV_Set_Object_Attr(obj1, "site", "A") = 0
2 @-     update_count=5-. > QV_Set_Object_Attr(obj1, "update_count", "5") = 0
2 @- Set  the Subscribes for the Save. > QV_Subscribe_Object_Attr(obj1, "desc") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[desc]
)");
    EXPECT_EQ(lastError(), "No such header \n");
}

TEST_F(BomHeader, AHeaderThatIsThereIsLeftAsItIs)
{
    connect(2);
    EXPECT_EQ(record(create).storyFrom("Open BomHeader"), story(R"(
BomHeaderCreate:
2 @- Open BomHeader Object. > QV_Open_Object(obj1) = 0
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[desc]
)"));
}

TEST_F(BomHeader, ThirtyNamesAreCapturedAllAreAskedForBeforeTheSaveAndNineteenDefaultsAreSet)
{
    connect();
    answerNoHeader();
    std::string file;
    for (const std::string& name : numberedNames("default", 20)) {
        file += "BomHeaderCreate " + name + " value\n";
    }
    writeFile("QVL_RZM_DEFAULT", file);
    const Outcome outcome = record(
        [] { return BomHeaderCreate(Text("EC-1"), Text("BR-1"), Names(numberedNames("attribute", 31))); });
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(NbSelectedAttribute, 30);
    EXPECT_STREQ(SelectedAttribute[29], "attribute30");
    EXPECT_STREQ(SelectedAttribute[30], "");
    EXPECT_EQ(countLines(outcome.calls, "QV_Subscribe_Object_Attr(obj1, \"attribute"), 31);
    EXPECT_EQ(countLines(outcome.calls, "QV_Set_Object_Attr(obj1, \"default"), 19);
}

/** Of the calls that create the header only "update_count" may fail. */
TEST_F(BomHeader, AFailureBehindTheOpeningStopsTheCreation)
{
    for (std::size_t number = 8; number <= 10; ++number) {
        SCOPED_TRACE("with call " + std::to_string(number) + " failing");
        restart();
        connect();
        answerNoHeader();
        standin::answerCall(number, -8, {{"E1", "refused"}});
        const bool goesOn = number == 8;
        EXPECT_EQ(record(create).result, goesOn ? 1 : 0);
        EXPECT_EQ(QV_RC, goesOn ? 0 : -8);
        EXPECT_EQ(standin::calls().size(), goesOn ? 10 : number);
    }
}

class BomExplosion : public LibraryTest {
protected:
    static int explode(const std::vector<std::string>& parameters = {},
                       const std::vector<std::string>& values = {},
                       const std::vector<std::string>& names = {})
    {
        return BomExplode(Names(parameters), Names(values), Names(names));
    }
};

TEST_F(BomExplosion, TheRowsOfTheReportAreTheCurrentList)
{
    atEachLevel([] {
        standin::script().records = {{}, {}, {{"level", "2"}}};
        const auto first = [] {
            return explode({"item_number", "itm_doc_str"}, {"br-1", "no"}, {"level", "comp_item_number"});
        };
        // The last line carries the name as part of its text, and nothing before it.
        EXPECT_EQ(record(first).story, story(R"(
BomExplode:
2 @-----Start------------------------------.
2 @Printing Explosion Parameters ....
2 @   item_number=br-1-.
2 @   itm_doc_str=no-.
2 @Printing Selected Attributes ....
2 @   level-.
2 @   comp_item_number-.
DestroyListOrReport:
2 @-----Start-------.
2 @-----Exit--------.
BomExplode:
> QV_Create_Report(report1, "IndentedRetrievalStrmElm", "ExplosionRetrieval") = 0
> QV_Set_Report_Attr(report1, "item_number", "br-1") = 0
> QV_Set_Report_Attr(report1, "itm_doc_str", "no") = 0
> QV_Set_Report_Attr(report1, "itm_doc_str", "*") = 0
> QV_Subscribe_Report_Attr(report1, "level") = 0
> QV_Subscribe_Report_Attr(report1, "comp_item_number") = 0
> QV_Generate_Report(report1, list1) = 0
> QV_SizeOf_List(list1, 3) = 0 as QV_SizeOf_List "nb_of_entries" "3"
2 @-----Exit-----------entries/rc=3-------.
= 3 FromList=List entries=3 LastRecNo=-1 QV_RC=0 SelectedAttribute=[level, comp_item_number]
)"));
        // The next explosion gives the report and its rows back first.
        EXPECT_EQ(record([] { return explode(); }).story, story(R"(
BomExplode:
2 @-----Start------------------------------.
2 @Printing Explosion Parameters ....
2 @Printing Selected Attributes ....
DestroyListOrReport:
2 @-----Start-------. > QV_Destroy_Report(report1) = 0
> QV_Destroy_List(list1) = 0
2 @-----Exit--------.
BomExplode:
> QV_Create_Report(report2, "IndentedRetrievalStrmElm", "ExplosionRetrieval") = 0
> QV_Set_Report_Attr(report2, "itm_doc_str", "*") = 0
> QV_Generate_Report(report2, list2) = 0
> QV_SizeOf_List(list2, 3) = 0 as QV_SizeOf_List "nb_of_entries" "3"
2 @-----Exit-----------entries/rc=3-------.
= 3 FromList=List entries=3 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
    });
    std::array<char, 10> level{};
    captureOutput([&] { GetValue(2, "level", level.data()); });
    EXPECT_STREQ(level.data(), "2");
}

TEST_F(BomExplosion, AReportThatCannotBeGivenBackIsToldAndReplaced)
{
    connect();
    standin::answer("QV_Generate_Report", -7);
    record([] { return explode(); }); // leaves a report without rows
    standin::answer("QV_Generate_Report", 0);
    standin::answer("QV_Destroy_Report", -7, {{"E1", "in use"}});
    standin::script().records = {{}};
    EXPECT_EQ(record([] { return explode(); }).story, story(R"(
DestroyListOrReport:
> QV_Destroy_Report(report1) = -7
! E1 - in use
BomExplode:
> QV_Create_Report(report2, "IndentedRetrievalStrmElm", "ExplosionRetrieval") = 0
> QV_Set_Report_Attr(report2, "itm_doc_str", "*") = 0
> QV_Generate_Report(report2, list1) = 0
> QV_SizeOf_List(list1, 1) = 0 as QV_SizeOf_List "nb_of_entries" "1"
= 1 FromList=List entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
}

TEST_F(BomExplosion, MissingParameterValuesAreEmptyTexts)
{
    connect(2);
    Text level("2");
    std::array<char*, 2> values = {nullptr, level};
    const Outcome outcome = record([&] {
        return BomExplode(Names({"ec_number", "max_level"}), values.data(), nullptr);
    });
    EXPECT_EQ(countLines(outcome.calls, R"("max_level", "2")"), 1);
    EXPECT_EQ(countLines(outcome.calls, R"("ec_number", "")"), 1);
    EXPECT_EQ(countLines(outcome.output, "BomExplode   ec_number=-."), 1);
    EXPECT_EQ(
        countLines(record([] { return BomExplode(Names({"a"}), nullptr, nullptr); }).calls, R"("a", "")"), 1);
}

} // namespace
