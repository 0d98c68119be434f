// SPDX-License-Identifier: Apache-2.0
//
// The references from items to documents.
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;
using harness::writeFile;

namespace {

class ItemReferences : public harness::LibraryTest {
protected:
    static void expectObjectResult(int count, int selected)
    {
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(entries, count);
        EXPECT_EQ(NbSelectedAttribute, selected);
    }
};

TEST_F(ItemReferences, AReferenceIsCreatedWithDefaultsOverTheFixedAttributes)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT",
                  "ItemReferenceCreate logical_key@loc_id LOC\nItemReferenceCreate site A\n");
        Text ecNumber("ec-1a");
        Text itemNumber("br-1b");
        Text documentNumber("d-1c");
        Text revision("a");
        Text oid("oid");
        const Outcome outcome = record([&] {
            return ItemReferenceCreate(ecNumber, itemNumber, documentNumber, revision, oid,
                                       Names({"db_object_id", "item_ref_xref"}));
        });
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1, 2);
        EXPECT_STREQ(SelectedAttribute[0], "db_object_id");
        EXPECT_STREQ(SelectedAttribute[1], "item_ref_xref");
        EXPECT_EQ(ecNumber.str() + ' ' + itemNumber.str() + ' ' + documentNumber.str(), "EC-1A BR-1B D-1C");
        EXPECT_EQ(revision.str() + ' ' + oid.str(), "a oid");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ItemReference") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "EC-1A") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-1B") = 0
QV_Set_Object_Attr(obj1, "logical_key@reference_id", "D-1C") = 0
QV_Set_Object_Attr(obj1, "reference_level", "a") = 0
QV_Set_Object_Attr(obj1, "item_ref_xref", "oid") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Set_Object_Attr(obj1, "update_count", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "LOC") = 0
QV_Set_Object_Attr(obj1, "site", "A") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "item_ref_xref") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ItemReferenceCreate-----Start------------------------------.
2 ItemReferenceCreate- Calling DefaultRead for ItemReferenceCreate.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- logical_key@loc_id=LOC.
5 DefaultRead- site=A.
2 DefaultRead-----Exit----NbOfDefault=2--------.
2 ItemReferenceCreate- rc(DefaultRead)=2.
2 ItemReferenceCreate Printing Input Attributes ....
2 ItemReferenceCreate\tEcNumber=EC-1A.
2 ItemReferenceCreate\tItemNumber=BR-1B.
2 ItemReferenceCreate\tDocumentNumber=D-1C.
2 ItemReferenceCreate\tDocumentRevisionNumber=a.
2 ItemReferenceCreate\tSystemPartnerOid=oid.
2 ItemReferenceCreate-     ... plus default attributes ....
2 ItemReferenceCreate-     logical_key@loc_id=LOC-.
2 ItemReferenceCreate-     site=A-.
2 ItemReferenceCreate Printing Selected Attributes ....
2 ItemReferenceCreate   db_object_id-.
2 ItemReferenceCreate   item_ref_xref-.
5 ItemReferenceCreate QV_Create_Object ItemReference : QV_RC=0.
2 ItemReferenceCreate- Valuate il_ec_number untyped instance with EC number=EC-1A-.
2 ItemReferenceCreate-   il_ec_number=EC-1A-.
5 ItemReferenceCreate QV_Set_Object_Attr il_ec_number EC-1A: QV_RC=0.
2 ItemReferenceCreate- Set Required Fields for save.
2 ItemReferenceCreate-   logical_key@item_numberBR-1B.
5 ItemReferenceCreate QV_Set_Object_Attr logical_key@item_number BR-1B: QV_RC=0.
2 ItemReferenceCreate-   logical_key@reference_id=D-1C.
5 ItemReferenceCreate QV_Set_Object_Attr logical_key@reference_id D-1C: QV_RC=0.
2 ItemReferenceCreate-   reference_level=a.
5 ItemReferenceCreate QV_Set_Object_Attr reference_level a: QV_RC=0.
2 ItemReferenceCreate-   item_ref_xref=oid.
5 ItemReferenceCreate QV_Set_Object_Attr item_ref_xref oid: QV_RC=0.
2 ItemReferenceCreate-   logical_key@loc_id=-.
5 ItemReferenceCreate QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 ItemReferenceCreate-   update_count=-.
5 ItemReferenceCreate QV_Set_Object_Attr update_count : QV_RC=0.
2 ItemReferenceCreate-     logical_key@loc_id=LOC-.
5 ItemReferenceCreate QV_Set_Object_Attr logical_key@loc_id LOC: QV_RC=0.
2 ItemReferenceCreate-     site=A-.
5 ItemReferenceCreate QV_Set_Object_Attr site A: QV_RC=0.
2 ItemReferenceCreate- Set fields to be selected for cl_save.
5 ItemReferenceCreate QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 ItemReferenceCreate QV_Subscribe_Object_Attr item_ref_xref : QV_RC=0.
2 ItemReferenceCreate- Execute cl_save method; CLAYR_makeCall, cl_save.
5 ItemReferenceCreate QV_Save_Object  : QV_RC=0.
2 ItemReferenceCreate-----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead -  logical_key@loc_id <=> LOC
DefaultRead -  site <=> A
)")) + lines(R"(
ItemReferenceCreate- rc(QV_Create_Object::ItemReference) = 0
ItemReferenceCreate- rc(QV_Set_Object_Attr::il_ec_number=EC-1A) = 0
ItemReferenceCreate- rc(QV_Set_Object_Attr::logical_key@item_number=BR-1B) = 0
ItemReferenceCreate- rc(QV_Set_Object_Attr::logical_key@reference_id=D-1C) = 0
ItemReferenceCreate- rc(QV_Set_Object_Attr::reference_level=a) = 0
ItemReferenceCreate- rc(QV_Set_Object_Attr::item_ref_xref=oid) = 0
ItemReferenceCreate- rc(QV_Set_Object_Attr::logical_key@loc_id) = 0
ItemReferenceCreate- rc(QV_Set_Object_Attr::update_count) = 0
ItemReferenceCreate- rc(QV_Set_Object_Attr::logical_key@loc_id=LOC) = 0
ItemReferenceCreate- rc(QV_Set_Object_Attr::site=A) = 0
ItemReferenceCreate- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
ItemReferenceCreate- rc(QV_Subscribe_Object_Attr::item_ref_xref) = 0
ItemReferenceCreate- rc(QV_Save_Object) = 0
)"));
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_F(ItemReferences, WithoutAChangeNoneIsSet)
{
    Text empty("");
    for (char* const none : {static_cast<char*>(empty), static_cast<char*>(nullptr)}) {
        restart();
        connect(2);
        const Outcome outcome = record([=] {
            return ItemReferenceCreate(none, Text("BR-1"), Text("D-1"), Text("1"), Text("oid"), nullptr);
        });
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(harness::countLines(outcome.calls + outcome.output, "il_ec_number"), 0);
        EXPECT_EQ(harness::countLines(outcome.calls, "QV_Set_Object_Attr"), 6);
        EXPECT_EQ(harness::countLines(outcome.output, "... plus default attributes ..."), 0);
    }
}

