// SPDX-License-Identifier: Apache-2.0
//
// Component lines and their references.
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::errorBlock;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;

namespace {

class Components : public harness::LibraryTest {
protected:
    static void expectObjectResult(int count, int selected)
    {
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(entries, count);
        EXPECT_EQ(NbSelectedAttribute, selected);
    }
    static Outcome create(char* type)
    {
        return record([=] {
            return ComponentCreate(Text("ec-1"), Text("br-1"), Text("pl-2"), Text("10"), type,
                                   Names({"db_object_id", "comp_ref"}));
        });
    }
    static Outcome open(char* id, char* ecNumber, std::initializer_list<const char*> names)
    {
        auto list = harness::textList(names);
        return record([&] { return ComponentOpen(id, ecNumber, list); });
    }
};

TEST_F(Components, ALineIsCreatedWithItsType)
{
    atEachLevel([](int level) {
        const Outcome outcome = create(Text("p"));
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1, 2);
        EXPECT_STREQ(SelectedAttribute[0], "db_object_id");
        EXPECT_STREQ(SelectedAttribute[1], "comp_ref");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "Component") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-1") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@comp_item_number", "pl-2") = 0
QV_Set_Object_Attr(obj1, "logical_key@comp_seq_nm", "10") = 0
QV_Set_Object_Attr(obj1, "item_type@curr_key", "p") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
QV_Set_Object_Attr(obj1, "update_count", "") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "comp_ref") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ComponentCreate-----Start------------------------------.
2 ComponentCreate- Input Attributes ....
2 ComponentCreate-    EcNumber=ec-1-.
2 ComponentCreate-    ItemNumber=br-1-.
2 ComponentCreate-    ComponentItemNumber=pl-2-.
2 ComponentCreate-    ComponentSequenceNumber=10-.
2 ComponentCreate-    ComponentType=p-.
2 ComponentCreate- Selected Attributes are ....
2 ComponentCreate-    db_object_id-.
2 ComponentCreate-    comp_ref-.
5 ComponentCreate QV_Create_Object Component : QV_RC=0.
2 ComponentCreate- Set Required Fields for cl_save.
2 ComponentCreate-   logical_key@item_number=br-1-.
5 ComponentCreate QV_Set_Object_Attr logical_key@item_number br-1: QV_RC=0.
2 ComponentCreate-   logical_key@loc_id=-.
5 ComponentCreate QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 ComponentCreate-   logical_key@comp_item_number=pl-2-.
5 ComponentCreate QV_Set_Object_Attr logical_key@comp_item_number pl-2: QV_RC=0.
2 ComponentCreate-   logical_key@comp_seq_nm=10-.
5 ComponentCreate QV_Set_Object_Attr logical_key@comp_seq_nm 10: QV_RC=0.
2 ComponentCreate   item_type@curr_key=p-.
5 ComponentCreate QV_Set_Object_Attr item_type@curr_key p: QV_RC=0.
2 ComponentCreate-   il_ec_number=ec-1-.
5 ComponentCreate QV_Set_Object_Attr il_ec_number ec-1: QV_RC=0.
2 ComponentCreate-   update_count=-.
5 ComponentCreate QV_Set_Object_Attr update_count : QV_RC=0.
2 ComponentCreate- Set  fields to be selected for Save.
5 ComponentCreate QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 ComponentCreate QV_Subscribe_Object_Attr comp_ref : QV_RC=0.
2 ComponentCreate- Execute Save method.
5 ComponentCreate QV_Save_Object  : QV_RC=0.
2 ComponentCreate-----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
ComponentCreate- rc(QV_Create_Object::Component) = 0
ComponentCreate- rc(QV_Set_Object_Attr::logical_key@item_number=br-1) = 0
ComponentCreate- rc(QV_Set_Object_Attr::logical_key@loc_id) = 0
ComponentCreate- rc(QV_Set_Object_Attr::logical_key@comp_item_number=pl-2) = 0
ComponentCreate- rc(QV_Set_Object_Attr::logical_key@comp_seq_nm=10) = 0
ComponentCreate- rc(QV_Set_Object_Attr::item_type@curr_key=p) = 0
ComponentCreate- rc(QV_Set_Object_Attr::il_ec_number=ec-1) = 0
ComponentCreate- rc(QV_Set_Object_Attr::update_count) = 0
ComponentCreate- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
ComponentCreate- rc(QV_Subscribe_Object_Attr::comp_ref) = 0
ComponentCreate- rc(QV_Save_Object) = 0
)"));
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_F(Components, ALineWithoutATypeHasSixAttributes)
{
    Text empty("");
    for (char* const none : {static_cast<char*>(empty), static_cast<char*>(nullptr)}) {
        restart();
        connect(2);
        const Outcome outcome = create(none);
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(harness::countLines(outcome.calls, "QV_Set_Object_Attr"), 6);
        EXPECT_EQ(harness::countLines(outcome.calls + outcome.output, "item_type@curr_key"), 0);
        EXPECT_EQ(harness::countLines(outcome.output, "ComponentCreate-    ComponentType=-."), 1);
    }
}

