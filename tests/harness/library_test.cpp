// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

#include <algorithm>
#include <cstring>
#include <iterator>

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

void Stories::tell(const std::string& raw) const
{
    for (const auto& [level, told] : told_) {
        EXPECT_EQ(told, story(raw, level)) << "at trace level " << level;
    }
}

void LibraryTest::restart()
{
    endProcess();
    startProcess();
}

void LibraryTest::atEachLevel(const std::function<void()>& test)
{
    for (const int level : {-1, 0, 1, 2, 3, 4, 5, 8, 9}) {
        SCOPED_TRACE("at trace level " + std::to_string(level));
        restart();
        connect(level);
        test();
    }
}

Stories LibraryTest::storiesOf(const std::function<int()>& use)
{
    Stories stories;
    atEachLevel([&] { stories.add(QVL_Traces_Level, record(use).story); });
    return stories;
}

void LibraryTest::setEnvironment(const std::string& name, const std::optional<std::string>& value)
{
    environment_->set(name, value);
}

void LibraryTest::connect(int level)
{
    setEnvironment("QVL_TRACE_LEVEL", std::to_string(level));
    setEnvironment("QVL_LOG_FILE", accessLogPath);
    captureOutput([] { EXPECT_EQ(QvConnect("jdoe", "secret"), 1); });
    ASSERT_EQ(QVL_Traces_Level, level);
    standin::forgetCalls();
}

Outcome LibraryTest::record(const std::function<int()>& use)
{
    standin::forgetCalls();
    return recordStory(use, accessLogPath, errorLogPath);
}

void LibraryTest::setFromList(const std::string& kind)
{
    std::fill(std::begin(FromList), std::end(FromList), '\0');
    kind.copy(FromList, sizeof FromList - 1);
}

void LibraryTest::makeListResult(const std::vector<standin::Record>& records)
{
    standin::script().records = records;
    ASSERT_EQ(QV_Create_List(&QV_ListPtr, "EngineeringChange"), 0);
    setFromList("List");
    entries = static_cast<int>(records.size());
    LastRecNo = -1;
    standin::forgetCalls();
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
    standin::reset();
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
