// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::errorBlock;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;
using harness::writeFile;

namespace {

class EngineeringChanges : public harness::LibraryTest {
protected:
    static Outcome create(const char* number, const char* name, const char* level, const char* category,
                          const char* initiator)
    {
        return record([&] { return EngineeringChangeCreate(number, name, level, category, initiator); });
    }
    static Outcome open(const std::string& id, const std::string& number, std::vector<std::string> names = {})
    {
        Names array(std::move(names));
        return record([&] { return EngineeringChangeOpen(Text(id), Text(number), array); });
    }
    static void expectObjectResult(int count)
    {
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(entries, count);
    }
};

TEST_F(EngineeringChanges, AChangeIsCreatedWithDefaultsAndEveryInput)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT", "EngineeringChangeCreate priority high\nEngineeringChangeOpen no no\n");
        writeFile("My_QVL_RZM_DEFAULT", "EngineeringChangeCreate desc default\n");
        const Outcome outcome = create("ec-12a", "Stronger bracket", "3", "C", "jdoe");
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "EngineeringChange") = 0
QV_Set_Object_Attr(obj1, "priority", "high") = 0
QV_Set_Object_Attr(obj1, "desc", "default") = 0
QV_Set_Object_Attr(obj1, "id", "EC-12A") = 0
QV_Set_Object_Attr(obj1, "desc", "Stronger bracket") = 0
QV_Set_Object_Attr(obj1, "update_count", "0") = 0
QV_Set_Object_Attr(obj1, "initiator@person_identifier", "jdoe") = 0
QV_Set_Object_Attr(obj1, "x_sec_level_code", "3") = 0
QV_Set_Object_Attr(obj1, "x_sec_cat_code", "C") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 EngineeringChangeCreate-----Start------------------------------.
2 EngineeringChangeCreate- Calling DefaultRead for EngineeringChangeCreate.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
2 DefaultRead- Reading defaults from ./My_QVL_RZM_DEFAULT.
5 DefaultRead- priority=high.
5 DefaultRead- desc=default.
2 DefaultRead-----Exit----NbOfDefault=2--------.
2 EngineeringChangeCreate- rc(DefaultRead)=2.
2 EngineeringChangeCreate- Printing Input Attributes ....
2 EngineeringChangeCreate-    EcNumber=ec-12a- EcName=Stronger bracket-.
2 EngineeringChangeCreate-    SecurityLevel=3- SecurityCategory=C-.
2 EngineeringChangeCreate-     ... and eventually, some Default Attributes ....
2 EngineeringChangeCreate-     priority=high-.
2 EngineeringChangeCreate-     desc=default-.
5 EngineeringChangeCreate QV_Create_Object EngineeringChange : QV_RC=0.
2 EngineeringChangeCreate Set Required Fields for Save.
2 EngineeringChangeCreate-     priority=high-.
5 EngineeringChangeCreate QV_Set_Object_Attr priority high: QV_RC=0.
2 EngineeringChangeCreate-     desc=default-.
5 EngineeringChangeCreate QV_Set_Object_Attr desc default: QV_RC=0.
2 EngineeringChangeCreate-   id=EC-12A-.
5 EngineeringChangeCreate QV_Set_Object_Attr id EC-12A: QV_RC=0.
2 EngineeringChangeCreate-   desc=Stronger bracket-.
5 EngineeringChangeCreate QV_Set_Object_Attr desc Stronger bracket: QV_RC=0.
2 EngineeringChangeCreate-   update_count=0-.
5 EngineeringChangeCreate QV_Set_Object_Attr update_count 0: QV_RC=0.
2 EngineeringChangeCreate-   initiator@person_identifier=jdoe-.
5 EngineeringChangeCreate QV_Set_Object_Attr initiator@person_identifier jdoe: QV_RC=0.
2 EngineeringChangeCreate-   x_sec_level_code=3-.
5 EngineeringChangeCreate QV_Set_Object_Attr x_sec_level_code 3: QV_RC=0.
2 EngineeringChangeCreate-   x_sec_cat_code=C-.
5 EngineeringChangeCreate QV_Set_Object_Attr x_sec_cat_code C: QV_RC=0.
2 EngineeringChangeCreate- Set fields to be selected for cl_save.
5 EngineeringChangeCreate QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
2 EngineeringChangeCreate- Execute Save method.
5 EngineeringChangeCreate QV_Save_Object  : QV_RC=0.
2 EngineeringChangeCreate-----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead - Reading defaults from  ./My_QVL_RZM_DEFAULT
DefaultRead -  priority <=> high
DefaultRead -  desc <=> default
)")) + lines(R"(
EngineeringChangeCreate EcNumber= EC-12A EcName= Stronger bracket
EngineeringChangeCreate SecurityLevel= 3 SecurityCategory= C
EngineeringChangeCreate     priority = high
EngineeringChangeCreate     desc = default
EngineeringChangeCreate- rc(QV_Create_Object::EngineeringChange) = 0
EngineeringChangeCreate- rc(QV_Set_Object_Attr::priority=high) = 0
EngineeringChangeCreate- rc(QV_Set_Object_Attr::desc=default) = 0
EngineeringChangeCreate- rc(QV_Set_Object_Attr::id=EC-12A) = 0
EngineeringChangeCreate- rc(QV_Set_Object_Attr::desc=Stronger bracket) = 0
EngineeringChangeCreate- rc(QV_Set_Object_Attr::update_count=0) = 0
EngineeringChangeCreate- rc(QV_Set_Object_Attr::initiator@person_identifier=jdoe) = 0
EngineeringChangeCreate- rc(QV_Set_Object_Attr::x_sec_level_code=3) = 0
EngineeringChangeCreate- rc(QV_Set_Object_Attr::x_sec_cat_code=C) = 0
EngineeringChangeCreate- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
EngineeringChangeCreate- rc(QV_Save_Object) = 0
EngineeringChangeCreate ... Engineering Change was  created
)"));
        EXPECT_EQ(outcome.errorLog, "");
        EXPECT_EQ(lastError(), version);
    });
}

