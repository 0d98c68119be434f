// SPDX-License-Identifier: Apache-2.0
#include <climits>
#include <filesystem>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class ReturnCodes : public LibraryTest {
protected:
    /** Checks the code of a call that set "id" to "A-100". */
    static Outcome check(int code, int stopFlag) { return checkDetails("id", "A-100", code, stopFlag); }
    static Outcome checkDetails(const std::string& detail1, const std::string& detail2, int code,
                                int stopFlag = 1)
    {
        return record([&] {
            QV_RC = code;
            return Process_QV_RC(Text("ItemOpen"), Text("QV_Set_Object_Attr"), Text(detail1), Text(detail2),
                                 stopFlag);
        });
    }
    static std::string firstLine(const std::string& text) { return text.substr(0, text.find('\n')); }
};

// What follows is written out in full, since the stories of other tests take it for granted.

TEST_F(ReturnCodes, ZeroAndPositiveCodesAreSuccess)
{
    for (const int code : {0, 3, INT_MAX}) {
        const std::string number = std::to_string(code);
        atEachLevel([&] {
            for (const int stopFlag : {0, 1}) {
                EXPECT_EQ(check(code, stopFlag).story,
                          story("\n5 ItemOpen QV_Set_Object_Attr id A-100: QV_RC=" + number + R"(.
log ItemOpen- rc(QV_Set_Object_Attr::id=A-100) = )" +
                                number + R"(
= 0 FromList= entries=0 LastRecNo=0 QV_RC=)" +
                                number + R"( SelectedAttribute=[]
)"));
                EXPECT_EQ(lastError(), version);
            }
        });
    }
}

TEST_F(ReturnCodes, AFailureIsReportedOnEveryChannelAndAnswersTheStopFlag)
{
    atEachLevel([&] {
        for (const int stopFlag : {0, 1}) {
            standin::failLastCall({{"E1", "No such item"}, {"E2", "Ask the owner"}});
            EXPECT_EQ(check(-1, stopFlag).story, story(R"(
5 ItemOpen QV_Set_Object_Attr id A-100: QV_RC=-1.
log ItemOpen- rc(QV_Set_Object_Attr::id=A-100) = -1
log E1 - No such item
log E2 - Ask the owner
0 ****** No such item Ask the owner .
err Function ItemOpen generated the following error:
err No such item Ask the owner 
err ---------------------------------------------------------------------
= )" + std::to_string(stopFlag) + R"( FromList= entries=0 LastRecNo=0 QV_RC=-1 SelectedAttribute=[]
)"));
            EXPECT_EQ(lastError(), "No such item Ask the owner \n");
        }
    });
}

TEST_F(ReturnCodes, AMessageWithTheCodeOfTheOneBeforeIsSkipped)
{
    struct Case {
        std::vector<standin::Message> messages;
        std::string text;
        std::string logLines;
    };
    const Case cases[] = {
        {{{"A", "one"}, {"A", "two"}, {"B", "three"}}, "one three ", "A - one\nB - three\n"},
        {{{"A", "one"}, {"B", "two"}, {"A", "three"}}, "one two three ", "A - one\nB - two\nA - three\n"},
        {{{"A", "one"}, {"A", "two"}, {"A", "three"}}, "one ", "A - one\n"},
        {{{"", "one"}, {"", "two"}}, "one ", " - one\n"},
        {{{"A", ""}, {"a", "two"}}, " two ", "A - \na - two\n"},
    };
    connect();
    for (const Case& each : cases) {
        standin::failLastCall(each.messages);
        const Outcome outcome = check(-1, 1);
        EXPECT_EQ(outcome.output, "****** " + each.text + ".\n");
        EXPECT_EQ(outcome.accessLog, "ItemOpen- rc(QV_Set_Object_Attr::id=A-100) = -1\n" + each.logLines);
        EXPECT_EQ(outcome.errorLog, errorBlock("ItemOpen", each.text));
        EXPECT_EQ(lastError(), each.text + '\n');
    }
}

TEST_F(ReturnCodes, AFailureWithoutMessagesIsReportedWithAnEmptyText)
{
    connect();
    for (const int size : {0, -1, INT_MIN}) {
        standin::failLastCall({});
        standin::setErrorSize(size);
        const Outcome outcome = check(INT_MIN, 1);
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(outcome.output, "****** .\n");
        EXPECT_EQ(outcome.accessLog, "ItemOpen- rc(QV_Set_Object_Attr::id=A-100) = -2147483648\n");
        EXPECT_EQ(outcome.errorLog, errorBlock("ItemOpen", ""));
        EXPECT_EQ(lastError(), "\n");
    }
}

TEST_F(ReturnCodes, EmptyDetailsAreLeftOutOfTheAccessLogAndKeepTheirBlanksInTheTrace)
{
    connect(5);
    const Outcome none = checkDetails("", "", 0);
    EXPECT_EQ(none.accessLog, "ItemOpen- rc(QV_Set_Object_Attr) = 0\n");
    EXPECT_EQ(none.output, "ItemOpen QV_Set_Object_Attr  : QV_RC=0.\n");
    const Outcome first = checkDetails("id", "", 0);
    EXPECT_EQ(first.accessLog, "ItemOpen- rc(QV_Set_Object_Attr::id) = 0\n");
    EXPECT_EQ(first.output, "ItemOpen QV_Set_Object_Attr id : QV_RC=0.\n");
    const Outcome second = checkDetails("", "A-100", 0);
    EXPECT_EQ(second.accessLog, "ItemOpen- rc(QV_Set_Object_Attr) = 0\n");
    EXPECT_EQ(second.output, "ItemOpen QV_Set_Object_Attr  A-100: QV_RC=0.\n");
}

TEST_F(ReturnCodes, NullTextsCountAsEmptyOnes)
{
    connect(5);
    standin::failLastCall({{std::nullopt, "text"}, {"code", std::nullopt}});
    const Outcome outcome = record([] {
        QV_RC = -2;
        return Process_QV_RC(nullptr, nullptr, nullptr, nullptr, 1);
    });
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.output, "   : QV_RC=-2.\n****** text  .\n");
    EXPECT_EQ(outcome.accessLog, "- rc() = -2\n - text\ncode - \n");
    EXPECT_EQ(outcome.errorLog, errorBlock("", "text  "));

    const Outcome display = record([] {
        DisplayError(nullptr, nullptr);
        DisplayError(nullptr, nullptr, nullptr);
        return 0;
    });
    EXPECT_EQ(display.errorLog, errorBlock("", "") + errorBlock("", ""));
    EXPECT_EQ(lastError(), "\n");
}

