// SPDX-License-Identifier: Apache-2.0
#include <utility>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class Logging : public LibraryTest {
protected:
    static Outcome log(const std::function<void()>& use)
    {
        return record([&] {
            use();
            return 0;
        });
    }
};

TEST_F(Logging, JoinsOneToSixTextsWithSingleBlanksWhateverTheLevel)
{
    connect(-1);
    const auto outcome = log([] {
        QVL_Log(Text("a"));
        QVL_Log(Text("a"), Text("b"));
        QVL_Log(Text("a"), Text("b"), Text("c"));
        QVL_Log(Text("a"), Text("b"), Text("c"), Text("d"));
        QVL_Log(Text("a"), Text("b"), Text("c"), Text("d"), Text("e"));
        QVL_Log(Text("a"), Text("b"), Text("c"), Text("d"), Text("e"), Text(" f "));
        QVL_Log(Text("     "), Text(""), Text("%s%n"));
        QVL_Log(nullptr);
        QVL_Log(nullptr, Text("b"), nullptr);
    });
    EXPECT_EQ(outcome.accessLog, "a\na b\na b c\na b c d\na b c d e\na b c d e  f \n       %s%n\n\n b \n");
    EXPECT_EQ(outcome.output + outcome.calls, "");
}

TEST_F(Logging, WritesLongTextsWhole)
{
    connect();
    for (const std::size_t size : std::initializer_list<std::size_t>{
             1021, 1022, 1023, 1024, 10000}) { // about what a line holds by itself
        const std::string text(size, 'x');
        EXPECT_EQ(log([&] { QVL_Log(Text("a"), Text(text)); }).accessLog, "a " + text + '\n');
    }
}

TEST_F(Logging, DoesNothingWhileTheAccessLogIsClosed)
{
    const auto logSomething = [] { QVL_Log(Text("a"), nullptr); };
    EXPECT_EQ(log(logSomething).story, log([] {}).story);
    connect();
    captureOutput([] { QvExit(); });
    EXPECT_EQ(log(logSomething).story, log([] {}).story);
}

TEST_F(Logging, WithoutAnAccessLogCallsAreTracedAllTheSame)
{
    connect(5);
    const auto start = [] { return record([] { return MultiSaveStart(); }).output; };
    const std::string logged = start();
    std::FILE* const file = std::exchange(QVL_Log_File, nullptr);
    EXPECT_NE(logged.find(" QV_Start_MultiSave "), std::string::npos) << logged;
    EXPECT_EQ(start(), logged);
    QVL_Log_File = file;
}

/** A log that counts the writes that reach it. */
struct CountingLog {
    int writes = 0;
    std::string content;

    static ssize_t write(void* self, const char* text, std::size_t size)
    {
        auto& log = *static_cast<CountingLog*>(self);
        ++log.writes;
        log.content.append(text, size);
        return static_cast<ssize_t>(size);
    }
};

TEST_F(Logging, WritesEachLineAtOnceAndInOneWrite)
{
    CountingLog log;
    cookie_io_functions_t functions = {};
    functions.write = &CountingLog::write;
    QVL_Log_File = fopencookie(&log, "w", functions);
    ASSERT_NE(QVL_Log_File, nullptr);

    QVL_Log(Text("first"), Text("line"));
    EXPECT_EQ(log.content, "first line\n");
    QVL_Log(Text("second"));
    EXPECT_EQ(log.content, "first line\nsecond\n");
    EXPECT_EQ(log.writes, 2);
}

} // namespace
