// SPDX-License-Identifier: Apache-2.0
//
// Bills of material, product configuration and translation tables.
#include <velrzm/qvlocal.h>

#include "tests/flows/flow_test.h"

namespace flowtest {
namespace {

/** A user at work on a pump. */
class ProductStructure : public FlowTest {
protected:
    void SetUp() override
    {
        FlowTest::SetUp();
        for (const std::string number : {"PUMP", "HOUSING", "ROTOR", "SCREW"}) {
            ASSERT_EQ(createItem("EC-1", number, number + " name"), 1) << number;
        }
    }

    static int createLine(const std::string& parent, const std::string& child, const std::string& sequence,
                          const std::vector<std::string>& names = {})
    {
        return ComponentCreate(Text("EC-1"), Text(parent), Text(child), Text(sequence), nullptr,
                               Names(names));
    }
    static Table explode(const std::vector<std::string>& parameters, const std::vector<std::string>& values,
                         const std::vector<std::string>& names)
    {
        EXPECT_EQ(BomExplode(Names(parameters), Names(values), Names(names)), entries);
        EXPECT_GE(QV_RC, 0);
        return result(names);
    }
};

TEST_F(ProductStructure, AHeaderIsMadeOnceAndThenOpened)
{
    Text change("ec-1");
    Text item("pump");
    int created = 0;
    const std::string output = harness::captureOutput([&] {
        created = BomHeaderCreate(change, item, Names({"db_object_id", "logical_key@item_number"}));
    });
    ASSERT_EQ(created, 1);
    EXPECT_NE(output.find("there is no BomHeader"), std::string::npos) << output;
    EXPECT_EQ(change.str() + item.str(), "EC-1PUMP");
    EXPECT_EQ(value("logical_key@item_number"), "PUMP");
    const std::string id = value("db_object_id");
    ASSERT_EQ(BomHeaderCreate(change, item, Names({})), 1);
    EXPECT_EQ(value("db_object_id"), id);
    EXPECT_EQ(BomHeaderCreate(Text("EC-1"), Text("ROTOR"), Names({"db_object_id"})), 1);
    EXPECT_NE(value("db_object_id"), id);
}

TEST_F(ProductStructure, TheLinesOfAPumpAreExplodedDepthFirst)
{
    ASSERT_EQ(createLine("PUMP", "ROTOR", "100"), 1);
    ASSERT_EQ(createLine("PUMP", "HOUSING", "20"), 1);
    ASSERT_EQ(createLine("HOUSING", "SCREW", "10"), 1);
    ASSERT_EQ(createLine("ROTOR", "SCREW", "10"), 1);
    ASSERT_EQ(createLine("ROTOR", "SCREW", "9", {"logical_key@comp_seq_nm", "db_object_id"}), 1);
    EXPECT_EQ(value("logical_key@comp_seq_nm"), "9");
    const std::string id = value("db_object_id");
    EXPECT_NE(refusal([] { return createLine("SCREW", "PUMP", "1"); }).find("SCREW > PUMP > HOUSING > SCREW"),
              std::string::npos);

    EXPECT_EQ(explode({"item_number"}, {"PUMP"},
                      {"level", "item_number", "comp_item_number", "comp_seq_nm", "comp_item@name"}),
              (Table{{"1", "PUMP", "HOUSING", "20", "HOUSING NAME"},
                     {"2", "HOUSING", "SCREW", "10", "SCREW NAME"},
                     {"1", "PUMP", "ROTOR", "100", "ROTOR NAME"},
                     {"2", "ROTOR", "SCREW", "9", "SCREW NAME"},
                     {"2", "ROTOR", "SCREW", "10", "SCREW NAME"}}));
    EXPECT_EQ(value("comp_seq_nm", 3), "9"); // in any order
    EXPECT_EQ(value("comp_seq_nm", 0), "20");
    EXPECT_EQ(explode({"item_number", "max_level", "ec_number"}, {"PUMP", "1", "EC-1"}, {"comp_item_number"}),
              (Table{{"HOUSING"}, {"ROTOR"}}));
    EXPECT_EQ(explode({"item_number", "ec_number"}, {"PUMP", "EC-2"}, {"level"}), Table());
    const auto explodeValve = [] {
        return BomExplode(Names({"item_number"}), Names({"VALVE"}), Names({"level"}));
    };
    EXPECT_NE(refusal(explodeValve).find("'VALVE'"), std::string::npos);

    auto names = textList({"logical_key@item_number"});
    EXPECT_EQ(ComponentOpen(Text(id), Text("EC-1"), names), 1);
    EXPECT_EQ(value("logical_key@item_number"), "ROTOR");
    EXPECT_EQ(ComponentDelete(Text(id), Text("EC-1"), Text("ROTOR"), Text("SCREW"), Text("10")), 0);
    EXPECT_EQ(ComponentDelete(Text(id), Text("EC-1"), Text("ROTOR"), Text("SCREW"), Text("9")), 1);
    EXPECT_EQ(ComponentOpen(Text(id), Text("EC-1"), names), 0);
    EXPECT_EQ(explode({"item_number"}, {"ROTOR"}, {"comp_seq_nm"}), (Table{{"10"}}));
}

TEST_F(ProductStructure, AComponentReferenceIsStoredOnce)
{
    ASSERT_EQ(createLine("PUMP", "SCREW", "10"), 1);
    const auto save = [](const std::string& sequence, const std::string& reference) {
        return ComponentReferenceSave(Text("EC-1"), Text("PUMP"), Text("SCREW"), Text(sequence),
                                      Text(reference),
                                      Names({"db_object_id", "comp_ref_xref", "logical_key@comp_ref"}));
    };
    ASSERT_EQ(save("10", "OID-1"), 1);
    EXPECT_EQ(value("comp_ref_xref"), "OID-1");
    EXPECT_EQ(value("logical_key@comp_ref"), "VELOR/Quorvanemaster Integration");
    const std::string id = value("db_object_id");

    int again = 0;
    const std::string output = harness::captureOutput([&] { again = save("10", "OID-2"); });
    EXPECT_EQ(again, 1);
    EXPECT_EQ(QV_RC, 0);
    EXPECT_NE(output.find(" ****** WARNING ****** ComponentReference already exists ?!?"), std::string::npos);
    EXPECT_NE(refusal([&] { return save("20", "OID-3"); }).find("logical_key@comp_seq_nm='20'"),
              std::string::npos);

    EXPECT_EQ(ComponentReferenceDelete(Text(id), Text("EC-1")), 1);
    EXPECT_EQ(ComponentReferenceDelete(Text(id), Text("EC-1")), 0);
    ASSERT_EQ(save("10", "OID-4"), 1);
    const std::string next = value("db_object_id");
    ASSERT_EQ(ComponentDelete(Text(""), Text("EC-1"), Text("PUMP"), Text("SCREW"), Text("10")), 1);
    EXPECT_EQ(ComponentReferenceDelete(Text(next), Text("EC-1")), 0);
}

TEST_F(ProductStructure, AnItemReferenceIsStoredAndDeleted)
{
    const auto create = [](const std::string& change) {
        return ItemReferenceCreate(Text(change), Text("pump"), Text("doc-1"), Text("A"), Text("OID-7"),
                                   Names({"db_object_id", "logical_key@reference_id", "reference_level",
                                          "item_ref_xref", "il_ec_number"}));
    };
    ASSERT_EQ(create("ec-1"), 1);
    EXPECT_EQ(result({"logical_key@reference_id", "reference_level", "item_ref_xref", "il_ec_number"}),
              (Table{{"DOC-1", "A", "OID-7", "EC-1"}}));
    const std::string id = value("db_object_id");
    EXPECT_EQ(create("ec-1"), 0);
    EXPECT_EQ(create(""), 1);
    EXPECT_EQ(ItemReferenceDelete(Text(id), Text("EC-2")), 0);
    EXPECT_EQ(ItemReferenceDelete(Text(id), Text("EC-1")), 1);
    EXPECT_EQ(create("ec-1"), 1);
}

TEST_F(ProductStructure, LoadedTablesAreListed)
{
    harness::writeFile("options.csv",
                       "product,feature,variant\nP2,COLOR,RED\nP1,SEAL,STEEL\nP1,COLOR,BLUE\n");
    harness::writeFile("packages.csv", "product,package_id\nP1,SPORT\nP1,BASE\nP2,BASE\n");
    harness::writeFile("tables.csv", "table,from,to\nUNITS,kg,KGM\nUNITS,each,\nOTHER,x,y\n");
    harness::writeFile("My_QVL_RZM_DEFAULT", "XlatRead Unit UNITS\nXlatRead Lost NOWHERE\n");
    qvlocal::loadProductOptions(store, "options.csv");
    qvlocal::loadProductPackages(store, "packages.csv");
    qvlocal::loadTranslationTables(store, "tables.csv");

    VELListValVELUnicodeString first;
    VELListValVELUnicodeString second;
    VELListValVELUnicodeString third;
    ASSERT_EQ(ProductOptionQuery("", first, second, third), 3);
    EXPECT_EQ(texts(first), (Row{"P1", "P1", "P2"}));
    EXPECT_EQ(texts(second), (Row{"COLOR", "SEAL", "COLOR"}));
    EXPECT_EQ(texts(third), (Row{"BLUE", "STEEL", "RED"}));
    ASSERT_EQ(ProductPackageQuery("P1", first, second, third), 2);
    EXPECT_EQ(texts(second), (Row{"BASE", "SPORT"}));
    EXPECT_EQ(texts(third), Row());
    EXPECT_EQ(ProductPackageQuery("P3", first, second, third), 0);
    EXPECT_EQ(texts(first), Row());

    for (const bool byDefaults : {true, false}) {
        ASSERT_EQ(byDefaults ? XlatRead("Unit", first, second) : XlatRead2("UNITS", first, second), 2);
        EXPECT_EQ(QV_RC, 0);
        EXPECT_EQ(texts(first), (Row{"kg", "each"}));
        EXPECT_EQ(texts(second), (Row{"KGM", ""}));
    }
    EXPECT_NE(refusal([&] { return XlatRead("Lost", first, second); }).find("'NOWHERE'"), std::string::npos);
    EXPECT_EQ(texts(first), Row());
}

} // namespace
} // namespace flowtest