TEST_F(ReturnCodes, AnAccessLogLineIsCutAt511CharactersAndNothingElseIs)
{
    connect(5);
    const std::string head = "ItemOpen- rc(QV_Set_Object_Attr::id=";
    const std::string tail = ") = 0";
    const std::string fitting(511 - head.size() - tail.size(), 'v');
    EXPECT_EQ(checkDetails("id", fitting, 0).accessLog, head + fitting + tail + '\n');
    EXPECT_EQ(checkDetails("id", fitting + 'v', 0).accessLog, head + fitting + "v) = \n");

    const std::string endless(10000, 'v');
    standin::failLastCall({{"E", endless}});
    const Outcome outcome = checkDetails("id", endless, -1);
    EXPECT_EQ(outcome.accessLog, (head + endless).substr(0, 511) + "\nE - " + endless + '\n');
    EXPECT_EQ(outcome.output,
              "ItemOpen QV_Set_Object_Attr id " + endless + ": QV_RC=-1.\n****** " + endless + " .\n");
    EXPECT_EQ(outcome.errorLog, errorBlock("ItemOpen", endless + ' '));
    EXPECT_EQ(lastError(), endless + " \n");
}

TEST_F(ReturnCodes, WithTheLogsClosedAFailureShowsOnTheConsoleOnly)
{
    standin::failLastCall({{"E1", "No such item"}});
    const Outcome outcome = check(-1, 1);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.output, "****** No such item .\n");
    EXPECT_TRUE(std::filesystem::is_empty("."));
}

TEST_F(ReturnCodes, DisplayErrorWritesTheBlockAndTheLastErrorAndNotTheHint)
{
    connect(9);
    const Outcome two = record([] {
        DisplayError("Import", "File is empty");
        return 0;
    });
    EXPECT_EQ(two.errorLog, errorBlock("Import", "File is empty"));
    EXPECT_EQ(lastError(), "File is empty\n");
    const Outcome three = record([] {
        DisplayError("Export", "Disk is full", "Make room");
        return 0;
    });
    EXPECT_EQ(three.errorLog, errorBlock("Export", "Disk is full"));
    EXPECT_EQ(lastError(), "Disk is full\n");
    EXPECT_EQ(two.output + two.accessLog + three.output + three.accessLog, "");
}

TEST_F(ReturnCodes, TheHeadOfAnErrorBlockIsCutAt127Characters)
{
    connect();
    const auto blockOf = [](const std::string& function) {
        return record([&] {
                   DisplayError(function.c_str(), "text");
                   return 0;
               })
            .errorLog;
    };
    const std::size_t around =
        errorBlock("", "").find('\n') + 1; // the head without a name, its line feed included
    const std::string fitting(127 - around, 'f');
    EXPECT_EQ(blockOf(fitting), errorBlock(fitting, "text"));

    // What is cut away may or may not include the line feed; the text and the dashes are never touched.
    for (const std::size_t length : {fitting.size() + 1, std::size_t(200), std::size_t(10000)}) {
        const std::string block = blockOf(std::string(length, 'f'));
        const std::string whole = errorBlock(std::string(length, 'f'), "text");
        const std::string rest = "text\n" + std::string(69, '-') + '\n';
        EXPECT_EQ(block.substr(0, 126), whole.substr(0, 126));
        EXPECT_EQ(block.size(), 127 + rest.size());
        EXPECT_EQ(block.substr(block.size() - rest.size()), rest);
    }
}

TEST_F(ReturnCodes, TheLastErrorFileIsWhereTheEnvironmentSaysAtEachFailure)
{
    connect();
    setEnvironment("QVL_LAST_ERROR", "elsewhere");
    record([] {
        DisplayError("Import", "File is empty");
        return 0;
    });
    EXPECT_EQ(readFile("elsewhere"), "File is empty\n");
    EXPECT_EQ(lastError(), version);

    setEnvironment("QVL_LAST_ERROR", "no/such/directory/" + std::string(300, 'd'));
    const Outcome outcome = record([] {
        DisplayError("Import", "File is full");
        return 0;
    });
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errorLog, errorBlock("Import", "File is full"));
    EXPECT_EQ(readFile("elsewhere"), "File is empty\n");
}

} // namespace
