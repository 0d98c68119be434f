// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

#include <cstring>

namespace harness {

namespace {

constexpr const char* accessLogPath = "access.log";
constexpr const char* errorLogPath = "QVL_LOG_ERROR";

void closeLog(std::FILE*& log)
{
    if (log != nullptr) {
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the library's logs are plain streams
        EXPECT_EQ(std::fclose(log), 0);
        log = nullptr;
    }
}

void resetGlobals()
{
    EnvOpened = 0;
    UserLoggedOn = 0;
    QVL_Traces_Level = 0;
    QVL_Traces_FirstTime = 1;
    QVL_Log_FirstTime = 1;
    QVL_ErrLog_FirstTime = 1;
    QV_ObjPtr = nullptr;
    QV_ListPtr = nullptr;
    QV_RepPtr = nullptr;
    QV_RC = 0;
    entries = 0;
    LastRecNo = 0;
    LastAttNo = 0;
    NbSelectedAttribute = 0;
    MultiSaveStarted = 0;
    std::memset(FromList, 0, sizeof FromList);
    std::memset(SelectedAttribute, 0, sizeof SelectedAttribute);
}

} // namespace

void LibraryTest::restart()
{
    endProcess();
    startProcess();
}

void LibraryTest::setEnvironment(const std::string& name, const std::optional<std::string>& value)
{
    environment_->set(name, value);
}

void LibraryTest::setLevel(int level)
{
    setEnvironment("QVL_TRACE_LEVEL", std::to_string(level));
    setEnvironment("QVL_LOG_FILE", accessLogPath);
}

void LibraryTest::connect(int level)
{
    setLevel(level);
    captureOutput([] { EXPECT_EQ(QvConnect("jdoe", "secret"), 1); });
    ASSERT_EQ(QVL_Traces_Level, level);
    standin::state().calls.clear();
}

Outcome LibraryTest::recordCalls(const std::function<int()>& use)
{
    standin::state().calls.clear();
    return recordStory(use, accessLogPath, errorLogPath);
}

void LibraryTest::startProcess()
{
    directory_.emplace();
    environment_.emplace();
    for (const char* const name :
         {"QVL_TRACE_LEVEL", "QVL_LOG_FILE", "QVL_LOG_ERROR", "QVL_LAST_ERROR", "RZM_DEFAULT_DIRECTORY",
          "QV_MULTI_SAVE", "QVL_BOM_HEADER_CREATE", "USER"}) {
        setEnvironment(name, std::nullopt);
    }
    resetGlobals();
    standin::state() = standin::State();
}

void LibraryTest::endProcess()
{
    EXPECT_EQ(standin::violations({QV_ObjPtr, QV_ListPtr, QV_RepPtr}), "");
    closeLog(QVL_Log_File);
    closeLog(QVL_ErrLog_File);
    environment_.reset();
    directory_.reset();
}

} // namespace harness
