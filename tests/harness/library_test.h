// SPDX-License-Identifier: Apache-2.0
//
// The fixture of every test of the library: a process as it is right after loading, in an empty working
// directory, with the stand-in behind the server interface. At the end no handle may have been misused or
// leaked.
#ifndef VELRZM_TESTS_HARNESS_LIBRARY_TEST_H
#define VELRZM_TESTS_HARNESS_LIBRARY_TEST_H

#include <functional>
#include <optional>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>
#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
#include "tests/harness/story.h"
#include "tests/harness/texts.h"
#include "tests/standin/standin.h"

namespace harness {

class LibraryTest : public ::testing::Test {
protected:
    static constexpr const char* version = "RZM 424.1 / QV 340";

    void SetUp() override { startProcess(); }
    void TearDown() override { endProcess(); }

    /** Ends the process, in effect, and starts another one: for a test that goes through several cases. */
    void restart();
    /** Sets an environment variable for the rest of the process; removes it when there is no value. */
    void setEnvironment(const std::string& name, const std::optional<std::string>& value);
    /** Sets the trace level for the first connection, and the logs to access.log and ./QVL_LOG_ERROR. */
    void setLevel(int level);
    /** Connects at a trace level, with the logs in access.log and ./QVL_LOG_ERROR; forgets the calls of it.
     */
    void connect(int level = 0);
    /** Runs `use` and gathers what it did; calls are counted afresh. */
    template <class Use>
    static Outcome record(const Use& use)
    {
        return recordCalls([&] {
            if constexpr (std::is_void_v<decltype(use())>) {
                return use(), 0;
            } else {
                return use();
            }
        });
    }
    static std::string lastError() { return readFile("QVL_LAST_ERROR"); }

private:
    static Outcome recordCalls(const std::function<int()>& use);
    void startProcess();
    void endProcess();

    std::optional<TemporaryDirectory> directory_;
    std::optional<Environment> environment_;
};

} // namespace harness

#endif
