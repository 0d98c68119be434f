// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

using Logging = LibraryTest;

TEST_F(Logging, JoinsOneToSixTextsWithSingleBlanksWhateverTheLevel)
{
    connect(-1);
    const auto outcome = record([] {
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
        EXPECT_EQ(record([&] { QVL_Log(Text("a"), Text(text)); }).accessLog, "a " + text + '\n');
    }
}

TEST_F(Logging, DoesNothingWhileTheAccessLogIsClosed)
{
    const auto logSomething = [] { QVL_Log(Text("a"), nullptr); };
    EXPECT_EQ(record(logSomething).story, record([] {}).story);
    connect();
    captureOutput([] { QvExit(); });
    EXPECT_EQ(record(logSomething).story, record([] {}).story);
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

/** The log is a pipe that keeps writes apart: a reading gives what one write handed over. */
TEST_F(Logging, WritesEachLineAtOnceAndInOneWrite)
{
    ASSERT_EQ(::mkfifo("access.log", 0600), 0);
    const int pipe = ::open("access.log", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 4096> packet{};
    const auto next = [&] {
        const ssize_t size = ::read(pipe, packet.data(), packet.size());
        return std::string(packet.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
    };
    connect();
    ASSERT_EQ(::fcntl(::fileno(QVL_Log_File), F_SETFL, O_DIRECT), 0);
    while (!next().empty()) {
    }
    for (const std::string& text : {std::string("text"), std::string(4000, 'x')}) {
        QVL_Log(Text("a"), Text(text));
        EXPECT_EQ(next(), "a " + text + '\n');
        EXPECT_EQ(next(), "");
    }
    ::close(pipe);
}

} // namespace
