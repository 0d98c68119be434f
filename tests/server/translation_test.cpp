// SPDX-License-Identifier: Apache-2.0
//
// Translation tables, read by index.
#include <velrzm/qvlocal.h>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

class TranslationTest : public StoreFileTest {
protected:
    static constexpr int badArgument = -110;
    static constexpr int notFound = -210;

    static void load(const std::string& rows)
    {
        harness::writeFile("rows.csv", "table,from,to\n" + rows);
        qvlocal::loadTranslationTables(location, "rows.csv");
    }
    static Entries readTable(const char* name)
    {
        int size = 0;
        EXPECT_EQ(QV_SizeOf_Xlat(name, &size), 0) << message();
        Entries entries;
        for (int index = 0; index < size; ++index) {
            entries.push_back(readEntry(name, index));
        }
        return entries;
    }
    static std::pair<std::string, std::string> readEntry(const char* name, int index)
    {
        const char* from = nullptr;
        const char* to = nullptr;
        EXPECT_EQ(QV_Read_Xlat(name, index, &from, &to), 0) << message();
        return {from == nullptr ? "" : from, to == nullptr ? "" : to};
    }
};

TEST_F(TranslationTest, EntriesComeInTheOrderOfTheFile)
{
    std::string rows;
    Entries expected;
    constexpr int size = 20000;
    for (int i = 0; i < size; ++i) {
        expected.emplace_back("f" + std::to_string((i * 7919) % size), "t" + std::to_string(i));
        rows += "big," + expected.back().first + ',' + expected.back().second + '\n';
    }
    load(rows + "small,kg,KGM\nsmall,m,\n");
    EXPECT_EQ(readTable("big"), expected);
    EXPECT_EQ(readTable("small"), (Entries{{"kg", "KGM"}, {"m", ""}}));
    EXPECT_EQ(readEntry("big", size - 1), expected.back()); // without asking for its size
}

TEST_F(TranslationTest, ATableStaysAsItWasWhenItsSizeWasAskedFor)
{
    load("t,a,1\nt,b,2\n");
    int size = 0;
    ASSERT_EQ(QV_SizeOf_Xlat("t", &size), 0);
    const char* from = nullptr;
    const char* to = nullptr;
    ASSERT_EQ(QV_Read_Xlat("t", 0, &from, &to), 0);
    load("t,c,3\n");
    EXPECT_STREQ(from, "a");
    EXPECT_STREQ(to, "1");
    EXPECT_EQ(readEntry("t", 1), Entries::value_type("b", "2"));
    EXPECT_EQ(readTable("t"), (Entries{{"c", "3"}}));
    QV_Logoff();
    load("t,d,4\n");
    ASSERT_EQ(logon(), 0);
    EXPECT_EQ(readEntry("t", 0), Entries::value_type("d", "4"));
}

TEST_F(TranslationTest, WhatIsNotThereIsAnErrorThatNamesIt)
{
    load("t,a,1\n");
    int size = -1;
    const char* from = nullptr;
    const char* to = nullptr;
    for (const std::string unknown : {"T", "tt", "", "%"}) {
        EXPECT_TRUE(refused(QV_SizeOf_Xlat(unknown.c_str(), &size), notFound, '\'' + unknown + '\''));
        EXPECT_EQ(QV_Read_Xlat(unknown.c_str(), 0, &from, &to), notFound);
    }
    EXPECT_EQ(size, -1);
    EXPECT_EQ(readTable("t "), (Entries{{"a", "1"}}));
    for (const int index : {-1, 1, 1 << 30}) {
        EXPECT_TRUE(
            refused(QV_Read_Xlat("t", index, &from, &to), badArgument, "entry " + std::to_string(index)));
    }
    for (const int code :
         {QV_SizeOf_Xlat(nullptr, &size), QV_SizeOf_Xlat("t", nullptr), QV_Read_Xlat(nullptr, 0, &from, &to),
          QV_Read_Xlat("t", 0, nullptr, &to), QV_Read_Xlat("t", 0, &from, nullptr)}) {
        EXPECT_EQ(code, badArgument);
    }
    EXPECT_EQ(from, nullptr);
}

} // namespace
} // namespace servertest
