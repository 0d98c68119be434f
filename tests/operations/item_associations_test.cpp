// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::errorBlock;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;

namespace {

class ItemAssociations : public harness::LibraryTest {
protected:
    static Outcome open(const std::string& id, const std::string& item, const std::string& change,
                        const std::vector<std::string>& names = {})
    {
        return record([&] { return ItemAssociationOpen(Text(id), Text(item), Text(change), Names(names)); });
    }
    static Outcome save(const std::string& change, const std::string& item, const std::string& identifier,
                        const std::vector<std::string>& names = {})
    {
        return record(
            [&] { return ItemAssociationSave(Text(change), Text(item), Text(identifier), Names(names)); });
    }
};

TEST_F(ItemAssociations, AnAssociationIsOpened)
{
    atEachLevel([](int level) {
        const Outcome outcome = open("4711", "br-100", "ec-1", {"alias_xref", "alias_desc"});
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(entries, 1);
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ItemAssociationData") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "4711") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-100") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@alias", "HXD") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
QV_Subscribe_Object_Attr(obj1, "alias_xref") = 0
QV_Subscribe_Object_Attr(obj1, "alias_desc") = 0
QV_Open_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ItemAssociationOpen-----Start------------------------------.
2 ItemAssociationOpen-    DbObjectId=4711-.
2 ItemAssociationOpen-    ItemNumber=br-100-.
2 ItemAssociationOpen-    EcNumber=ec-1-.
2 ItemAssociationOpen- Selected Attributes are ....
2 ItemAssociationOpen-   alias_xref-.
2 ItemAssociationOpen-   alias_desc-.
5 ItemAssociationOpen QV_Create_Object ItemAssociationData : QV_RC=0.
2 ItemAssociationOpen-  db_object_id=4711-.
5 ItemAssociationOpen QV_Set_Object_Attr db_object_id 4711: QV_RC=0.
2 ItemAssociationOpen-   logical_key@item_number=br-100-.
5 ItemAssociationOpen QV_Set_Object_Attr logical_key@item_number br-100: QV_RC=0.
2 ItemAssociationOpen-   logical_key@loc_id=-.
5 ItemAssociationOpen QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 ItemAssociationOpen-   logical_key@alias=HXD-.
5 ItemAssociationOpen QV_Set_Object_Attr logical_key@alias HXD: QV_RC=0.
2 ItemAssociationOpen-   il_ec_number=ec-1-.
5 ItemAssociationOpen QV_Set_Object_Attr il_ec_number ec-1: QV_RC=0.
5 ItemAssociationOpen QV_Subscribe_Object_Attr alias_xref : QV_RC=0.
5 ItemAssociationOpen QV_Subscribe_Object_Attr alias_desc : QV_RC=0.
5 ItemAssociationOpen QV_Open_Object  : QV_RC=0.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
ItemAssociationOpen- rc(QV_Create_Object::ItemAssociationData) = 0
ItemAssociationOpen- rc(QV_Set_Object_Attr::db_object_id=4711) = 0
ItemAssociationOpen- rc(QV_Set_Object_Attr::logical_key@item_number=br-100) = 0
ItemAssociationOpen- rc(QV_Set_Object_Attr::logical_key@loc_id) = 0
ItemAssociationOpen- rc(QV_Set_Object_Attr::logical_key@alias=HXD) = 0
ItemAssociationOpen- rc(QV_Set_Object_Attr::il_ec_number=ec-1) = 0
ItemAssociationOpen- rc(QV_Subscribe_Object_Attr::alias_xref) = 0
ItemAssociationOpen- rc(QV_Subscribe_Object_Attr::alias_desc) = 0
ItemAssociationOpen- rc(QV_Open_Object) = 0
)"));
    });
}

TEST_F(ItemAssociations, AnAssociationThatIsNotFoundEndsWithoutAnOutcomeLine)
{
    connect(2);
    standin::answer("QV_Open_Object", -7, {{"Q100", "No such association"}});
    const Outcome outcome = open("", "BR-1", "");
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.output.substr(outcome.output.find("ItemAssociationOpen-   il_ec_number")), lines(R"(
ItemAssociationOpen-   il_ec_number=-.
****** No such association .
)"));
    EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.find("ItemAssociationOpen- rc(QV_Open")), lines(R"(
ItemAssociationOpen- rc(QV_Open_Object) = -7
Q100 - No such association
)"));
    EXPECT_EQ(outcome.errorLog, errorBlock("ItemAssociationOpen", "No such association "));
}

