// SPDX-License-Identifier: Apache-2.0
//
// Component lines and their references.
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class Components : public LibraryTest {
protected:
    static Outcome create(const char* type)
    {
        return record([=] {
            return ComponentCreate(Text("ec-1"), Text("br-1"), Text("pl-2"), Text("10"), Text(type),
                                   Names({"db_object_id", "comp_ref"}));
        });
    }
    static int remove()
    {
        return ComponentDelete(Text("4711"), Text("ec-1"), Text("br-1"), Text("pl-2"), Text("10"));
    }
    static Outcome open(std::initializer_list<const char*> names)
    {
        auto list = textList(names);
        return record([&] { return ComponentOpen(Text("4711x"), Text("ec-1a"), list); });
    }
};

TEST_F(Components, ALineIsCreatedWithItsType)
{
    atEachLevel([] {
        EXPECT_EQ(create("p").story, story(R"(
ComponentCreate:
2 @-----Start------------------------------.
2 @- Input Attributes ....
2 @-    EcNumber=ec-1-.
2 @-    ItemNumber=br-1-.
2 @-    ComponentItemNumber=pl-2-.
2 @-    ComponentSequenceNumber=10-.
2 @-    ComponentType=p-.
2 @- Selected Attributes are ....
2 @-    db_object_id-.
2 @-    comp_ref-.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "Component") = 0
2 @- Set Required Fields for cl_save.
2 @-   logical_key@item_number=br-1-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-1") = 0
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   logical_key@comp_item_number=pl-2-. > QV_Set_Object_Attr(obj1, "logical_key@comp_item_number", "pl-2") = 0
2 @-   logical_key@comp_seq_nm=10-. > QV_Set_Object_Attr(obj1, "logical_key@comp_seq_nm", "10") = 0
2 @   item_type@curr_key=p-. > QV_Set_Object_Attr(obj1, "item_type@curr_key", "p") = 0
2 @-   il_ec_number=ec-1-. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
2 @-   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @- Set  fields to be selected for Save. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
> QV_Subscribe_Object_Attr(obj1, "comp_ref") = 0
2 @- Execute Save method. > QV_Save_Object(obj1) = 0
2 @-----Exit------------entries/rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id, comp_ref]
)"));
    });
}

TEST_F(Components, ALineWithoutATypeHasSixAttributes)
{
    connect(2);
    const Outcome outcome = create("");
    EXPECT_EQ(countLines(outcome.calls, "QV_Set_Object_Attr"), 6);
    EXPECT_EQ(countLines(outcome.calls + outcome.output, "item_type@curr_key"), 0);
    EXPECT_EQ(countLines(outcome.output, "ComponentCreate-    ComponentType=-."), 1);
}

TEST_F(Components, ALineIsDeleted)
{
    atEachLevel([] {
        NbSelectedAttribute = 7;
        EXPECT_EQ(record(remove).story, story(R"(
ComponentDelete- :
2 @-----start------.
2 @ \tDbObjectId=4711-.
2 @\tEcNumber=ec-1.
2 @\tItemNumber=br-1.
2 @\tCompItemNumber=pl-2.
2 @\tSeqNumber=10.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "Component") = 0
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
)"));
    });
}

TEST_F(Components, ALineIsOpenedByItsIdentifier)
{
    atEachLevel([] {
        std::string("kept").copy(SelectedAttribute[0], 5);
        // The report of "il_ec_number" does not show its value.
        EXPECT_EQ(open({"comp_seq_nm", "update_count"}).story, story(R"(
ComponentOpen:
2 @-----Start------------------------------.
2 @-    DbObjectId=4711x-.
2 @-    EcNumber=EC-1A-.
2 @- Selected Attributes are ....
2 @-   comp_seq_nm-.
2 @-   update_count-.
log @ DbObjectId= 4711x , EcNumber= EC-1A
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "Component") = 0
2 @-  db_object_id=4711x-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711x") = 0
2 @-  il_ec_number=EC-1A-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-1A") = 0 as QV_Set_Object_Attr "il_ec_number"
2 @ Set  fields to be selected for Open. > QV_Subscribe_Object_Attr(obj1, "comp_seq_nm") = 0
> QV_Subscribe_Object_Attr(obj1, "update_count") = 0
> QV_Open_Object(obj1) = 0
log @ ...Component was  found
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[kept, comp_seq_nm, update_count]
)"));
    });
}

