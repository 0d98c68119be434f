// SPDX-License-Identifier: Apache-2.0
//
// The explosion report, and the refusal of structures that contain themselves.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <sstream>

#include <sqlite3.h>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

constexpr int badArgument = -110;
constexpr int badHandle = -111;
constexpr int badPath = -112;
constexpr int notLoaded = -115;
constexpr int notLoggedOn = -121;
constexpr int notFound = -210;
constexpr int cycle = -233;

/** A report handle of its own. */
class Report {
public:
    Report() { EXPECT_EQ(QV_Create_Report(&handle_, "IndentedRetrievalStrmElm", "ExplosionRetrieval"), 0); }
    ~Report() { QV_Destroy_Report(&handle_); }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    int set(const std::string& name, const std::string& value)
    {
        return QV_Set_Report_Attr(handle_, name.c_str(), value.c_str());
    }
    int subscribe(const std::string& path) { return QV_Subscribe_Report_Attr(handle_, path.c_str()); }
    int generate(QV_ListHandle& list) { return QV_Generate_Report(handle_, &list); }
    QV_ReportHandle& handle() { return handle_; }

private:
    QV_ReportHandle handle_ = nullptr;
};

/** The columns of the rows of a list. */
Table rowsOf(QV_ListHandle list, const std::vector<std::string>& columns)
{
    int size = 0;
    EXPECT_EQ(QV_SizeOf_List(list, &size), 0) << message();
    Table rows;
    for (int row = 0; row < size; ++row) {
        QV_ObjectHandle record = nullptr;
        EXPECT_EQ(QV_Read_List(list, row, &record), 0) << message();
        rows.emplace_back();
        for (const std::string& column : columns) {
            const char* value = nullptr;
            EXPECT_EQ(QV_Get_Object_Attr(record, column.c_str(), &value), 0) << message();
            rows.back().emplace_back(value == nullptr ? "" : value);
        }
        EXPECT_EQ(QV_Destroy_Object(&record), 0);
    }
    return rows;
}

/** The rows of an explosion; a failure makes the test fail. */
Table explode(const Pairs& parameters, const std::vector<std::string>& columns)
{
    Report report;
    for (const auto& [name, value] : parameters) {
        EXPECT_EQ(report.set(name, value), 0) << message();
    }
    for (const std::string& column : columns) {
        EXPECT_EQ(report.subscribe(column), 0) << message();
    }
    QV_ListHandle list = nullptr;
    EXPECT_EQ(report.generate(list), 0) << message();
    Table rows = rowsOf(list, columns);
    EXPECT_EQ(QV_Destroy_List(&list), 0);
    return rows;
}

/** The code of an explosion. */
int codeOf(const Pairs& parameters)
{
    Report report;
    for (const auto& [name, value] : parameters) {
        EXPECT_EQ(report.set(name, value), 0) << message();
    }
    QV_ListHandle list = nullptr;
    const int code = report.generate(list);
    EXPECT_EQ(list == nullptr, code != 0);
    return code;
}

struct Line {
    std::string parent;
    std::string child;
    std::string sequence;
    std::string change = {};

    Pairs attributes() const
    {
        return {{"logical_key@item_number", parent},
                {"logical_key@comp_item_number", child},
                {"logical_key@comp_seq_nm", sequence},
                {"il_ec_number", change}};
    }
};

int save(const Line& line)
{
    return Object("Component", line.attributes()).save();
}

void createItems(const std::vector<std::string>& numbers)
{
    for (const std::string& number : numbers) {
        ASSERT_NE(create("ItemEngineeringData", {{"logical_key@item_number", number}}), "") << message();
    }
}

const std::vector<std::string> structureColumns = {"level", "item_number", "comp_item_number", "comp_seq_nm"};

/** The rows that a walk over `lines`, which were stored in that order, gives. */
void walk(const std::vector<Line>& lines, const std::string& item, const std::string& change,
          std::size_t maxLevel, std::size_t level, Table& rows)
{
    std::vector<Line> below;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(below), [&](const Line& line) {
        return line.parent == item && (change.empty() || line.change == change);
    });
    std::stable_sort(below.begin(), below.end(), [](const Line& left, const Line& right) {
        return std::strtod(left.sequence.c_str(), nullptr) < std::strtod(right.sequence.c_str(), nullptr);
    });
    for (const Line& line : below) {
        rows.push_back({std::to_string(level), line.parent, line.child, line.sequence});
        if (maxLevel == 0 || level < maxLevel) {
            walk(lines, line.child, change, maxLevel, level + 1, rows);
        }
    }
}

