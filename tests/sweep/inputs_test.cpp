// SPDX-License-Identifier: Apache-2.0
//
// What holds for the inputs of every operation: null counts as empty, long texts arrive whole, the caller's
// texts stay as they are or turn to upper case, and names and defaults are used up to the operation's bound.
#include <algorithm>
#include <clocale>
#include <utility>

#include "tests/harness/library_test.h"
#include "tests/sweep/operations.h"

using namespace harness;
using sweep::Inputs;
using sweep::Operation;

namespace {

using Texts = std::vector<std::string>;

class OperationInputs : public LibraryTest, public ::testing::WithParamInterface<Operation> {
protected:
    /** The operation in a new process. */
    Outcome runAt(int level, Inputs inputs)
    {
        restart();
        connect(level);
        sweep::prepare(GetParam());
        return run(inputs);
    }
    static Outcome run(Inputs& inputs)
    {
        return record([&] { return GetParam().run(inputs); });
    }
    static void writeDefaults(int count)
    {
        std::string file;
        for (const std::string& name : numberedNames("attribute", count)) {
            file += GetParam().defaults + ' ' + name + " value\n";
        }
        writeFile("QVL_RZM_DEFAULT", file);
    }
    /** `more` has one line more than `less` on standard output and in the access log, a warning of the operation. */
    static void expectOneWarning(const Outcome& more, const Outcome& less, const std::string& text)
    {
        const std::string prefix = GetParam().writer();
        EXPECT_EQ(countLines(more.output), countLines(less.output) + 1);
        EXPECT_EQ(countLines(more.output, prefix + "- ****** WARNING ****** " + text), 1) << more.output;
        EXPECT_EQ(countLines(more.accessLog), countLines(less.accessLog) + 1);
        EXPECT_EQ(countLines(more.accessLog, prefix + " ****** WARNING ****** " + text), 1);
        EXPECT_EQ(more.errorLog, less.errorLog);
    }
};

TEST_P(OperationInputs, NullCountsAsEmpty)
{
    EXPECT_EQ(runAt(5, Inputs(std::nullopt, {})).story, runAt(5, Inputs("", {})).story);
}

TEST_P(OperationInputs, LongTextsArriveWholeOrNotAtAll)
{
    const std::string text(10000, 'n');
    const std::string upper(10000, 'N');
    const Outcome outcome = runAt(2, Inputs(text, {"id"}));
    EXPECT_EQ(outcome.result > 0, GetParam().carriers > 0);
    EXPECT_EQ(countLines(outcome.calls, '"' + text + '"') + countLines(outcome.calls, '"' + upper + '"'),
              GetParam().carriers);
    EXPECT_EQ(countLines(outcome.calls, "nnn") + countLines(outcome.calls, "NNN"), GetParam().carriers);
    EXPECT_GT(countLines(outcome.output, text) + countLines(outcome.output, upper), 0);
    if (GetParam().joinsInputs) {
        EXPECT_EQ(outcome.accessLog.find('\n'), GetParam().name.size() + 1 + 255) << "cut in the log alone";
    }
}

TEST_P(OperationInputs, KeysAreTurnedToUpperCaseByTheRuleOfTheOperation)
{
    const std::string text = "eC-1 {\xe4z}/2";
    for (const auto& [locale, umlaut] : {std::pair("C", "\xe4"), std::pair("de_DE.ISO-8859-1", "\xc4")}) {
        const std::string ascii = "EC-1 {\xe4Z}/2";
        const std::string classified = std::string("EC-1 {") + umlaut + "Z}/2";
        restart();
        connect();
        sweep::prepare(GetParam());
        setEnvironment("LOCPATH", LOCALES);
        ASSERT_STREQ(std::setlocale(LC_CTYPE, locale), locale);
        Inputs inputs(text, {});
        const Outcome outcome = run(inputs);
        std::setlocale(LC_CTYPE, "C");
        EXPECT_GT(outcome.result, 0);
        const std::string& rules = GetParam().texts;
        for (std::size_t number = 0; number < rules.size(); ++number) {
            const char rule = rules[number];
            const std::string& turned = rule == 'U' ? classified : ascii;
            EXPECT_EQ(inputs.textAfterwards(number), rule == 'U' || rule == 'A' ? turned : text)
                << "text " << number << " in the locale " << locale;
        }
        if (const auto copies = std::count(rules.begin(), rules.end(), 'c'); copies > 0) {
            EXPECT_EQ(countLines(outcome.calls, '"' + classified + '"'), copies) << locale;
        }
    }
}

using LimitedInputs = OperationInputs;

TEST_P(LimitedInputs, FitTheirClauseOrAreRefused)
{
    const std::string longest(GetParam().limit, 'x');
    const Outcome whole = runAt(0, Inputs(longest, {}));
    EXPECT_GT(whole.result, 0);
    EXPECT_EQ(countLines(whole.calls, ",'" + longest + "')\""), 1);
    const Outcome refused = runAt(0, Inputs(longest + 'x', {}));
    EXPECT_EQ(refused.result, 0);
    EXPECT_EQ(entries, 0);
    EXPECT_EQ(QV_RC, -1);
    EXPECT_EQ(countLines(refused.calls, "\"Where\"") + countLines(refused.calls, "QV_Open_List"), 0);
    const std::string told = GetParam().limited + " has " + std::to_string(longest.size() + 1) +
                             " characters; at most " + std::to_string(longest.size()) + " fit";
    for (const std::string& channel : {refused.output, refused.accessLog, refused.errorLog, lastError()}) {
        EXPECT_EQ(countLines(channel, told), 1);
    }
}

using NamesToReadBack = OperationInputs;

/** One more slot than the capture fills and slot 0 before a list are left as they were. */
TEST_P(NamesToReadBack, AreCapturedUpToTheBoundAndAllOfThemAskedFor)
{
    connect();
    sweep::prepare(GetParam());
    for (const int count : {0, 1, 28, 29, 30, 31, 48, 49, 50, 51, 60}) {
        SCOPED_TRACE("with " + std::to_string(count) + " names");
        const Texts names = numberedNames("attribute", count);
        const int first = GetParam().firstSlot;
        const int end = std::min(first + count, GetParam().endSlot);
        for (auto& slot : SelectedAttribute) {
            std::string("untouched").copy(slot, sizeof slot - 1);
            slot[9] = '\0';
        }
        Inputs inputs("x", names);
        const Outcome outcome = run(inputs);
        EXPECT_GT(outcome.result, 0);
        EXPECT_EQ(outcome.output, "") << "names beyond the bound are no reason for a message";
        EXPECT_EQ(NbSelectedAttribute, end);
        EXPECT_EQ(countLines(outcome.calls, "\"attribute"), count);
        for (int slot = 0; slot < 50; ++slot) {
            const bool captured = slot >= first && slot < end;
            EXPECT_EQ(SelectedAttribute[slot],
                      captured ? names[static_cast<std::size_t>(slot - first)] : "untouched");
        }
    }
}

TEST_P(NamesToReadBack, ThatDoNotFitASlotAreCapturedCutAskedForWholeAndReported)
{
    const std::string fitting(49, 'f');
    const std::string longer(50, 'l');
    const std::string endless(10000, 'e');
    const Outcome plain = runAt(0, Inputs("x", {fitting, "b", "c", "last"}));
    const Outcome outcome = runAt(0, Inputs("x", {fitting, longer, endless, "last"}));
    EXPECT_EQ(outcome.result, plain.result);
    const int first = GetParam().firstSlot;
    const Texts captured(SelectedAttribute + first, SelectedAttribute + first + 4);
    EXPECT_EQ(captured, Texts({fitting, longer.substr(0, 49), endless.substr(0, 49), "last"}));
    for (const std::string& name : {fitting, longer, endless, std::string("last")}) {
        EXPECT_EQ(countLines(outcome.calls, '"' + name + '"'), 1);
    }
    expectOneWarning(outcome, plain, "2 ");
}

using DefaultAttributes = OperationInputs;

TEST_P(DefaultAttributes, HaveNoHeadingWhenThereAreNone)
{
    connect(2);
    Inputs inputs("x", {});
    const std::string output = run(inputs).output;
    EXPECT_EQ(countLines(output, "Default Attributes") + countLines(output, "default attributes"), 0);
    EXPECT_EQ(countLines(output, " rc(DefaultRead)=0."), 1);
}

TEST_P(DefaultAttributes, AreUsedUpToTheBoundAndTheRestIsReported)
{
    connect();
    sweep::prepare(GetParam());
    const auto runWith = [](int defaults) {
        writeDefaults(defaults);
        Inputs inputs("x", {});
        return run(inputs);
    };
    const Outcome fitting = runWith(GetParam().defaultsUsed);
    EXPECT_EQ(countLines(fitting.calls, "\"attribute"), GetParam().defaultsSet);
    EXPECT_EQ(fitting.output, "");
    if (GetParam().defaultsUsed < 60) {
        const Outcome outcome = runWith(25);
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(countLines(outcome.calls), countLines(fitting.calls));
        EXPECT_EQ(countLines(outcome.calls, "\"attribute" + std::to_string(GetParam().defaultsUsed) + '"'),
                  GetParam().defaultsSet > 0 ? 1 : 0);
        expectOneWarning(outcome, fitting, "6 ");
    }
}

std::vector<Operation> operationsThat(const std::function<bool(const Operation&)>& fit)
{
    std::vector<Operation> some;
    for (const Operation& operation : sweep::allOperations()) {
        if (fit(operation)) {
            some.push_back(operation);
        }
    }
    return some;
}

std::string nameOf(const ::testing::TestParamInfo<Operation>& tested)
{
    return tested.param.name;
}

INSTANTIATE_TEST_SUITE_P(Operations, OperationInputs, ::testing::ValuesIn(sweep::allOperations()), nameOf);
INSTANTIATE_TEST_SUITE_P(Operations, LimitedInputs,
                         ::testing::ValuesIn(operationsThat([](const auto& each) { return each.limit > 0; })),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(
    Operations, NamesToReadBack,
    ::testing::ValuesIn(operationsThat([](const auto& each) { return each.endSlot > 0; })), nameOf);
INSTANTIATE_TEST_SUITE_P(
    Operations, DefaultAttributes,
    ::testing::ValuesIn(operationsThat([](const auto& each) { return each.defaultsUsed > 0; })), nameOf);

} // namespace