class ComponentReferences : public LibraryTest {
protected:
    static Outcome save()
    {
        return record([] {
            return ComponentReferenceSave(Text("ec-1"), Text("br-1"), Text("pl-2"), Text("10"), Text("xref"),
                                          Names({"db_object_id", "comp_ref_xref"}));
        });
    }
};

TEST_F(ComponentReferences, AReferenceIsSavedUnderTheFixedDesignator)
{
    atEachLevel([] {
        EXPECT_EQ(save().story, story(R"(
ComponentReferenceSave:
2 @-----start------.
2 @\tEcNumber=ec-1.
2 @\tItemNumber=br-1.
2 @\tCompItemNumber=pl-2.
2 @\tCompSeqNumber=10.
2 @\tCompRef=VELOR/Quorvanemaster Integration.
2 @\tCompRefXref=xref.
2 @Printing Selected Attributes ....
2 @\tdb_object_id-.
2 @\tcomp_ref_xref-.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ComponentReference") = 0
2 @Set required fields for Open.
2 @   db_object_id=. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @   logical_key@item_number=br-1. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-1") = 0
2 @   logical_key@loc_id=. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @   logical_key@comp_item_number=pl-2. > QV_Set_Object_Attr(obj1, "logical_key@comp_item_number", "pl-2") = 0
2 @   logical_key@=comp_seq_nm=10. > QV_Set_Object_Attr(obj1, "logical_key@comp_seq_nm", "10") = 0
2 @   logical_key@=comp_ref=VELOR/Quorvanemaster Integration. > QV_Set_Object_Attr(obj1, "logical_key@comp_ref", "VELOR/Quorvanemaster Integration") = 0
2 @   il_ec_number=ec-1. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
2 @   Set fields to be selected for Open. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
> QV_Subscribe_Object_Attr(obj1, "comp_ref_xref") = 0
2 @Updating comp_ref_xref attribut.
2 @   comp_ref_xref=xref. > QV_Set_Object_Attr(obj1, "comp_ref_xref", "xref") = 0
2 @   update_count=-. > QV_Set_Object_Attr(obj1, "update_count", "") = 0
2 @Execute Save method.
> QV_Save_Object(obj1) = 0
2 @-----Exit------entries/rc=1------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id, comp_ref_xref]
)"));
    });
}

TEST_F(ComponentReferences, AReferenceThatIsStoredAlreadyIsAWarningAndASuccess)
{
    atEachLevel([] {
        standin::answer("QV_Save_Object", -220, {{"Q220", "already stored"}});
        EXPECT_EQ(save().storyFrom("call QV_Save_Object"), story(R"(
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
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id, comp_ref_xref]
)"));
        EXPECT_EQ(lastError(), "already stored \n");
    });
}

/** The code means "already stored" when the save gives it, and nothing when another call does. */
TEST_F(ComponentReferences, TheCodeOfAnotherCallIsNoSuccess)
{
    for (const char* const function :
         {"QV_Create_Object", "QV_Set_Object_Attr", "QV_Subscribe_Object_Attr"}) {
        SCOPED_TRACE(function);
        restart();
        connect(0);
        standin::answer(function, -220, {{"Q220", "odd"}});
        const Outcome outcome = save();
        EXPECT_EQ(outcome.result, 0);
        EXPECT_EQ(QV_RC, -220);
        EXPECT_EQ(outcome.output, "****** odd .\n");
    }
}

TEST_F(ComponentReferences, AReferenceIsDeleted)
{
    atEachLevel([] {
        NbSelectedAttribute = 7;
        EXPECT_EQ(record([] { return ComponentReferenceDelete(Text("4711"), Text("ec-1")); }).story, story(R"(
ComponentReferenceDelete- :
2 @-----start------.
2 @ \tDbObjectId=4711-.
2 @\tEcNumber=ec-1.
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ComponentReference") = 0
2 @ set required fields for cl_delete-.
2 @    db_object_id=4711-. > QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
2 @    il_ec_number=ec-1-. > QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
2 @ Execute ComponentReference delete. > QV_Delete_Object(obj1) = 0
2 @----Exit------------rc=1--------------------.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
    });
}

} // namespace
