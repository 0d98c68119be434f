// SPDX-License-Identifier: Apache-2.0
//
// The queries for options and packages: one test for both, and a table of what differs.
#include <array>
#include <ostream>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

struct ConfigurationQuery {
    const char* name;
    int (*run)(const VELUnicodeString&, VELListValVELUnicodeString&, VELListValVELUnicodeString&,
               VELListValVELUnicodeString&);
    const char* className;
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
    /** The query's outcome; the lists hold something that must go. */
    Outcome query(const std::string& productNumber)
    {
        for (VELListValVELUnicodeString& list : lists_) {
            list = textList({"old", "older"});
        }
        return record([&] { return GetParam().run(productNumber.c_str(), lists_[0], lists_[1], lists_[2]); });
    }
    /** The strings of each list, as one text. */
    std::string results() const
    {
        std::string text;
        for (const VELListValVELUnicodeString& list : lists_) {
            for (int position = 1; position <= list.Size(); ++position) {
                text += std::string(list[position].CastToCharPtr()) + ' ';
            }
            text += "| ";
        }
        return text;
    }
    static void makeTwoRows()
    {
        standin::setRecords(
            {{{"product", "car"}, {"feature", "roof"}, {"variant", "glass"}, {"package_id", "P1"}},
             {{"product", "car"}, {"feature", "seat"}, {"variant", "wool"}, {"package_id", "P2"}}});
    }
    /** What is told of an empty list; `where` holds the lines of the clause. */
    static std::string storyOf(const std::string& productNumber, const std::string& where);

    std::array<VELListValVELUnicodeString, 3> lists_;
};

std::string ProductConfiguration::storyOf(const std::string& productNumber, const std::string& where)
{
    std::string selects;
    std::string sorts;
    std::string names;
    for (const std::string& column : GetParam().columns) {
        selects += "2 @ AppendSelect - " + column + ".\n> QV_Set_Clause(list1, \"Select\", \"" + column +
                   "\") = 0\n";
        sorts += "> QV_Set_Clause(list1, \"OrderBy\", \"" + column + "\") = 0\n";
        names += (names.empty() ? "" : ", ") + column;
    }
    return story('\n' + std::string(GetParam().name) + R"(:
2 @-----Start------------------------------.
2 @\tProductNumber=)" +
                 productNumber + R"(.
- QV_Destroy_List(null) = 0
> QV_Create_List(list1, ")" +
                 GetParam().className + "\") = 0\n" + selects + where + sorts + R"(> QV_Open_List(list1) = 0
> QV_SizeOf_List(list1, 0) = 0 as QV_SizeOf_List "nb_of_entries" "0"
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=List entries=0 LastRecNo=-1 QV_RC=0 SelectedAttribute=[)" +
                 names + "]\n");
}

TEST_P(ProductConfiguration, TheRowsOfAProductAreAskedFor)
{
    atEachLevel([this] {
        EXPECT_EQ(query("Car-1").story, storyOf("Car-1", R"--(2 @ AppendWhere - &=(product,'Car-1').
> QV_Set_Clause(list1, "Where", "&=(product,'Car-1')") = 0
)--"));
    });
}

TEST_P(ProductConfiguration, WithoutAProductNumberEveryProductIsListed)
{
    connect(2);
    EXPECT_EQ(query("").story, storyOf("", ""));
}

TEST_P(ProductConfiguration, TheProductMayStandInAListThatIsEmptied)
{
    connect();
    lists_[0] = textList({"Car-1"});
    const Outcome outcome =
        record([&] { return GetParam().run(lists_[0][1], lists_[0], lists_[1], lists_[2]); });
    EXPECT_EQ(countLines(outcome.calls, "&=(product,'Car-1')"), 1);
}

TEST_P(ProductConfiguration, TheRowsComeBackInLists)
{
    connect(2);
    makeTwoRows();
    const Outcome outcome = query("Car-1");
    EXPECT_EQ(results(), GetParam().results);
    std::string reads;
    for (const std::string& record : {std::string("0, obj1"), std::string("1, obj2")}) {
        reads += record == "0, obj1" ? "" : "QV_Destroy_Object(obj1) = 0\n";
        reads += "QV_Read_List(list1, " + record + ") = 0\n";
        for (const std::string& column : GetParam().columns) {
            reads += "QV_Get_Object_Attr(" + record.substr(3) + ", \"" + column + "\") = 0\n";
        }
    }
    EXPECT_EQ(outcome.calls.substr(outcome.calls.find("QV_Read_List")), reads);
    EXPECT_EQ(LastRecNo, 1);
    EXPECT_EQ(entries, 2);
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
    standin::setRecords({{{"product", value}, {"feature", "'"}, {"package_id", "'"}}});
    EXPECT_EQ(query("O'Neil").result, 1);
    EXPECT_EQ(countLines(standin::transcript(), "&=(product,'O'Neil')"), 1);
    ASSERT_EQ(lists_[0].Size(), 1);
    EXPECT_EQ(std::string(lists_[0][1].CastToCharPtr()), value);
    EXPECT_EQ(lists_[1][1], "'");
}

INSTANTIATE_TEST_SUITE_P(Operations, ProductConfiguration,
                         ::testing::Values(ConfigurationQuery{"ProductOptionQuery",
                                                              ProductOptionQuery,
                                                              "ProductOption",
                                                              {"product", "feature", "variant"},
                                                              "car car | roof seat | glass wool | ",
                                                              "  |   |   | "},
                                           ConfigurationQuery{"ProductPackageQuery",
                                                              ProductPackageQuery,
                                                              "ProductOptionPkg",
                                                              {"product", "package_id"},
                                                              "car car | P1 P2 | | ",
                                                              "  |   | | "}),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
