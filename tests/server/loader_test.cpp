// SPDX-License-Identifier: Apache-2.0
//
// Loading options, packages and translation tables from CSV files.
#include <velrzm/qvlocal.h>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

class LoaderTest : public StoreFileTest {
protected:
    using Load = std::size_t (*)(const std::string&, const std::string&);

    static std::size_t load(Load function, const std::string& content)
    {
        harness::writeFile("rows.csv", content);
        return function(location, "rows.csv");
    }

    /** Why the load was refused; "" when it was not. */
    static std::string refusal(Load function, const std::string& content)
    {
        return failureOf([&] { load(function, content); });
    }

    static Table options()
    {
        return query("ProductOption", {{"Select", "product"},
                                       {"Select", "feature"},
                                       {"Select", "variant"},
                                       {"OrderBy", "product"},
                                       {"OrderBy", "feature"},
                                       {"OrderBy", "variant"}});
    }
    static Table packages()
    {
        return query("ProductOptionPkg", {{"Select", "product"}, {"Select", "package_id"}});
    }
    /** The entries of all translation tables, in their order. */
    static Table entries()
    {
        return query("TranslationEntry", {{"Select", "table_name"}, {"Select", "from"}, {"Select", "to"}});
    }
};

TEST_F(LoaderTest, ReadsFieldsAsSpreadsheetsWriteThem)
{
    EXPECT_EQ(load(qvlocal::loadProductOptions, "\xEF\xBB\xBF"
                                                "product,feature,variant\r\n"
                                                "\"P,1\",\"say \"\"hi\"\"\",\"two\r\nlines\"\r\n"
                                                "\r\n"
                                                "  P2 , F , V"),
              2U);
    EXPECT_EQ(options(), (Table{{"P,1", "say \"hi\"", "two\r\nlines"}, {"P2", "F", "V"}}));
    EXPECT_EQ(load(qvlocal::loadProductPackages, "\"package_id\",\"product\"\rK1,P1\rK2,P1\r"), 2U);
    EXPECT_EQ(packages(), (Table{{"P1", "K1"}, {"P1", "K2"}}));
    EXPECT_EQ(
        load(qvlocal::loadTranslationTables, "table,from,to\nunits,kg,KGM\nunits,each,\"\"\n\"a b\",x,y\n"),
        3U);
    EXPECT_EQ(entries(), (Table{{"units", "kg", "KGM"}, {"units", "each", ""}, {"a b", "x", "y"}}));
    EXPECT_EQ(load(qvlocal::loadProductOptions, "variant,product,feature\n"), 0U);
}

TEST_F(LoaderTest, ReplacesWhatTheFileNamesAndNothingElse)
{
    load(qvlocal::loadProductOptions, "product,feature,variant\nP1,F,old\nP1,F,kept\nP2,F,V\n");
    load(qvlocal::loadProductOptions, "product,feature,variant\nP1,F,kept\nP1,F,new\n");
    EXPECT_EQ(options(), (Table{{"P1", "F", "kept"}, {"P1", "F", "new"}, {"P2", "F", "V"}}));
    load(qvlocal::loadTranslationTables, "table,from,to\nt,a,1\nt,b,2\nu,a,3\n");
    load(qvlocal::loadTranslationTables, "table,from,to\nt,b,2\nt,a,9\n");
    EXPECT_EQ(entries(), (Table{{"u", "a", "3"}, {"t", "b", "2"}, {"t", "a", "9"}}));
}

TEST_F(LoaderTest, RefusesWrongRowsWithFileLineAndReason)
{
    struct Case {
        Load function;
        std::string content;
        std::string complaint; // begins with the line
    };
    constexpr Load optionsOf = qvlocal::loadProductOptions;
    constexpr Load tablesOf = qvlocal::loadTranslationTables;
    const std::string header = "product,feature,variant\n";
    const std::string good = header + "P1,F,\"two\nlines\"\n\n"; // up to line 4
    const std::vector<Case> cases = {
        {optionsOf, "", "1: the file is empty; its first line must be product,feature,variant"},
        {optionsOf, "\n\nP1,F,V\n",
         "3: the first line must name the columns product,feature,variant, but is 'P1,F,V'"},
        {optionsOf, "product,feature\n", "1: the first line must name"},
        {optionsOf, "product,feature,variant,variant\n", "1: the first line must name"},
        {optionsOf, "product,feature,feature\n", "1: the first line must name"},
        {qvlocal::loadProductPackages, header, "1: the first line must name the columns product,package_id,"},
        {tablesOf, header, "1: the first line must name the columns table,from,to,"},
        {optionsOf, good + "P2,F\n", "5: the row has 2 fields instead of 3"},
        {optionsOf, good + "P2,F,V,\n", "5: the row has 4 fields instead of 3"},
        {optionsOf, good + ",F,V\n", "5: the column product is empty"},
        {optionsOf, good + "P2,\" \",V\n", "5: the column feature is empty"},
        {optionsOf, good + "P2,F,\n", "5: the column variant is empty"},
        {tablesOf, "table,from,to\nt,,b\n", "2: the column from is empty"},
        {optionsOf, good + "P2,F,V\nP2,F,\"V \"\n", "6: 'P2,F,V' is already in line 5"},
        {tablesOf, "table,from,to\nt,a,b\nu,a,b\nt,a,c\n", "4: 't,a' is already in line 2"},
        {optionsOf, good + "P2,F,\"V\"x\n", "5: the quotes do not match at byte 9 of line 5"},
        {optionsOf, good + "P2,F\"F,V\n", "5: the quotes do not match at byte 5 of line 5"},
        {optionsOf, good + "P2,F,\"V\nP3,\"F\",V\n", "5: the quotes do not match at byte 5 of line 6"},
        {optionsOf, good + "P2,F,\"V\nP3,F,V\n", "5: the quotes do not match before the end of the file"},
        {optionsOf, good + "P2,F," + std::string(1, '\0') + "\n", "5: the column variant contains a NUL"},
        {optionsOf, good + "P2,F," + std::string(4001, 'V') + "\n",
         "5: the column variant has 4001 characters; at most 4000"},
    };
    load(optionsOf, header + "P1,F,V\n");
    for (const Case& wrong : cases) {
        const std::string told = refusal(wrong.function, wrong.content);
        EXPECT_EQ(told.rfind("rows.csv:" + wrong.complaint, 0), 0U) << told << "\nfor: " << wrong.complaint;
    }
    EXPECT_EQ(options(), (Table{{"P1", "F", "V"}}));
    EXPECT_TRUE(packages().empty());
    EXPECT_TRUE(entries().empty());
    EXPECT_EQ(load(optionsOf, header + "P2,F," + std::string(4000, 'V')), 1U);
}

TEST_F(LoaderTest, RefusesFilesAndStoresThatCannotBeUsed)
{
    const auto refusalOf = [](const std::string& store, const std::string& file) {
        return failureOf([&] { qvlocal::loadProductOptions(store, file); });
    };
    harness::writeFile("rows.csv", "product,feature,variant\n");
    EXPECT_EQ(refusalOf(location, "none.csv"),
              "cannot read none.csv: No such file or directory; nothing was loaded");
    EXPECT_EQ(refusalOf(location, "."), "cannot read .: Is a directory; nothing was loaded");
    EXPECT_NE(refusalOf("sqlite:none.db", "rows.csv").find("none.db"), std::string::npos);
    EXPECT_NE(refusalOf("sqlite::memory:", "rows.csv").find("memory"), std::string::npos);
}

} // namespace
} // namespace servertest