TEST_F(Components, ALineIsDeleted)
{
    atEachLevel([](int level) {
        NbSelectedAttribute = 7;
        const auto remove = [] {
            return ComponentDelete(Text("4711"), Text("ec-1"), Text("br-1"), Text("pl-2"), Text("10"));
        };
        const Outcome outcome = record(remove);
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1, 0);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "Component") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-1") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@comp_item_number", "pl-2") = 0
QV_Set_Object_Attr(obj1, "logical_key@comp_seq_nm", "10") = 0
QV_Delete_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ComponentDelete- -----start------.
2 ComponentDelete-  \tDbObjectId=4711-.
2 ComponentDelete- \tEcNumber=ec-1.
2 ComponentDelete- \tItemNumber=br-1.
2 ComponentDelete- \tCompItemNumber=pl-2.
2 ComponentDelete- \tSeqNumber=10.
5 ComponentDelete-  QV_Create_Object Component : QV_RC=0.
2 ComponentDelete-  set required fields for cl_delete-.
2 ComponentDelete-     db_object_id=4711-.
5 ComponentDelete-  QV_Set_Object_Attr db_object_id 4711: QV_RC=0.
2 ComponentDelete-     il_ec_number=ec-1-.
5 ComponentDelete-  QV_Set_Object_Attr il_ec_number ec-1: QV_RC=0.
2 ComponentDelete-     logical_key@item_numbe=br-1-.
5 ComponentDelete-  QV_Set_Object_Attr logical_key@item_number br-1: QV_RC=0.
2 ComponentDelete-     logical_key@loc_id=-.
5 ComponentDelete-  QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 ComponentDelete-     logical_key@comp_item_number=pl-2-.
5 ComponentDelete-  QV_Set_Object_Attr logical_key@comp_item_number pl-2: QV_RC=0.
2 ComponentDelete-     logical_key@comp_seq_nm=10-.
5 ComponentDelete-  QV_Set_Object_Attr logical_key@comp_seq_nm 10: QV_RC=0.
2 ComponentDelete-  Execute component delete.
5 ComponentDelete-  QV_Delete_Object  : QV_RC=0.
2 ComponentDelete- ----Exit------------rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
ComponentDelete- - rc(QV_Create_Object::Component) = 0
ComponentDelete- - rc(QV_Set_Object_Attr::db_object_id=4711) = 0
ComponentDelete- - rc(QV_Set_Object_Attr::il_ec_number=ec-1) = 0
ComponentDelete- - rc(QV_Set_Object_Attr::logical_key@item_number=br-1) = 0
ComponentDelete- - rc(QV_Set_Object_Attr::logical_key@loc_id) = 0
ComponentDelete- - rc(QV_Set_Object_Attr::logical_key@comp_item_number=pl-2) = 0
ComponentDelete- - rc(QV_Set_Object_Attr::logical_key@comp_seq_nm=10) = 0
ComponentDelete- - rc(QV_Delete_Object) = 0
)"));

        standin::answer("QV_Delete_Object", -7, {{"Q1", "No such line"}});
        const Outcome refused = record(remove);
        EXPECT_EQ(refused.result, 0);
        EXPECT_EQ(refused.errorLog, errorBlock("ComponentDelete- ", "No such line "));
        EXPECT_EQ(harness::countLines(refused.output,
                                      "ComponentDelete- ----Exit------------rc=0--------------------."),
                  level < 2 ? 0 : 1);
    });
}

