// SPDX-License-Identifier: Apache-2.0
//
// The explosion report, and the refusal of structures that contain themselves.
#include <algorithm>
#include <cstdlib>
#include <random>
#include <sstream>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

constexpr int badArgument = -110;
constexpr int badPath = -112;
constexpr int notLoaded = -115;
constexpr int notFound = -210;
constexpr int cycle = -233;

/** A report handle of its own, and the list that it generated last. */
class Report {
public:
    explicit Report(const Pairs& parameters = {}, const std::vector<std::string>& columns = {})
    {
        EXPECT_EQ(QV_Create_Report(&handle_, "IndentedRetrievalStrmElm", "ExplosionRetrieval"), 0);
        for (const auto& [name, value] : parameters) {
            EXPECT_EQ(set(name, value), 0) << message();
        }
        for (const std::string& column : columns) {
            EXPECT_EQ(subscribe(column), 0) << message();
        }
    }
    ~Report()
    {
        QV_Destroy_List(&list_);
        destroy();
    }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    int set(const std::string& name, const std::string& value)
    {
        return QV_Set_Report_Attr(handle_, name.c_str(), value.c_str());
    }
    int subscribe(const std::string& path) { return QV_Subscribe_Report_Attr(handle_, path.c_str()); }
    int generate() { return QV_Generate_Report(handle_, &list_); }
    void destroy() { QV_Destroy_Report(&handle_); }
    QV_ListHandle list() const { return list_; }

private:
    QV_ReportHandle handle_ = nullptr;
    QV_ListHandle list_ = nullptr;
};

Table explode(const Pairs& parameters, const std::vector<std::string>& columns)
{
    Report report(parameters, columns);
    EXPECT_EQ(report.generate(), 0) << message();
    return rowsOf(report.list(), columns);
}

struct Line {
    std::string parent;
    std::string child;
    std::string sequence;
    std::string change = {};
};

Pairs keysOf(const Line& line)
{
    return component(line.parent, line.child, line.sequence, line.change);
}

int save(const Line& line)
{
    return Object("Component", keysOf(line)).save();
}

const std::vector<std::string> structureColumns = {"level", "item_number", "comp_item_number", "comp_seq_nm"};

void store(const std::vector<std::string>& items, const std::vector<Line>& lines = {})
{
    for (const std::string& number : items) {
        ASSERT_NE(create("ItemEngineeringData", item(number)), "") << message();
    }
    for (const Line& line : lines) {
        ASSERT_EQ(save(line), 0) << message();
    }
}

class ExplosionTest : public ServerTest {};

class StoredCycleTest : public StoreFileTest {};

/** Lines beside a plain list of them. */
class StructureTest : public ServerTest {
protected:
    std::mt19937 random{1}; // NOLINT(cert-msc32-c,cert-msc51-cpp): the same lines at each run
    std::vector<std::string> items = {"I0", "I1", "I2", "I3", "I4", "I5", "I6", "I7", "I8"};
    std::vector<Line> lines; // those that were stored, in this order

    std::string anyOf(const std::vector<std::string>& texts) { return texts[random() % texts.size()]; }