TEST_F(ItemReferences, AReferenceIsDeletedWithoutATraceOfTheCall)
{
    atEachLevel([](int level) {
        NbSelectedAttribute = 7;
        const Outcome outcome = record([] { return ItemReferenceDelete(Text("4711"), Text("ec-1")); });
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1, 0);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ItemReference") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
QV_Delete_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ItemReferenceDelete- -----start------.
2 ItemReferenceDelete-  \tDbObjectId=4711-.
2 ItemReferenceDelete- \tEcNumber=ec-1.
5 ItemReferenceDelete-  QV_Create_Object ItemReference : QV_RC=0.
2 ItemReferenceDelete-  set required fields for cl_delete-.
2 ItemReferenceDelete-     db_object_id=4711-.
5 ItemReferenceDelete-  QV_Set_Object_Attr db_object_id 4711: QV_RC=0.
2 ItemReferenceDelete-     il_ec_number=ec-1-.
5 ItemReferenceDelete-  QV_Set_Object_Attr il_ec_number ec-1: QV_RC=0.
5 ItemReferenceDelete-  QV_Delete_Object  : QV_RC=0.
2 ItemReferenceDelete- ----Exit------------rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
ItemReferenceDelete- - rc(QV_Create_Object::ItemReference) = 0
ItemReferenceDelete- - rc(QV_Set_Object_Attr::db_object_id=4711) = 0
ItemReferenceDelete- - rc(QV_Set_Object_Attr::il_ec_number=ec-1) = 0
ItemReferenceDelete- - rc(QV_Delete_Object) = 0
)"));
    });
}

TEST_F(ItemReferences, TheQueryDoesNothing)
{
    connect(9);
    record([] { return ItemReferenceDelete(Text("4711"), Text("EC-1")); });
    QV_RC = -5;
    NbSelectedAttribute = 4;
    QV_ObjectHandle const object = QV_ObjPtr;
    Text text("br-1");
    for (char* const argument : {static_cast<char*>(text), static_cast<char*>(nullptr)}) {
        const Outcome outcome =
            record([=] { return ItemReferenceQuery(argument, argument, argument, argument, nullptr); });
        EXPECT_EQ(outcome.result, 0);
        EXPECT_EQ(outcome.calls + outcome.output + outcome.accessLog + outcome.errorLog, "");
    }
    EXPECT_EQ(text.str(), "br-1");
    expectObjectResult(1, 4);
    EXPECT_EQ(QV_RC, -5);
    EXPECT_EQ(QV_ObjPtr, object);
}

} // namespace