TEST_F(EngineeringChanges, EmptySecurityCodesAreLeftOutAndTheUserIsTheInitiator)
{
    const auto expectCalls = [](const Outcome& outcome, const std::string& initiator) {
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "EngineeringChange") = 0
QV_Set_Object_Attr(obj1, "id", "EC-1") = 0
QV_Set_Object_Attr(obj1, "desc", "") = 0
QV_Set_Object_Attr(obj1, "update_count", "0") = 0
QV_Set_Object_Attr(obj1, "initiator@person_identifier", ")") +
                                     initiator + lines(R"(
") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Save_Object(obj1) = 0
)"));
    };
    // A null text counts as an empty one.
    for (const char* const empty : {"", static_cast<const char*>(nullptr)}) {
        restart();
        setEnvironment("USER", "jdoe");
        connect(2);
        const Outcome outcome = create("ec-1", empty, empty, empty, empty);
        expectCalls(outcome, "jdoe");
        EXPECT_EQ(outcome.output, lines(R"(
EngineeringChangeCreate-----Start------------------------------.
EngineeringChangeCreate- Calling DefaultRead for EngineeringChangeCreate.
DefaultRead-----Start------------------------------.
DefaultRead-----Exit----NbOfDefault=0--------.
EngineeringChangeCreate- rc(DefaultRead)=0.
EngineeringChangeCreate- Printing Input Attributes ....
EngineeringChangeCreate-    EcNumber=ec-1- EcName=-.
EngineeringChangeCreate-    SecurityLevel=- SecurityCategory=-.
EngineeringChangeCreate Set Required Fields for Save.
EngineeringChangeCreate-   id=EC-1-.
EngineeringChangeCreate-   desc=-.
EngineeringChangeCreate-   update_count=0-.
EngineeringChangeCreate-   initiator@person_identifier=jdoe-.
EngineeringChangeCreate- Set fields to be selected for cl_save.
EngineeringChangeCreate- Execute Save method.
EngineeringChangeCreate-----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog.substr(0, outcome.accessLog.find("EngineeringChangeCreate- rc(")),
                  lines(R"(
EngineeringChangeCreate EcNumber= EC-1 EcName= 
EngineeringChangeCreate SecurityLevel=  SecurityCategory= 
)"));
    }
    restart();
    connect();
    expectCalls(create("EC-1", "", "", "", ""), "");
}

TEST_F(EngineeringChanges, TheSelectionIsLeftAsItWas)
{
    connect();
    open("", "EC-1", {"id", "desc"});
    EXPECT_EQ(create("EC-2", "", "", "", "").result, 1);
    EXPECT_EQ(NbSelectedAttribute, 2);
    EXPECT_STREQ(SelectedAttribute[1], "desc");
}

TEST_F(EngineeringChanges, AChangeThatIsNotStoredIsToldEverywhere)
{
    connect(2);
    standin::answer("QV_Save_Object", QV_ALREADY_STORED, {{"Q220", "EC-1 is already stored"}});
    const Outcome outcome = create("EC-1", "", "", "", "");
    EXPECT_EQ(outcome.result, 0);
    expectObjectResult(0);
    EXPECT_EQ(QV_RC, QV_ALREADY_STORED);
    const std::string end = lines(R"(
EngineeringChangeCreate- Execute Save method.
****** EC-1 is already stored .
EngineeringChangeCreate-----Exit------------entries/rc=0--------------------.
)");
    EXPECT_EQ(outcome.output.substr(outcome.output.size() - end.size()), end);
    const std::string logEnd = lines(R"(
EngineeringChangeCreate- rc(QV_Save_Object) = -220
Q220 - EC-1 is already stored
EngineeringChangeCreate ... Engineering Change was  not created
)");
    EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.size() - logEnd.size()), logEnd);
    EXPECT_EQ(outcome.errorLog, errorBlock("EngineeringChangeCreate", "EC-1 is already stored "));
    EXPECT_EQ(lastError(), "EC-1 is already stored \n");
}