TEST_F(Components, ALineIsOpenedByItsIdentifier)
{
    atEachLevel([](int level) {
        std::string("kept").copy(SelectedAttribute[0], 5);
        Text id("4711x");
        Text ecNumber("ec-1a");
        const Outcome outcome = open(id, ecNumber, {"comp_seq_nm", "update_count"});
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1, 3);
        EXPECT_EQ(id.str() + ' ' + ecNumber.str(), "4711x EC-1A");
        EXPECT_STREQ(SelectedAttribute[0], "kept");
        EXPECT_STREQ(SelectedAttribute[1], "comp_seq_nm");
        EXPECT_STREQ(SelectedAttribute[2], "update_count");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "Component") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "4711x") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "EC-1A") = 0
QV_Subscribe_Object_Attr(obj1, "comp_seq_nm") = 0
QV_Subscribe_Object_Attr(obj1, "update_count") = 0
QV_Open_Object(obj1) = 0
)"));
        // The report of "il_ec_number" does not show its value.
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ComponentOpen-----Start------------------------------.
2 ComponentOpen-    DbObjectId=4711x-.
2 ComponentOpen-    EcNumber=EC-1A-.
2 ComponentOpen- Selected Attributes are ....
2 ComponentOpen-   comp_seq_nm-.
2 ComponentOpen-   update_count-.
5 ComponentOpen QV_Create_Object Component : QV_RC=0.
2 ComponentOpen-  db_object_id=4711x-.
5 ComponentOpen QV_Set_Object_Attr db_object_id 4711x: QV_RC=0.
2 ComponentOpen-  il_ec_number=EC-1A-.
5 ComponentOpen QV_Set_Object_Attr il_ec_number : QV_RC=0.
2 ComponentOpen Set  fields to be selected for Open.
5 ComponentOpen QV_Subscribe_Object_Attr comp_seq_nm : QV_RC=0.
5 ComponentOpen QV_Subscribe_Object_Attr update_count : QV_RC=0.
5 ComponentOpen QV_Open_Object  : QV_RC=0.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
ComponentOpen DbObjectId= 4711x , EcNumber= EC-1A
ComponentOpen- rc(QV_Create_Object::Component) = 0
ComponentOpen- rc(QV_Set_Object_Attr::db_object_id=4711x) = 0
ComponentOpen- rc(QV_Set_Object_Attr::il_ec_number) = 0
ComponentOpen- rc(QV_Subscribe_Object_Attr::comp_seq_nm) = 0
ComponentOpen- rc(QV_Subscribe_Object_Attr::update_count) = 0
ComponentOpen- rc(QV_Open_Object) = 0
ComponentOpen ...Component was  found
)"));
    });
}

TEST_F(Components, ALineThatIsNotThereIsTold)
{
    connect(0);
    standin::answer("QV_Open_Object", -7, {{"Q1", "No such line"}});
    const Outcome outcome = open(Text("4711"), Text(""), {});
    EXPECT_EQ(outcome.result, 0);
    expectObjectResult(0, 1);
    EXPECT_EQ(outcome.output, "****** No such line .\n");
    const std::string logEnd = "Q1 - No such line\nComponentOpen ...Component was  not found\n";
    EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.size() - logEnd.size()), logEnd);
}

class ComponentReferences : public Components {
protected:
    static Outcome save()
    {
        return record([] {
            return ComponentReferenceSave(Text("ec-1"), Text("br-1"), Text("pl-2"), Text("10"), Text("xref"),
                                          Names({"db_object_id", "comp_ref_xref"}));
        });
    }
};

