// SPDX-License-Identifier: Apache-2.0
//
// Lists: what clauses find, in which order, against a plain evaluation of the same conditions; and texts that
// are no clauses.
#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <regex>
#include <set>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

using Record = std::map<std::string, std::string>;

std::string trimmed(const std::string& text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/** What the server's LIKE finds in a text that blanks are added to. */
std::regex expressionOf(const std::string& pattern)
{
    const std::map<char, std::string> special = {{'%', ".*"}, {'_', "."}, {'(', "\\("}};
    std::string expression;
    for (const char sign : pattern) {
        const auto found = special.find(sign);
        expression += found == special.end() ? std::string(1, sign) : found->second;
    }
    return std::regex(expression + " *");
}

/** A condition as its text and as a plain function. */
struct Filter {
    std::string text;
    std::function<bool(const Record&)> holds;
    std::set<std::string> paths;
};

class ClausesTest : public ServerTest {
protected:
    std::mt19937 random{42}; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same values at each run

    std::string pick(const std::vector<std::string>& from) { return from[random() % from.size()]; }

    std::string word()
    {
        std::string text;
        for (auto length = random() % 4; length > 0; --length) {
            text += pick({"a", "A", "b", "'", "%", "_", " ", "\xC3", "10", "("});
        }
        return text;
    }

    static bool isNumberPath(const std::string& path)
    {
        return path == "insert_by" || path == "extract_by" || path == "ai_obj@design_seq_num";
    }
    static bool isNumber(const std::string& text)
    {
        const std::string bare = trimmed(text.substr(std::min(text.find_first_not_of(' '), text.size())));
        return !bare.empty() && bare.find_first_not_of("0123456789") == std::string::npos;
    }

    const std::vector<std::string> textPaths = {"name", "description", "site@note", "ai_obj@item_status",
                                                "ai_obj@ec@desc"};
    const std::vector<std::string> numberPaths = {"insert_by", "extract_by", "ai_obj@design_seq_num"};

    /** A comparison by `op` of two values as numbers or as texts. */
    static bool compare(const std::string& left, const std::string& op, const std::string& right,
                        bool numbers)
    {
        if (numbers && (!isNumber(left) || !isNumber(right))) {
            return false;
        }
        const int order =
            numbers ? (std::stoll(left) < std::stoll(right) ? -1 : std::stoll(left) > std::stoll(right))
                    : trimmed(left).compare(trimmed(right));
        return (op.find('<') != std::string::npos && order < 0) ||
               (op.find('>') != std::string::npos && order > 0) ||
               (op.find('=') != std::string::npos && order == 0);
    }

    Filter comparison()
    {
        const std::string op = pick({"=", "<", "<=", ">", ">="});
        const std::string path = pick(random() % 3 == 0 ? numberPaths : textPaths);
        switch (random() % 4) {
        case 0: {
            const std::string other = pick(isNumberPath(path) ? numberPaths : textPaths);
            return {"&" + op + "(" + path + "," + other + ")",
                    [=](const Record& record) {
                        return compare(record.at(path), op, record.at(other), isNumberPath(path));
                    },
                    {path, other}};
        }
        case 1: {
            const std::string number = std::to_string(random() % 120);
            return {"&" + op + "( " + path + ", " + number + " )",
                    [=](const Record& record) { return compare(record.at(path), op, number, true); },
                    {path}};
        }
        case 2: {
            const std::string pattern = word() + pick({"", "%", " %", "_"});
            const std::regex expression = expressionOf(pattern);
            const std::string blanks(pattern.size(), ' ');
            return {"&LIKE(" + path + ", '" + pattern + "')",
                    [=](const Record& record) {
                        return std::regex_match(trimmed(record.at(path)) + blanks, expression);
                    },
                    {path}};
        }
        default: {
            const std::string value = isNumberPath(path) ? std::to_string(random() % 120) : word();
            return {
                "&" + op + "(" + path + ",'" + value + "')",
                [=](const Record& record) { return compare(record.at(path), op, value, isNumberPath(path)); },
                {path}};
        }
        }
    }

    Filter filter(int depth)
    {
        if (depth == 0 || random() % 3 == 0) {
            return comparison();
        }
        const Filter left = filter(depth - 1);
        const Filter right = filter(depth - 1);
        const bool any = random() % 2 == 0;
        Filter both = {(any ? "&OR(" : "&AND(") + left.text + ", " + right.text + ")",
                       [=](const Record& record) {
                           return any ? left.holds(record) || right.holds(record)
                                      : left.holds(record) && right.holds(record);
                       },
                       left.paths};
        both.paths.insert(right.paths.begin(), right.paths.end());
        return both;
    }

    /** Stores changes, items and affected items with random values, and keeps them as plain records. */
    void fill()
    {
        std::vector<std::string> changes; // their texts
        for (int i = 0; i < 3; ++i) {
            changes.push_back(word());
            create("EngineeringChange", {{"id", "EC" + std::to_string(i)}, {"desc", changes.back()}});
        }
        for (int i = 0; i < 40; ++i) {
            Record item = {{"logical_key@item_number", "I" + std::to_string(i)},
                           {"name", word()},
                           {"description", pick({"", " ", "7", "07", "110", word()})},
                           {"site@note", word()},
                           {"extract_by", pick({"2147483647", "50", "9", "?"})}};
            item["insert_by"] = create("ItemEngineeringData", Pairs(item.begin(), item.end()));
            ASSERT_NE(item["insert_by"], "") << message();
            items.push_back(item);
            for (auto change = random() % 3; change > 0; --change) {
                const std::string status = pick({"A", "B ", "b", word()});
                item["ai_obj@design_seq_num"] =
                    create("AffectedItem", {{"ec@id", "EC" + std::to_string(change)},
                                            {"item_number", "I" + std::to_string(i)},
                                            {"item_status", status}});
                ASSERT_NE(item["ai_obj@design_seq_num"], "") << message();
                item["ai_obj@item_status"] = trimmed(status).empty() ? "WORKING" : status; // of the server
                item["ai_obj@ec@desc"] = changes[change];
                affected.push_back(item);
            }
        }
    }

    std::vector<Record> items;    // in the order of their ids
    std::vector<Record> affected; // the items once for each affected item
};

TEST_F(ClausesTest, RandomFiltersFindWhatAPlainEvaluationFinds)
{
    fill();
    std::size_t found = 0;
    for (int round = 0; round < 2000; ++round) {
        std::vector<Filter> filters;
        std::set<std::string> paths = {"logical_key@item_number"};
        Clauses clauses;
        for (auto count = random() % 3; count > 0; --count) {
            filters.push_back(filter(2));
            paths.insert(filters.back().paths.begin(), filters.back().paths.end());
            clauses.emplace_back("Where", filters.back().text);
        }
        const std::string order =
            pick({"name", "description", "extract_by", "site@note", "ai_obj@item_status"});
        paths.insert(order);
        clauses.emplace_back("OrderBy", order);
        clauses.emplace_back("Select", "insert_by");
        clauses.emplace_back("Select", order);

        const bool related = std::any_of(
            paths.begin(), paths.end(), [](const std::string& path) { return path.rfind("ai_obj", 0) == 0; });
        std::vector<Record> expected;
        std::copy_if(related ? affected.begin() : items.begin(), related ? affected.end() : items.end(),
                     std::back_inserter(expected), [&](const Record& record) {
                         return std::all_of(filters.begin(), filters.end(),
                                            [&](const Filter& filter) { return filter.holds(record); });
                     });
        const auto key = [&](const Record& record) {
            const std::string& value = record.at(order);
            return std::pair(isNumberPath(order) && isNumber(value) ? std::stoll(value) : -1, trimmed(value));
        };
        std::stable_sort(expected.begin(), expected.end(),
                         [&](const Record& left, const Record& right) { return key(left) < key(right); });
        Table table;
        for (const Record& record : expected) {
            table.push_back({record.at("insert_by"), record.at(order)});
        }
        ASSERT_EQ(query("ItemEngineeringData", clauses), table) << testing::PrintToString(clauses);
        found += table.size();
    }
    EXPECT_GT(found, 2000U) << "filters that find nothing prove nothing";
}

TEST_F(ClausesTest, TextsAreBlankPaddedAndQuotesBelongToThem)
{
    for (const auto& [number, type, name] :
         {std::tuple("A", "P", "O'BRIEN"), std::tuple("B", "PX", "('), ')")}) {
        create("ItemEngineeringData",
               {{"logical_key@item_number", number}, {"item_type", type}, {"name", name}});
    }
    for (const auto& [clause, numbers] :
         Pairs{{"&=(logical_key@loc_id,' ')", "AB"},
               {"&LIKE(item_type, 'P %')", "A"},
               {"&LIKE(item_type, 'P%')", "AB"},
               {"&LIKE(master_item@control,'1%')", "AB"},
               {"&=(never@set,'')", "AB"},
               {"&=(name, 'O'BRIEN')", "A"},
               {"&=(never@set, 0)", ""},
               {"&OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num))", ""}}) {
        std::string found;
        for (const auto& row :
             query("ItemEngineeringData", {{"Select", "logical_key@item_number"}, {"Where", clause}})) {
            found += row.at(0);
        }
        EXPECT_EQ(found, numbers) << clause;
    }
}

/** A list of items that is opened whatever clauses were refused before. */
class RefusedClausesTest : public ServerTest {
protected:
    void SetUp() override
    {
        ServerTest::SetUp();
        ASSERT_EQ(QV_Create_List(&list, "ItemEngineeringData"), 0) << message();
    }
    int clause(const std::string& kind, const std::string& text)
    {
        return QV_Set_Clause(list, kind.c_str(), text.c_str());
    }

    QV_ListHandle list = nullptr;
};

TEST_F(RefusedClausesTest, ThePlaceThatDoesNotParseIsTold)
{
    for (const auto& [text, place] :
         std::vector<std::pair<std::string, int>>{{"", 1},
                                                  {" ", 2},
                                                  {"name='x'", 1},
                                                  {"&=(name,'x'", 12},
                                                  {"&=(name,'x)", 12},
                                                  {"&=(name 'x')", 9},
                                                  {"&=('x',name)", 4},
                                                  {"&=(name,'x')) ", 13},
                                                  {"&=(name,1x)", 9},
                                                  {"&LIKE(name,5)", 13},
                                                  {"&LIKE(name,name)", 16},
                                                  {"&NOT(name,'x')", 2},
                                                  {"&OR(&=(name,'x'))", 17},
                                                  {"&=(@name,'x')", 4},
                                                  {"&=(a@,'x')", 4},
                                                  {"&=(name,)", 9},
                                                  {"&=(name,'x','y')", 12},
                                                  {"&=(name,'x'),&=(name,'y')", 13},
                                                  {"& =(name,'x')", 2}}) {
        EXPECT_TRUE(refused(clause("Where", text), -113, "character " + std::to_string(place) + " ")) << text;
    }
    for (const std::string path : {"", "a b", "a@", "1a", "a;b"}) {
        EXPECT_EQ(clause("Select", path), -113) << path;
        EXPECT_EQ(clause("OrderBy", path), -113) << path;
    }
    EXPECT_EQ(QV_Open_List(list), 0) << "what was refused is not part of the list: " << message();
}

TEST_F(RefusedClausesTest, TextsPutTogetherAtRandomAreAnswered)
{
    std::vector<std::string> pieces = {"&",  "=",       "LIKE", "OR", "AND", "<=",   "(",     ")", ",",
                                       "'",  "@",       "1",    "-",  "9.5", "name", "%",     "_", "ec",
                                       "')", "&OR(&=(", "&=(",  "id", ";--", "\"x",  "ai_obj"};
    for (int byte = 1; byte < 256; ++byte) {
        pieces.emplace_back(1, static_cast<char>(byte));
    }
    std::mt19937 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same values at each run
    int accepted = 0;
    for (int round = 0; round < 10000; ++round) {
        std::string text;
        for (auto count = random() % 12; count > 0; --count) {
            text += pieces[random() % (round % 2 == 0 ? 25 : pieces.size())];
        }
        for (const char* const kind : {"Select", "Where", "OrderBy"}) {
            const int code = clause(kind, text);
            ASSERT_TRUE(code == 0 || refused(code, -113, "")) << kind << ' ' << text;
            accepted += code == 0 ? 1 : 0;
        }
        ASSERT_EQ(QV_Open_List(list), 0) << text << ": " << message();
        ASSERT_EQ(QV_Destroy_List(&list), 0);
        ASSERT_EQ(QV_Create_List(&list, "ItemEngineeringData"), 0);
        const int code = Object("EngineeringChange").set(text, text);
        ASSERT_TRUE(code == 0 || code == -112) << text;
    }
    EXPECT_GT(accepted, 100) << "some of the texts must be good for the others to be worth anything";
}

TEST_F(RefusedClausesTest, WhatIsTooMuchIsRefused)
{
    std::string nested = "&=(name,'x')";
    for (int depth = 0; depth < 10; ++depth) {
        nested.insert(0, "&OR(&LIKE(name,'y%'),&AND(&LIKE(description,'y'), ").append("))");
    }
    EXPECT_EQ(clause("Where", nested), 0) << message();
    EXPECT_EQ(QV_Open_List(list), 0) << message();
    for (int depth = 0; depth < 100000; ++depth) {
        nested.insert(0, "&OR(");
    }
    EXPECT_EQ(clause("Where", nested), -113);
    EXPECT_EQ(clause("Select", std::string(256, 'x')), -113);
    for (int column = 0; column < 3000; ++column) {
        ASSERT_EQ(clause("Select", "a" + std::to_string(column)), 0);
    }
    EXPECT_LT(QV_Open_List(list), 0) << "more than the database can do is an error like any other";
    EXPECT_NE(message(), "");
}

} // namespace
} // namespace servertest
