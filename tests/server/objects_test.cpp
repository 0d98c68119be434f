// SPDX-License-Identifier: Apache-2.0
//
// Creating, opening, changing and deleting objects.
#include "tests/server/server_test.h"

namespace servertest {
namespace {

class ObjectsTest : public ServerTest {};

class SharedObjectsTest : public StoreFileTest {};

std::string readItem(const std::string& number, const std::string& change, const std::string& path)
{
    return read("ItemEngineeringData", item(number, change), path);
}

std::string readChange(const std::string& number, const std::string& path)
{
    return read("EngineeringChange", {{"id", number}}, path);
}

TEST_F(ObjectsTest, ANewObjectIsFoundByItsKeysAndByItsId)
{
    const std::string id = create("EngineeringChange", {{"id", "EC1"}, {"desc", "First"}});
    Object byKey("EngineeringChange", {{"db_object_id", ""}, {"id", "EC1  "}},
                 {"db_object_id", "update_count", "status", "never@set"});
    ASSERT_EQ(byKey.open(), 0) << message();
    EXPECT_EQ(byKey.get("db_object_id"), id);
    EXPECT_EQ(byKey.get("update_count"), "1");
    EXPECT_EQ(byKey.get("status"), "OPEN");
    EXPECT_EQ(byKey.get("never@set"), "");
    byKey.subscribe("desc");
    const char* value = "untouched";
    EXPECT_EQ(QV_Get_Object_Attr(byKey.handle(), "desc", &value), -115) << "subscribed, but not loaded yet";
    EXPECT_STREQ(value, "");
    EXPECT_EQ(read("EngineeringChange", {{"db_object_id", id}, {"id", "another"}}, "desc"), "First");
    EXPECT_EQ(Object("EngineeringChange", {{"id", "ec1"}}).open(), -210);
    EXPECT_TRUE(refused(Object("EngineeringChange", {{"db_object_id", "x"}}).open(), -210, "'x'"));
}

TEST_F(ObjectsTest, SavingAnOpenedObjectChangesOnlyWhatWasSetSince)
{
    create("EngineeringChange", {{"id", "EC1"}, {"desc", "First"}, {"site@own@path", "kept"}});
    Object change("EngineeringChange", {{"id", "EC1"}, {"desc", "not looked for"}}, {"desc", "update_count"});
    ASSERT_EQ(change.open(), 0) << message();
    EXPECT_EQ(change.get("desc"), "First");
    change.set("x_sec_level_code", "3");
    ASSERT_EQ(change.save(), 0) << message();
    EXPECT_EQ(change.get("update_count"), "2");
    change.set("desc", "Second");
    change.set("site@own@path", "");
    EXPECT_EQ(change.get("desc"), "Second");
    EXPECT_EQ(readChange("EC1", "desc"), "First") << "what is set is not saved";
    ASSERT_EQ(change.save(), 0) << message();
    EXPECT_EQ(change.get("update_count"), "3");
    EXPECT_EQ(readChange("EC1", "desc"), "Second");
    EXPECT_EQ(readChange("EC1", "x_sec_level_code"), "3");
    EXPECT_EQ(readChange("EC1", "site@own@path"), "");
}

TEST_F(ObjectsTest, TheSameKeysAreRefusedAndTheStoredObjectStays)
{
    create("EngineeringChange", {{"id", "EC1"}, {"desc", "First"}});
    create("EngineeringChange", {{"id", "EC2"}});
    Object second("EngineeringChange", {{"id", "EC1 "}, {"desc", "Second"}});
    EXPECT_TRUE(refused(second.save(), QV_ALREADY_STORED, "id='EC1 '"));
    EXPECT_EQ(readChange("EC1", "desc"), "First");
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
    for (const std::string path : {"desc", "site@note"}) { // a column of the class, and an added attribute
        Object change("EngineeringChange", {{"id", path}});
        for (const std::string& value : {bytes + "  ", std::string(QV_MAX_VALUE_LENGTH, 'x')}) {
            ASSERT_EQ(change.set(path, value), 0) << message();
            ASSERT_EQ(change.save(), 0) << message();
            EXPECT_EQ(readChange(path, path), value);
        }
        EXPECT_EQ(change.set(path, std::string(QV_MAX_VALUE_LENGTH + 1, 'x')), -114);
    }
}

TEST_F(ObjectsTest, TheServersOwnValuesCannotBeSet)
{
    Pairs values = item("A");
    values.insert(values.end(), {{"insert_by", "99999"}, {"net_pu_flg", "Y"}, {"update_count", "77"}});
    const std::string id = create("ItemEngineeringData", values);
    for (const auto& [path, value] : Pairs{{"insert_by", id},
                                           {"net_pu_flg", "N"},
                                           {"extract_by", "2147483647"},
                                           {"master_item@control", "1"},
                                           {"update_count", "1"}}) {
        EXPECT_EQ(readItem("A", "", path), value) << path;
    }
    Object second("ItemEngineeringData", item("B"));
    EXPECT_EQ(second.set("ai_obj@item_status", "X"), -112);
    EXPECT_EQ(second.set("db_object_id", "5"), 0);
    EXPECT_EQ(second.save(), -110) << "an object with an id must be opened";
    EXPECT_EQ(Object("EngineeringChange").save(), -110) << "a change needs a number";
}

TEST_F(ObjectsTest, AnItemIsOpenedAtAChange)
{
    for (const std::string change : {"EC1", "EC2", "EC3"}) {
        create("EngineeringChange", {{"id", change}});
    }
    Pairs plain = item("A");
    plain.emplace_back("name", "PLAIN");
    create("ItemEngineeringData", plain);
    Pairs atChange = item("A", "EC1");
    atChange.emplace_back("name", "AT EC1");
    create("ItemEngineeringData", atChange);
    create("AffectedItem", {{"ec@id", "EC2"}, {"item_number", "A"}});
    EXPECT_EQ(readItem("A", "EC1", "name"), "AT EC1");
    EXPECT_EQ(readItem("A", "", "name"), "AT EC1") << "the newest";
    EXPECT_EQ(Object("ItemEngineeringData", item("A", "EC3")).open(), -210);
    EXPECT_EQ(Object("ItemEngineeringData", item("B")).open(), -210);

    Object affected("ItemEngineeringData", item("A", "EC2"), {"name", "il_ec_number", "ai_obj@ec@id"});
    ASSERT_EQ(affected.open(), 0) << message();
    EXPECT_EQ(affected.get("name"), "PLAIN");
    affected.set("name", "CHANGED");
    ASSERT_EQ(affected.save(), 0) << message();
    EXPECT_EQ(affected.get("il_ec_number"), "") << "the change asked at does not become the record's own";
    EXPECT_EQ(affected.get("ai_obj@ec@id"), "EC2");
    create("AffectedItem", {{"ec@id", "EC3"}, {"item_number", "A"}});
    EXPECT_EQ(query("AffectedItem", {{"Select", "pln_rev_level"}}), (Table{{"1"}, {"2"}}));
}

TEST_F(ObjectsTest, AnItemGetsItsBomHeaderAndItsUnitFlag)
{
    create("EngineeringChange", {{"id", "EC1"}});
    for (const auto& [keys, order] : {std::pair(item("A", "EC1"), "TRUE"), std::pair(item("B"), "true")}) {
        Object ordering("ItemEngineeringData", keys);
        ordering.set("create_bomheader", order);
        ASSERT_EQ(ordering.save(), 0) << message();
    }
    EXPECT_EQ(query("BomHeader", {{"Select", "logical_key@item_number"}, {"Select", "il_ec_number"}}),
              (Table{{"A", "EC1"}}));
    EXPECT_EQ(readItem("A", "EC1", "create_bomheader"), "");
    Object effectivity("ItemProductUnitEffectivity", {{"item_number", "A"}, {"prod_id", "P"}});
    ASSERT_EQ(effectivity.save(), 0) << message();
    EXPECT_EQ(readItem("A", "EC1", "net_pu_flg"), "Y");
    EXPECT_EQ(readItem("A", "EC1", "update_count"), "1");
    EXPECT_EQ(readItem("B", "", "net_pu_flg"), "N");
    ASSERT_EQ(effectivity.remove(), 0) << message();
    EXPECT_EQ(readItem("A", "EC1", "net_pu_flg"), "N");
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
    EXPECT_TRUE(query("ProductOption").empty());
}

TEST_F(SharedObjectsTest, AChangeByAnotherUserIsNotLost)
{
    create("EngineeringChange", {{"id", "EC1"}, {"desc", "First"}});
    Object change("EngineeringChange", {{"id", "EC1"}});
    ASSERT_EQ(change.open(), 0) << message();
    const OtherSession other;
    ASSERT_EQ(other.run("change EngineeringChange id=EC1 with desc=Theirs"), 0);
    change.set("desc", "Mine");
    change.set("added@note", "Mine");
    EXPECT_EQ(change.save(), -240);
    EXPECT_EQ(change.remove(), -240);
    EXPECT_EQ(readChange("EC1", "desc"), "Theirs");
    EXPECT_EQ(readChange("EC1", "added@note"), "");
    ASSERT_EQ(change.open(), 0) << message();
    change.set("desc", "Mine after all");
    EXPECT_EQ(change.save(), 0) << message();
    EXPECT_EQ(readChange("EC1", "desc"), "Mine after all");
}

} // namespace
} // namespace servertest
