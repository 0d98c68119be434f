// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::countLines;
using harness::errorBlock;
using harness::lines;
using harness::Names;
using harness::numberedNames;
using harness::Outcome;
using harness::Text;
using harness::writeFile;

namespace {

class AffectedItems : public harness::LibraryTest {
protected:
    static Outcome create(const std::string& change, const std::string& item, const std::string& action,
                          const std::vector<std::string>& names = {})
    {
        return record(
            [&] { return AffectedItemCreate(Text(change), Text(item), Text(action), Names(names)); });
    }
    static Outcome query(const std::string& id, const std::vector<std::string>& names = {})
    {
        return record([&] { return AffectedItemQuery(Text(id), Names(names)); });
    }
    static void writeDefaults(int count)
    {
        std::string file;
        for (const std::string& name : numberedNames("attribute", count)) {
            file += "AffectedItemCreate " + name + " value\n";
        }
        writeFile("QVL_RZM_DEFAULT", file);
    }
};

TEST_F(AffectedItems, AnItemIsAddedToAChangeWithDefaults)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT", "AffectedItemCreate eff_date_str today\nAffectedItemQuery no no\n"
                                     "AffectedItemCreate item_number default\n");
        const Outcome outcome = create("ec-12a", "br-100", "add", {"db_object_id", "item_status"});
        EXPECT_EQ(outcome.result, 1);
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "AffectedItem") = 0
QV_Set_Object_Attr(obj1, "ec@id", "EC-12A") = 0
QV_Set_Object_Attr(obj1, "item_number", "BR-100") = 0
QV_Set_Object_Attr(obj1, "change_action@curr_key", "ADD") = 0
QV_Set_Object_Attr(obj1, "update_count", "") = 0
QV_Set_Object_Attr(obj1, "eff_date_str", "today") = 0
QV_Set_Object_Attr(obj1, "item_number", "default") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "item_status") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 AffectedItemCreate---Start------------------------------.
2 AffectedItemCreate- Calling DefaultRead for AffectedItemCreate.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- eff_date_str=today.
5 DefaultRead- item_number=default.
2 DefaultRead-----Exit----NbOfDefault=2--------.
2 AffectedItemCreate- rc(DefaultRead)=2.
2 AffectedItemCreate- Printing Input Attributes ....
2 AffectedItemCreate-      EC Number=EC-12A-.
2 AffectedItemCreate-      Item Number=BR-100-.
2 AffectedItemCreate-      Action=ADD-.
2 AffectedItemCreate-      ... plus AffectedItem default attributes ....
2 AffectedItemCreate-      eff_date_str=today-.
2 AffectedItemCreate-      item_number=default-.
2 AffectedItemCreate- Printing Selected Attributes ....
2 AffectedItemCreate-      db_object_id-.
2 AffectedItemCreate-      item_status-.
5 AffectedItemCreate QV_Create_Object AffectedItem : QV_RC=0.
2 AffectedItemCreate- Set required fields for cl_save.
2 AffectedItemCreate-      ec@id=EC-12A-.
5 AffectedItemCreate QV_Set_Object_Attr ec@id EC-12A: QV_RC=0.
2 AffectedItemCreate-      item_number=BR-100-.
5 AffectedItemCreate QV_Set_Object_Attr item_number BR-100: QV_RC=0.
2 AffectedItemCreate-      change_action@curr_key=ADD-.
5 AffectedItemCreate QV_Set_Object_Attr change_action@curr_key ADD: QV_RC=0.
2 AffectedItemCreate-    update_count=-.
5 AffectedItemCreate QV_Set_Object_Attr update_count : QV_RC=0.
2 AffectedItemCreate-      eff_date_str=today-.
5 AffectedItemCreate QV_Set_Object_Attr eff_date_str today: QV_RC=0.
2 AffectedItemCreate-      item_number=default-.
5 AffectedItemCreate QV_Set_Object_Attr item_number default: QV_RC=0.
2 AffectedItemCreate- Set fields to be selected for cl_save.
5 AffectedItemCreate QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 AffectedItemCreate QV_Subscribe_Object_Attr item_status : QV_RC=0.
2 AffectedItemCreate- Execute Save method.
5 AffectedItemCreate QV_Save_Object  : QV_RC=0.
2 AffectedItemCreate---Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead -  eff_date_str <=> today
DefaultRead -  item_number <=> default
)")) + lines(R"(
AffectedItemCreate ItemNumber=BR-100, EcNumber=EC-12A, Action=ADD
AffectedItemCreate     eff_date_str = today
AffectedItemCreate     item_number = default
AffectedItemCreate- rc(QV_Create_Object::AffectedItem) = 0
AffectedItemCreate- rc(QV_Set_Object_Attr::ec@id=EC-12A) = 0
AffectedItemCreate- rc(QV_Set_Object_Attr::item_number=BR-100) = 0
AffectedItemCreate- rc(QV_Set_Object_Attr::change_action@curr_key=ADD) = 0
AffectedItemCreate- rc(QV_Set_Object_Attr::update_count) = 0
AffectedItemCreate- rc(QV_Set_Object_Attr::eff_date_str=today) = 0
AffectedItemCreate- rc(QV_Set_Object_Attr::item_number=default) = 0
AffectedItemCreate- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
AffectedItemCreate- rc(QV_Subscribe_Object_Attr::item_status) = 0
AffectedItemCreate- rc(QV_Save_Object) = 0
AffectedItemCreate ...AffectedItem was  created
)"));
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_F(AffectedItems, AReleaseLeavesOutTheDateOfEffectivityAlone)
{
    connect(2);
    writeFile("QVL_RZM_DEFAULT", "AffectedItemCreate eff_date_str today\nAffectedItemCreate eff_date a\n"
                                 "AffectedItemCreate EFF_DATE_STR b\n");
    const Outcome outcome = create("EC-1", "BR-1", "rel");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "AffectedItem") = 0
