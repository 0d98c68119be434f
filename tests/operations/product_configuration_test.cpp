// SPDX-License-Identifier: Apache-2.0
//
// The queries for options and packages: one test for both, and a table of what differs.
#include <array>
#include <ostream>

#include "tests/harness/library_test.h"

using harness::Outcome;
using harness::textList;

namespace {

struct ConfigurationQuery {
    const char* name;
    int (*run)(const VELUnicodeString&, VELListValVELUnicodeString&, VELListValVELUnicodeString&,
               VELListValVELUnicodeString&);
    const char* className;
    std::vector<std::string> columns;
};

void PrintTo(const ConfigurationQuery& query, std::ostream* stream)
{
    *stream << query.name;
}

class ProductConfiguration : public harness::LibraryTest,
                             public ::testing::WithParamInterface<ConfigurationQuery> {
protected:
    /** The query's outcome; the lists hold something that must go. */
    Outcome query(const char* productNumber)
    {
        for (VELListValVELUnicodeString& list : lists_) {
            list = textList({"old", "older"});
        }
        return record([&] { return GetParam().run(productNumber, lists_[0], lists_[1], lists_[2]); });
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

    std::array<VELListValVELUnicodeString, 3> lists_;

    static const std::vector<standin::Record>& twoRows();
    static std::string expectedCalls(const std::string& where);
    static std::string expectedTrace(const std::string& productNumber, const std::string& where);
};

const std::vector<standin::Record>& ProductConfiguration::twoRows()
{
    static const std::vector<standin::Record> rows{
        {{"product", "car"}, {"feature", "roof"}, {"variant", "glass"}, {"package_id", "P1"}},
        {{"product", "car"}, {"feature", "seat"}, {"variant", "wool"}, {"package_id", "P2"}}};
    return rows;
}

std::string ProductConfiguration::expectedCalls(const std::string& where)
{
    std::string text = std::string("QV_Destroy_List(null) = 0\nQV_Create_List(list1, \"") +
                       GetParam().className + "\") = 0\n";
    for (const std::string& column : GetParam().columns) {
        text += "QV_Set_Clause(list1, \"Select\", \"" + column + "\") = 0\n";
    }
    text += where.empty() ? "" : "QV_Set_Clause(list1, \"Where\", \"" + where + "\") = 0\n";
    for (const std::string& column : GetParam().columns) {
        text += "QV_Set_Clause(list1, \"OrderBy\", \"" + column + "\") = 0\n";
    }
    text += "QV_Open_List(list1) = 0\nQV_SizeOf_List(list1, 2) = 0\n";
    for (const std::string& record : {std::string("0"), std::string("1")}) {
        text += record == "1" ? "QV_Destroy_Object(obj1) = 0\n" : "";
        const std::string object = record == "0" ? "obj1" : "obj2";
        text += "QV_Read_List(list1, " + record + ", " + object + ") = 0\n";
        for (const std::string& column : GetParam().columns) {
            text += "QV_Get_Object_Attr(" + object + ", \"" + column + "\") = 0\n";
        }
    }
    return text;
}

/** What the operation itself writes; GetValue adds its own at levels 5 and 9. */
std::string ProductConfiguration::expectedTrace(const std::string& productNumber, const std::string& where)
{
    const std::string name = GetParam().name;
    std::string text = name + "-----Start------------------------------.\n" + name +
                       "\tProductNumber=" + productNumber + ".\n";
    for (const std::string& column : GetParam().columns) {
        text += name + " AppendSelect - " + column + ".\n";
    }
    text += where.empty() ? "" : name + " AppendWhere - " + where + ".\n";
    return text + name + "-----Exit------Nb of entries=2------------.\n";
}

TEST_P(ProductConfiguration, TheRowsOfAProductComeBackInLists)
{
    for (const int level : {1, 2}) {
        restart();
        connect(level);
        standin::setRecords(twoRows());
        const Outcome outcome = query("Car-1");
        EXPECT_EQ(outcome.result, 2);
        EXPECT_EQ(entries, 2);
        EXPECT_STREQ(FromList, "List");
        EXPECT_EQ(LastRecNo, 1);
        EXPECT_EQ(results(), GetParam().columns.size() == 3 ? "car car | roof seat | glass wool | "
                                                            : "car car | P1 P2 | | ");
        ASSERT_EQ(NbSelectedAttribute, static_cast<int>(GetParam().columns.size()));
        for (std::size_t slot = 0; slot < GetParam().columns.size(); ++slot) {
            EXPECT_EQ(SelectedAttribute[slot], GetParam().columns[slot]);
        }
        EXPECT_EQ(outcome.calls, expectedCalls("&=(product,'Car-1')"));
        EXPECT_EQ(outcome.output, level < 2 ? "" : expectedTrace("Car-1", "&=(product,'Car-1')"));
    }
}

TEST_P(ProductConfiguration, EachCallIsTracedAndLogged)
{
    connect(5);
    query("Car-1");
    restart();
    connect(5);
    const Outcome outcome = query("Car-1");
    EXPECT_EQ(outcome.result, 0);
    std::string log;
    const auto expectCall = [&](const std::string& call, const std::string& detail,
                                const std::string& second = "") {
        EXPECT_EQ(harness::countLines(outcome.output, std::string(GetParam().name) + ' ' + call + ' ' +
                                                          detail + ' ' + second + ": QV_RC=0."),
                  1);
        log += std::string(GetParam().name) + "- rc(" + call + (detail.empty() ? "" : "::" + detail) +
               (second.empty() ? "" : "=" + second) + ") = 0\n";
    };
    expectCall("QV_Create_List", GetParam().className);
    for (const std::string& column : GetParam().columns) {
        expectCall("AppendSelect- QV_Set_Clause-Select", column);
    }
    expectCall("AppendWhere- QV_Set_Clause-Where", "&=(product,'Car-1')");
    for (const std::string& column : GetParam().columns) {
        expectCall("QV_Set_Clause-OrderBy", column);
    }
    expectCall("QV_Open_List", "");
    expectCall("QV_SizeOf_List", "nb_of_entries", "0");
    EXPECT_EQ(outcome.accessLog, log);
}

TEST_P(ProductConfiguration, WithoutAProductNumberEveryProductIsListed)
{
    for (const char* const none : {"", static_cast<const char*>(nullptr)}) {
        restart();
        connect(2);
        standin::setRecords(twoRows());
        const Outcome outcome = query(none);
        EXPECT_EQ(outcome.result, 2);
        EXPECT_EQ(outcome.calls, expectedCalls(""));
        EXPECT_EQ(outcome.output, expectedTrace("", ""));
    }
}

TEST_P(ProductConfiguration, TheListsAreEmptiedWhateverHappens)
{
    connect();
    EXPECT_EQ(query("none").result, 0);
    EXPECT_EQ(results(), "| | | ");
    EXPECT_EQ(harness::countLines(standin::transcript(), "QV_Read_List"), 0);
    standin::setRecords(twoRows());
    standin::answer("QV_Open_List", -7, {{"Q1", "no table"}});
    const Outcome failed = query("none");
    EXPECT_EQ(failed.result, 0);
    EXPECT_EQ(results(), "| | | ");
    EXPECT_EQ(failed.output, "****** no table .\n");
    // The size was counted, and its check still fails: nothing is read.
    standin::answer("QV_Open_List", 0);
    standin::answer("QV_SizeOf_List", -7);
    EXPECT_EQ(query("none").result, 0);
    EXPECT_EQ(results(), "| | | ");
    EXPECT_EQ(harness::countLines(standin::transcript(), "QV_Read_List"), 0);
}

TEST_P(ProductConfiguration, ARowThatCannotBeReadGivesEmptyTexts)
{
    connect(-1);
    standin::setRecords(twoRows());
    standin::answer("QV_Read_List", -7);
    const Outcome outcome = query("Car-1");
    EXPECT_EQ(outcome.result, 2);
    EXPECT_EQ(entries, 2);
    EXPECT_EQ(results(), GetParam().columns.size() == 3 ? "  |   |   | " : "  |   | | ");
}

TEST_P(ProductConfiguration, AProductNumberThatDoesNotFitTheClauseIsRefused)
{
    connect();
    const std::string longest(65, 'P');
    standin::setRecords(twoRows());
    EXPECT_EQ(query(longest.c_str()).result, 2);
    EXPECT_EQ(harness::countLines(standin::transcript(), "&=(product,'" + longest + "')"), 1);
    const Outcome refused = query((longest + 'P').c_str());
    EXPECT_EQ(refused.result, 0);
    EXPECT_EQ(QV_RC, -1);
    EXPECT_EQ(results(), "| | | ");
    EXPECT_EQ(harness::countLines(refused.calls, "Where"), 0);
    EXPECT_EQ(harness::countLines(refused.calls, "QV_Open_List"), 0);
    for (const std::string& told : {refused.output, refused.accessLog, refused.errorLog, lastError()}) {
        EXPECT_EQ(harness::countLines(told, "productNumber has 66 characters; at most 65"), 1);
    }
}

TEST_P(ProductConfiguration, ValuesOfTheLargestSizeComeBackWhole)
{
    connect();
    const std::string value(QV_MAX_VALUE_LENGTH, 'v');
    standin::setRecords({{{"product", value}, {"feature", "'"}, {"package_id", "'"}}});
    EXPECT_EQ(query("O'Neil").result, 1);
    EXPECT_EQ(harness::countLines(standin::transcript(), "&=(product,'O'Neil')"), 1);
    ASSERT_EQ(lists_[0].Size(), 1);
    EXPECT_EQ(std::string(lists_[0][1].CastToCharPtr()), value);
    EXPECT_EQ(lists_[1][1], "'");
}

INSTANTIATE_TEST_SUITE_P(Operations, ProductConfiguration,
                         ::testing::Values(ConfigurationQuery{"ProductOptionQuery",
                                                              ProductOptionQuery,
                                                              "ProductOption",
                                                              {"product", "feature", "variant"}},
                                           ConfigurationQuery{"ProductPackageQuery",
                                                              ProductPackageQuery,
                                                              "ProductOptionPkg",
                                                              {"product", "package_id"}}),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
