// SPDX-License-Identifier: Apache-2.0
//
// Creating, opening, changing and deleting objects.
#include <algorithm>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

class ObjectsTest : public ServerTest {};

class SharedObjectsTest : public StoreFileTest {};

Pairs itemKeys(const std::string& number, const std::string& change)
{
    return {{"logical_key@item_number", number}, {"logical_key@loc_id", ""}, {"il_ec_number", change}};
}

TEST_F(ObjectsTest, ANewObjectIsFoundByItsKeysAndByItsId)
{
    const std::string id =
        create("EngineeringChange", {{"id", "EC1"}, {"desc", "First"}, {"update_count", "0"}});
    ASSERT_NE(id, "") << message();
    Object byKey("EngineeringChange", {{"db_object_id", ""}, {"id", "EC1  "}});
    byKey.subscribe("db_object_id");
    byKey.subscribe("update_count");
    byKey.subscribe("status");
    byKey.subscribe("never@set");
    ASSERT_EQ(byKey.open(), 0) << message();
    EXPECT_EQ(byKey.get("db_object_id"), id);
    EXPECT_EQ(byKey.get("update_count"), "1");
    EXPECT_NE(byKey.get("status"), "");
    EXPECT_EQ(byKey.get("never@set"), "");
    EXPECT_EQ(read("EngineeringChange", {{"db_object_id", id}, {"id", "another"}}, "desc"), "First");
    EXPECT_EQ(Object("EngineeringChange", {{"id", "ec1"}}).open(), -210);
    Object unknown("EngineeringChange", {{"db_object_id", "x"}});
    EXPECT_EQ(unknown.open(), -210);
    EXPECT_NE(message().find("'x'"), std::string::npos);
}

TEST_F(ObjectsTest, SavingAnOpenedObjectChangesOnlyWhatWasSetSince)
{
    create("EngineeringChange", {{"id", "EC1"}, {"desc", "First"}, {"site@own@path", "kept"}});
    Object change("EngineeringChange", {{"id", "EC1"}, {"desc", "not looked for"}});
    change.subscribe("desc");
    change.subscribe("update_count");
    ASSERT_EQ(change.open(), 0) << message();
    EXPECT_EQ(change.get("desc"), "First");
    change.set("x_sec_level_code", "3");
    ASSERT_EQ(change.save(), 0) << message();
    EXPECT_EQ(change.get("update_count"), "2");
    change.set("desc", "Second");
    change.set("site@own@path", "");
    ASSERT_EQ(change.save(), 0) << message();
    EXPECT_EQ(change.get("update_count"), "3");
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC1"}}, "desc"), "Second");
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC1"}}, "x_sec_level_code"), "3");
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC1"}}, "site@own@path"), "");
}

TEST_F(ObjectsTest, TheSameKeysAreRefusedAndTheStoredObjectStays)
{
    create("EngineeringChange", {{"id", "EC1"}, {"desc", "First"}});
    create("EngineeringChange", {{"id", "EC2"}});
    Object second("EngineeringChange", {{"id", "EC1 "}, {"desc", "Second"}});
    EXPECT_EQ(second.save(), QV_ALREADY_STORED);
    EXPECT_STREQ(QV_Error_MsgCode(0), "-220");
    EXPECT_NE(message().find("id='EC1 '"), std::string::npos) << message();
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC1"}}, "desc"), "First");
    Object renamed("EngineeringChange", {{"id", "EC2"}});
    ASSERT_EQ(renamed.open(), 0);
    renamed.set("id", "EC1");
    EXPECT_EQ(renamed.save(), QV_ALREADY_STORED);
    renamed.set("id", "EC3");
    EXPECT_EQ(renamed.save(), 0) << message();
    EXPECT_EQ(query("EngineeringChange", {{"Select", "id"}, {"OrderBy", "id"}}), (Table{{"EC1"}, {"EC3"}}));
}

TEST_F(ObjectsTest, ValuesAreExactBytesUpToTheLimit)
{
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    bytes += "  ";
    for (const std::string path : {"desc", "site@note"}) {
        Object change("EngineeringChange", {{"id", path}, {path, bytes}});
        ASSERT_EQ(change.save(), 0) << message();
        EXPECT_EQ(read("EngineeringChange", {{"id", path}}, path), bytes);
        EXPECT_EQ(change.set(path, std::string(10000, 'x')), -114);
        EXPECT_EQ(change.set(path, std::string(QV_MAX_VALUE_LENGTH, 'x')), 0) << message();
        EXPECT_EQ(change.save(), 0) << message();
        EXPECT_EQ(read("EngineeringChange", {{"id", path}}, path), std::string(QV_MAX_VALUE_LENGTH, 'x'));
    }
}

TEST_F(ObjectsTest, TheServersOwnValuesCannotBeSet)
{
    Object change("EngineeringChange", {{"id", "EC1"}, {"update_count", "77"}});
    change.subscribe("update_count");
    ASSERT_EQ(change.save(), 0) << message();
    EXPECT_EQ(change.get("update_count"), "1");
    create("ItemEngineeringData",
           {{"logical_key@item_number", "A"}, {"insert_by", "99999"}, {"net_pu_flg", "Y"}});
    EXPECT_NE(read("ItemEngineeringData", itemKeys("A", ""), "insert_by"), "99999");
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", ""), "net_pu_flg"), "N");
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", ""), "extract_by"), "2147483647");
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", ""), "master_item@control"), "1");
    Object item("ItemEngineeringData", {{"logical_key@item_number", "B"}});
    EXPECT_EQ(item.set("ai_obj@item_status", "X"), -112);
    EXPECT_EQ(item.set("db_object_id", "5"), 0);
    EXPECT_EQ(item.save(), -110) << "an object with an id must be opened";
    EXPECT_EQ(Object("EngineeringChange").save(), -110) << "a change needs a number";
}

