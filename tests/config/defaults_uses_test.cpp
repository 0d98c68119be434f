// SPDX-License-Identifier: Apache-2.0
//
// What "velrzm defaults check" knows about the operations, against what the operations do.
#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <set>

#include "tests/harness/library_test.h"
#include "tests/sweep/operations.h"
#include "tools/defaults_uses.h"

using harness::Outcome;
using harness::Text;
using harness::textList;
using tools::DefaultsUse;

namespace {

constexpr const char* marker = "marked";

/** The operation without any input that it can do without; others are used as the sweep does. */
std::function<int()> barely(const sweep::Operation& operation)
{
    const auto withLists = [](auto function) {
        return [function] {
            auto none = textList(std::vector<std::string>());
            return function(Text("EC-1"), Text("BR-1"), Text("bracket"), Text(""), none, none, none);
        };
    };
    static std::array<char, 50> number{};
    static std::array<char, 50> identifier{};
    const std::map<std::string, std::function<int()>> bare = {
        {"EngineeringChangeCreate", [] { return EngineeringChangeCreate("EC-1", "", "", "", ""); }},
        {"ItemCreate", withLists(ItemCreate)},
        {"ItemSave", withLists(ItemSave)},
        {"ItemPUEffectivityCreate", withLists(ItemPUEffectivityCreate)},
        {"DocumentMakeNewRevision", [] {
             return DocumentMakeNewRevision(Text(""), Text("D-1"), Text("1"), Text("T"), Text("oid"), nullptr,
                                            number.data(), identifier.data());
         }}};
    const auto found = bare.find(operation.name);
    return found == bare.end() ? operation.run : found->second;
}

/** All operations that there are, with a reader of translation tables that the sweep leaves out. */
std::vector<sweep::Operation> operations()
{
    std::vector<sweep::Operation> all = sweep::allOperations();
    all.push_back({"XlatRead",
                   [] {
                       auto from = textList(std::vector<std::string>());
                       auto to = from;
                       return XlatRead(VELUnicodeString("units"), from, to);
                   },
                   [] {},
                   "",
                   {},
                   {}});
    return all;
}

class DefaultsUses : public harness::LibraryTest, public ::testing::WithParamInterface<sweep::Operation> {
protected:
    static const DefaultsUse* use()
    {
        const auto& uses = tools::defaultsUses();
        const auto found = std::find_if(uses.begin(), uses.end(), [](const DefaultsUse& candidate) {
            return candidate.operation == GetParam().name;
        });
        return found == uses.end() ? nullptr : &*found;
    }

    /** Uses the operation with defaults of every name that entries may have. */
    Outcome runWith(int pairs, const std::function<int()>& run, int traceLevel = 0)
    {
        restart();
        connect(traceLevel);
        GetParam().prepare();
        setEnvironment("QVL_BOM_HEADER_CREATE", std::nullopt);
        if (GetParam().name == "BomHeaderCreate") {
            standin::answer("QV_Open_Object", -7); // only a new header has defaults
        }
        std::string file;
        for (const DefaultsUse& known : tools::defaultsUses()) {
            file += std::string(known.entries) + ' ' + marker + " of" + known.entries + '\n';
            for (const std::string& name : harness::numberedNames("attribute", pairs - 1)) {
                file += std::string(known.entries) + ' ' + name + " value\n";
            }
        }
        harness::writeFile("QVL_RZM_DEFAULT", file);
        return record(run);
    }
};

TEST_P(DefaultsUses, TheEntriesAreThoseOfTheTable)
{
    const std::string output = runWith(1, GetParam().run, 5).output;
    EXPECT_EQ(harness::countLines(output, "DefaultRead-----Start"), use() == nullptr ? 0 : 1);
    for (const DefaultsUse& known : tools::defaultsUses()) {
        const std::string read = std::string("DefaultRead- ") + marker + "=of" + known.entries;
        const bool expected = use() != nullptr && std::string(use()->entries) == known.entries;
        EXPECT_EQ(harness::countLines(output, read) > 0, expected) << known.entries;
    }
}

TEST_P(DefaultsUses, WhatIsSetAfterwardsIsThatOfTheTable)
{
    runWith(1, barely(GetParam()));
    const auto& calls = standin::calls();
    const auto isSetting = [](const standin::Call& call) { return call.function == "QV_Set_Object_Attr"; };
    const auto isMarker = [&](const standin::Call& call) { return isSetting(call) && call.hasText(marker); };
    const auto marked = std::find_if(calls.begin(), calls.end(), isMarker);
    const bool setsThem = use() != nullptr && use()->effect == DefaultsUse::Effect::SetOnObject;
    ASSERT_EQ(marked != calls.end(), setsThem);
    std::set<std::string> afterwards;
    std::for_each(marked, calls.end(), [&](const standin::Call& call) {
        if (isSetting(call) && !isMarker(call) && call.arguments[0] == marked->arguments[0]) {
            afterwards.insert(call.arguments[1]);
        }
    });
    std::set<std::string> expected;
    for (const std::string& name : use() == nullptr ? std::vector<std::string>() : use()->setAfterwards) {
        expected.insert('"' + name + '"');
    }
    EXPECT_EQ(afterwards, expected);
}

TEST_P(DefaultsUses, TheLimitIsThatOfTheTable)
{
    const Outcome outcome = runWith(tools::defaultsLimit + 1, GetParam().run);
    const bool isLimited = use() != nullptr && use()->limit == DefaultsUse::Limit::First19;
    EXPECT_EQ(harness::countLines(outcome.output, " 1 default attributes beyond the first 19"), isLimited);
}

INSTANTIATE_TEST_SUITE_P(Operations, DefaultsUses, ::testing::ValuesIn(operations()),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
