// SPDX-License-Identifier: Apache-2.0
//
// The queries for options and packages: one test for both, and a table of what differs.
#include <array>
#include <ostream>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

using List = VELListValVELUnicodeString;

struct ConfigurationQuery {
    std::string name;
    int (*run)(const VELUnicodeString&, List&, List&, List&);
    std::string className;
    std::vector<std::string> columns;
    /** The three lists that two rows give, and two rows that cannot be read. */
    const char* results;
    const char* blanks;
};

void PrintTo(const ConfigurationQuery& query, std::ostream* stream)
{
    *stream << query.name;
}

class ProductConfiguration : public LibraryTest, public ::testing::WithParamInterface<ConfigurationQuery> {
protected:
    /** The query; the lists hold something that must go. */
    int use(const std::string& productNumber)
    {
        lists_.fill(textList({"old", "older"}));
        return GetParam().run(productNumber.c_str(), lists_[0], lists_[1], lists_[2]);
    }
    Outcome query(const std::string& productNumber)
    {
        return record([&] { return use(productNumber); });
    }
    /** The strings of each list, as one text. */
    std::string results() const
    {
        std::string text;
        for (const List& list : lists_) {
            for (int position = 1; position <= list.Size(); ++position) {
                text += std::string(list[position].CastToCharPtr()) + ' ';
            }
            text += "| ";
        }
        return text;
    }
    static void makeTwoRows()
    {
        standin::script().records = {
            {{"product", "car"}, {"feature", "roof"}, {"variant", "glass"}, {"package_id", "P1"}},
            {{"product", "car"}, {"feature", "seat"}, {"variant", "wool"}, {"package_id", "P2"}}};
    }
    /** Lines with each column in place of "#". */
    static std::string eachColumn(const std::string& lines)
    {
        std::string text;
        for (const std::string& column : GetParam().columns) {
            text += lines;
            for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#')) {
                text.replace(at, 1, column);
            }
        }
        return text;
    }

    std::array<List, 3> lists_;
};

TEST_P(ProductConfiguration, TheRowsOfAProductAreAskedFor)
{
    storiesOf([this] { return use("Car-1"); })
        .tell(
            '\n' + GetParam().name + R"--(:
2 @-----Start------------------------------.
2 @\tProductNumber=Car-1.
- QV_Destroy_List(null) = 0
> QV_Create_List(list1, ")--" +
            GetParam().className + "\") = 0\n" +
            eachColumn("2 @ AppendSelect - #. > QV_Set_Clause(list1, \"Select\", \"#\") = 0\n") +
            R"--(2 @ AppendWhere - &=(product,'Car-1'). > QV_Set_Clause(list1, "Where", "&=(product,'Car-1')") = 0
)--" + eachColumn("> QV_Set_Clause(list1, \"OrderBy\", \"#\") = 0\n") +
            R"(> QV_Open_List(list1) = 0
> QV_SizeOf_List(list1, 0) = 0 as QV_SizeOf_List "nb_of_entries" "0"
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=List entries=0 LastRecNo=-1 QV_RC=0 SelectedAttribute=[)" +
            eachColumn(", #").substr(2) + "]\n");
}

TEST_P(ProductConfiguration, TheRowsComeBackInLists)
{
    connect(2);
    makeTwoRows();
    const std::string calls = query("Car-1").calls;
    EXPECT_EQ(results(), GetParam().results);
    EXPECT_EQ(calls.substr(calls.find("QV_Read_List")),
              "QV_Read_List(list1, 0, obj1) = 0\n" + eachColumn("QV_Get_Object_Attr(obj1, \"#\") = 0\n") +
                  "QV_Destroy_Object(obj1) = 0\nQV_Read_List(list1, 1, obj2) = 0\n" +
                  eachColumn("QV_Get_Object_Attr(obj2, \"#\") = 0\n"));
    EXPECT_EQ(LastRecNo, 1);
    EXPECT_EQ(entries, 2);
}

TEST_P(ProductConfiguration, WithoutAProductNumberEveryProductIsListed)
{
    connect(2);
    const Outcome outcome = query("");
    EXPECT_EQ(countLines(outcome.calls + outcome.output, "Where"), 0);
    EXPECT_EQ(countLines(outcome.calls, "QV_Set_Clause"), 2 * static_cast<int>(GetParam().columns.size()));
}

TEST_P(ProductConfiguration, TheProductMayStandInAListThatIsEmptied)
{
    connect();
    lists_[0] = textList({"Car-1"});
    const Outcome outcome =
        record([&] { return GetParam().run(lists_[0][1], lists_[0], lists_[1], lists_[2]); });
    EXPECT_EQ(countLines(outcome.calls, "&=(product,'Car-1')"), 1);
}

TEST_P(ProductConfiguration, TheListsAreEmptiedWhateverHappens)
{
    connect();
    EXPECT_EQ(query("none").result, 0);
    EXPECT_EQ(results(), "| | | ");
    makeTwoRows();
    standin::answer("QV_Open_List", -7, {{"Q1", "no table"}});
    EXPECT_EQ(query("none").result, 0);
    EXPECT_EQ(results(), "| | | ");
    // The size was counted, and its check still fails: nothing is read.
    standin::answer("QV_Open_List", 0);
    standin::answer("QV_SizeOf_List", -7);
    EXPECT_EQ(query("none").result, 0);
    EXPECT_EQ(results(), "| | | ");
    EXPECT_EQ(countLines(standin::transcript(), "QV_Read_List"), 0);
}

TEST_P(ProductConfiguration, ARowThatCannotBeReadGivesEmptyTexts)
{
    connect(-1);
    makeTwoRows();
    standin::answer("QV_Read_List", -7);
    EXPECT_EQ(query("Car-1").result, 2);
    EXPECT_EQ(entries, 2);
    EXPECT_EQ(results(), GetParam().blanks);
}

TEST_P(ProductConfiguration, ValuesOfTheLargestSizeComeBackWhole)
{
    connect();
    const std::string value(QV_MAX_VALUE_LENGTH, 'v');
    standin::script().records = {{{"product", value}}};
    EXPECT_EQ(query("O'Neil").result, 1);
    EXPECT_EQ(countLines(standin::transcript(), "&=(product,'O'Neil')"), 1);
    ASSERT_EQ(lists_[0].Size(), 1);
    EXPECT_EQ(lists_[0][1], value.c_str());
}

const ConfigurationQuery queries[] = {{"ProductOptionQuery",
                                       ProductOptionQuery,
                                       "ProductOption",
                                       {"product", "feature", "variant"},
                                       "car car | roof seat | glass wool | ",
                                       "  |   |   | "},
                                      {"ProductPackageQuery",
                                       ProductPackageQuery,
                                       "ProductOptionPkg",
                                       {"product", "package_id"},
                                       "car car | P1 P2 | | ",
                                       "  |   | | "}};

INSTANTIATE_TEST_SUITE_P(Operations, ProductConfiguration, ::testing::ValuesIn(queries),
                         [](const auto& tested) { return tested.param.name; });

} // namespace
