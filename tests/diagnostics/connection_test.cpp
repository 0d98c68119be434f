// SPDX-License-Identifier: Apache-2.0
#include <filesystem>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class Connection : public LibraryTest {
protected:
    static int logOn() { return QvConnect("jdoe", "secret"); }
    static void expectLogsClosed()
    {
        EXPECT_EQ(QVL_Log_File, nullptr);
        EXPECT_EQ(QVL_ErrLog_File, nullptr);
    }
};

TEST_F(Connection, TheTraceLevelIsReadOnceAsANumber)
{
    const std::pair<std::optional<std::string>, int> levels[] = {
        {std::nullopt, 0}, {"", 0}, {"abc", 0}, {"-1", -1}, {"5", 5}, {"7x", 7}, {" 2", 2},
    };
    for (const auto& [value, level] : levels) {
        SCOPED_TRACE(value.value_or("unset"));
        restart();
        setEnvironment("QVL_TRACE_LEVEL", value);
        captureOutput(logOn);
        EXPECT_EQ(QVL_Traces_Level, level);
        EXPECT_EQ(QVL_Traces_FirstTime, 0);
        setEnvironment("QVL_TRACE_LEVEL", "9");
        captureOutput(logOn);
        EXPECT_EQ(QVL_Traces_Level, level);
    }
}

TEST_F(Connection, TheFilesAreWhereTheEnvironmentSaysAndAreEmptiedFirst)
{
    for (const char* const path : {"errors", "last"}) {
        writeFile(path, std::string(5000, 'o'));
    }
    setEnvironment("QVL_LOG_ERROR", "errors");
    setEnvironment("QVL_LAST_ERROR", "last");
    EXPECT_EQ(record(logOn).output, R"(LogFile=
Opening Error LogFile errors
RZM 424.1 / QV 340.
QvConnect --- Connecting to Quorvanemaster: trying .....
QvConnect --- Loging as user jdoe: trying .....
QvConnect --- ... done!.
)");
    EXPECT_EQ(QVL_Log_File, nullptr) << "there is no access log without a path";
    EXPECT_EQ(QVL_Log_FirstTime, 0);
    EXPECT_EQ(countLines(readFile("errors")), 5);
    EXPECT_EQ(readFile("last"), version);
    EXPECT_FALSE(std::filesystem::exists("QVL_LOG_ERROR"));
    EXPECT_FALSE(std::filesystem::exists("QVL_LAST_ERROR"));
}

TEST_F(Connection, FilesThatCannotBeMadeAreDoneWithout)
{
    const std::string nowhere = "no/such/directory/" + std::string(300, 'd');
    for (const char* const name : {"QVL_LOG_FILE", "QVL_LOG_ERROR", "QVL_LAST_ERROR"}) {
        setEnvironment(name, nowhere);
    }
    standin::answer("QV_Logon", -7, {{"E1", "Refused"}});
    const Outcome outcome = record(logOn);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.output.substr(0, outcome.output.find("RZM")),
              "LogFile=" + nowhere + "\nOpening LogFile " + nowhere + "\nOpening Error LogFile " + nowhere +
                  '\n');
    EXPECT_EQ(countLines(outcome.output, "****** Refused ."), 1);
    expectLogsClosed();
    EXPECT_TRUE(std::filesystem::is_empty("."));
}

TEST_F(Connection, AfterAnExitTheConnectionComesBackAndTheLogsDoNot)
{
    for (const char* const refused : {"QV_Logoff", "QV_Close_Env", "QV_Logon"}) {
        restart();
        connect();
        standin::answer(refused, -7, {{"E1", "Refused"}});
        captureOutput(QvExit);
        expectLogsClosed();
        UserLoggedOn = 0;
        const Outcome outcome = record(logOn);
        EXPECT_EQ(outcome.result, UserLoggedOn);
        EXPECT_EQ(countLines(outcome.output, "****** Refused ."), 1 - UserLoggedOn);
        EXPECT_EQ(outcome.accessLog + outcome.errorLog, "");
        EXPECT_EQ(lastError(), version) << "without an error log only the reset is written";
        expectLogsClosed();
    }
}

} // namespace
