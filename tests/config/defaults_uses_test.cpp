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
#include "tools/site_files/defaults_uses.h"

using harness::Text;
using harness::textList;
using tools::DefaultsUse;

namespace {

constexpr const char* marker = "marked";

using Use = std::function<int(sweep::Inputs&)>;

/** The operation without any input that it can do without; others are used as the sweep does. */
Use barely(const sweep::Operation& operation)
{
    const auto withLists = [](auto function) {
        return [function](sweep::Inputs& /*inputs*/) {
            auto none = textList(std::vector<std::string>());
            return function(Text("EC-1"), Text("BR-1"), Text("bracket"), Text(""), none, none, none);
        };
    };
    const std::map<std::string, Use> bare = {
        {"EngineeringChangeCreate",
         [](sweep::Inputs& /*inputs*/) { return EngineeringChangeCreate("EC-1", "", "", "", ""); }},
        {"ItemCreate", withLists(ItemCreate)},
        {"ItemSave", withLists(ItemSave)},
        {"ItemPUEffectivityCreate", withLists(ItemPUEffectivityCreate)},
        {"DocumentMakeNewRevision", [](sweep::Inputs& /*inputs*/) {
             std::array<char, 50> number{};
             std::array<char, 50> identifier{};
             return DocumentMakeNewRevision(Text(""), Text("D-1"), Text("1"), Text("T"), Text("oid"), nullptr,
                                            number.data(), identifier.data());
         }}};
    const auto found = bare.find(operation.name);
    return found == bare.end() ? operation.run : found->second;
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
};

TEST_P(DefaultsUses, EntriesAndLimitAreThoseThatTheSweepFinds)
{
    ASSERT_EQ(use() != nullptr, !GetParam().defaults.empty());
    if (use() != nullptr) {
        EXPECT_EQ(use()->entries, GetParam().defaults);
        EXPECT_EQ(use()->limit == DefaultsUse::Limit::First19,
                  GetParam().defaultsUsed == tools::defaultsLimit);
    }
}

TEST_P(DefaultsUses, WhatIsSetAfterwardsIsThatOfTheTable)
{
    connect();
    sweep::prepare(GetParam());
    setEnvironment("QVL_BOM_HEADER_CREATE", std::nullopt);
    if (GetParam().name == "BomHeaderCreate") {
        standin::answer("QV_Open_Object", -7); // only a new header has defaults
    }
    harness::writeFile("QVL_RZM_DEFAULT", GetParam().defaults + ' ' + marker + " value\n");
    sweep::Inputs inputs("EC-1", {});
    record([&] { return barely(GetParam())(inputs); });
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

INSTANTIATE_TEST_SUITE_P(Operations, DefaultsUses, ::testing::ValuesIn(sweep::allOperations()),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