constexpr const char* traceOfSave = R"(
2 ComponentReferenceSave-----start------.
2 ComponentReferenceSave\tEcNumber=ec-1.
2 ComponentReferenceSave\tItemNumber=br-1.
2 ComponentReferenceSave\tCompItemNumber=pl-2.
2 ComponentReferenceSave\tCompSeqNumber=10.
2 ComponentReferenceSave\tCompRef=VELOR/Quorvanemaster Integration.
2 ComponentReferenceSave\tCompRefXref=xref.
2 ComponentReferenceSavePrinting Selected Attributes ....
2 ComponentReferenceSave\tdb_object_id-.
2 ComponentReferenceSave\tcomp_ref_xref-.
5 ComponentReferenceSave QV_Create_Object ComponentReference : QV_RC=0.
2 ComponentReferenceSaveSet required fields for Open.
2 ComponentReferenceSave   db_object_id=.
5 ComponentReferenceSave QV_Set_Object_Attr db_object_id : QV_RC=0.
2 ComponentReferenceSave   logical_key@item_number=br-1.
5 ComponentReferenceSave QV_Set_Object_Attr logical_key@item_number br-1: QV_RC=0.
2 ComponentReferenceSave   logical_key@loc_id=.
5 ComponentReferenceSave QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 ComponentReferenceSave   logical_key@comp_item_number=pl-2.
5 ComponentReferenceSave QV_Set_Object_Attr logical_key@comp_item_number pl-2: QV_RC=0.
2 ComponentReferenceSave   logical_key@=comp_seq_nm=10.
5 ComponentReferenceSave QV_Set_Object_Attr logical_key@comp_seq_nm 10: QV_RC=0.
2 ComponentReferenceSave   logical_key@=comp_ref=VELOR/Quorvanemaster Integration.
5 ComponentReferenceSave QV_Set_Object_Attr logical_key@comp_ref VELOR/Quorvanemaster Integration: QV_RC=0.
2 ComponentReferenceSave   il_ec_number=ec-1.
5 ComponentReferenceSave QV_Set_Object_Attr il_ec_number ec-1: QV_RC=0.
2 ComponentReferenceSave   Set fields to be selected for Open.
5 ComponentReferenceSave QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 ComponentReferenceSave QV_Subscribe_Object_Attr comp_ref_xref : QV_RC=0.
2 ComponentReferenceSaveUpdating comp_ref_xref attribut.
2 ComponentReferenceSave   comp_ref_xref=xref.
5 ComponentReferenceSave QV_Set_Object_Attr comp_ref_xref xref: QV_RC=0.
2 ComponentReferenceSave   update_count=-.
5 ComponentReferenceSave QV_Set_Object_Attr update_count : QV_RC=0.
2 ComponentReferenceSaveExecute Save method.
)";

TEST_F(ComponentReferences, AReferenceIsSavedUnderTheFixedDesignator)
{
    atEachLevel([](int level) {
        const Outcome outcome = save();
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1, 2);
        EXPECT_STREQ(SelectedAttribute[0], "db_object_id");
        EXPECT_STREQ(SelectedAttribute[1], "comp_ref_xref");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ComponentReference") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-1") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@comp_item_number", "pl-2") = 0
QV_Set_Object_Attr(obj1, "logical_key@comp_seq_nm", "10") = 0
QV_Set_Object_Attr(obj1, "logical_key@comp_ref", "VELOR/Quorvanemaster Integration") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "comp_ref_xref") = 0
QV_Set_Object_Attr(obj1, "comp_ref_xref", "xref") = 0
QV_Set_Object_Attr(obj1, "update_count", "") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, traceOfSave + lines(R"(
5 ComponentReferenceSave QV_Save_Object  : QV_RC=0.
2 ComponentReferenceSave-----Exit------entries/rc=1------.
)")));
        EXPECT_EQ(outcome.accessLog, lines(R"(
ComponentReferenceSave- rc(QV_Create_Object::ComponentReference) = 0
ComponentReferenceSave- rc(QV_Set_Object_Attr::db_object_id) = 0
ComponentReferenceSave- rc(QV_Set_Object_Attr::logical_key@item_number=br-1) = 0
ComponentReferenceSave- rc(QV_Set_Object_Attr::logical_key@loc_id) = 0
ComponentReferenceSave- rc(QV_Set_Object_Attr::logical_key@comp_item_number=pl-2) = 0
ComponentReferenceSave- rc(QV_Set_Object_Attr::logical_key@comp_seq_nm=10) = 0
ComponentReferenceSave- rc(QV_Set_Object_Attr::logical_key@comp_ref=VELOR/Quorvanemaster Integration) = 0
ComponentReferenceSave- rc(QV_Set_Object_Attr::il_ec_number=ec-1) = 0
ComponentReferenceSave- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
ComponentReferenceSave- rc(QV_Subscribe_Object_Attr::comp_ref_xref) = 0
ComponentReferenceSave- rc(QV_Set_Object_Attr::comp_ref_xref=xref) = 0
ComponentReferenceSave- rc(QV_Set_Object_Attr::update_count) = 0
ComponentReferenceSave- rc(QV_Save_Object) = 0
)"));
    });
}

