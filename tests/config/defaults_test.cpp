// SPDX-License-Identifier: Apache-2.0
#include <filesystem>
#include <tuple>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

constexpr const char* sharedFile = "QVL_RZM_DEFAULT";
constexpr const char* localFile = "My_QVL_RZM_DEFAULT";

class Defaults : public LibraryTest {
protected:
    /** The pairs of an operation as "name=value;" in their order. */
    static std::string pairs(const char* operation = "ItemCreate")
    {
        VELListValVELUnicodeString names;
        VELListValVELUnicodeString values;
        const int count = DefaultRead(operation, names, values);
        EXPECT_EQ(count, names.Size());
        EXPECT_EQ(count, values.Size());
        std::string text;
        for (int position = 1; position <= std::min(names.Size(), values.Size()); ++position) {
            text += std::string(names[position]) + '=' + std::string(values[position]) + ';';
        }
        return text;
    }
};

TEST_F(Defaults, AnEntryIsTheThreeWordsBeforeAComment)
{
    const std::pair<const char*, const char*> cases[] = {
        {"ItemCreate a 1\n", "a=1;"},
        {"ItemCreate a 1", "a=1;"},
        {"  ItemCreate \t a\t\t1  \n", "a=1;"},
        {"ItemCreate a 1 2 3\n", "a=1;"},
        {"ItemCreate a 1\r\nItemCreate b\r\n\r\nItemCreate c 3", "a=1;b=;c=3;"},
        {"ItemCreate logical_key@item_number A-1'\"%s\n", "logical_key@item_number=A-1'\"%s;"},
        {"ItemCreate a 1#2\n", "a=1;"},
        {"ItemCreate a #1\n", "a=;"},
        {"ItemCreate #a 1\n", "=;"},
        {"ItemCreate#a 1\n", "=;"},
        {"ItemCreate a\n", "a=;"},
        {"ItemCreate\n", "=;"},
        {"#ItemCreate a 1\n #ItemCreate a 1\n", ""},
        {"\n\n   \n\t\n", ""},
        {"itemcreate a 1\nITEMCREATE a 1\nItemCreat a 1\nItemCreateX a 1\n", ""},
        {"ItemSave a 1\n\nItemCreate b 2\n# ItemCreate c 3\nItemCreate d 4", "b=2;d=4;"},
    };
    for (const auto& [content, expected] : cases) {
        for (const char* const file : {sharedFile, localFile}) {
            writeFile(file, content);
            EXPECT_EQ(pairs(), expected) << content << "in " << file;
            std::filesystem::remove(file);
        }
    }
    std::filesystem::create_directory(localFile);
    writeFile(sharedFile, "ItemCreate a 1\n");
    EXPECT_EQ(pairs(), "a=1;") << "a file that cannot be read is skipped";
    EXPECT_EQ(pairs(nullptr) + pairs(std::string(10000, 'o').c_str()), "");
}

TEST_F(Defaults, TheLocalFileReplacesTheFirstPairOfANameOrAddsOne)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"ItemCreate a 1\nItemCreate b 2\n", "ItemCreate a 9\n", "a=9;b=2;"},
        {"ItemCreate a 1\nItemCreate a 2\n", "ItemCreate a 9\n", "a=9;a=2;"},
        {"ItemCreate a 1\n", "ItemCreate b 2\nItemCreate b 3\nItemCreate a 9\nItemCreate a 8\n", "a=8;b=3;"},
        {"ItemCreate a 1\n", "ItemCreate A 2\nItemSave a 3\n", "a=1;A=2;"},
        {"ItemSave a 1\n", "ItemCreate a 2\n", "a=2;"},
    };
    for (const auto& [shared, local, expected] : cases) {
        writeFile(sharedFile, shared);
        writeFile(localFile, local);
        EXPECT_EQ(pairs(), expected);
    }
}