    bool isLine(const std::string& parent, const std::string& child) const
    {
        return std::any_of(lines.begin(), lines.end(),
                           [&](const Line& line) { return line.parent == parent && line.child == child; });
    }
    bool reaches(const std::string& from, const std::string& to) const
    {
        return from == to || std::any_of(items.begin(), items.end(), [&](const std::string& next) {
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
        std::string last;
        std::string arrow;
        std::string next;
        for (words >> last >> arrow >> last; words >> arrow >> next; last = next) {
            EXPECT_TRUE(isLine(last, next)) << text;
        }
        EXPECT_EQ(last, refused.parent) << text;
    }

    /** The rows that a plain walk gives. */
    Table walk(const std::string& item, const std::string& change, int maxLevel, int level = 1) const
    {
        std::vector<Line> below;
        std::copy_if(lines.begin(), lines.end(), std::back_inserter(below), [&](const Line& line) {
            return line.parent == item && (change.empty() || line.change == change);
        });
        std::stable_sort(below.begin(), below.end(), [](const Line& left, const Line& right) {
            return std::strtod(left.sequence.c_str(), nullptr) < std::strtod(right.sequence.c_str(), nullptr);
        });
        Table rows;
        for (const Line& line : below) {
            rows.push_back({std::to_string(level), line.parent, line.child, line.sequence});
            if (maxLevel == 0 || level < maxLevel) {
                const Table further = walk(line.child, change, maxLevel, level + 1);
                rows.insert(rows.end(), further.begin(), further.end());
            }
        }
        return rows;
    }

    /** Compares the explosion with the walk; tells of how many rows they are. */
    std::size_t compareWithWalk(const std::string& top, const std::string& change, int maxLevel) const
    {
        const Pairs parameters = {
            {"item_number", top}, {"ec_number", change}, {"max_level", std::to_string(maxLevel)}};
        const Table expected = walk(top, change, maxLevel);
        EXPECT_EQ(explode(parameters, structureColumns), expected);
        return expected.size();
    }
};

TEST_F(StructureTest, IsExplodedAsByAPlainWalkAndNeverContainsItself)
{
    int refusals = 0;
    std::size_t rowsSeen = 0;
    for (int round = 0; round < 8; ++round) {
        QV_Logoff(); // which empties the store
        ASSERT_EQ(logon(), 0);
        lines.clear();
        store(items);
        ASSERT_EQ(round % 2 == 0 ? 0 : QV_Start_Multisave(), 0); // which sees its own saves
        for (int i = 0; i < 60; ++i) {
            const Line line = {anyOf(items), anyOf(items), anyOf({"10", "9", "2", "010", "1.5", "-3", "100"}),
                               anyOf({"", "EC1", "EC2"})};
            const bool closesCycle = reaches(line.child, line.parent);
            const bool isKnown = std::any_of(
                lines.begin(), lines.end(), [&](const Line& known) { return keysOf(known) == keysOf(line); });
            const int code = save(line);
            if (closesCycle) {
                ASSERT_EQ(code, cycle);
                checkCycle(line);
                ++refusals;
            } else {
                ASSERT_EQ(code, isKnown ? QV_ALREADY_STORED : 0) << message();
            }
            if (code == 0) {
                lines.push_back(line);
            }
        }
        for (const std::string& top : items) {
            for (const std::string change : {"", "EC1"}) {
                for (const int maxLevel : {0, 1, 2, 3}) {
                    rowsSeen += compareWithWalk(top, change, maxLevel);
                }
            }
        }
    }
    EXPECT_GT(refusals, 50);
    EXPECT_GT(rowsSeen, 1000U);
}

/** So many items of a level are looked for in another order, and those without lines not at all. */
TEST_F(StructureTest, ThatIsWideIsExplodedAsByAPlainWalk)
{
    constexpr int assemblies = 1100;
    items = {"TOP", "PART", "BOLT", "ELSEWHERE"};
    lines = {{"PART", "BOLT", "5"}, {"ELSEWHERE", "BOLT", "1"}};
    for (int place = 0; place < assemblies; ++place) {
        items.push_back("ASSEMBLY-" + std::to_string(place * 617 % assemblies));
        lines.push_back({"TOP", items.back(), std::to_string(place), place % 5 == 0 ? "EC1" : ""});
        if (place % 3 == 0) {
            lines.push_back({items.back(), "PART", "20", place % 2 == 0 ? "EC1" : ""});
            lines.push_back({items.back(), "BOLT", "10", "EC1"});
        }
    }
    store(items, lines);
    EXPECT_EQ(compareWithWalk("TOP", "", 0), 2201U);
    compareWithWalk("TOP", "", 2);
    compareWithWalk("TOP", "EC1", 0);
}

TEST_F(ExplosionTest, SortsNumbersBeforeOtherTextsAndEqualOnesByAge)
{
    store({"A", "B", "C"}, {{"A", "B", "X2"},
                            {"A", "B", "10"},
                            {"A", "C", "9"},
                            {"A", "B", "9"},
                            {"A", "B", "X10"},
                            {"A", "B", ""},
                            {"A", "B", "009"}});
    EXPECT_EQ(
        explode({{"item_number", "A"}}, {"comp_seq_nm", "comp_item_number"}),
        (Table{{"9", "C"}, {"9", "B"}, {"009", "B"}, {"10", "B"}, {"", "B"}, {"X10", "B"}, {"X2", "B"}}));
}

TEST_F(ExplosionTest, GivesAttributesOfTheComponentAndOfTheChild)
{
    store({"A", "B ", "C"});
    create("EngineeringChange", {{"id", "EC1"}});
    Pairs newest = item("C", "EC1");
    newest.insert(newest.end(), {{"name", "Bolt"}, {"x_color", "red"}});
    create("ItemEngineeringData", newest);
    Pairs line = component("A", "B", "10");
    line.insert(line.end(), {{"x_torque", "12 Nm"}, {"item_type@curr_key", "PART"}});
    const std::string first = create("Component", line);
    const std::string second = create("Component", component("B", "C ", "5", "EC1"));

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
    constexpr int levels = 12;
    store({"L0"});
    for (int level = 1; level <= levels; ++level) {
        const std::string parent = "L" + std::to_string(level - 1);
        const std::string child = "L" + std::to_string(level);
        store({child}, {{parent, child, "1"}, {parent, child, "2"}});
    }
    const Table rows = explode({{"item_number", "L0"}}, structureColumns);
    ASSERT_EQ(rows.size(), (std::size_t(1) << (levels + 1)) - 2);
    EXPECT_EQ(rows[levels - 1], (std::vector<std::string>{"12", "L11", "L12", "1"}));
    EXPECT_EQ(rows[levels], (std::vector<std::string>{"12", "L11", "L12", "2"}));
    EXPECT_EQ(rows[rows.size() / 2], (std::vector<std::string>{"1", "L0", "L1", "2"}));
    EXPECT_EQ(rows.back(), rows[levels]);
}

TEST_F(ExplosionTest, AChangeOfALineMustNotCloseACycle)
{
    store({"A", "B", "C"}, {{"A", "B", "1"}});
    Object line("Component", component("B", "C", "1"));
    ASSERT_EQ(line.save(), 0);
    line.set("logical_key@comp_item_number", "A");
    EXPECT_TRUE(refused(line.save(), cycle, "B > A > B"));
    EXPECT_EQ(query("Component", {{"Select", "logical_key@comp_item_number"}}), (Table{{"B"}, {"C"}}));

    Object turned("Component", component("A", "B", "1"));
    ASSERT_EQ(turned.open(), 0);
    turned.set("logical_key@item_number", "C");
    turned.set("logical_key@comp_item_number", "A");
    EXPECT_EQ(turned.save(), 0) << message();
    EXPECT_EQ(explode({{"item_number", "B"}}, {"comp_item_number"}), (Table{{"C"}, {"A"}}));
}

TEST_F(ExplosionTest, ParametersAndColumnsAreChecked)
{
    store({"A"});
    Report report;
    EXPECT_TRUE(refused(report.set("depth", "1"), badArgument, "'depth'"));
    for (const char* const name : {"item_number", "ec_number", "max_level", "itm_doc_str"}) {
        EXPECT_NE(message().find(name), std::string::npos) << message();
    }
    for (const std::string wrong : {"-1", "x", "1.5", "1 2", "99999999999999999999"}) {
        EXPECT_TRUE(refused(report.set("max_level", wrong), badArgument, '\'' + wrong + '\''));
    }
    for (const std::string wrong : {"", "@", "a b", "1a"}) {
        EXPECT_EQ(report.subscribe(wrong), badPath) << wrong;
    }
    EXPECT_TRUE(refused(report.generate(), badArgument, "item_number"));
    ASSERT_EQ(report.set("item_number", " "), 0);
    EXPECT_EQ(report.generate(), badArgument);
    ASSERT_EQ(report.set("item_number", "Z"), 0);
    EXPECT_TRUE(refused(report.generate(), notFound, "'Z'"));
    EXPECT_EQ(report.list(), nullptr);
    ASSERT_EQ(report.set("item_number", "A"), 0);
    EXPECT_EQ(report.generate(), 0) << message();
}

TEST_F(ExplosionTest, TheRowsStayWhateverBecomesOfTheReport)
{
    store({"A", "B"}, {{"A", "B", "1"}});
    Report report({{"item_number", "A"}}, {"level"});
    ASSERT_EQ(report.generate(), 0) << message();
    ASSERT_EQ(save({"A", "B", "2"}), 0);
    report.destroy();
    EXPECT_EQ(rowsOf(report.list(), {"level"}), (Table{{"1"}}));
    EXPECT_EQ(QV_Set_Clause(report.list(), "Select", "level"), badArgument);
    EXPECT_EQ(QV_Open_List(report.list()), badArgument);
    QV_ObjectHandle record = nullptr;
    const char* value = nullptr;
    ASSERT_EQ(QV_Read_List(report.list(), 0, &record), 0);
    EXPECT_EQ(QV_Get_Object_Attr(record, "comp_seq_nm", &value), notLoaded);
}

TEST_F(StoredCycleTest, IsReportedAndNotFollowed)
{
    store({"A", "B", "C", "D"}, {{"A", "B", "1"}, {"B", "C", "1"}, {"C", "D", "1"}});
    sql("store.db", R"(UPDATE "Component" SET "logical_key@comp_item_number" = 'B '
                       WHERE "logical_key@item_number" = 'C')");
    EXPECT_TRUE(refused(Report(Pairs{{"item_number", "A"}}).generate(), cycle, " B > C > B;"));
    EXPECT_TRUE(refused(Report(Pairs{{"item_number", "C"}}).generate(), cycle, " C > B > C;"));
    EXPECT_EQ(explode({{"item_number", "A"}, {"max_level", "2"}}, {"comp_item_number"}),
              (Table{{"B"}, {"C"}}));
    EXPECT_EQ(save({"D", "A", "1"}), 0) << message();
}

} // namespace
} // namespace servertest
