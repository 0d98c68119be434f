// SPDX-License-Identifier: Apache-2.0
//
// The operations of documents and product structure that use at most 19 defaults.
#include <array>
#include <ostream>

#include "tests/harness/library_test.h"

using harness::countLines;
using harness::Outcome;
using harness::Text;

namespace {

struct Operation {
    const char* name;
    std::function<int()> run;
    /** Whether the defaults are set on the object, and not only written down. */
    bool setsThem;
};

void PrintTo(const Operation& operation, std::ostream* stream)
{
    *stream << operation.name;
}

class DefaultLimit : public harness::LibraryTest, public ::testing::WithParamInterface<Operation> {
protected:
    Outcome runWith(int count)
    {
        restart();
        std::string file;
        for (const std::string& name : harness::numberedNames("attribute", count)) {
            file += std::string(GetParam().name) + ' ' + name + " value\n";
        }
        harness::writeFile("QVL_RZM_DEFAULT", file);
        standin::setRecords({{}});
        connect(0);
        return record(GetParam().run);
    }
};

TEST_P(DefaultLimit, TheFirst19AreUsedAndTheRestIsReported)
{
    const Outcome fitting = runWith(19);
    const int set = GetParam().setsThem ? 19 : 0;
    EXPECT_EQ(countLines(fitting.calls, "\"attribute"), set);

    const Outcome outcome = runWith(25);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.calls, fitting.calls);
    EXPECT_EQ(outcome.errorLog, fitting.errorLog);
    EXPECT_EQ(countLines(outcome.output), countLines(fitting.output) + 1);
    EXPECT_EQ(countLines(outcome.accessLog), countLines(fitting.accessLog) + 1);
    for (const std::string& told : {outcome.output, outcome.accessLog}) {
        const std::size_t number = told.find(" 6 ");
        ASSERT_NE(number, std::string::npos) << told;
        const std::size_t line = told.rfind('\n', number) + 1; // 0 when there is none before
        EXPECT_EQ(told.find(GetParam().name, line), line);
    }
}

std::vector<Operation> limitedOperations()
{
    static std::array<char, 50> number{};
    static std::array<char, 50> identifier{};
    return {
        {"DocumentCreateCheckIn",
         [] { return DocumentCreateCheckIn(Text("EC-1"), Text("T"), Text("oid"), nullptr); }, true},
        {"DocumentCheckOut", [] { return DocumentCheckOut(Text(""), Text("D-1"), Text("1"), nullptr); },
         true},
        {"DocumentCheckIn", [] { return DocumentCheckIn(Text(""), Text("D-1"), Text("1"), nullptr); }, true},
        {"DocumentCancelCheckOut",
         [] { return DocumentCancelCheckOut(Text(""), Text("D-1"), Text("1"), nullptr); }, true},
        {"DocumentMakeNewRevision",
         [] {
             return DocumentMakeNewRevision(Text("EC-1"), Text("D-1"), Text("1"), Text("T"), Text("oid"),
                                            nullptr, number.data(), identifier.data());
         },
         true},
        {"DocumentMakeECControlled",
         [] { return DocumentMakeECControlled(Text("EC-1"), Text("D-1"), Text("1"), "T", nullptr); }, false},
        {"BomHeaderCreate",
         [] {
             standin::answer("QV_Open_Object", -7); // or none is set
             return BomHeaderCreate(Text("EC-1"), Text("BR-1"), nullptr);
         },
         true},
        {"ItemReferenceCreate",
         [] {
             return ItemReferenceCreate(Text("EC-1"), Text("BR-1"), Text("D-1"), Text("1"), Text("oid"),
                                        nullptr);
         },
         true},
    };
}

INSTANTIATE_TEST_SUITE_P(Operations, DefaultLimit, ::testing::ValuesIn(limitedOperations()),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
