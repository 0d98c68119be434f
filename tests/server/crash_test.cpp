// SPDX-License-Identifier: Apache-2.0
//
// Processes that are killed in the middle of their work.
#include <algorithm>
#include <array>
#include <random>
#include <thread>

#include <crypt.h>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

constexpr int savesOfBracket = 5;
constexpr int answersOfBracket = savesOfBracket + 2; // with those of the start and of the commit
constexpr int bracketsOfWriter = 3;

class CrashTest : public StoreFileTest {
protected:
    /** Gives the user a hash that is quick to check, since hundreds of processes log on. */
    void SetUp() override
    {
        StoreFileTest::SetUp();
        const std::string hash = crypt("secret", "$5$rounds=1000$storetest");
        QV_Close_Env();
        sql("store.db", "UPDATE user SET password = '" + hash + "'");
        ASSERT_EQ(QV_Open_Env(), 0) << message();
        ASSERT_EQ(logon(), 0) << message();
    }

    static int stored() { return static_cast<int>(query("EngineeringChange").size()); }

    /** The commands of a writer: brackets of saves, one after the other. */
    static std::vector<std::string> brackets(const std::string& writer)
    {
        std::vector<std::string> commands;
        for (int bracket = 0; bracket < bracketsOfWriter; ++bracket) {
            commands.emplace_back("start\n");
            for (int save = 0; save < savesOfBracket; ++save) {
                commands.push_back("create EngineeringChange id=" + writer + '-' + std::to_string(bracket) +
                                   '-' + std::to_string(save) + '\n');
            }
            commands.emplace_back("commit\n");
        }
        return commands;
    }
};

TEST_F(CrashTest, OfAKilledWriterWholeBracketsAreStoredAndNothingElse)
{
    constexpr int writers = 300;
    std::mt19937 random(20261124); // NOLINT(cert-msc32-c,cert-msc51-cpp): the moments differ all the same
    std::uniform_int_distribution<std::size_t> commandsBefore(0, bracketsOfWriter * answersOfBracket - 1);
    std::uniform_int_distribution<int> yieldsBefore(0, 20);
    const OtherSession reader;
    reader.send("watch EngineeringChange " + std::to_string(savesOfBracket) + '\n');
    std::array<int, answersOfBracket> killedAfter = {}; // so many answers of a bracket
    int storedBefore = 0;
    for (int number = 0; number < writers; ++number) {
        OtherSession writer;
        int answers = 0;
        int committed = 0;
        const auto takeAnswer = [&] {
            const std::optional<int> code = writer.answer();
            EXPECT_EQ(code.value_or(0), 0);
            committed += code && ++answers % answersOfBracket == 0 ? 1 : 0;
            return code.has_value();
        };
        const std::vector<std::string> commands = brackets("W" + std::to_string(number));
        const std::size_t last = commandsBefore(random);
        for (std::size_t command = 0; command < last; ++command) {
            writer.send(commands[command]);
            takeAnswer();
        }
        writer.send(commands[last]); // the one that the kill meets
        for (int left = yieldsBefore(random); left > 0; --left) {
            std::this_thread::yield();
        }
        writer.kill();
        while (takeAnswer()) {
        }
        const int more = stored() - storedBefore;
        ASSERT_EQ(more % savesOfBracket, 0) << "half a bracket of writer " << number;
        ASSERT_GE(more / savesOfBracket, committed) << "a commit of writer " << number << " is lost";
        ASSERT_LE(more / savesOfBracket, std::min(committed + 1, bracketsOfWriter)) << "of writer " << number;
        ++killedAfter.at(static_cast<std::size_t>(answers % answersOfBracket));
        storedBefore += more;
    }
    EXPECT_EQ(reader.run("stop"), 0) << "sizes that others read in the middle of a bracket";
    EXPECT_GT(storedBefore, 0);
    EXPECT_EQ(sql("store.db", "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(std::count(killedAfter.begin(), killedAfter.end(), 0), 0)
        << "a step in which no writer was killed";
    EXPECT_NE(create("EngineeringChange", {{"id", "AFTER"}}), "") << message();
}

} // namespace
} // namespace servertest