TEST_F(ObjectsTest, AnItemIsOpenedAtAChange)
{
    for (const std::string change : {"EC1", "EC2", "EC3"}) {
        create("EngineeringChange", {{"id", change}});
    }
    create("ItemEngineeringData", {{"logical_key@item_number", "A"}, {"name", "PLAIN"}});
    create("ItemEngineeringData",
           {{"logical_key@item_number", "A"}, {"il_ec_number", "EC1"}, {"name", "AT EC1"}});
    create("AffectedItem", {{"ec@id", "EC2"}, {"item_number", "A"}});
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", "EC1"), "name"), "AT EC1");
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", "EC2"), "name"), "PLAIN");
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", ""), "name"), "AT EC1") << "the newest";
    EXPECT_EQ(Object("ItemEngineeringData", itemKeys("A", "EC3")).open(), -210);
    EXPECT_EQ(Object("ItemEngineeringData", itemKeys("B", "")).open(), -210);

    Object affected("ItemEngineeringData", itemKeys("A", "EC2"));
    affected.subscribe("il_ec_number");
    affected.subscribe("ai_obj@ec@id");
    ASSERT_EQ(affected.open(), 0);
    affected.set("name", "CHANGED");
    ASSERT_EQ(affected.save(), 0) << message();
    EXPECT_EQ(affected.get("il_ec_number"), "")
        << "the change that was asked at does not become the record's own";
    EXPECT_EQ(affected.get("ai_obj@ec@id"), "EC2");
}

TEST_F(ObjectsTest, AnItemGetsItsBomHeaderAndItsUnitFlag)
{
    create("EngineeringChange", {{"id", "EC1"}});
    create("ItemEngineeringData",
           {{"logical_key@item_number", "A"}, {"il_ec_number", "EC1"}, {"create_bomheader", "TRUE"}});
    create("ItemEngineeringData", {{"logical_key@item_number", "B"}, {"create_bomheader", "true"}});
    EXPECT_EQ(query("BomHeader", {{"Select", "logical_key@item_number"}, {"Select", "il_ec_number"}}),
              (Table{{"A", "EC1"}}));
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", "EC1"), "create_bomheader"), "");
    Object effectivity("ItemProductUnitEffectivity", {{"item_number", "A"}, {"prod_id", "P"}});
    ASSERT_EQ(effectivity.save(), 0) << message();
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", "EC1"), "net_pu_flg"), "Y");
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", "EC1"), "update_count"), "1");
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("B", ""), "net_pu_flg"), "N");
    ASSERT_EQ(effectivity.remove(), 0) << message();
    EXPECT_EQ(read("ItemEngineeringData", itemKeys("A", "EC1"), "net_pu_flg"), "N");
}

TEST_F(ObjectsTest, DeletionNeedsAgreeingKeys)
{
    const std::string id =
        create("ProductOption", {{"product", "P"}, {"feature", "F"}, {"own", "kept nowhere"}});
    create("ProductOption", {{"product", "P"}, {"feature", "G"}});
    EXPECT_EQ(Object("ProductOption", {{"db_object_id", id}, {"feature", "G"}}).remove(), -232);
    EXPECT_EQ(Object("ProductOption", {{"product", "P"}}).remove(), -210);
    Object option("ProductOption", {{"db_object_id", id}, {"feature", "F"}});
    EXPECT_EQ(option.remove(), 0) << message();
    EXPECT_EQ(option.remove(), -210);
    EXPECT_EQ(Object("ProductOption", {{"product", "P"}, {"feature", "G"}}).remove(), 0) << message();
    EXPECT_TRUE(query("ProductOption", {{"Select", "own"}}).empty());
}

TEST_F(ObjectsTest, OnlyWhatWasLoadedCanBeRead)
{
    create("EngineeringChange", {{"id", "EC1"}, {"desc", "First"}});
    Object change("EngineeringChange", {{"id", "EC1"}});
    const char* value = "untouched";
    EXPECT_EQ(QV_Get_Object_Attr(change.handle(), "desc", &value), -115);
    EXPECT_STREQ(value, "");
    ASSERT_EQ(change.open(), 0);
    change.subscribe("desc");
    EXPECT_EQ(QV_Get_Object_Attr(change.handle(), "desc", &value), -115) << "subscribed, but not loaded yet";
    change.set("desc", "Second");
    EXPECT_EQ(change.get("desc"), "Second");
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC1"}}, "desc"), "First") << "set is not saved";
}

TEST_F(SharedObjectsTest, AChangeByAnotherUserIsNotLost)
{
    create("EngineeringChange", {{"id", "EC1"}, {"desc", "First"}});
    Object change("EngineeringChange", {{"id", "EC1"}});
    ASSERT_EQ(change.open(), 0) << message();
    OtherSession other;
    ASSERT_EQ(other.run("change EngineeringChange id=EC1 desc=Theirs"), 0);
    change.set("desc", "Mine");
    change.set("added@note", "Mine");
    EXPECT_EQ(change.save(), -240);
    EXPECT_EQ(change.remove(), -240);
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC1"}}, "desc"), "Theirs");
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC1"}}, "added@note"), "");
    ASSERT_EQ(change.open(), 0) << message();
    change.set("desc", "Mine after all");
    EXPECT_EQ(change.save(), 0) << message();
    EXPECT_EQ(read("EngineeringChange", {{"id", "EC1"}}, "desc"), "Mine after all");
}

} // namespace
} // namespace servertest