TEST_F(EngineeringChanges, AStopSkipsTheTraceLinesOfTheStepsLeftOut)
{
    connect(2);
    standin::answer("QV_Create_Object", -7, {{"E1", "No class"}});
    const Outcome outcome = create("EC-1", "", "", "", "");
    EXPECT_EQ(outcome.result, 0);
    const std::string end = lines(R"(
EngineeringChangeCreate-    SecurityLevel=- SecurityCategory=-.
****** No class .
EngineeringChangeCreate-----Exit------------entries/rc=0--------------------.
)");
    EXPECT_EQ(outcome.output.substr(outcome.output.size() - end.size()), end);
}

TEST_F(EngineeringChanges, AChangeIsOpenedWithTheNamedAttributes)
{
    atEachLevel([](int level) {
        const Outcome outcome = open("4711", "ec-12a", {"id", "initiator@person_identifier"});
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1);
        EXPECT_EQ(NbSelectedAttribute, 2);
        EXPECT_STREQ(SelectedAttribute[0], "id");
        EXPECT_STREQ(SelectedAttribute[1], "initiator@person_identifier");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "EngineeringChange") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
QV_Set_Object_Attr(obj1, "id", "ec-12a") = 0
QV_Subscribe_Object_Attr(obj1, "id") = 0
QV_Subscribe_Object_Attr(obj1, "initiator@person_identifier") = 0
QV_Open_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 EngineeringChangeOpen-----Start------------------------------.
2 EngineeringChangeOpen-    DbObjectId=4711-.
2 EngineeringChangeOpen-    EcNumber=ec-12a-.
2 EngineeringChangeOpen- Selected Attributes are ....
2 EngineeringChangeOpen-   id-.
2 EngineeringChangeOpen-   initiator@person_identifier-.
5 EngineeringChangeOpen QV_Create_Object EngineeringChange : QV_RC=0.
2 EngineeringChangeOpen-  db_object_id=4711-.
5 EngineeringChangeOpen QV_Set_Object_Attr db_object_id 4711: QV_RC=0.
2 EngineeringChangeOpen-   id=ec-12a-.
5 EngineeringChangeOpen QV_Set_Object_Attr id ec-12a: QV_RC=0.
5 EngineeringChangeOpen QV_Subscribe_Object_Attr id : QV_RC=0.
5 EngineeringChangeOpen QV_Subscribe_Object_Attr initiator@person_identifier : QV_RC=0.
5 EngineeringChangeOpen QV_Open_Object  : QV_RC=0.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
EngineeringChangeOpen- rc(QV_Create_Object::EngineeringChange) = 0
EngineeringChangeOpen- rc(QV_Set_Object_Attr::db_object_id=4711) = 0
EngineeringChangeOpen- rc(QV_Set_Object_Attr::id=ec-12a) = 0
EngineeringChangeOpen- rc(QV_Subscribe_Object_Attr::id) = 0
EngineeringChangeOpen- rc(QV_Subscribe_Object_Attr::initiator@person_identifier) = 0
EngineeringChangeOpen- rc(QV_Open_Object) = 0
)"));
        EXPECT_EQ(outcome.errorLog, "");

        const Outcome next = open("4712", "", {"desc"});
        EXPECT_EQ(next.calls.substr(0, next.calls.find('\n')), "QV_Destroy_Object(obj1) = 0");
        EXPECT_EQ(NbSelectedAttribute, 1);
    });
}