/** Lines among some items, made up at random, and their refusal as it has to be. */
class RandomStructure {
public:
    explicit RandomStructure(unsigned seed) : random_(seed)
    {
        for (int item = 0; item < 9; ++item) {
            items_.push_back("I" + std::to_string(item));
        }
        createItems(items_);
    }

    void addLines(int count)
    {
        for (int i = 0; i < count; ++i) {
            const Line line = {anyOf(items_), anyOf(items_),
                               anyOf({"10", "9", "2", "010", "1.5", "-3", "100"}), anyOf({"", "EC1", "EC2"})};
            const bool known = !keys_.insert(line.attributes()).second;
            const bool closesCycle = reaches(line.child, line.parent);
            const int code = save(line);
            if (closesCycle && !known) {
                ASSERT_EQ(code, cycle);
                checkCycle(line);
                keys_.erase(line.attributes());
                ++refused_;
            } else {
                ASSERT_EQ(code, known ? -220 : 0) << message();
            }
            if (code == 0) {
                lines_.push_back(line);
            }
        }
    }

    const std::vector<std::string>& items() const { return items_; }
    const std::vector<Line>& lines() const { return lines_; }
    int refused() const { return refused_; }

private:
    std::string anyOf(const std::vector<std::string>& texts)
    {
        return texts[std::uniform_int_distribution<std::size_t>(0, texts.size() - 1)(random_)];
    }
    bool isLine(const std::string& parent, const std::string& child) const
    {
        return std::any_of(lines_.begin(), lines_.end(),
                           [&](const Line& line) { return line.parent == parent && line.child == child; });
    }
    bool reaches(const std::string& from, const std::string& to) const
    {
        return from == to || std::any_of(items_.begin(), items_.end(), [&](const std::string& next) {
                   return isLine(from, next) && reaches(next, to);
               });
    }
    /** The message must lead along lines from the parent over the refused line back to the parent. */
    void checkCycle(const Line& refused) const
    {
        const std::string text = message();
        const auto start = text.find(refused.parent + " > " + refused.child);
        ASSERT_NE(start, std::string::npos) << text;
        std::istringstream words(text.substr(start, text.find(';', start) - start));
        std::vector<std::string> way;
        for (std::string word; words >> word;) {
            if (word != ">") {
                way.push_back(word);
            }
        }
        EXPECT_EQ(way.back(), refused.parent) << text;
        for (std::size_t step = 1; step + 1 < way.size(); ++step) {
            EXPECT_TRUE(isLine(way[step], way[step + 1])) << text;
        }
    }

    std::mt19937 random_;
    std::vector<std::string> items_;
    std::vector<Line> lines_;
    std::set<Pairs> keys_;
    int refused_ = 0;
};

class ExplosionTest : public ServerTest {};

TEST_F(ExplosionTest, EqualsAPlainWalkOverRandomStructures)
{
    int refused = 0;
    std::size_t rowsSeen = 0;
    for (unsigned seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        QV_Logoff();
        ASSERT_EQ(logon(), 0);
        RandomStructure structure(seed);
        ASSERT_NO_FATAL_FAILURE(structure.addLines(60));
        refused += structure.refused();
        for (const std::string& top : structure.items()) {
            for (const std::string change : {"", "EC1"}) {
                for (const std::size_t maxLevel : {0U, 1U, 2U, 3U}) {
                    Table expected;
                    walk(structure.lines(), top, change, maxLevel, 1, expected);
                    EXPECT_EQ(explode({{"item_number", top},
                                       {"ec_number", change},
                                       {"max_level", std::to_string(maxLevel)}},
                                      structureColumns),
                              expected);
                    rowsSeen += expected.size();
                }
            }
        }
    }
    EXPECT_GT(refused, 50);
    EXPECT_GT(rowsSeen, 1000U);
}

