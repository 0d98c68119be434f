// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class Logging : public LibraryTest {};

TEST_F(Logging, JoinsOneToSixTextsWithSingleBlanksAtEveryLevel)
{
    atEachLevel([] {
        const auto outcome = record([] {
            QVL_Log(Text("a"));
            QVL_Log(Text("a"), Text("b"));
            QVL_Log(Text("a"), Text("b"), Text("c"));
            QVL_Log(Text("a"), Text("b"), Text("c"), Text("d"));
            QVL_Log(Text("a"), Text("b"), Text("c"), Text("d"), Text("e"));
            QVL_Log(Text("a"), Text("b"), Text("c"), Text("d"), Text("e"), Text(" f "));
            QVL_Log(Text(""));
            QVL_Log(Text("     "), Text(""), Text("%s%n"));
            return 0;
        });
        EXPECT_EQ(outcome.accessLog, "a\na b\na b c\na b c d\na b c d e\na b c d e  f \n\n       %s%n\n");
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.calls, "");
    });
}

TEST_F(Logging, WritesNullTextsAsEmptyOnes)
{
    connect();
    const auto outcome = record([] {
        QVL_Log(nullptr);
        QVL_Log(nullptr, nullptr);
        QVL_Log(nullptr, Text("b"), nullptr);
        QVL_Log(Text("a"), nullptr, nullptr, Text("d"));
        QVL_Log(Text("a"), nullptr, Text("c"), nullptr, Text("e"));
        QVL_Log(nullptr, nullptr, nullptr, nullptr, nullptr, Text("f"));
        return 0;
    });
    EXPECT_EQ(outcome.accessLog, "\n \n b \na   d\na  c  e\n     f\n");
}

TEST_F(Logging, WritesLongTextsWhole)
{
    connect();
    const std::string text(10000, 'x');
    const auto outcome = record([&] {
        QVL_Log(Text(text));
        QVL_Log(Text(text), Text(text), Text(text), Text(text), Text(text), Text(text));
        return 0;
    });
    std::string six = text;
    for (int more = 0; more < 5; ++more) {
        six += ' ' + text;
    }
    EXPECT_EQ(outcome.accessLog, text + '\n' + six + '\n');
}

TEST_F(Logging, DoesNothingWhileTheAccessLogIsClosed)
{
    const auto before = record([] {
        QVL_Log(Text("a"));
        QVL_Log(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        return 0;
    });
    EXPECT_EQ(before.output + before.accessLog + before.errorLog, "");

    connect();
    captureOutput([] { QvExit(); });
    const auto after = record([] {
        QVL_Log(Text("a"), Text("b"));
        return 0;
    });
    EXPECT_EQ(after.output + after.accessLog + after.errorLog, "");
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
    EXPECT_EQ(log.writes, 1);
    QVL_Log(Text("second"));
    EXPECT_EQ(log.content, "first line\nsecond\n");
    EXPECT_EQ(log.writes, 2);
}

} // namespace
