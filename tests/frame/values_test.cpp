// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <iterator>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

constexpr char canary = '#';

class Values : public LibraryTest {
protected:
    /** Reads by name; the buffer afterwards is in value_. */
    Outcome byName(int record, const char* name)
    {
        clearBuffers();
        return LibraryTest::record([&] { return GetValue(record, name, value_); });
    }
    Outcome bySlot(int record, int slot)
    {
        clearBuffers();
        return LibraryTest::record([&] { return GetAttributeValue(record, slot, name_, value_); });
    }
    void clearBuffers()
    {
        std::fill(std::begin(name_), std::end(name_), canary);
        std::fill(std::begin(value_), std::end(value_), canary);
    }
    void expectBuffers(const std::string& name, const std::string& value) const
    {
        EXPECT_EQ(name_, name);
        EXPECT_EQ(value_, value);
    }
    static void makeObjectResult()
    {
        captureOutput([] { EngineeringChangeOpen(Text("7"), Text("EC-1"), Names({"id", "desc"})); });
    }
    static void makeListResult(int size)
    {
        standin::state().records.assign(static_cast<std::size_t>(size), {{"id", "EC-0"}});
        captureOutput([] { AffectedItemQuery(Text("7"), Names({"id", "desc"})); });
    }

    char name_[50] = {};
    char value_[20000] = {};
};

TEST_F(Values, RecordsAndSlotsOutOfRangeGiveNothing)
{
    const auto expectNothing = [this](const Outcome& outcome, int traceLines) {
        EXPECT_EQ(outcome.result, 0);
        EXPECT_STREQ(value_, "");
        EXPECT_EQ(outcome.calls + outcome.accessLog, "");
        EXPECT_EQ(countLines(outcome.output), traceLines);
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(LastAttNo, 7);
    };
    connect(9);
    for (const int size : {1, 3, 0}) { // the object, and two lists
        size == 1 ? makeObjectResult() : makeListResult(size);
        LastAttNo = 7;
        for (const int record : {-1, size, INT32_MAX, INT32_MIN}) {
            SCOPED_TRACE("record " + std::to_string(record) + " of " + std::to_string(size));
            expectNothing(byName(record, "id"), 2);
            expectNothing(bySlot(record, 0), 1);
            EXPECT_STREQ(name_, "");
        }
        for (const int slot : {-1, 2, 50, INT32_MAX, INT32_MIN}) {
            SCOPED_TRACE("slot " + std::to_string(slot));
            expectNothing(bySlot(0, slot), 1);
            EXPECT_STREQ(name_, "");
        }
        NbSelectedAttribute = 60; // there are 50 slots all the same
        expectNothing(bySlot(0, 50), 1);
    }
}

TEST_F(Values, NullArgumentsNeverCrash)
{
    const auto useNulls = [this](const std::string& name, const std::string& value) {
        int number = -1;
        SizeOfAttributeValue(nullptr, nullptr);
        SizeOfAttributeValue(nullptr, &number);
        EXPECT_EQ(number, NbSelectedAttribute);
        SizeOfAttributeValue(&number, nullptr);
        EXPECT_EQ(number, entries);
        clearBuffers();
        EXPECT_EQ(GetValue(0, nullptr, value_), 1);
        EXPECT_STREQ(value_, "");
        GetValue(0, "id", nullptr);
        GetValue(0, "id", nullptr, 10);
        GetAttributeValue(0, 0, nullptr, nullptr);
        GetAttributeValue(0, 0, nullptr, 10, nullptr, 10);
        GetAttributeValue(0, 0, name_, nullptr);
        GetAttributeValue(0, 0, nullptr, value_);
        expectBuffers(name, value);
    };
    connect(9);
    captureOutput([&] { useNulls("", ""); });
    makeObjectResult();
    standin::state().values["id"] = "EC-7";
    captureOutput([&] { useNulls("id", "EC-7"); });
    makeListResult(3);
    captureOutput([&] { useNulls("id", "EC-0"); });
    captureOutput([] {
        DocumentMakeNewRevision(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    });
}

TEST_F(Values, LongValuesAreReadWholeWithOrWithoutASize)
{
    connect(9);
    makeObjectResult();
    const std::string text(10000, 'd');
    standin::state().values["desc"] = text;
    const Outcome outcome = byName(0, "desc");
    EXPECT_EQ(value_, text);
    EXPECT_EQ(value_[text.size() + 1], canary);
    EXPECT_EQ(countLines(outcome.output, "GetValue- Value=" + text + "-."), 1);
    EXPECT_EQ(countLines(outcome.accessLog, "            desc = " + text), 1);
    LastRecNo = -1;
    EXPECT_EQ(record([&] { return GetValue(0, "desc", value_, sizeof value_); }).story, outcome.story);
}

TEST_F(Values, TheSizedReadersNeverWritePastTheBuffer)
{
    connect();
    makeObjectResult();
    standin::state().values["desc"] = "0123456789";
    const auto expectRead = [](const char* buffer, std::size_t size, const std::string& whole) {
        const char untouched[] = {canary, canary, '\0'};
        EXPECT_EQ(size == 0 ? "" : std::string(buffer), whole.substr(0, size == 0 ? 0 : size - 1));
        EXPECT_EQ(std::string(buffer + size, 2), untouched) << "behind a buffer of " << size;
    };
    for (std::size_t size = 0; size <= 12; ++size) {
        clearBuffers();
        const Outcome named = record([&] { return GetValue(0, "desc", value_, size); });
        EXPECT_EQ(named.result, 1);
        expectRead(value_, size, "0123456789");
        EXPECT_EQ(named.output.empty(), size > 10) << "a cut value is told, a whole one is not";

        clearBuffers();
        record([&] { return GetAttributeValue(0, 1, name_, size, value_, 12 - size); });
        expectRead(name_, size, "desc");
        expectRead(value_, 12 - size, "0123456789");
    }
    EXPECT_EQ(GetValue(1, "desc", value_, 5), 0);
    EXPECT_STREQ(value_, "");
}

} // namespace