/** So many items on a level are looked for in another order, and those without lines not at all. */
TEST_F(ExplosionTest, EqualsAPlainWalkOverAWideStructure)
{
    constexpr int assemblies = 1100;
    std::vector<Line> lines;
    createItems({"TOP", "PART", "BOLT", "ELSEWHERE"});
    for (int place = 0; place < assemblies; ++place) {
        const std::string assembly = "ASSEMBLY-" + std::to_string(place * 617 % assemblies);
        createItems({assembly});
        lines.push_back({"TOP", assembly, std::to_string(place), place % 5 == 0 ? "EC1" : ""});
        if (place % 3 == 0) {
            lines.push_back({assembly, "PART", "20", place % 2 == 0 ? "EC1" : ""});
            lines.push_back({assembly, "BOLT", "10", "EC1"});
        }
    }
    lines.push_back({"PART", "BOLT", "5"});
    lines.push_back({"ELSEWHERE", "BOLT", "1"});
    for (const Line& line : lines) {
        ASSERT_EQ(save(line), 0) << message();
    }
    for (const std::string change : {"", "EC1"}) {
        for (const std::size_t maxLevel : {0U, 2U}) {
            Table expected;
            walk(lines, "TOP", change, maxLevel, 1, expected);
            EXPECT_EQ(
                explode(
                    {{"item_number", "TOP"}, {"ec_number", change}, {"max_level", std::to_string(maxLevel)}},
                    structureColumns),
                expected);
        }
    }
}

TEST_F(ExplosionTest, SortsNumbersBeforeOtherTextsAndEqualOnesByAge)
{
    createItems({"A", "B", "C"});
    for (const Line& line : std::vector<Line>{{"A", "B", "X2"},
                                              {"A", "B", "10"},
                                              {"A", "C", "9"},
                                              {"A", "B", "9"},
                                              {"A", "B", "X10"},
                                              {"A", "B", ""},
                                              {"A", "B", "009"}}) {
        ASSERT_EQ(save(line), 0) << message();
    }
    EXPECT_EQ(
        explode({{"item_number", "A"}}, {"comp_seq_nm", "comp_item_number"}),
        (Table{{"9", "C"}, {"9", "B"}, {"009", "B"}, {"10", "B"}, {"", "B"}, {"X10", "B"}, {"X2", "B"}}));
}

TEST_F(ExplosionTest, GivesAttributesOfTheComponentAndOfTheChild)
{
    createItems({"A", "B "});
    create("ItemEngineeringData", {{"logical_key@item_number", "C"}, {"name", "old"}});
    create("EngineeringChange", {{"id", "EC1"}});
    create("ItemEngineeringData",
           {{"logical_key@item_number", "C"}, {"il_ec_number", "EC1"}, {"name", "Bolt"}, {"x_color", "red"}});
    Pairs line = Line{"A", "B", "10"}.attributes();
    line.emplace_back("x_torque", "12 Nm");
    line.emplace_back("item_type@curr_key", "PART");
    const std::string first = create("Component", line);
    const std::string second = create("Component", Line{"B", "C ", "5", "EC1"}.attributes());

    EXPECT_EQ(explode({{"item_number", "A "}, {"max_level", ""}, {"itm_doc_str", "*"}},
                      {"db_object_id", "level", "x_torque", "item_type@curr_key", "il_ec_number",
                       "logical_key@comp_seq_nm", "comp_item@name", "comp_item@x_color", "item@item_type"}),
              (Table{{first, "1", "12 Nm", "PART", "", "10", "", "", ""},
                     {second, "2", "", "", "EC1", "5", "Bolt", "red", ""}}));
    EXPECT_EQ(explode({{"item_number", "C"}}, structureColumns), Table());
    EXPECT_EQ(explode({{"item_number", "A"}}, {}).size(), 2U);
}

TEST_F(ExplosionTest, ListsAnItemAtEachOccurrence)
{
    constexpr int levels = 16;
    std::vector<std::string> items;
    for (int level = 0; level <= levels; ++level) {
        items.push_back("L" + std::to_string(level));
    }
    createItems(items);
    for (std::size_t level = 0; level < levels; ++level) {
        ASSERT_EQ(save({items[level], items[level + 1], "1"}), 0) << message();
        ASSERT_EQ(save({items[level], items[level + 1], "2"}), 0) << message();
    }
    const Table rows = explode({{"item_number", "L0"}}, structureColumns);
    ASSERT_EQ(rows.size(), (std::size_t(1) << (levels + 1)) - 2);
    EXPECT_EQ(rows[levels - 1], (std::vector<std::string>{"16", "L15", "L16", "1"}));
    EXPECT_EQ(rows[levels], (std::vector<std::string>{"16", "L15", "L16", "2"}));
    EXPECT_EQ(rows[rows.size() / 2], (std::vector<std::string>{"1", "L0", "L1", "2"}));
    EXPECT_EQ(rows.back(), rows[levels]);
}

