// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class EngineeringChanges : public LibraryTest {
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
};

TEST_F(EngineeringChanges, AChangeIsCreatedWithDefaultsAndEveryInput)
{
    atEachLevel([] {
        writeFile("QVL_RZM_DEFAULT", "EngineeringChangeCreate priority high\nEngineeringChangeOpen no no\n");
        writeFile("My_QVL_RZM_DEFAULT", "EngineeringChangeCreate desc default\n");
        EXPECT_EQ(create("ec-12a", "Stronger bracket", "3", "C", "jdoe").story, story(R"(
EngineeringChangeCreate:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=2.
2 @- Printing Input Attributes ....
2 @-    EcNumber=ec-12a- EcName=Stronger bracket-.
2 @-    SecurityLevel=3- SecurityCategory=C-.
log @ EcNumber= EC-12A EcName= Stronger bracket
log @ SecurityLevel= 3 SecurityCategory= C
2 @-     ... and eventually, some Default Attributes ....
2 @-     priority=high-.
log @     priority = high
2 @-     desc=default-.
log @     desc = default
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "EngineeringChange") = 0
2 @ Set Required Fields for Save.
2 @-     priority=high-. > QV_Set_Object_Attr(obj1, "priority", "high") = 0
2 @-     desc=default-. > QV_Set_Object_Attr(obj1, "desc", "default") = 0
2 @-   id=EC-12A-. > QV_Set_Object_Attr(obj1, "id", "EC-12A") = 0
2 @-   desc=Stronger bracket-. > QV_Set_Object_Attr(obj1, "desc", "Stronger bracket") = 0
2 @-   update_count=0-. > QV_Set_Object_Attr(obj1, "update_count", "0") = 0
2 @-   initiator@person_identifier=jdoe-. > QV_Set_Object_Attr(obj1, "initiator@person_identifier", "jdoe") = 0
2 @-   x_sec_level_code=3-. > QV_Set_Object_Attr(obj1, "x_sec_level_code", "3") = 0
2 @-   x_sec_cat_code=C-. > QV_Set_Object_Attr(obj1, "x_sec_cat_code", "C") = 0
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
log @ ... Engineering Change was  created
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
        EXPECT_EQ(lastError(), version);
    });
}

TEST_F(EngineeringChanges, EmptySecurityCodesAreLeftOutAndTheUserIsTheInitiator)
{
    setEnvironment("USER", "jdoe");
    connect(2);
    const Outcome outcome = create("ec-1", "", "", "", "");
    EXPECT_EQ(countLines(outcome.accessLog, "EngineeringChangeCreate SecurityLevel=  SecurityCategory= "), 1);
    EXPECT_EQ(outcome.storyFrom("-   initiator@"), story(R"(
EngineeringChangeCreate:
2 @-   initiator@person_identifier=jdoe-. > QV_Set_Object_Attr(obj1, "initiator@person_identifier", "jdoe") = 0
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
log @ ... Engineering Change was  created
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
    setEnvironment("USER", std::nullopt);
    EXPECT_EQ(countLines(create("EC-1", "", "", "", "").calls, R"("initiator@person_identifier", "")"), 1);
}

TEST_F(EngineeringChanges, TheSelectionIsLeftAsItWas)
{
    connect();
    open("", "EC-1", {"id", "desc"});
    EXPECT_EQ(create("EC-2", "", "", "", "").storyFrom("= 1"), story(R"(
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
}

TEST_F(EngineeringChanges, AChangeIsOpenedWithTheNamedAttributes)
{
    atEachLevel([] {
        EXPECT_EQ(open("4711", "ec-12a", {"id", "initiator@person_identifier"}).story, story(R"(
EngineeringChangeOpen:
2 @-----Start------------------------------.
2 @-    DbObjectId=4711-.
2 @-    EcNumber=ec-12a-.
2 @- Selected Attributes are ....
2 @-   id-.
2 @-   initiator@person_identifier-.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "EngineeringChange") = 0
2 @-  db_object_id=4711-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
2 @-   id=ec-12a-. > QV_Set_Object_Attr(obj1, "id", "ec-12a") = 0
> QV_Subscribe_Object_Attr(obj1, "id") = 0
> QV_Subscribe_Object_Attr(obj1, "initiator@person_identifier") = 0
> QV_Open_Object(obj1) = 0
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, initiator@person_identifier]
)"));
        const Outcome next = open("4712", "", {"desc"});
        EXPECT_EQ(next.calls.substr(0, next.calls.find('\n')), "QV_Destroy_Object(obj1) = 0");
        EXPECT_EQ(NbSelectedAttribute, 1);
    });
}

TEST_F(EngineeringChanges, NothingGivenOpensWithEmptyKeysAndSubscribesNothing)
{
    connect(2);
    NbSelectedAttribute = 7;
    EXPECT_EQ(open("", "").story, story(R"(
EngineeringChangeOpen:
2 @-----Start------------------------------.
2 @-    DbObjectId=-.
2 @-    EcNumber=-.
2 @- Selected Attributes are ....
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "EngineeringChange") = 0
2 @-  db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @-   id=-. > QV_Set_Object_Attr(obj1, "id", "") = 0
> QV_Open_Object(obj1) = 0
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
}

TEST_F(EngineeringChanges, TextsOfAnyLengthReachTraceAndLogWhole)
{
    connect(2);
    const std::string number(10000, 'n');
    const std::string text(10000, 't');
    const Outcome created = create(number.c_str(), text.c_str(), "", "", "");
    EXPECT_EQ(countLines(created.output, "-    EcNumber=" + number + "- EcName=" + text + "-."), 1);
    EXPECT_EQ(countLines(created.accessLog, "EcNumber= " + std::string(10000, 'N') + " EcName= " + text), 1);
}

} // namespace
