// SPDX-License-Identifier: Apache-2.0
#include <climits>
#include <filesystem>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class ReturnCodes : public LibraryTest {
protected:
    /** Checks the code of a call that set an attribute. */
    static Outcome check(int code, const std::string& detail1 = "id", const std::string& detail2 = "A-100")
    {
        QV_RC = code;
        return record([&] {
            return Process_QV_RC(Text("ItemOpen"), Text("QV_Set_Object_Attr"), Text(detail1), Text(detail2),
                                 1);
        });
    }
    /** As if the last call had failed with these messages. */
    static void failLastCall(const std::vector<standin::Message>& messages)
    {
        standin::state().hasFailed = true;
        standin::state().messages = messages;
    }
    static Outcome display(const char* function, const char* text)
    {
        return record([=] { DisplayError(function, text); });
    }
};

TEST_F(ReturnCodes, AMessageWithTheCodeOfTheOneBeforeIsSkippedAndNullIsEmpty)
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
        {{{std::nullopt, "text"}, {"code", std::nullopt}}, "text  ", " - text\ncode - \n"},
        {{}, "", ""},
    };
    connect();
    for (const Case& each : cases) {
        failLastCall(each.messages);
        const Outcome outcome = check(INT_MIN);
        EXPECT_EQ(outcome.output, "****** " + each.text + ".\n");
        EXPECT_EQ(outcome.accessLog,
                  "ItemOpen- rc(QV_Set_Object_Attr::id=A-100) = -2147483648\n" + each.logLines);
        EXPECT_EQ(outcome.errorLog, errorBlock("ItemOpen", each.text));
        EXPECT_EQ(lastError(), each.text + '\n');
    }
    failLastCall({});
    standin::state().errorSize = -1;
    EXPECT_EQ(check(-1).errorLog, errorBlock("ItemOpen", ""));
}

TEST_F(ReturnCodes, EmptyDetailsAreLeftOutOfTheAccessLogAndKeepTheirBlanksInTheTrace)
{
    connect(5);
    const Outcome none = check(0, "", "");
    EXPECT_EQ(none.accessLog, "ItemOpen- rc(QV_Set_Object_Attr) = 0\n");
    EXPECT_EQ(none.output, "ItemOpen QV_Set_Object_Attr  : QV_RC=0.\n");
    EXPECT_EQ(check(0, "id", "").accessLog, "ItemOpen- rc(QV_Set_Object_Attr::id) = 0\n");
    const Outcome second = check(0, "", "A-100");
    EXPECT_EQ(second.accessLog, "ItemOpen- rc(QV_Set_Object_Attr) = 0\n");
    EXPECT_EQ(second.output, "ItemOpen QV_Set_Object_Attr  A-100: QV_RC=0.\n");

    const Outcome nulls = record([] { return Process_QV_RC(nullptr, nullptr, nullptr, nullptr, 1); });
    EXPECT_EQ(nulls.output, "   : QV_RC=0.\n");
    EXPECT_EQ(nulls.accessLog, "- rc() = 0\n");
    EXPECT_EQ(display(nullptr, nullptr).errorLog, errorBlock("", ""));
}

TEST_F(ReturnCodes, AnAccessLogLineIsCutAt511CharactersAndNothingElseIs)
{
    connect(5);
    const std::string head = "ItemOpen- rc(QV_Set_Object_Attr::id=";
    const std::string tail = ") = 0";
    const std::string fitting(511 - head.size() - tail.size(), 'v');
    EXPECT_EQ(check(0, "id", fitting).accessLog, head + fitting + tail + '\n');
    EXPECT_EQ(check(0, "id", fitting + 'v').accessLog, head + fitting + "v) = \n");

    const std::string endless(10000, 'v');
    failLastCall({{"E", endless}});
    const Outcome outcome = check(-1, "id", endless);
    EXPECT_EQ(outcome.accessLog, (head + endless).substr(0, 511) + "\nE - " + endless + '\n');
    EXPECT_EQ(outcome.output,
              "ItemOpen QV_Set_Object_Attr id " + endless + ": QV_RC=-1.\n****** " + endless + " .\n");
    EXPECT_EQ(outcome.errorLog, errorBlock("ItemOpen", endless + ' '));
    EXPECT_EQ(lastError(), endless + " \n");
}

TEST_F(ReturnCodes, WithTheLogsClosedAFailureShowsOnTheConsoleOnly)
{
    failLastCall({{"E1", "No such item"}});
    const Outcome outcome = check(-1);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.output, "****** No such item .\n");
    EXPECT_TRUE(std::filesystem::is_empty("."));
}

TEST_F(ReturnCodes, DisplayErrorWritesTheBlockAndTheLastErrorWhereTheEnvironmentSaysAndNotTheHint)
{
    connect(9);
    const Outcome two = display("Import", "File is empty");
    EXPECT_EQ(two.errorLog, errorBlock("Import", "File is empty"));
    EXPECT_EQ(lastError(), "File is empty\n");
    setEnvironment("QVL_LAST_ERROR", "elsewhere");
    const Outcome three = record([] { DisplayError("Export", "Disk is full", "Make room"); });
    EXPECT_EQ(three.errorLog, errorBlock("Export", "Disk is full"));
    EXPECT_EQ(readFile("elsewhere"), "Disk is full\n");
    EXPECT_EQ(lastError(), "File is empty\n");
    EXPECT_EQ(two.output + two.accessLog + three.output + three.accessLog, "");

    setEnvironment("QVL_LAST_ERROR", "no/such/directory/" + std::string(300, 'd'));
    EXPECT_EQ(display("Import", "File is full").errorLog, errorBlock("Import", "File is full"));
}

TEST_F(ReturnCodes, ANameIsCutSoThatTheHeadOfAnErrorBlockHas127Characters)
{
    connect();
    const std::string fitting(127 - (errorBlock("", "").find('\n') + 1), 'f');
    for (const std::string& tail : {std::string(), std::string("f"), std::string(10000, 'f')}) {
        EXPECT_EQ(display((fitting + tail).c_str(), "text").errorLog, errorBlock(fitting, "text"));
    }
}

} // namespace