TEST_F(ExplosionTest, SeesTheSavesOfAnOpenMultiSave)
{
    createItems({"A", "B", "C"});
    ASSERT_EQ(save({"A", "B", "1"}), 0);
    ASSERT_EQ(QV_Start_Multisave(), 0);
    ASSERT_EQ(save({"B", "C", "1"}), 0);
    EXPECT_EQ(save({"C", "A", "1"}), cycle);
    EXPECT_EQ(explode({{"item_number", "A"}}, structureColumns).size(), 2U);
    ASSERT_EQ(QV_Discard_Multisave(), 0);
    EXPECT_EQ(explode({{"item_number", "A"}}, structureColumns).size(), 1U);
    EXPECT_EQ(save({"C", "A", "1"}), 0) << message();
}

TEST_F(ExplosionTest, AChangeOfALineMustNotCloseACycle)
{
    createItems({"A", "B", "C"});
    ASSERT_EQ(save({"A", "B", "1"}), 0);
    Object line("Component", Line{"B", "C", "1"}.attributes());
    ASSERT_EQ(line.save(), 0);
    line.set("logical_key@comp_item_number", "A");
    EXPECT_EQ(line.save(), cycle);
    EXPECT_NE(message().find("B > A > B"), std::string::npos) << message();
    EXPECT_EQ(query("Component", {{"Select", "logical_key@comp_item_number"}}), (Table{{"B"}, {"C"}}));

    Object turned("Component", Line{"A", "B", "1"}.attributes());
    ASSERT_EQ(turned.open(), 0);
    turned.set("logical_key@item_number", "C");
    turned.set("logical_key@comp_item_number", "A");
    EXPECT_EQ(turned.save(), 0) << message();
    EXPECT_EQ(explode({{"item_number", "B"}}, {"comp_item_number"}), (Table{{"C"}, {"A"}}));
    EXPECT_EQ(save({"A", "A", "1"}), cycle);
    EXPECT_NE(message().find("A > A"), std::string::npos) << message();
}

TEST_F(ExplosionTest, ParametersAndColumnsAreChecked)
{
    createItems({"A"});
    Report report;
    EXPECT_EQ(report.set("depth", "1"), badArgument);
    for (const char* const name : {"'depth'", "item_number", "ec_number", "max_level", "itm_doc_str"}) {
        EXPECT_NE(message().find(name), std::string::npos) << message();
    }
    for (const std::string wrong : {"-1", "x", "1.5", "1 2", "99999999999999999999"}) {
        EXPECT_EQ(report.set("max_level", wrong), badArgument);
        EXPECT_NE(message().find('\'' + wrong + '\''), std::string::npos) << message();
    }
    for (const std::string wrong : {"", "@", "a b", "1a"}) {
        EXPECT_EQ(report.subscribe(wrong), badPath) << wrong;
    }
    EXPECT_EQ(codeOf({}), badArgument);
    EXPECT_NE(message().find("item_number"), std::string::npos) << message();
    EXPECT_EQ(codeOf({{"item_number", " "}}), badArgument);
    EXPECT_EQ(codeOf({{"item_number", "Z"}}), notFound);
    EXPECT_NE(message().find("'Z'"), std::string::npos) << message();
    EXPECT_EQ(codeOf({{"item_number", "Z"}, {"item_number", "A"}, {"max_level", "0"}}), 0) << message();
}

