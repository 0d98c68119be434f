// SPDX-License-Identifier: Apache-2.0
#include <cstdlib>
#include <random>

#include <gtest/gtest.h>
#include <velrzm/print_list.h>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"

using namespace harness;

namespace {

const std::string twoObjects = R"(Print list of items
Number of_objects: 2 found

some text before the first object
   QV_Object[ItemEngineeringData]
   --------
   attribute [id] = [BR-100]
  attribute   [desc] = [Bracket of steel] more
attribute [weight kg] = [12]

QV_Object[ItemEngineeringData]
   attribute [dropped] = [whatever it holds]
   attribute [id] = [BR-200]
   attribute [desc] = [Washer]
   attribute [later] = [7]

)";

class PrintList : public ::testing::Test {
protected:
    void TearDown() override
    {
        QV_PrintList::Close();
        EXPECT_EQ(QV_PrintList::Close(), 0) << "there is nothing left to close";
    }
    static int openText(const std::string& text)
    {
        QV_PrintList::Close();
        writeFile("list.txt", text);
        return QV_PrintList::Open("list.txt");
    }
    static std::string value(const char* name) { return std::string(QV_PrintList::GetValue(name)); }
    static std::string join(const VELListValVELUnicodeString& list)
    {
        std::string text;
        for (int position = 1; position <= list.Size(); ++position) {
            text += std::string(list[position]) + ';';
        }
        return text;
    }

private:
    TemporaryDirectory directory_;
};

TEST_F(PrintList, IsReadObjectByObject)
{
    EXPECT_EQ(openText(twoObjects), 2);
    EXPECT_EQ(QV_PrintList::Size(), 2);
    EXPECT_EQ(QV_PrintList::Exists(), 1);
    EXPECT_STREQ(_PrintListFileName, "list.txt");
    EXPECT_EQ(value("id"), "") << "before the first object";

    EXPECT_EQ(QV_PrintList::Next(), 1);
    EXPECT_EQ(join(_AttrNames), "id;desc;weight;") << "the first word of a name";
    EXPECT_EQ(join(_AttrValues), "BR-100;Bracket;=;") << "a blank in a name moves the words";
    EXPECT_EQ(value("desc"), "Bracket");
    EXPECT_EQ(value("ID") + value("later") + value("") + value("weight kg"), "");

    EXPECT_EQ(QV_PrintList::Next(), 1);
    EXPECT_EQ(join(_AttrNames), "id;desc;weight;") << "the first object names the attributes";
    EXPECT_EQ(join(_AttrValues), "BR-200;Washer;7;");
    EXPECT_EQ(value("id"), "BR-200");

    EXPECT_EQ(QV_PrintList::Next(), 1) << "behind the last object there is one without values";
    EXPECT_EQ(value("id"), "");
    EXPECT_EQ(_Current, 3);

    EXPECT_EQ(QV_PrintList::Close(), 1);
    EXPECT_EQ(QV_PrintList::Exists() + QV_PrintList::Size() + _Current, 0);
    EXPECT_EQ(_PrintListFile, nullptr);
    EXPECT_EQ(_AttrNames.Size() + _AttrValues.Size(), 0);
    EXPECT_EQ(QV_PrintList::Next(), 0);
    EXPECT_EQ(value("id"), "");
}

TEST_F(PrintList, AFileThatCannotBeOpenedLeavesTheRestAsItWas)
{
    EXPECT_EQ(openText(twoObjects), 2);
    QV_PrintList::Next();
    std::FILE* const previous = _PrintListFile; // a second open does not close it
    EXPECT_EQ(QV_PrintList::Open("missing.txt"), 0);
    EXPECT_EQ(QV_PrintList::Exists(), 0);
    EXPECT_STREQ(_PrintListFileName, "missing.txt");
    EXPECT_EQ(_PrintListFile, nullptr);
    EXPECT_EQ(QV_PrintList::Next(), 0);
    EXPECT_EQ(QV_PrintList::Size(), 2);
    EXPECT_EQ(value("id"), "BR-100");
    EXPECT_EQ(std::fclose(previous), 0); // NOLINT(cppcoreguidelines-owning-memory): a plain stream
    EXPECT_EQ(QV_PrintList::Open(VELUnicodeString()), 0);

    EXPECT_EQ(openText("\na b 0\n"), 0);
    EXPECT_EQ(QV_PrintList::Exists(), 1) << "an empty list is open all the same";
    EXPECT_EQ(_AttrNames.Size() + _AttrValues.Size(), 0) << "a list that opens begins afresh";
}