QV_Set_Object_Attr(obj1, "ec@id", "EC-1") = 0
QV_Set_Object_Attr(obj1, "item_number", "BR-1") = 0
QV_Set_Object_Attr(obj1, "change_action@curr_key", "REL") = 0
QV_Set_Object_Attr(obj1, "update_count", "") = 0
QV_Set_Object_Attr(obj1, "eff_date", "a") = 0
QV_Set_Object_Attr(obj1, "EFF_DATE_STR", "b") = 0
QV_Save_Object(obj1) = 0
)"));
    EXPECT_EQ(outcome.output.substr(outcome.output.find("AffectedItemCreate-    update_count")), lines(R"(
AffectedItemCreate-    update_count=-.
AffectedItemCreate-      eff_date_str=today-.
AffectedItemCreate- Skipping eff_date_str=today because Action=REL.
AffectedItemCreate-      eff_date=a-.
AffectedItemCreate-      EFF_DATE_STR=b-.
AffectedItemCreate- Set fields to be selected for cl_save.
AffectedItemCreate- Execute Save method.
AffectedItemCreate---Exit------------entries/rc=1--------------------.
)"));
    EXPECT_EQ(countLines(outcome.accessLog, "    eff_date_str = today"), 1) << "listed all the same";
    EXPECT_EQ(countLines(create("EC-1", "BR-1", "rels").calls, "\"eff_date_str\", \"today\""), 1);
}

TEST_F(AffectedItems, AnEmptyActionIsAChange)
{
    connect(2);
    const Outcome outcome = create("EC-1", "BR-1", "");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.output, lines(R"(
AffectedItemCreate---Start------------------------------.
AffectedItemCreate- Calling DefaultRead for AffectedItemCreate.
DefaultRead-----Start------------------------------.
DefaultRead-----Exit----NbOfDefault=0--------.
AffectedItemCreate- rc(DefaultRead)=0.
AffectedItemCreate- Printing Input Attributes ....
AffectedItemCreate-      EC Number=EC-1-.
AffectedItemCreate-      Item Number=BR-1-.
AffectedItemCreate-      Action=-.
AffectedItemCreate- Printing Selected Attributes ....
AffectedItemCreate- Set required fields for cl_save.
AffectedItemCreate-      ec@id=EC-1-.
AffectedItemCreate-      item_number=BR-1-.
AffectedItemCreate-      change_action@curr_key=CHG-.
AffectedItemCreate-    update_count=-.
AffectedItemCreate- Set fields to be selected for cl_save.
AffectedItemCreate- Execute Save method.
AffectedItemCreate---Exit------------entries/rc=1--------------------.
)"));
    EXPECT_EQ(outcome.accessLog.substr(0, outcome.accessLog.find("AffectedItemCreate- rc(")),
              "AffectedItemCreate ItemNumber=BR-1, EcNumber=EC-1, Action=\n");
    EXPECT_EQ(countLines(outcome.calls, "\"change_action@curr_key\", \"CHG\""), 1);
}

TEST_F(AffectedItems, TheCallersTextsAreTurnedToUpperCase)
{
    connect();
    Text change("ec-1\xe4z");
    Text item("br_{a}");
    Text action("aDd");
    EXPECT_EQ(record([&] { return AffectedItemCreate(change, item, action, nullptr); }).result, 1);
    EXPECT_EQ(change.str(), "EC-1\xe4Z");
    EXPECT_EQ(item.str(), "BR_{A}");
    EXPECT_EQ(action.str(), "ADD");
}