TEST_F(Defaults, ALineIsReadInPiecesOf63CharactersAndAnEntryThatIsCutIsWarnedOf)
{
    const std::string head = "ItemCreate a ";
    const std::string fitting(63 - head.size(), 'v');
    const std::string longName(52, 'n');
    const std::tuple<std::string, std::string, bool> cases[] = {
        {head + fitting, "a=" + fitting + ";b=2;", false},
        {head + fitting + " y z", "a=" + fitting + ";b=2;", false}, // the remainder names another operation
        {head + fitting + "# remark", "a=" + fitting + ";b=2;", false},
        {head + "1 2" + fitting, "a=1;b=2;", false},
        {head + fitting + "ItemCreate c 3", "a=" + fitting + ";c=3;b=2;", true}, // ... or is an entry itself
        {"ItemCreate " + longName + "n 1", longName + "=;b=2;", true},
        {"ItemCreate a" + std::string(51, ' ') + "1", "a=;b=2;", true},
        {"ItemSave a 1" + fitting + fitting, "b=2;", false},
        {'#' + std::string(62, '-') + "ItemCreate c 3", "c=3;b=2;", false}, // a comment ends with its piece
        {std::string(100000, 'v'), "b=2;", false},
    };
    connect();
    for (const auto& [line, expected, isCut] : cases) {
        writeFile(sharedFile, "\n" + line + "\nItemCreate b 2\n");
        const Outcome outcome = record([&expected = expected] { EXPECT_EQ(pairs(), expected); });
        const std::string warning =
            " ****** WARNING ****** an entry of ItemCreate is cut to the first 63 characters of "
            "its line: ./QVL_RZM_DEFAULT, line 2";
        EXPECT_EQ(outcome.output, isCut ? "DefaultRead-" + warning + ".\n" : "") << line;
        EXPECT_EQ(outcome.accessLog, isCut ? "DefaultRead" + warning + "\n" : "") << line;
    }
}

TEST_F(Defaults, TheDirectoryOfTheSharedFileComesFromTheEnvironmentAtEachCall)
{
    connect(2);
    std::filesystem::create_directory("site");
    writeFile("site/QVL_RZM_DEFAULT", "ItemCreate a site\n");
    writeFile("site/My_QVL_RZM_DEFAULT", "ItemCreate c wrong\n");
    writeFile(sharedFile, "ItemCreate a here\nItemCreate b here\n");
    setEnvironment("RZM_DEFAULT_DIRECTORY", "site");
    const std::string told = captureOutput([] { EXPECT_EQ(pairs(), "a=site;"); });
    EXPECT_EQ(countLines(told, "DefaultRead- Reading defaults from site/QVL_RZM_DEFAULT."), 1);
    EXPECT_EQ(countLines(told, "Reading"), 1) << "there is no local file";
    setEnvironment("RZM_DEFAULT_DIRECTORY", "");
    captureOutput([] { EXPECT_EQ(pairs(), ""); });
    setEnvironment("RZM_DEFAULT_DIRECTORY", std::nullopt);
    captureOutput([] { EXPECT_EQ(pairs(), "a=here;b=here;"); });
}

TEST_F(Defaults, ADirectoryThatIsTooLongIsSkippedWithAWarning)
{
    const std::size_t longest = 255 - std::string("/QVL_RZM_DEFAULT").size();
    std::string directory = std::filesystem::current_path().string();
    directory += (longest - directory.size()) % 2 == 0 ? "" : "/";
    while (directory.size() < longest) {
        directory += "/."; // names the working directory in any length
    }
    connect();
    writeFile(sharedFile, "ItemCreate a shared\n");
    writeFile(localFile, "ItemCreate b local\n");
    setEnvironment("RZM_DEFAULT_DIRECTORY", directory);
    EXPECT_EQ(pairs(), "a=shared;b=local;");
    for (const std::string& tooLong : {directory + '/', std::string(10000, 'd')}) {
        setEnvironment("RZM_DEFAULT_DIRECTORY", tooLong);
        const Outcome outcome = record([] { EXPECT_EQ(pairs(), "b=local;"); });
        EXPECT_EQ(countLines(outcome.output, "DefaultRead- ****** WARNING ****** "), 1);
        EXPECT_EQ(countLines(outcome.output + outcome.accessLog), 2);
    }
}

} // namespace