TEST_F(ExplosionTest, ReportHandlesAreChecked)
{
    createItems({"A", "B"});
    ASSERT_EQ(save({"A", "B", "1"}), 0);
    Report report;
    QV_ListHandle list = nullptr;
    QV_ListHandle unused = nullptr;
    ASSERT_EQ(report.set("item_number", "A"), 0);
    ASSERT_EQ(report.subscribe("level"), 0);
    ASSERT_EQ(report.generate(list), 0);
    Report other;
    QV_ReportHandle destroyed = other.handle();
    ASSERT_EQ(QV_Destroy_Report(&other.handle()), 0);
    EXPECT_EQ(other.handle(), nullptr);
    EXPECT_EQ(QV_Destroy_Report(&other.handle()), 0);
    const auto foreign = reinterpret_cast<QV_ReportHandle>(list);
    for (QV_ReportHandle wrong : {QV_ReportHandle(nullptr), destroyed, foreign}) {
        EXPECT_EQ(QV_Set_Report_Attr(wrong, "item_number", "A"), badHandle);
        EXPECT_EQ(QV_Subscribe_Report_Attr(wrong, "level"), badHandle);
        EXPECT_EQ(QV_Generate_Report(wrong, &unused), badHandle);
    }
    EXPECT_EQ(QV_Create_Report(nullptr, "IndentedRetrievalStrmElm", "ExplosionRetrieval"), badArgument);
    EXPECT_EQ(QV_Create_Report(&other.handle(), nullptr, "ExplosionRetrieval"), badArgument);
    EXPECT_EQ(QV_Create_Report(&other.handle(), "IndentedRetrievalStrmElm", nullptr), badArgument);
    EXPECT_EQ(QV_Create_Report(&other.handle(), "Component", "ExplosionRetrieval"), badArgument);
    EXPECT_EQ(QV_Create_Report(&other.handle(), "IndentedRetrievalStrmElm", "WhereUsed"), badArgument);
    EXPECT_NE(message().find("'WhereUsed'"), std::string::npos) << message();
    EXPECT_EQ(QV_Set_Report_Attr(report.handle(), nullptr, "A"), badArgument);
    EXPECT_EQ(QV_Set_Report_Attr(report.handle(), "item_number", nullptr), badArgument);
    EXPECT_EQ(QV_Subscribe_Report_Attr(report.handle(), nullptr), badArgument);
    EXPECT_EQ(QV_Generate_Report(report.handle(), nullptr), badArgument);
    EXPECT_EQ(QV_Destroy_Report(nullptr), badArgument);

    // The rows stay what they were, whatever becomes of the report.
    ASSERT_EQ(save({"A", "B", "2"}), 0);
    ASSERT_EQ(QV_Destroy_Report(&report.handle()), 0);
    int size = 0;
    EXPECT_EQ(QV_SizeOf_List(list, &size), 0);
    EXPECT_EQ(size, 1);
    EXPECT_EQ(QV_Set_Clause(list, "Select", "level"), badArgument);
    EXPECT_EQ(QV_Open_List(list), badArgument);
    QV_ObjectHandle record = nullptr;
    const char* value = nullptr;
    EXPECT_EQ(QV_Read_List(list, 1, &record), badArgument);
    ASSERT_EQ(QV_Read_List(list, 0, &record), 0);
    EXPECT_EQ(QV_Get_Object_Attr(record, "comp_seq_nm", &value), notLoaded);
    EXPECT_EQ(QV_Destroy_List(&list), 0);
    ASSERT_EQ(QV_Get_Object_Attr(record, "level", &value), 0);
    EXPECT_STREQ(value, "1");

    Report ofThisLogon;
    ASSERT_EQ(QV_Logoff(), 0);
    EXPECT_EQ(QV_Generate_Report(ofThisLogon.handle(), &list), notLoggedOn);
    ASSERT_EQ(logon(), 0);
    EXPECT_EQ(QV_Generate_Report(ofThisLogon.handle(), &list), badHandle);
}

class ForeignStoreTest : public StoreFileTest {};

TEST_F(ForeignStoreTest, ACycleThatIsStoredIsReportedAndNotFollowed)
{
    createItems({"A", "B", "C", "D"});
    for (const Line& line : std::vector<Line>{{"A", "B", "1"}, {"B", "C", "1"}, {"C", "D", "1"}}) {
        ASSERT_EQ(save(line), 0) << message();
    }
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open("store.db", &database), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(database,
                           R"(UPDATE "Component" SET "logical_key@comp_item_number" = 'B '
                              WHERE "logical_key@item_number" = 'C')",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    ASSERT_EQ(sqlite3_changes(database), 1);
    sqlite3_close(database);

    EXPECT_EQ(codeOf({{"item_number", "A"}}), cycle);
    EXPECT_NE(message().find(" B > C > B;"), std::string::npos) << message();
    EXPECT_EQ(codeOf({{"item_number", "C"}}), cycle);
    EXPECT_NE(message().find(" C > B > C;"), std::string::npos) << message();
    EXPECT_EQ(explode({{"item_number", "A"}, {"max_level", "2"}}, {"comp_item_number"}),
              (Table{{"B"}, {"C"}}));
    EXPECT_EQ(save({"D", "A", "1"}), 0) << message();
}

} // namespace
} // namespace servertest