TEST_F(AffectedItems, AnItemThatIsNotAddedIsToldInTheLog)
{
    connect(2);
    standin::answer("QV_Save_Object", QV_ALREADY_STORED, {{"Q220", "Already affected"}});
    const Outcome outcome = create("EC-1", "BR-1", "");
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.output.substr(outcome.output.find("******")), lines(R"(
****** Already affected .
AffectedItemCreate---Exit------------entries/rc=0--------------------.
)"));
    EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.find("AffectedItemCreate- rc(QV_Save")), lines(R"(
AffectedItemCreate- rc(QV_Save_Object) = -220
Q220 - Already affected
AffectedItemCreate ...AffectedItem was  not created
)"));
    EXPECT_EQ(outcome.errorLog, errorBlock("AffectedItemCreate", "Already affected "));
}

TEST_F(AffectedItems, OfMoreThan19DefaultsTheFirst19AreUsedAndTheRestIsReported)
{
    connect();
    writeDefaults(19);
    const Outcome fitting = create("EC-1", "BR-1", "");
    EXPECT_EQ(countLines(fitting.calls, "\"attribute"), 19);
    EXPECT_EQ(fitting.output, "");

    writeDefaults(25);
    const Outcome outcome = create("EC-1", "BR-1", "");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(countLines(outcome.calls, "\"attribute"), 19);
    EXPECT_EQ(countLines(outcome.calls, "\"attribute19\""), 1);
    EXPECT_EQ(countLines(outcome.accessLog, " = value"), 19);
    EXPECT_EQ(countLines(outcome.output), 1);
    EXPECT_NE(outcome.output.find("AffectedItemCreate"), std::string::npos);
    EXPECT_NE(outcome.output.find(" 6 "), std::string::npos) << outcome.output;
    EXPECT_EQ(countLines(outcome.accessLog), countLines(fitting.accessLog) + 1);
    EXPECT_EQ(countLines(outcome.accessLog, " 6 "), 1);
    EXPECT_EQ(outcome.errorLog, "");
}

TEST_F(AffectedItems, ALineOfTheInputsThatDoesNotFitIsCutInTheLogAlone)
{
    connect();
    // The labels take 31 of the 255 characters.
    for (const std::size_t length : {223U, 224U, 225U, 10000U}) {
        const std::string item(length - 4, 'I');
        const Outcome outcome = create("EC", item, "AD");
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(countLines(outcome.calls, "\"item_number\", \"" + item + '"'), 1);
        const std::string line = "ItemNumber=" + item + ", EcNumber=EC, Action=AD";
        EXPECT_EQ(outcome.accessLog.substr(0, outcome.accessLog.find('\n')),
                  "AffectedItemCreate " + line.substr(0, 255));
    }
}

