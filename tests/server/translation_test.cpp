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
    static constexpr int notLoggedOn = -121;
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
    EXPECT_EQ(readEntry("big", size - 1), expected.back()); // without its size
    EXPECT_EQ(readEntry("small", 0), Entries::value_type("kg", "KGM"));
    EXPECT_EQ(readEntry("big", 1), expected[1]);
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
    for (const char* const unknown : {"T", "tt", "", "%"}) {
        EXPECT_EQ(QV_SizeOf_Xlat(unknown, &size), notFound);
        EXPECT_NE(message().find('\'' + std::string(unknown) + '\''), std::string::npos) << message();
        EXPECT_EQ(QV_Read_Xlat(unknown, 0, &from, &to), notFound);
    }
    EXPECT_EQ(size, -1);
    ASSERT_EQ(QV_SizeOf_Xlat("t ", &size), 0);
    EXPECT_EQ(size, 1);
    for (const int index : {-1, 1, 1 << 30}) {
        EXPECT_EQ(QV_Read_Xlat("t", index, &from, &to), badArgument);
        EXPECT_NE(message().find("entry " + std::to_string(index)), std::string::npos) << message();
    }
    EXPECT_EQ(QV_SizeOf_Xlat(nullptr, &size), badArgument);
    EXPECT_EQ(QV_SizeOf_Xlat("t", nullptr), badArgument);
    EXPECT_EQ(QV_Read_Xlat(nullptr, 0, &from, &to), badArgument);
    EXPECT_EQ(QV_Read_Xlat("t", 0, nullptr, &to), badArgument);
    EXPECT_EQ(QV_Read_Xlat("t", 0, &from, nullptr), badArgument);
    EXPECT_EQ(from, nullptr);
    EXPECT_EQ(QV_Read_Xlat("t", 0, &from, &to), 0);
    QV_Logoff();
    EXPECT_EQ(QV_SizeOf_Xlat("t", &size), notLoggedOn);
    EXPECT_EQ(QV_Read_Xlat("t", 0, &from, &to), notLoggedOn);
}

} // namespace
} // namespace servertest
