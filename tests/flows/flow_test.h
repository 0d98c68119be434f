// SPDX-License-Identifier: Apache-2.0
//
// A user at work through the operations of the library, with the local server and a store on disk behind them.
#ifndef VELRZM_TESTS_FLOWS_FLOW_TEST_H
#define VELRZM_TESTS_FLOWS_FLOW_TEST_H

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"

namespace flowtest {

using harness::Names;
using harness::Text;
using harness::textList;

using Row = std::vector<std::string>;
using Table = std::vector<Row>;

constexpr const char* store = "sqlite:store.db";

/** What a record of the current result has under a name. */
std::string value(const std::string& name, int record = 0);
/** What all of its records have under these names. */
Table result(const std::vector<std::string>& names);
std::vector<std::string> texts(VELListValVELUnicodeString& list);

/** What a use that is to be refused, with the result 0, tells the user. */
std::string refusal(const std::function<int()>& use);

/** Creates an item of the type P; the result is that of the operation. */
int createItem(const std::string& change, const std::string& number, const std::string& name);

/** Logged on, in an empty directory with a store of its own that has the changes EC-1 and EC-2. */
class FlowTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override { QvExit(); }

    harness::TemporaryDirectory directory;
    harness::Environment environment;
};

} // namespace flowtest

#endif