TEST_F(ComponentReferences, AReferenceThatIsStoredAlreadyIsAWarningAndASuccess)
{
    atEachLevel([](int level) {
        standin::answer("QV_Save_Object", -220, {{"Q220", "already stored"}});
        const Outcome outcome = save();
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1, 2);
        EXPECT_EQ(QV_RC, 0);
        EXPECT_EQ(outcome.output, atLevel(level, traceOfSave + lines(R"(
5 ComponentReferenceSave QV_Save_Object  : QV_RC=-220.
0 ****** already stored .
0 ComponentReferenceSave ****** WARNING ****** ComponentReference already exists ?!?.
0 ComponentReferenceSave\tEcNumber=ec-1.
0 ComponentReferenceSave\tItemNumber=br-1.
0 ComponentReferenceSave\tCompItemNumber=pl-2.
0 ComponentReferenceSave\tCompSeqNumber=10.
0 ComponentReferenceSave\tCompRef=VELOR/Quorvanemaster Integration.
0 ComponentReferenceSave\tCompRefXref=xref.
2 ComponentReferenceSave-----Exit------entries/rc=1------.
)")));
        EXPECT_EQ(outcome.errorLog, errorBlock("ComponentReferenceSave", "already stored "));
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
    atEachLevel([](int level) {
        NbSelectedAttribute = 7;
        const Outcome outcome = record([] { return ComponentReferenceDelete(Text("4711"), Text("ec-1")); });
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1, 0);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ComponentReference") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
QV_Delete_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ComponentReferenceDelete- -----start------.
2 ComponentReferenceDelete-  \tDbObjectId=4711-.
2 ComponentReferenceDelete- \tEcNumber=ec-1.
5 ComponentReferenceDelete-  QV_Create_Object ComponentReference : QV_RC=0.
2 ComponentReferenceDelete-  set required fields for cl_delete-.
2 ComponentReferenceDelete-     db_object_id=4711-.
5 ComponentReferenceDelete-  QV_Set_Object_Attr db_object_id 4711: QV_RC=0.
2 ComponentReferenceDelete-     il_ec_number=ec-1-.
5 ComponentReferenceDelete-  QV_Set_Object_Attr il_ec_number ec-1: QV_RC=0.
2 ComponentReferenceDelete-  Execute ComponentReference delete.
5 ComponentReferenceDelete-  QV_Delete_Object  : QV_RC=0.
2 ComponentReferenceDelete- ----Exit------------rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
ComponentReferenceDelete- - rc(QV_Create_Object::ComponentReference) = 0
ComponentReferenceDelete- - rc(QV_Set_Object_Attr::db_object_id=4711) = 0
ComponentReferenceDelete- - rc(QV_Set_Object_Attr::il_ec_number=ec-1) = 0
ComponentReferenceDelete- - rc(QV_Delete_Object) = 0
)"));
    });
}

} // namespace
