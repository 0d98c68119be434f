// SPDX-License-Identifier: Apache-2.0
//
// Random bytes where texts are expected, and clauses that nearly parse: an answer each time, no crash, no
// harm.
#include <random>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

class GarbageTest : public ServerTest {};

std::string randomText(std::mt19937& random, const std::vector<std::string>& pieces, int maxPieces)
{
    std::string text;
    for (auto count = random() % static_cast<unsigned>(maxPieces + 1); count > 0; --count) {
        text += pieces[random() % pieces.size()];
    }
    return text;
}

TEST_F(GarbageTest, ClausesPathsAndValues)
{
    create("EngineeringChange", {{"id", "EC1"}});
    create("ItemEngineeringData", {{"logical_key@item_number", "A"}});
    create("AffectedItem", {{"ec@id", "EC1"}, {"item_number", "A"}});
    std::vector<std::string> bytes;
    for (int byte = 1; byte < 256; ++byte) {
        bytes.emplace_back(1, static_cast<char>(byte));
    }
    const std::vector<std::string> pieces = {"&", "=",  "LIKE", "OR",  "AND", "<=",  "(",       ")",      ",",
                                             "'", " ",  "@",    "1",   "-",   "9.5", "name",    "ai_obj", "%",
                                             "_", "ec", "\"x",  ";--", "&=(", "')",  "&OR(&=(", "id"};
    std::mt19937 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same values at each run
    int accepted = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::string text = randomText(random, round % 2 == 0 ? bytes : pieces, 12);
        QV_ListHandle list = nullptr;
        ASSERT_EQ(QV_Create_List(&list, "ItemEngineeringData"), 0);
        bool good = true;
        for (const char* const kind : {"Select", "Where", "OrderBy"}) {
            const int code = QV_Set_Clause(list, kind, text.c_str());
            ASSERT_TRUE(code == 0 || code == -113) << kind << ' ' << text;
            ASSERT_TRUE(code == 0 || !message().empty());
            accepted += code == 0 ? 1 : 0;
            good = good && code == 0;
        }
        ASSERT_EQ(QV_Open_List(list), 0) << text << ": " << message();
        ASSERT_EQ(QV_Destroy_List(&list), 0);
        Object change("EngineeringChange", {{"id", "X" + text}});
        const int code = change.set(text, text);
        ASSERT_TRUE(code == 0 || code == -112) << text;
        ASSERT_EQ(change.subscribe(text), text.rfind("ec", 0) == 0 ? change.subscribe(text) : code) << text;
    }
    EXPECT_GT(accepted, 100) << "some of the texts must be good for the others to be worth anything";
    EXPECT_EQ(query("EngineeringChange", {}).size(), 1U);
}

TEST_F(GarbageTest, ClausesWithoutEnd)
{
    Object change("EngineeringChange");
    QV_ListHandle list = nullptr;
    ASSERT_EQ(QV_Create_List(&list, "EngineeringChange"), 0);
    std::string nested = "&=(id,'x')";
    for (int depth = 0; depth < 10; ++depth) {
        nested.insert(0, "&OR(&LIKE(id,'y%'),&AND(&LIKE(desc,'y'), ").append("))");
    }
    EXPECT_EQ(QV_Set_Clause(list, "Where", nested.c_str()), 0) << message();
    EXPECT_EQ(QV_Open_List(list), 0) << message();
    for (int depth = 0; depth < 100000; ++depth) {
        nested.insert(0, "&OR(");
    }
    EXPECT_EQ(QV_Set_Clause(list, "Where", nested.c_str()), -113);
    EXPECT_EQ(change.subscribe(std::string(100000, 'x')), -112);
    for (int column = 0; column < 3000; ++column) {
        ASSERT_EQ(QV_Set_Clause(list, "Select", ("a" + std::to_string(column)).c_str()), 0);
    }
    EXPECT_LT(QV_Open_List(list), 0) << "more than the database can do is an error like any other";
    EXPECT_NE(message(), "");
    EXPECT_EQ(QV_Destroy_List(&list), 0);
}

} // namespace
} // namespace servertest