TEST_F(ItemAssociations, AnAssociationIsSaved)
{
    atEachLevel([](int level) {
        const Outcome outcome = save("ec-1", "br-100", "part-7", {"db_object_id"});
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(entries, 1);
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ItemAssociationData") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "ec-1") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "br-100") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@alias", "HXD") = 0
QV_Set_Object_Attr(obj1, "alias_desc", "VELOR/Quorvanemaster Integration") = 0
QV_Set_Object_Attr(obj1, "alias_type@curr_key", "8") = 0
QV_Set_Object_Attr(obj1, "alias_xref", "part-7") = 0
QV_Set_Object_Attr(obj1, "update_count", "") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ItemAssociationSave-----Start------------------------------.
2 ItemAssociationSave	EcNumber=ec-1.
2 ItemAssociationSave	ItemNumber=br-100.
2 ItemAssociationSave	SystemPartnerOid=part-7.
2 ItemAssociationSave Printing Selected Attributes ....
2 ItemAssociationSave   db_object_id-.
5 ItemAssociationSave QV_Create_Object ItemAssociationData : QV_RC=0.
2 ItemAssociationSave Valuate il_ec_number untyped instance with EC number=ec-1-.
2 ItemAssociationSave   il_ec_number=ec-1-.
5 ItemAssociationSave QV_Set_Object_Attr il_ec_number ec-1: QV_RC=0.
2 ItemAssociationSave Set required fields for Save.
2 ItemAssociationSave   db_object_id=.
5 ItemAssociationSave QV_Set_Object_Attr db_object_id : QV_RC=0.
2 ItemAssociationSave   logical_key@item_number=br-100.
5 ItemAssociationSave QV_Set_Object_Attr logical_key@item_number br-100: QV_RC=0.
2 ItemAssociationSave   logical_key@loc_id=.
5 ItemAssociationSave QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 ItemAssociationSave   logical_key@alias=HXD.
5 ItemAssociationSave QV_Set_Object_Attr logical_key@alias HXD: QV_RC=0.
2 ItemAssociationSave   alias_desc=VELOR/Quorvanemaster Integration.
5 ItemAssociationSave QV_Set_Object_Attr alias_desc VELOR/Quorvanemaster Integration: QV_RC=0.
2 ItemAssociationSave   alias_type@curr_key=8.
5 ItemAssociationSave QV_Set_Object_Attr alias_type@curr_key 8: QV_RC=0.
2 ItemAssociationSave   alias_xref=part-7.
5 ItemAssociationSave QV_Set_Object_Attr alias_xref part-7: QV_RC=0.
2 ItemAssociationSave   update_count=-.
5 ItemAssociationSave QV_Set_Object_Attr update_count : QV_RC=0.
2 ItemAssociationSave Set fields to be selected for cl_save.
5 ItemAssociationSave QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
2 ItemAssociationSave Execute cl_save method; CLAYR_makeCall, cl_save.
5 ItemAssociationSave QV_Save_Object  : QV_RC=0.
2 ItemAssociationSave-----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
ItemAssociationSave- rc(QV_Create_Object::ItemAssociationData) = 0
ItemAssociationSave- rc(QV_Set_Object_Attr::il_ec_number=ec-1) = 0
ItemAssociationSave- rc(QV_Set_Object_Attr::db_object_id) = 0
ItemAssociationSave- rc(QV_Set_Object_Attr::logical_key@item_number=br-100) = 0
ItemAssociationSave- rc(QV_Set_Object_Attr::logical_key@loc_id) = 0
ItemAssociationSave- rc(QV_Set_Object_Attr::logical_key@alias=HXD) = 0
ItemAssociationSave- rc(QV_Set_Object_Attr::alias_desc=VELOR/Quorvanemaster Integration) = 0
ItemAssociationSave- rc(QV_Set_Object_Attr::alias_type@curr_key=8) = 0
ItemAssociationSave- rc(QV_Set_Object_Attr::alias_xref=part-7) = 0
ItemAssociationSave- rc(QV_Set_Object_Attr::update_count) = 0
ItemAssociationSave- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
ItemAssociationSave- rc(QV_Save_Object) = 0
)"));
    });
}

TEST_F(ItemAssociations, WithoutAChangeNumberNoneIsSet)
{
    connect(2);
    const Outcome outcome = save("", "BR-1", "");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(harness::countLines(outcome.calls + outcome.output, "il_ec_number"), 0);
    EXPECT_EQ(harness::countLines(outcome.output, "ItemAssociationSave Set required fields for Save."), 1);
    EXPECT_EQ(harness::countLines(outcome.calls, "\"alias_xref\", \"\""), 1);
}

TEST_F(ItemAssociations, NoTextOfTheCallerIsChanged)
{
    connect();
    Text first("id");
    Text second("br-1");
    Text third("ec-1");
    EXPECT_EQ(record([&] { return ItemAssociationOpen(first, second, third, nullptr); }).result, 1);
    EXPECT_EQ(record([&] { return ItemAssociationSave(third, second, first, nullptr); }).result, 1);
    EXPECT_EQ(first.str() + second.str() + third.str(), "idbr-1ec-1");
}

} // namespace