TEST_F(EngineeringChanges, NothingGivenOpensWithEmptyKeysAndSubscribesNothing)
{
    const auto expectBareOpen = [](const Outcome& outcome) {
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(NbSelectedAttribute, 0);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "EngineeringChange") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
QV_Set_Object_Attr(obj1, "id", "") = 0
QV_Open_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, lines(R"(
EngineeringChangeOpen-----Start------------------------------.
EngineeringChangeOpen-    DbObjectId=-.
EngineeringChangeOpen-    EcNumber=-.
EngineeringChangeOpen- Selected Attributes are ....
EngineeringChangeOpen-  db_object_id=-.
EngineeringChangeOpen-   id=-.
)"));
    };
    connect(2);
    NbSelectedAttribute = 7;
    expectBareOpen(open("", ""));
    restart();
    connect(2);
    NbSelectedAttribute = 7;
    expectBareOpen(record([] { return EngineeringChangeOpen(nullptr, nullptr, nullptr); }));
}

TEST_F(EngineeringChanges, AnOpenThatFindsNothingGivesZero)
{
    connect(0);
    standin::answer("QV_Open_Object", -7, {{"Q100", "No such change"}});
    const Outcome outcome = open("", "EC-1", {"id"});
    EXPECT_EQ(outcome.result, 0);
    expectObjectResult(0);
    EXPECT_EQ(outcome.output, "****** No such change .\n");
    EXPECT_EQ(outcome.errorLog, errorBlock("EngineeringChangeOpen", "No such change "));
}

TEST_F(EngineeringChanges, TextsOfAnyLengthReachServerTraceAndLogWhole)
{
    connect(2);
    const std::string number(10000, 'n');
    const std::string stored(10000, 'N');
    const std::string text(10000, 't');
    const Outcome created = create(number.c_str(), text.c_str(), text.c_str(), text.c_str(), text.c_str());
    EXPECT_EQ(created.result, 1);
    EXPECT_EQ(harness::countLines(created.calls, "\"id\", \"" + stored + "\""), 1);
    for (const char* const path :
         {"desc", "initiator@person_identifier", "x_sec_level_code", "x_sec_cat_code"}) {
        EXPECT_EQ(harness::countLines(created.calls, '"' + std::string(path) + "\", \"" + text + '"'), 1);
    }
    EXPECT_EQ(harness::countLines(created.output, "-    EcNumber=" + number + "- EcName=" + text + "-."), 1);
    EXPECT_EQ(harness::countLines(created.accessLog, "EcNumber= " + stored + " EcName= " + text), 1);

    Text unchanged(number);
    const Outcome opened = record([&] { return EngineeringChangeOpen(Text(text), unchanged, nullptr); });
    EXPECT_EQ(opened.result, 1);
    EXPECT_EQ(unchanged.str(), number);
    EXPECT_EQ(harness::countLines(opened.calls, "\"id\", \"" + number + "\""), 1);
    EXPECT_EQ(harness::countLines(opened.calls, "\"db_object_id\", \"" + text + "\""), 1);
}

TEST_F(EngineeringChanges, SixtyDefaultsAreSetSinceThisOperationHasNoLimit)
{
    std::string file;
    for (const std::string& name : harness::numberedNames("attribute", 60)) {
        file += "EngineeringChangeCreate " + name + " value\n";
    }
    writeFile("QVL_RZM_DEFAULT", file);
    connect();
    const Outcome outcome = create("EC-1", "", "", "", "");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(harness::countLines(outcome.calls, "\"attribute"), 60);
}

} // namespace