TEST_F(AffectedItems, TheItemsOfAChangeAreListed)
{
    atEachLevel([](int level) {
        standin::setRecords({{{"item_number", "BR-1"}}, {{"item_number", "BR-2"}}});
        writeFile("QVL_RZM_DEFAULT", "AffectedItemQuery no no\n");
        const Outcome outcome = query("ab'12", {"item_number", "item_status"});
        EXPECT_EQ(outcome.result, 2);
        EXPECT_EQ(entries, 2);
        EXPECT_STREQ(FromList, "List");
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(outcome.calls, lines(R"--(
QV_Destroy_List(null) = 0
QV_Create_List(list1, "AffectedItem") = 0
QV_Set_Clause(list1, "Select", "item_number") = 0
QV_Set_Clause(list1, "Select", "item_status") = 0
QV_Set_Clause(list1, "Where", "&=(ec@db_object_id,'ab'12')") = 0
QV_Set_Clause(list1, "OrderBy", "pln_rev_level") = 0
QV_Set_Clause(list1, "OrderBy", "item_key@item_number") = 0
QV_Open_List(list1) = 0
QV_SizeOf_List(list1, 2) = 0
)--"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 AffectedItemQuery-----Start------------------------------.
2 AffectedItemQuery	EcDbObjectId=ab'12.
2 AffectedItemQuery Printing Selected Attributes ....
2 AffectedItemQuery   item_number-.
2 AffectedItemQuery   item_status-.
5 AffectedItemQuery QV_Create_List AffectedItem : QV_RC=0.
2 AffectedItemQuery AppendSelect - item_number.
5 AffectedItemQuery AppendSelect- QV_Set_Clause-Select item_number : QV_RC=0.
2 AffectedItemQuery AppendSelect - item_status.
5 AffectedItemQuery AppendSelect- QV_Set_Clause-Select item_status : QV_RC=0.
2 AffectedItemQuery AppendWhere - &=(ec@db_object_id,'ab'12').
5 AffectedItemQuery AppendWhere- QV_Set_Clause-Where &=(ec@db_object_id,'ab'12') : QV_RC=0.
5 AffectedItemQuery QV_Set_Clause-OrderBy pln_rev_level : QV_RC=0.
5 AffectedItemQuery QV_Set_Clause-OrderBy item_key@item_number : QV_RC=0.
5 AffectedItemQuery QV_Open_List  : QV_RC=0.
5 AffectedItemQuery QV_SizeOf_List nb_of_entries 2: QV_RC=0.
2 AffectedItemQuery-----Exit------Nb of entries=2------------.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
AffectedItemQuery- rc(QV_Create_List::AffectedItem) = 0
AffectedItemQuery- rc(AppendSelect- QV_Set_Clause-Select::item_number) = 0
AffectedItemQuery- rc(AppendSelect- QV_Set_Clause-Select::item_status) = 0
AffectedItemQuery- rc(AppendWhere- QV_Set_Clause-Where::&=(ec@db_object_id,'ab'12')) = 0
AffectedItemQuery- rc(QV_Set_Clause-OrderBy::pln_rev_level) = 0
AffectedItemQuery- rc(QV_Set_Clause-OrderBy::item_key@item_number) = 0
AffectedItemQuery- rc(QV_Open_List) = 0
AffectedItemQuery- rc(QV_SizeOf_List::nb_of_entries=2) = 0
)"));

        char value[QV_MAX_VALUE_LENGTH + 1];
        harness::captureOutput([&] { EXPECT_EQ(GetValue(1, "item_number", value), 1); });
        EXPECT_STREQ(value, "BR-2");
        EXPECT_EQ(query("4711").calls.substr(0, 30), "QV_Destroy_List(list1) = 0\nQV_");
    });
}

TEST_F(AffectedItems, AMissingChangeIsRefusedWithoutACall)
{
    atEachLevel([](int level) {
        makeListResult({{}, {}, {}});
        const void* const previous = QV_ListPtr;
        const Outcome outcome = query("", {"item_number"});
        EXPECT_EQ(outcome.result, 0);
        EXPECT_EQ(entries, 0);
        EXPECT_EQ(QV_RC, -1);
        EXPECT_EQ(QV_ListPtr, previous);
        EXPECT_EQ(NbSelectedAttribute, 1);
        EXPECT_EQ(outcome.calls + outcome.accessLog + outcome.errorLog, "");
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 AffectedItemQuery-----Start------------------------------.
2 AffectedItemQuery	EcDbObjectId=.
2 AffectedItemQuery Printing Selected Attributes ....
2 AffectedItemQuery   item_number-.
0 AffectedItemQuery****** ERROR ****** EC db_object_id is not valuated....
2 AffectedItemQuery-----Exit------Nb of entries=0------------.
)"));
        EXPECT_EQ(lastError(), version);
    });
}

TEST_F(AffectedItems, AnIdentifierThatDoesNotFitTheClauseIsRefused)
{
    standin::setRecords({{}});
    connect();
    const std::string fitting(57, 'x');
    const Outcome whole = query(fitting);
    EXPECT_EQ(whole.result, 1);
    EXPECT_EQ(countLines(whole.calls, "\"&=(ec@db_object_id,'" + fitting + "')\""), 1);
    for (const std::size_t length : {58U, 10000U}) {
        const Outcome outcome = query(std::string(length, 'x'));
        EXPECT_EQ(outcome.result, 0);
        EXPECT_EQ(entries, 0);
        EXPECT_EQ(QV_RC, -1);
        EXPECT_EQ(countLines(outcome.calls, "\"Where\""), 0);
        EXPECT_EQ(countLines(outcome.calls, "QV_Open_List"), 0);
        EXPECT_EQ(countLines(outcome.output), 1);
        for (const std::string& told :
             {std::string("ecDbObjectId"), std::to_string(length), std::string("57")}) {
            EXPECT_EQ(countLines(outcome.output, told), 1) << outcome.output;
            EXPECT_EQ(countLines(outcome.errorLog, told), 1);
            EXPECT_EQ(countLines(outcome.accessLog, told), 1);
            EXPECT_EQ(countLines(lastError(), told), 1);
        }
        EXPECT_EQ(countLines(outcome.errorLog, "Function AffectedItemQuery generated"), 1);
    }
}

} // namespace
