// SPDX-License-Identifier: Apache-2.0
//
// Lists: what clauses find, in which order, against a plain evaluation of the same conditions.
#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <set>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

using Record = std::map<std::string, std::string>;

std::string trimmed(const std::string& text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/** As the server's LIKE, by trying everything. */
bool matches(const std::string& value, std::size_t at, const std::string& pattern, std::size_t next)
{
    if (next == pattern.size()) {
        return at == value.size() || value.find_first_not_of(' ', at) == std::string::npos;
    }
    if (pattern[next] == '%') {
        return matches(value, at, pattern, next + 1) ||
               (at < value.size() && matches(value, at + 1, pattern, next));
    }
    return at < value.size() && (pattern[next] == '_' || pattern[next] == value[at]) &&
           matches(value, at + 1, pattern, next + 1);
}

bool like(const std::string& value, const std::string& pattern)
{
    for (std::size_t blanks = 0; blanks <= pattern.size(); ++blanks) {
        if (matches(trimmed(value) + std::string(blanks, ' '), 0, pattern, 0)) {
            return true;
        }
    }
    return false;
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
            return {"&LIKE(" + path + ", '" + pattern + "')",
                    [=](const Record& record) { return like(record.at(path), pattern); },
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

    /** Stores changes, items and affected items with random values and keeps them as plain records, in order
     * of id. */
    void fill()
    {
        for (int i = 0; i < 3; ++i) {
            const std::string id = "EC" + std::to_string(i);
            changes_[id] = word();
            ASSERT_NE(create("EngineeringChange", {{"id", id}, {"desc", changes_[id]}}), "") << message();
        }
        for (int i = 0; i < 40; ++i) {
            Record item = {{"logical_key@item_number", "I" + std::to_string(i)},
                           {"name", word()},
                           {"description", pick({"", " ", "7", "07", "110", word()})},
                           {"site@note", word()},
                           {"extract_by", pick({"2147483647", "50", "9", "?"})}};
            const Pairs attributes(item.begin(), item.end());
            item["insert_by"] = create("ItemEngineeringData", attributes);
            ASSERT_NE(item["insert_by"], "") << message();
            items_.push_back(item);
            for (auto count = random() % 3; count > 0; --count) {
                Record affected = {{"ec@id", "EC" + std::to_string(count)},
                                   {"item_number", item["logical_key@item_number"]},
                                   {"item_status", pick({"A", "B ", "b", word()})}};
                const Pairs pairs(affected.begin(), affected.end());
                affected["design_seq_num"] = create("AffectedItem", pairs);
                ASSERT_NE(affected["design_seq_num"], "") << message();
                if (trimmed(affected["item_status"]).empty()) {
                    affected["item_status"] = "WORKING"; // filled in by the server
                }
                affected_.push_back(affected);
            }
        }
    }

    /** The items, or a record for each affected item of each item. */
    std::vector<Record> records(bool related) const
    {
        std::vector<Record> all;
        for (const Record& item : items_) {
            if (!related) {
                all.push_back(item);
            }
            for (const Record& affected : affected_) {
                if (related && affected.at("item_number") == item.at("logical_key@item_number")) {
                    all.push_back(item);
                    all.back()["ai_obj@item_status"] = affected.at("item_status");
                    all.back()["ai_obj@design_seq_num"] = affected.at("design_seq_num");
                    all.back()["ai_obj@ec@desc"] = changes_.at(affected.at("ec@id"));
                }
            }
        }
        return all;
    }

    std::map<std::string, std::string> changes_;
    std::vector<Record> items_;
    std::vector<Record> affected_;
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
        std::vector<Record> expected = records(related);
        expected.erase(std::remove_if(expected.begin(), expected.end(),
                                      [&](const Record& record) {
                                          return !std::all_of(
                                              filters.begin(), filters.end(),
                                              [&](const Filter& filter) { return filter.holds(record); });
                                      }),
                       expected.end());
        std::stable_sort(expected.begin(), expected.end(), [&](const Record& left, const Record& right) {
            const auto number = [&](const Record& record) {
                return isNumberPath(order) && isNumber(record.at(order)) ? std::stoll(record.at(order)) : -1;
            };
            return std::make_pair(number(left), trimmed(left.at(order))) <
                   std::make_pair(number(right), trimmed(right.at(order)));
        });
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
    create("ItemEngineeringData",
           {{"logical_key@item_number", "A"}, {"item_type", "P"}, {"name", "O'BRIEN"}});
    create("ItemEngineeringData",
           {{"logical_key@item_number", "B"}, {"item_type", "PX"}, {"name", "('), ')"}});
    const auto found = [](const std::string& clause) {
        std::string items;
        for (const auto& row :
             query("ItemEngineeringData", {{"Select", "logical_key@item_number"}, {"Where", clause}})) {
            items += row.at(0);
        }
        return items;
    };
    EXPECT_EQ(found("&=(logical_key@loc_id,' ')"), "AB");
    EXPECT_EQ(found("&LIKE(item_type, 'P %')"), "A");
    EXPECT_EQ(found("&LIKE(item_type, 'P%')"), "AB");
    EXPECT_EQ(found("&LIKE(master_item@control,'1%')"), "AB");
    EXPECT_EQ(found("&=(never@set,'')"), "AB");
    EXPECT_EQ(found("&=(name, 'O'BRIEN')"), "A");
    EXPECT_EQ(found("&=(never@set, 0)"), "") << "no number is not 0";
    EXPECT_EQ(found("&OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num))"), "")
        << "neither item is affected by a change";
}

TEST_F(ClausesTest, WhatDoesNotParseIsRefusedWithItsPlace)
{
    QV_ListHandle list = nullptr;
    ASSERT_EQ(QV_Create_List(&list, "ItemEngineeringData"), 0);
    for (const std::string clause :
         {"", " ", "name='x'", "&=(name,'x'", "&=(name,'x)", "&=(name 'x')", "&=('x',name)", "&=(name,'x')) ",
          "&=(name,1x)", "&LIKE(name,5)", "&LIKE(name,name)", "&NOT(name,'x')", "&OR(&=(name,'x'))",
          "&=(@name,'x')", "&=(a@,'x')", "&=(name,)", "&=(name,'x','y')", "&=(name,'x'),&=(name,'y')",
          "& =(name,'x')"}) {
        EXPECT_EQ(QV_Set_Clause(list, "Where", clause.c_str()), -113) << clause;
        EXPECT_NE(message().find("character "), std::string::npos) << message();
    }
    for (const std::string path : {"", "a b", "a@", "1a", "a;b"}) {
        EXPECT_EQ(QV_Set_Clause(list, "Select", path.c_str()), -113) << path;
        EXPECT_EQ(QV_Set_Clause(list, "OrderBy", path.c_str()), -113) << path;
    }
    EXPECT_EQ(QV_Open_List(list), 0) << "what was refused is not part of the list: " << message();
    EXPECT_EQ(QV_Destroy_List(&list), 0);
}

} // namespace
} // namespace servertest
