// SPDX-License-Identifier: Apache-2.0
#include <filesystem>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class Connection : public LibraryTest {
protected:
    static int logOn() { return QvConnect("jdoe", "secret"); }
    /** A first connection as `connect` makes it, for tests that look at it. */
    Outcome firstConnect(int level)
    {
        restart();
        setEnvironment("QVL_TRACE_LEVEL", std::to_string(level));
        setEnvironment("QVL_LOG_FILE", "access.log");
        return record(logOn);
    }
    static void expectState(int environment, int user)
    {
        EXPECT_EQ(EnvOpened, environment);
        EXPECT_EQ(UserLoggedOn, user);
    }
    static void expectLogsClosed()
    {
        EXPECT_EQ(QVL_Log_File, nullptr);
        EXPECT_EQ(QVL_ErrLog_File, nullptr);
    }
};

TEST_F(Connection, TheFirstConnectOpensLogsEnvironmentAndSession)
{
    for (const int level : {-1, 0, 1, 9}) {
        SCOPED_TRACE("at trace level " + std::to_string(level));
        const Outcome outcome = firstConnect(level);
        expectState(1, 1);
        EXPECT_EQ(outcome.story, story(R"(
* LogFile=access.log
* Opening LogFile access.log
log RZM 424.1 / QV 340
log *********************************************************************
log *****      VELRZM : VELOR/HXD - Quorvanemaster Integration      *****
log *****         (logging all SDK access to Quorvanemastr)         *****
log *********************************************************************
* Opening Error LogFile ./QVL_LOG_ERROR
err RZM 424.1 / QV 340
err *********************************************************************
err *****      VELRZM : VELOR/HXD - Quorvanemaster Integration      *****
err *****     (logging all SDK errors returned by Quorvanemastr)    *****
err *********************************************************************
0 RZM 424.1 / QV 340.
QvConnect:
0 @ --- Connecting to Quorvanemaster: trying ..... > QV_Open_Env() = 0
0 @ --- Loging as user jdoe: trying ..... > QV_Logon("jdoe", "secret", "", "") = 0 as QV_Logon ""
1 @ --- ************************************.
1 @ --- *** @- RC(QV_Logon)=0.
1 @ --- ************************************.
0 @ --- ... done!.
= 1 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
        EXPECT_EQ(lastError(), version);
    }
    EXPECT_STREQ(RZMCodeLevel(), version);
}

TEST_F(Connection, PositiveCodesConnectAndDisconnect)
{
    for (const char* const function : {"QV_Open_Env", "QV_Logon", "QV_Logoff", "QV_Close_Env"}) {
        standin::answer(function, 3);
    }
    const Outcome outcome = record(logOn);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(countLines(outcome.output, "QvConnect --- ... done!."), 1);
    expectState(1, 1);
    EXPECT_EQ(record(QvExit).result, 1);
    expectState(0, 0);
}

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
    EXPECT_EQ(record(logOn).output, lines(R"(
LogFile=
Opening Error LogFile errors
RZM 424.1 / QV 340.
QvConnect --- Connecting to Quorvanemaster: trying .....
QvConnect --- Loging as user jdoe: trying .....
QvConnect --- ... done!.
)"));
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

TEST_F(Connection, ASecondConnectOnlyResetsTheLastError)
{
    firstConnect(9);
    DisplayError("Import", "File is empty");
    setEnvironment("QVL_LOG_FILE", "other.log");
    setEnvironment("QVL_LOG_ERROR", "other.errors");
    EXPECT_EQ(record(logOn).story, story(R"(
= 1 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
    EXPECT_EQ(lastError(), version);
    EXPECT_FALSE(std::filesystem::exists("other.log"));
    EXPECT_FALSE(std::filesystem::exists("other.errors"));
}

TEST_F(Connection, AnEnvironmentThatDoesNotOpenIsReportedAndTriedAgain)
{
    setEnvironment("QVL_LOG_FILE", "access.log");
    standin::answer("QV_Open_Env", -7, {{"E1", "No licence"}});
    EXPECT_EQ(record(logOn).storyFrom("Connecting to"), story(R"(
QvConnect:
0 @ --- Connecting to Quorvanemaster: trying ..... > QV_Open_Env() = -7
! E1 - No licence
= 0 FromList= entries=0 LastRecNo=0 QV_RC=-7 SelectedAttribute=[]
)"));
    expectState(0, 0);
    EXPECT_EQ(lastError(), "No licence \n");

    standin::answer("QV_Open_Env", 0);
    EXPECT_EQ(record(logOn).calls, "QV_Open_Env() = 0\nQV_Logon(\"jdoe\", \"secret\", \"\", \"\") = 0\n");
    EXPECT_EQ(lastError(), version);
    expectState(1, 1);
}

TEST_F(Connection, ALogonThatIsRefusedIsReportedAndTriedAgainInTheOpenEnvironment)
{
    firstConnect(1);
    UserLoggedOn = 0;
    standin::answer("QV_Logon", -7, {{"E1", "Unknown user"}});
    EXPECT_EQ(record([] { return QvConnect(nullptr, nullptr); }).story, story(R"(
QvConnect:
0 @ --- Loging as user : trying ..... > QV_Logon("", "", "", "") = -7 as QV_Logon ""
! E1 - Unknown user
1 @ --- ************************************.
1 @ --- *** @- RC(QV_Logon)=-7.
1 @ --- ************************************.
0 @ --- *** ERROR *** Unable to logon to Quorvanemaster.
= 0 FromList= entries=0 LastRecNo=0 QV_RC=-7 SelectedAttribute=[]
)"));
    expectState(1, 0);
    EXPECT_EQ(lastError(), "Unknown user \n");

    standin::answer("QV_Logon", 0);
    EXPECT_EQ(record(logOn).calls, "QV_Logon(\"jdoe\", \"secret\", \"\", \"\") = 0\n");
    expectState(1, 1);
}

TEST_F(Connection, ExitEndsWhatWasBegun)
{
    EXPECT_EQ(record(QvExit).story, story(R"(
= 1 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
    firstConnect(0);
    UserLoggedOn = 0;
    EXPECT_EQ(record(QvExit).calls, "QV_Close_Env() = 0\n");
    expectState(0, 0);
    expectLogsClosed();
}

TEST_F(Connection, ExitDestroysListAndReportLogsOffAndClosesEverything)
{
    connect(2);
    ASSERT_EQ(QV_Create_Object(&QV_ObjPtr, "BomHeader"), 0);
    ASSERT_EQ(QV_Create_Report(&QV_RepPtr, "IndentedRetrievalStrmElm", "ExplosionRetrieval"), 0);
    ASSERT_EQ(QV_Generate_Report(QV_RepPtr, &QV_ListPtr), 0);
    EXPECT_EQ(record(QvExit).story, story(R"(
DestroyListOrReport:
2 @-----Start-------. > QV_Destroy_Report(report1) = 0
> QV_Destroy_List(list1) = 0
2 @-----Exit--------.
QvExit:
> QV_Logoff() = 0
> QV_Close_Env() = 0
= 1 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
    expectState(0, 0);
    expectLogsClosed();
    EXPECT_NE(QV_ObjPtr, nullptr) << "the object is not the connection's to destroy";
}

TEST_F(Connection, AnExitThatFailsLeavesTheConnectionAndClosesTheLogs)
{
    connect();
    standin::answer("QV_Logoff", -7, {{"E1", "Busy"}});
    EXPECT_EQ(record(QvExit).story, story(R"(
QvExit:
> QV_Logoff() = -7
! E1 - Busy
= 1 FromList= entries=0 LastRecNo=0 QV_RC=-7 SelectedAttribute=[]
)"));
    expectState(1, 1);
    expectLogsClosed();

    restart();
    connect();
    standin::answer("QV_Close_Env", -7, {{"E1", "Busy"}});
    EXPECT_EQ(record(QvExit).story, story(R"(
QvExit:
> QV_Logoff() = 0
> QV_Close_Env() = -7
! E1 - Busy
= 1 FromList= entries=0 LastRecNo=0 QV_RC=-7 SelectedAttribute=[]
)"));
    expectState(1, 0);
    expectLogsClosed();
}

TEST_F(Connection, AfterAnExitTheConnectionComesBackAndTheLogsDoNot)
{
    connect(0);
    captureOutput(QvExit);
    standin::answer("QV_Logon", -7, {{"E1", "Refused"}});
    const Outcome refused = record(logOn);
    EXPECT_EQ(refused.calls, "QV_Open_Env() = 0\nQV_Logon(\"jdoe\", \"secret\", \"\", \"\") = -7\n");
    EXPECT_EQ(countLines(refused.output, "****** Refused ."), 1);
    EXPECT_EQ(refused.accessLog + refused.errorLog, "");
    EXPECT_EQ(lastError(), version) << "without an error log only the reset is written";
    expectLogsClosed();
}

} // namespace
