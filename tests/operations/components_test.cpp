// SPDX-License-Identifier: Apache-2.0
//
// Component lines, their references, and the references from items to documents.
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

using Components = LibraryTest;

int createLine(const char* type)
{
    return ComponentCreate(Text("ec-1"), Text("br-1"), Text("pl-2"), Text("10"), Text(type),
                           Names({"comp_ref"}));
}

TEST_F(Components, ALineIsCreatedWithItsType)
{
    storiesOf([] { return createLine("p"); }).tell(R"(
ComponentCreate:
2 @-----Start------------------------------.
2 @- Input Attributes ....
2 @-    EcNumber=ec-1-.
2 @-    ItemNumber=br-1-.
2 @-    ComponentItemNumber=pl-2-.
2 @-    ComponentSequenceNumber=10-.
2 @-    ComponentType=p-.
2 @- Selected Attributes are ....
2 @-    comp_ref-.
new Component
2 @- Set Required Fields for cl_save.
2 @-   logical_key@item_number=br-1-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-1") = 0
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   logical_key@comp_item_number=pl-2-. > QV_Set_Object_Attr(obj1, "logical_key@comp_item_number", "pl-2") = 0
2 @-   logical_key@comp_seq_nm=10-. > QV_Set_Object_Attr(obj1, "logical_key@comp_seq_nm", "10") = 0
2 @   item_type@curr_key=p-. > QV_Set_Object_Attr(obj1, "item_type@curr_key", "p") = 0
2 @-   il_ec_number=ec-1-. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
2 @-   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @- Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj1, "comp_ref") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[comp_ref]
)");
    const Outcome untyped = record([] { return createLine(""); });
    EXPECT_EQ(countLines(untyped.calls, "QV_Set_Object_Attr"), 6);
    EXPECT_EQ(countLines(untyped.calls + untyped.output, "item_type@curr_key"), 0);
}

TEST_F(Components, ALineIsDeleted)
{
    storiesOf([] {
        NbSelectedAttribute = 7;
        return ComponentDelete(Text("4711"), Text("ec-1"), Text("br-1"), Text("pl-2"), Text("10"));
    }).tell(R"(
ComponentDelete- :
2 @-----start------.
2 @ \tDbObjectId=4711-.
2 @\tEcNumber=ec-1.
2 @\tItemNumber=br-1.
2 @\tCompItemNumber=pl-2.
2 @\tSeqNumber=10.
new Component
2 @ set required fields for cl_delete-.
2 @    db_object_id=4711-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
2 @    il_ec_number=ec-1-. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
2 @    logical_key@item_numbe=br-1-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-1") = 0
2 @    logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @    logical_key@comp_item_number=pl-2-. > QV_Set_Object_Attr(obj1, "logical_key@comp_item_number", "pl-2") = 0
2 @    logical_key@comp_seq_nm=10-. > QV_Set_Object_Attr(obj1, "logical_key@comp_seq_nm", "10") = 0
2 @ Execute component delete. > QV_Delete_Object(obj1) = 0
2 @----Exit------------rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)");
}

TEST_F(Components, ALineIsOpenedByItsIdentifier)
{
    // The report of "il_ec_number" does not show its value.
    storiesOf([] {
        std::string("kept").copy(SelectedAttribute[0], 5);
        auto names = textList({"comp_seq_nm"});
        return ComponentOpen(Text("4711x"), Text("ec-1a"), names);
    }).tell(R"(
ComponentOpen:
2 @-----Start------------------------------.
2 @-    DbObjectId=4711x-.
2 @-    EcNumber=EC-1A-.
2 @- Selected Attributes are ....
2 @-   comp_seq_nm-.
log @ DbObjectId= 4711x , EcNumber= EC-1A
new Component
2 @-  db_object_id=4711x-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711x") = 0
2 @-  il_ec_number=EC-1A-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-1A") = 0 as QV_Set_Object_Attr "il_ec_number"
2 @ Set  fields to be selected for Open. > QV_Subscribe_Object_Attr(obj1, "comp_seq_nm") = 0
> QV_Open_Object(obj1) = 0
log @ ...Component was  found
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[kept, comp_seq_nm]
)");
}

using ComponentReferences = LibraryTest;

int saveReference()
{
    return ComponentReferenceSave(Text("ec-1"), Text("br-1"), Text("pl-2"), Text("10"), Text("xref"),
                                  Names({"comp_ref_xref"}));
}

TEST_F(ComponentReferences, AReferenceIsSavedUnderTheFixedDesignator)
{
    storiesOf(saveReference).tell(R"(
ComponentReferenceSave:
2 @-----start------.
2 @\tEcNumber=ec-1.
2 @\tItemNumber=br-1.
2 @\tCompItemNumber=pl-2.
2 @\tCompSeqNumber=10.
2 @\tCompRef=VELOR/Quorvanemaster Integration.
2 @\tCompRefXref=xref.
2 @Printing Selected Attributes ....
2 @\tcomp_ref_xref-.
new ComponentReference
2 @Set required fields for Open.
2 @   db_object_id=. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @   logical_key@item_number=br-1. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-1") = 0
2 @   logical_key@loc_id=. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @   logical_key@comp_item_number=pl-2. > QV_Set_Object_Attr(obj1, "logical_key@comp_item_number", "pl-2") = 0
2 @   logical_key@=comp_seq_nm=10. > QV_Set_Object_Attr(obj1, "logical_key@comp_seq_nm", "10") = 0
2 @   logical_key@=comp_ref=VELOR/Quorvanemaster Integration. > QV_Set_Object_Attr(obj1, "logical_key@comp_ref", "VELOR/Quorvanemaster Integration") = 0
2 @   il_ec_number=ec-1. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
2 @   Set fields to be selected for Open. > QV_Subscribe_Object_Attr(obj1, "comp_ref_xref") = 0
2 @Updating comp_ref_xref attribut.
2 @   comp_ref_xref=xref. > QV_Set_Object_Attr(obj1, "comp_ref_xref", "xref") = 0
2 @   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @Execute Save method.
> QV_Save_Object(obj1) = 0
2 @-----Exit------entries/rc=1------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[comp_ref_xref]
)");
}

