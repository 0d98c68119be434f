// SPDX-License-Identifier: Apache-2.0
#include <filesystem>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

constexpr const char* sharedFile = "QVL_RZM_DEFAULT";
constexpr const char* localFile = "My_QVL_RZM_DEFAULT";

class Defaults : public LibraryTest {
protected:
    /** The pairs of "ItemCreate" as "name=value;" in their order. */
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
    static Outcome read()
    {
        return record([] {
            pairs();
            return 0;
        });
    }
};

TEST_F(Defaults, WithoutAFileThereAreNone)
{
    atEachLevel([] {
        VELListValVELUnicodeString names = textList({"left", "over"});
        VELListValVELUnicodeString values = textList({"before"});
        EXPECT_EQ(record([&] { return DefaultRead("ItemCreate", names, values); }).story, story(R"(
2 DefaultRead-----Start------------------------------.
2 DefaultRead-----Exit----NbOfDefault=0--------.
= 0 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
        EXPECT_EQ(names.Size(), 0);
        EXPECT_EQ(values.Size(), 0);
    });
}

TEST_F(Defaults, BothFilesAreReadAndTracedByLevel)
{
    for (const int level : {-1, 0, 1, 2, 3, 4, 5, 9}) {
        SCOPED_TRACE("at trace level " + std::to_string(level));
        restart();
        connect(level);
        writeFile(sharedFile, "ItemCreate item_type P\nItemCreate unit EA\n");
        writeFile(localFile, "ItemCreate unit KG\nItemCreate make_buy M\n");
        EXPECT_EQ(read().story, story(level < 3 ? R"(
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
2 DefaultRead- Reading defaults from ./My_QVL_RZM_DEFAULT.
2 DefaultRead-----Exit----NbOfDefault=3--------.
= 0 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"
                                                : R"(
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
log DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
2 DefaultRead- Reading defaults from ./My_QVL_RZM_DEFAULT.
log DefaultRead - Reading defaults from  ./My_QVL_RZM_DEFAULT
5 DefaultRead- item_type=P.
log DefaultRead -  item_type <=> P
5 DefaultRead- unit=KG.
log DefaultRead -  unit <=> KG
5 DefaultRead- make_buy=M.
log DefaultRead -  make_buy <=> M
2 DefaultRead-----Exit----NbOfDefault=3--------.
= 0 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
    }
}

TEST_F(Defaults, AnEntryIsTheThreeWordsBeforeAComment)
{
    const std::pair<const char*, const char*> cases[] = {
        {"ItemCreate a 1\n", "a=1;"},
        {"ItemCreate a 1", "a=1;"},
        {"  ItemCreate \t a\t\t1  \n", "a=1;"},
        {"ItemCreate a 1 2 3\n", "a=1;"},
        {"ItemCreate logical_key@item_number A-1'\"%s\n", "logical_key@item_number=A-1'\"%s;"},
        {"ItemCreate a 1 # and the rest\n", "a=1;"},
        {"ItemCreate a 1#2\n", "a=1;"},
        {"ItemCreate a #1\n", "a=;"},
        {"ItemCreate #a 1\n", "=;"},
        {"ItemCreate#a 1\n", "=;"},
        {"ItemCreate a\n", "a=;"},
        {"ItemCreate\n", "=;"},
        {"#ItemCreate a 1\n", ""},
        {" #ItemCreate a 1\n", ""},
        {"\n\n   \n\t\n", ""},
        {"", ""},
        {"itemcreate a 1\nITEMCREATE a 1\nItemCreat a 1\nItemCreateX a 1\n", ""},
        {"ItemSave a 1\n\nItemCreate b 2\n# ItemCreate c 3\nItemCreate d 4", "b=2;d=4;"},
    };
    for (const auto& [content, expected] : cases) {
        writeFile(sharedFile, content);
        EXPECT_EQ(pairs(), expected) << content;
        writeFile(sharedFile, "");
        writeFile(localFile, content);
        EXPECT_EQ(pairs(), expected) << content << "(in the local file)";
        std::filesystem::remove(localFile);
    }
}

TEST_F(Defaults, TheLocalFileReplacesTheFirstPairOfANameOrAddsOne)
{
    struct Case {
        const char* shared;
        const char* local;
        const char* expected;
    };
    const Case cases[] = {
        {"ItemCreate a 1\nItemCreate b 2\n", "ItemCreate a 9\n", "a=9;b=2;"},
        {"ItemCreate a 1\nItemCreate a 2\n", "", "a=1;a=2;"},
        {"ItemCreate a 1\nItemCreate a 2\n", "ItemCreate a 9\n", "a=9;a=2;"},
        {"ItemCreate a 1\n", "ItemCreate b 2\nItemCreate b 3\nItemCreate a 9\nItemCreate a 8\n", "a=8;b=3;"},
        {"ItemCreate a 1\n", "ItemCreate A 2\nItemSave a 3\n", "a=1;A=2;"},
        {"ItemSave a 1\n", "ItemCreate a 2\n", "a=2;"},
    };
    for (const Case& each : cases) {
        writeFile(sharedFile, each.shared);
        writeFile(localFile, each.local);
        EXPECT_EQ(pairs(), each.expected);
    }
}

TEST_F(Defaults, ALineIsReadInPiecesOf63Characters)
{
    const std::string head = "ItemCreate a ";
    const std::string fitting(63 - head.size(), 'v');
    writeFile(sharedFile, head + fitting + "\nItemCreate b 2\n");
    EXPECT_EQ(pairs(), "a=" + fitting + ";b=2;");

    writeFile(sharedFile, head + fitting + "x y z\nItemCreate b 2\n");
    EXPECT_EQ(pairs(), "a=" + fitting + ";b=2;") << "the remainder is a line that names another operation";

    writeFile(sharedFile, head + fitting + "ItemCreate c 3\n");
    EXPECT_EQ(pairs(), "a=" + fitting + ";c=3;") << "the remainder is a line of its own";

    const std::string comment = '#' + std::string(62, '-');
    writeFile(sharedFile, comment + "ItemCreate c 3\n");
    EXPECT_EQ(pairs(), "c=3;") << "a comment ends with its piece";

    writeFile(sharedFile, std::string(100000, 'v') + "\nItemCreate b 2\n");
    EXPECT_EQ(pairs(), "b=2;");
}

TEST_F(Defaults, TheDirectoryOfTheSharedFileComesFromTheEnvironmentAtEachCall)
{
    connect(2);
    std::filesystem::create_directory("site");
    writeFile("site/QVL_RZM_DEFAULT", "ItemCreate a site\n");
    writeFile(sharedFile, "ItemCreate a here\nItemCreate b here\n");
    writeFile("site/My_QVL_RZM_DEFAULT", "ItemCreate c wrong\n");
    const auto expectRead = [](const std::string& path) {
        EXPECT_EQ(countLines(read().output, "DefaultRead- Reading defaults from " + path + "."), 1);
    };
    setEnvironment("RZM_DEFAULT_DIRECTORY", "site");
    captureOutput([] { EXPECT_EQ(pairs(), "a=site;"); });
    expectRead("site/QVL_RZM_DEFAULT");

    writeFile(localFile, "ItemCreate a local\n");
    captureOutput([] { EXPECT_EQ(pairs(), "a=local;"); });
    expectRead("./My_QVL_RZM_DEFAULT");

    setEnvironment("RZM_DEFAULT_DIRECTORY", "");
    captureOutput([] { EXPECT_EQ(pairs(), "a=local;"); });

    setEnvironment("RZM_DEFAULT_DIRECTORY", std::nullopt);
    captureOutput([] { EXPECT_EQ(pairs(), "a=local;b=here;"); });
}

TEST_F(Defaults, ADirectoryThatIsTooLongIsSkippedWithAWarning)
{
    const auto directoryOf = [](std::size_t length) { // "/./././." names the working directory in any length
        std::string directory = std::filesystem::current_path().string();
        directory += (length - directory.size()) % 2 == 0 ? "" : "/";
        while (directory.size() < length) {
            directory += "/.";
        }
        return directory;
    };
    const std::size_t longest = 255 - std::string("/QVL_RZM_DEFAULT").size();
    atEachLevel([&] {
        const int level = QVL_Traces_Level;
        writeFile(sharedFile, "ItemCreate a shared\n");
        writeFile(localFile, "ItemCreate b local\n");
        setEnvironment("RZM_DEFAULT_DIRECTORY", directoryOf(longest));
        captureOutput([] { EXPECT_EQ(pairs(), "a=shared;b=local;"); });

        for (const std::string& directory : {directoryOf(longest + 1), std::string(10000, 'd')}) {
            setEnvironment("RZM_DEFAULT_DIRECTORY", directory);
            captureOutput([] { EXPECT_EQ(pairs(), "b=local;"); });
            const Outcome outcome = read();
            // Start, the local file and exit at level 2, the pair at 5; the rest is the warning.
            const int usual = (level >= 2 ? 3 : 0) + (level >= 5 ? 1 : 0);
            EXPECT_EQ(countLines(outcome.output), usual + (level >= 0 ? 1 : 0));
            EXPECT_EQ(countLines(outcome.output, "DefaultRead"), usual + (level >= 0 ? 1 : 0));
            EXPECT_EQ(countLines(outcome.accessLog), 1 + (level >= 3 ? 2 : 0));
        }
    });
}

TEST_F(Defaults, AFileThatCannotBeReadIsSkipped)
{
    std::filesystem::create_directory(localFile);
    writeFile(sharedFile, "ItemCreate a 1\n");
    EXPECT_EQ(pairs(), "a=1;");
}

TEST_F(Defaults, TheOperationMayStandInAListThatIsEmptied)
{
    connect();
    writeFile(sharedFile, "ItemCreate site A\n");
    auto names = harness::textList({"ItemCreate"});
    auto values = names;
    EXPECT_EQ(DefaultRead(names[1], names, values), 1);
    values = harness::textList({"ItemCreate"});
    EXPECT_EQ(DefaultRead(values[1], names, values), 1);
}

TEST_F(Defaults, AnOperationWithoutANameHasNoEntries)
{
    writeFile(sharedFile, "ItemCreate a 1\n");
    VELListValVELUnicodeString names;
    VELListValVELUnicodeString values;
    EXPECT_EQ(DefaultRead(VELUnicodeString(), names, values), 0);
    EXPECT_EQ(DefaultRead(std::string(10000, 'o').c_str(), names, values), 0);
}

} // namespace