TEST_F(PrintList, TheCountIsTheThirdWordOfTheSecondLine)
{
    const std::pair<std::string, int> cases[] = {
        {"5 5 5\na b 12 13\n", 12},
        {"\n   a   b   3\n", 3},
        {"\na\tb c 4", 4},
        {"\na b 7more\n", 7},
        {"\na b many\n", 0},
        {"\na 5\n", 0},
        {"\na\n", 0},
        {"\n\n", 0},
        {"\n", 0},
        {"a b 5", 0},
        {"", 0},
        {std::string(254, 'x') + "\na b 5\n", 5},
        {std::string(255, 'x') + "\na b 5\n", 0}, // the line feed is a piece
        {std::string(255, 'x') + "a b 5\n", 5}};
    for (const auto& [text, count] : cases) {
        EXPECT_EQ(openText(text), count) << text;
        EXPECT_EQ(QV_PrintList::Size(), count);
        EXPECT_EQ(QV_PrintList::Exists(), 1);
    }
    for (const int size : {1000, 0, -1}) { // neither too much nor nothing is read
        bufsize = size;
        EXPECT_EQ(openText("\na b 5\n"), size == 1000 ? 5 : 0);
    }
    bufsize = sizeof buf;
}

TEST_F(PrintList, AnObjectIsABlockOfLinesInPiecesOf255Characters)
{
    EXPECT_EQ(sizeof buf, 256U);
    EXPECT_EQ(bufsize, 256);
    const std::string fitting(236, 'x'); // behind the 17 characters of "attribute [a] = ["
    const std::pair<std::string, std::string> cases[] = {
        {"x [a] = []\nx [b] = [] \nx [c] = [x]\n\n", "a;b;c;=;;x;"},
        {"x [a] = [\nx [b] = [x\n\n", "a;b;=;x;"},
        {"x [] = [x]\n] = [\n[a] = [\n\n", ";=;=;=x;;;"},
        {"x\t[a] = [x] y\n\n", "=;=y;"},                   // a tab does not separate
        {"x [a] = [x]\r\nx [b] = []\r\n\r\n", "a;b;=x;;"}, // a carriage return does
        {"x [a] = [[x]y]\nx [b] = [][y]\nx [c] = [last]", "a;b;c;=x;y;last;"},
        {"x [a] = [1]\nx [b] =[2]\nx [c] = [3]\n", "a;=1;"}, // the block ends with the first other line
        {"attribute [a] = [" + fitting + "]\nattribute [b] = [y]\n", "a;b;=" + fitting + ";y;"},
        {"attribute [a] = [" + fitting + "xxxx]\nattribute [b] = [y]\n", "a;=" + fitting + "xx;"},
    };
    for (const auto& [attributeLines, object] : cases) {
        EXPECT_EQ(openText("\na b 1\nQV_Object[X]\n\n" + attributeLines), 1);
        EXPECT_EQ(QV_PrintList::Next(), 1);
        EXPECT_EQ(join(_AttrNames) + '=' + join(_AttrValues), object) << attributeLines;
    }
    const std::tuple<std::string, std::string> seconds[] = {
        {"x [a] = [1]\nx [b] = [2]\n\nQV_Object[\n\nx [a] = [3]\n\n", "3"}, // nothing for the last name
        {"x [a] = [1]\nQV_Object[\n\nx [a] = [2]\n", ""}, // the line that ends a block is used up
    };
    for (const auto& [text, second] : seconds) {
        EXPECT_EQ(openText("\na b 2\nQV_Object[\n\n" + text), 2);
        QV_PrintList::Next();
        EXPECT_EQ(value("a"), "1");
        QV_PrintList::Next();
        EXPECT_EQ(value("a") + value("b"), second);
    }
}

TEST_F(PrintList, AnyBytesGiveWordsWithoutSeparators)
{
    std::vector<std::string> pieces = split("QV_Object[;] = [;[;]; ;\r\n;x;1 2 3\n;a [b] = [c]\n;\xff", ";");
    pieces.insert(pieces.end(), {twoObjects, std::string(1, '\0'), std::string(254, 'l')});
    std::mt19937 random(20240229); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same bytes every time
    std::size_t words = 0;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        std::string text;
        for (std::size_t count = random() % 120; count > 0; --count) {
            const std::string& piece = pieces[random() % pieces.size()];
            text += piece.substr(0, 1 + random() % piece.size());
        }
        const int count = openText(text);
        EXPECT_EQ(QV_PrintList::Size(), count);
        for (int object = 0; object < 4; ++object) {
            EXPECT_EQ(QV_PrintList::Next(), 1);
            EXPECT_TRUE(object > 0 || _AttrNames.Size() == _AttrValues.Size());
            for (const auto* const list : {&_AttrNames, &_AttrValues}) {
                for (int position = 1; position <= list->Size(); ++position, ++words) {
                    EXPECT_EQ(std::string((*list)[position]).find_first_of("[] \r\n"), std::string::npos);
                    EXPECT_LT((*list)[position].GetLengthInChar(), 255);
                }
            }
        }
    }
    EXPECT_GT(words, 300U) << "the bytes are meant to hold attributes as well";
}

} // namespace