TEST_F(ComponentReferences, AReferenceThatIsStoredAlreadyIsAWarningAndASuccess)
{
    atEachLevel([] {
        standin::answer("QV_Save_Object", -220, {{"Q220", "already stored"}});
        EXPECT_EQ(record(saveReference).storyFrom("call QV_Save_Object"), story(R"(
ComponentReferenceSave:
> QV_Save_Object(obj1) = -220
! Q220 - already stored
0 @ ****** WARNING ****** ComponentReference already exists ?!?.
0 @\tEcNumber=ec-1.
0 @\tItemNumber=br-1.
0 @\tCompItemNumber=pl-2.
0 @\tCompSeqNumber=10.
0 @\tCompRef=VELOR/Quorvanemaster Integration.
0 @\tCompRefXref=xref.
2 @-----Exit------entries/rc=1------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[comp_ref_xref]
)"));
        EXPECT_EQ(lastError(), "already stored \n");
    });
    // The code means that when the save gives it, and nothing when another call does.
    standin::answer("QV_Subscribe_Object_Attr", -220, {{"Q220", "odd"}});
    EXPECT_EQ(record(saveReference).result, 0);
    EXPECT_EQ(QV_RC, -220);
}

class ItemReferences : public LibraryTest {
protected:
    static int create(const char* change)
    {
        return ItemReferenceCreate(Text(change), Text("br-1b"), Text("d-1c"), Text("a"), Text("oid"),
                                   Names({"item_ref_xref"}));
    }
};

TEST_F(ItemReferences, AReferenceIsCreatedWithDefaultsOverTheFixedAttributes)
{
    storiesOf([] {
        writeFile("QVL_RZM_DEFAULT", "ItemReferenceCreate logical_key@loc_id LOC\n");
        return create("ec-1a");
    }).tell(R"(
ItemReferenceCreate:
2 @-----Start------------------------------.
defaults 1
2 @ Printing Input Attributes ....
2 @\tEcNumber=EC-1A.
2 @\tItemNumber=BR-1B.
2 @\tDocumentNumber=D-1C.
2 @\tDocumentRevisionNumber=a.
2 @\tSystemPartnerOid=oid.
2 @-     ... plus default attributes ....
2 @-     logical_key@loc_id=LOC-.
2 @ Printing Selected Attributes ....
2 @   item_ref_xref-.
new ItemReference
2 @- Valuate il_ec_number untyped instance with EC number=EC-1A-.
2 @-   il_ec_number=EC-1A-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-1A") = 0
2 @- Set Required Fields for save.
2 @-   logical_key@item_numberBR-1B. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-1B") = 0
2 @-   logical_key@reference_id=D-1C. > QV_Set_Object_Attr(obj1, "logical_key@reference_id", "D-1C") = 0
2 @-   reference_level=a. > QV_Set_Object_Attr(obj1, "reference_level", "a") = 0
2 @-   item_ref_xref=oid. > QV_Set_Object_Attr(obj1, "item_ref_xref", "oid") = 0
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @-     logical_key@loc_id=LOC-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "LOC") = 0
2 @- Set fields to be selected for cl_save. > QV_Subscribe_Object_Attr(obj1, "item_ref_xref") = 0
2 @- Execute cl_save method; CLAYR_makeCall, cl_save. > QV_Save_Object(obj1) = 0
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[item_ref_xref]
)");
    const Outcome withoutChange = record([] { return create(""); });
    EXPECT_EQ(countLines(withoutChange.calls + withoutChange.output, "il_ec_number"), 0);
}

TEST_F(ItemReferences, AreDeletedLikeThoseOfComponentsWithoutATraceOfTheCall)
{
    struct Case {
        std::string name;
        int (*function)(char*, char*);
        std::string className;
        std::string call;
    };
    for (const Case& tested :
         {Case{"ComponentReferenceDelete", ComponentReferenceDelete, "ComponentReference",
               "2 @ Execute ComponentReference delete. > QV_Delete_Object(obj1) = 0"},
          Case{"ItemReferenceDelete", ItemReferenceDelete, "ItemReference",
               "> QV_Delete_Object(obj1) = 0"}}) {
        storiesOf([&] {
            NbSelectedAttribute = 7;
            return tested.function(Text("4711"), Text("ec-1"));
        })
            .tell('\n' + tested.name + R"(- :
2 @-----start------.
2 @ \tDbObjectId=4711-.
2 @\tEcNumber=ec-1.
new )" + tested.className +
                  R"(
2 @ set required fields for cl_delete-.
2 @    db_object_id=4711-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
2 @    il_ec_number=ec-1-. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
)" + tested.call + R"(
2 @----Exit------------rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)");
    }
}

TEST_F(ItemReferences, TheQueryDoesNothing)
{
    connect(9);
    record([] { return create("EC-1"); });
    QV_RC = -5;
    const void* const object = QV_ObjPtr;
    Text text("br-1");
    EXPECT_EQ(record([&] { return ItemReferenceQuery(text, text, text, nullptr, nullptr); }).story, story(R"(
= 0 FromList=Object entries=1 LastRecNo=-1 QV_RC=-5 SelectedAttribute=[item_ref_xref]
)"));
    EXPECT_EQ(text.str(), "br-1");
    EXPECT_EQ(QV_ObjPtr, object);
}

} // namespace
