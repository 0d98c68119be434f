// SPDX-License-Identifier: Apache-2.0
//
// Bills of material, product configuration and translation tables through the operations of the library, with
// the local server behind them.
#include <array>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <velrzm/qvlocal.h>
#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"

namespace {

using harness::Names;
using harness::Text;
using Table = std::vector<std::vector<std::string>>;

constexpr const char* store = "sqlite:store.db";

std::string value(const std::string& name, int record = 0)
{
    std::array<char, QV_MAX_VALUE_LENGTH + 1> text = {};
    EXPECT_EQ(GetValue(record, name.c_str(), text.data(), text.size()), 1) << name;
    return text.data();
}

/** What the current result has under these names. */
Table result(const std::vector<std::string>& names)
{
    Table rows;
    for (int record = 0; record < entries; ++record) {
        rows.emplace_back();
        for (const std::string& name : names) {
            rows.back().push_back(value(name, record));
        }
    }
    return rows;
}

std::vector<std::string> texts(VELListValVELUnicodeString& list)
{
    std::vector<std::string> all;
    for (int position = 1; position <= list.Size(); ++position) {
        all.emplace_back(list[position].CastToCharPtr());
    }
    return all;
}

/** A user at work on a pump in an empty directory with a store of its own. */
class ProductStructureFlow : public testing::Test {
protected:
    void SetUp() override
    {
        environment.set("QV_STORE", store);
        for (const char* const name : {"RZM_DEFAULT_DIRECTORY", "QV_MULTI_SAVE", "QVL_BOM_HEADER_CREATE"}) {
            environment.set(name, std::nullopt);
        }
        environment.set("QVL_TRACE_LEVEL", "0");
        qvlocal::initializeStore(store, "jdoe", "secret");
        ASSERT_EQ(QvConnect("jdoe", "secret"), 1);
        ASSERT_EQ(EngineeringChangeCreate("EC-1", "First pump", "", "", "jdoe"), 1);
        for (const std::string number : {"PUMP", "HOUSING", "ROTOR", "SCREW"}) {
            VELListValVELUnicodeString none;
            ASSERT_EQ(ItemCreate(Text("EC-1"), Text(number), Text(number + " name"), Text("PART"), none, none,
                                 none),
                      1)
                << number;
        }
    }
    void TearDown() override { QvExit(); }

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
    /** What a use that is to be refused, with the result 0, tells the user. */
    static std::string refusal(const std::function<int()>& use)
    {
        return harness::captureOutput([&] { EXPECT_EQ(use(), 0); });
    }

    harness::TemporaryDirectory directory;
    harness::Environment environment;
};

TEST_F(ProductStructureFlow, AHeaderIsMadeOnceAndThenOpened)
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

TEST_F(ProductStructureFlow, TheLinesOfAPumpAreExplodedDepthFirst)
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

    VELListValVELUnicodeString names;
    names.Append("logical_key@item_number");
    EXPECT_EQ(ComponentOpen(Text(id), Text("EC-1"), names), 1);
    EXPECT_EQ(value("logical_key@item_number"), "ROTOR");
    EXPECT_EQ(ComponentDelete(Text(id), Text("EC-1"), Text("ROTOR"), Text("SCREW"), Text("10")), 0);
    EXPECT_EQ(ComponentDelete(Text(id), Text("EC-1"), Text("ROTOR"), Text("SCREW"), Text("9")), 1);
    EXPECT_EQ(ComponentOpen(Text(id), Text("EC-1"), names), 0);
    EXPECT_EQ(explode({"item_number"}, {"ROTOR"}, {"comp_seq_nm"}), (Table{{"10"}}));
}

TEST_F(ProductStructureFlow, AComponentReferenceIsStoredOnce)
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

TEST_F(ProductStructureFlow, AnItemReferenceIsStoredAndDeleted)
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

TEST_F(ProductStructureFlow, LoadedOptionsAndPackagesAreListed)
{
    harness::writeFile("options.csv",
                       "product,feature,variant\nP2,COLOR,RED\nP1,SEAL,STEEL\nP1,COLOR,BLUE\n");
    harness::writeFile("packages.csv", "product,package_id\nP1,SPORT\nP1,BASE\nP2,BASE\n");
    EXPECT_EQ(qvlocal::loadProductOptions(store, "options.csv"), 3U);
    EXPECT_EQ(qvlocal::loadProductPackages(store, "packages.csv"), 3U);

    VELListValVELUnicodeString first;
    VELListValVELUnicodeString second;
    VELListValVELUnicodeString third;
    ASSERT_EQ(ProductOptionQuery("", first, second, third), 3);
    EXPECT_EQ(texts(first), (std::vector<std::string>{"P1", "P1", "P2"}));
    EXPECT_EQ(texts(second), (std::vector<std::string>{"COLOR", "SEAL", "COLOR"}));
    EXPECT_EQ(texts(third), (std::vector<std::string>{"BLUE", "STEEL", "RED"}));
    ASSERT_EQ(ProductOptionQuery("P2", first, second, third), 1);
    EXPECT_EQ(texts(third), (std::vector<std::string>{"RED"}));
    ASSERT_EQ(ProductPackageQuery("P1", first, second, third), 2);
    EXPECT_EQ(texts(second), (std::vector<std::string>{"BASE", "SPORT"}));
    EXPECT_EQ(texts(third), std::vector<std::string>());
    EXPECT_EQ(ProductPackageQuery("P3", first, second, third), 0);
    EXPECT_EQ(texts(first), std::vector<std::string>());
}

TEST_F(ProductStructureFlow, LoadedTranslationTablesAreRead)
{
    harness::writeFile("tables.csv",
                       "table,from,to\nUNITS,kg,KGM\nUNITS,each,\nUNITS,\"a,b\",AB\nOTHER,x,y\n");
    EXPECT_EQ(qvlocal::loadTranslationTables(store, "tables.csv"), 4U);
    harness::writeFile("My_QVL_RZM_DEFAULT", "XlatRead Unit UNITS\nXlatRead Lost NOWHERE\n");

    VELListValVELUnicodeString from;
    VELListValVELUnicodeString to;
    for (int round = 0; round < 2; ++round) {
        ASSERT_EQ(round == 0 ? XlatRead("Unit", from, to) : XlatRead2("UNITS", from, to), 3);
        EXPECT_EQ(QV_RC, 0);
        EXPECT_EQ(texts(from), (std::vector<std::string>{"kg", "each", "a,b"}));
        EXPECT_EQ(texts(to), (std::vector<std::string>{"KGM", "", "AB"}));
    }
    EXPECT_NE(refusal([&] { return XlatRead("Lost", from, to); }).find("'NOWHERE'"), std::string::npos);
    EXPECT_EQ(XlatRead("Nothing", from, to), 0);
    EXPECT_EQ(texts(from), std::vector<std::string>());
}

} // namespace
