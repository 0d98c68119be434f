// SPDX-License-Identifier: Apache-2.0
//
// What holds for the inputs of every operation: null counts as empty, long texts arrive whole, and the names
// to read back are captured up to the operation's bound.
#include <algorithm>
#include <array>
#include <deque>

#include "tests/harness/library_test.h"

using harness::countLines;
using harness::Names;
using harness::numberedNames;
using harness::Outcome;
using harness::Text;
using harness::textList;

namespace {

using List = VELListValVELUnicodeString;

/**
 * One text for every argument of a use, each time in memory of its own, and the names to read back. Without a
 * text every argument is a null pointer, the array of names too.
 */
class Inputs {
public:
    Inputs(std::optional<std::string> text, const std::vector<std::string>& names)
        : text_(std::move(text)), names_(names), nameList_(textList(names)),
          pair_(textList({text_ ? text_->c_str() : nullptr}))
    {}

    char* text() { return text_ ? copies_.emplace_back(*text_).data() : nullptr; }
    char** names() { return text_ ? static_cast<char**>(names_) : nullptr; }
    List& nameList() { return nameList_; }
    /** The names and the values of one further attribute. */
    List& pair() { return pair_; }

private:
    std::optional<std::string> text_;
    std::deque<std::string> copies_;
    Names names_;
    List nameList_;
    List pair_;
};

struct Operation {
    const char* name;
    std::function<int(Inputs&)> run;
    /** How many server calls carry a given text; 0 when a long one is refused. */
    int calls;
    /** How the names come: an array is captured from slot 0 on, a list from slot 1 on. */
    int firstSlot;
    /** The slot at which the capture ends; 0 when the operation takes no names. */
    int bound;
};

void PrintTo(const Operation& operation, std::ostream* stream)
{
    *stream << operation.name;
}

std::vector<Operation> itemOperations()
{
    return {
        {"AffectedItemCreate",
         [](Inputs& in) { return AffectedItemCreate(in.text(), in.text(), in.text(), in.names()); }, 3, 0,
         30},
        {"AffectedItemQuery", [](Inputs& in) { return AffectedItemQuery(in.text(), in.names()); }, 0, 0, 50},
        {"ItemCreate",
         [](Inputs& in) {
             return ItemCreate(in.text(), in.text(), in.text(), in.text(), in.pair(), in.pair(),
                               in.nameList());
         },
         5, 1, 30},
        {"ItemSave",
         [](Inputs& in) {
             return ItemSave(in.text(), in.text(), in.text(), in.text(), in.pair(), in.pair(), in.nameList());
         },
         5, 1, 30},
        {"ItemHeaderCreate",
         [](Inputs& in) {
             return ItemHeaderCreate(in.text(), in.text(), in.text(), in.text(), in.text(), in.text(),
                                     in.text());
         },
         8, 0, 0},
        {"ItemOpen", [](Inputs& in) { return ItemOpen(in.text(), in.text(), in.nameList()); }, 2, 1, 50},
        {"ItemQuery",
         [](Inputs& in) {
             return ItemQuery(in.text(), in.text(), in.text(), in.text(), in.text(), in.text(), in.text(),
                              in.text(), in.names());
         },
         0, 0, 50},
        {"ItemPUEffectivityCreate",
         [](Inputs& in) {
             return ItemPUEffectivityCreate(in.text(), in.text(), in.text(), in.text(), in.pair(), in.pair(),
                                            in.nameList());
         },
         5, 1, 30},
        {"ItemAssociationOpen",
         [](Inputs& in) { return ItemAssociationOpen(in.text(), in.text(), in.text(), in.names()); }, 3, 0,
         50},
        {"ItemAssociationSave",
         [](Inputs& in) { return ItemAssociationSave(in.text(), in.text(), in.text(), in.names()); }, 3, 0,
         30},
    };
}

std::vector<Operation> documentOperations()
{
    return {
        {"DocumentCreateCheckIn",
         [](Inputs& in) { return DocumentCreateCheckIn(in.text(), in.text(), in.text(), in.names()); }, 3, 0,
         50},
        {"DocumentCheckOut",
         [](Inputs& in) { return DocumentCheckOut(in.text(), in.text(), in.text(), in.names()); }, 3, 0, 50},
        {"DocumentCheckIn",
         [](Inputs& in) { return DocumentCheckIn(in.text(), in.text(), in.text(), in.names()); }, 3, 0, 50},
        {"DocumentCancelCheckOut",
         [](Inputs& in) { return DocumentCancelCheckOut(in.text(), in.text(), in.text(), in.names()); }, 3, 0,
         50},
        {"DocumentMakeNewRevision",
         [](Inputs& in) {
             std::array<char, 10> number{};
             std::array<char, 10> identifier{};
             return DocumentMakeNewRevision(in.text(), Text("D-1"), in.text(), in.text(), in.text(),
                                            in.names(), number.data(), identifier.data());
         },
         4, 0, 50},
        {"DocumentMakeNewRevisionOfDocument", // whose number has to fit a clause
         [](Inputs& in) {
             return DocumentMakeNewRevision(Text(""), in.text(), Text("1"), Text("t"), Text("o"), nullptr,
                                            nullptr, nullptr);
         },
         0, 0, 0},
        {"DocumentMakeECControlled",
         [](Inputs& in) {
             return DocumentMakeECControlled(in.text(), in.text(), in.text(), in.text(), in.names());
         },
         3, 0, 50},
        {"DocumentOpen", [](Inputs& in) { return DocumentOpen(in.text(), in.text(), in.nameList()); }, 2, 1,
         50},
        {"DocumentGetLastRevision", [](Inputs& in) { return DocumentGetLastRevision(in.text()); }, 0, 0, 0},
    };
}

/** A query of the product configuration, which hands its columns back in lists. */
template <class Function>
Operation configurationQuery(const char* name, const Function& function)
{
    return {name,
            [=](Inputs& in) {
                std::array<List, 3> lists;
                return function(in.text(), lists[0], lists[1], lists[2]);
            },
            0, 0, 0};
}

std::vector<Operation> structureOperations()
{
    return {
        // The names are not asked for when there is a header.
        {"BomHeaderCreate", [](Inputs& in) { return BomHeaderCreate(in.text(), in.text(), in.names()); }, 2,
         0, 0},
        {"BomExplode",
         [](Inputs& in) {
             std::array<char*, 2> values{in.text(), nullptr};
             return BomExplode(Names({"item_number"}), values.data(), in.names());
         },
         1, 0, 50},
        {"ComponentCreate",
         [](Inputs& in) {
             return ComponentCreate(in.text(), in.text(), in.text(), in.text(), in.text(), in.names());
         },
         5, 0, 30},
        {"ComponentDelete",
         [](Inputs& in) { return ComponentDelete(in.text(), in.text(), in.text(), in.text(), in.text()); }, 5,
         0, 0},
        {"ComponentOpen", [](Inputs& in) { return ComponentOpen(in.text(), in.text(), in.nameList()); }, 2, 1,
         50},
        {"ComponentReferenceSave",
         [](Inputs& in) {
             return ComponentReferenceSave(in.text(), in.text(), in.text(), in.text(), in.text(), in.names());
         },
         5, 0, 30},
        {"ComponentReferenceDelete",
         [](Inputs& in) { return ComponentReferenceDelete(in.text(), in.text()); }, 2, 0, 0},
        {"ItemReferenceCreate",
         [](Inputs& in) {
             return ItemReferenceCreate(in.text(), in.text(), in.text(), in.text(), in.text(), in.names());
         },
         5, 0, 30},
        {"ItemReferenceDelete", [](Inputs& in) { return ItemReferenceDelete(in.text(), in.text()); }, 2, 0,
         0},
        configurationQuery("ProductOptionQuery", ProductOptionQuery),
        configurationQuery("ProductPackageQuery", ProductPackageQuery),
    };
}

std::vector<Operation> allOperations()
{
    std::vector<Operation> all = itemOperations();
    for (const auto& family : {documentOperations(), structureOperations()}) {
        all.insert(all.end(), family.begin(), family.end());
    }
    return all;
}

std::vector<Operation> operationsWithNames()
{
    std::vector<Operation> some = allOperations();
    some.erase(
        std::remove_if(some.begin(), some.end(), [](const Operation& each) { return each.bound == 0; }),
        some.end());
    return some;
}

class OperationInputs : public harness::LibraryTest, public ::testing::WithParamInterface<Operation> {
protected:
    Outcome runAt(int level, Inputs inputs)
    {
        restart();
        connect(level);
        standin::setRecords({{}});
        return run(inputs);
    }
    static Outcome run(Inputs& inputs)
    {
        return record([&] { return GetParam().run(inputs); });
    }
};

class NamesToReadBack : public OperationInputs {
protected:
    static void expectCapture(const std::vector<std::string>& names);
};

/** One more slot than the capture fills and slot 0 before a list are left as they were. */
void NamesToReadBack::expectCapture(const std::vector<std::string>& names)
{
    const int first = GetParam().firstSlot;
    const int end = std::min(first + static_cast<int>(names.size()), GetParam().bound);
    for (auto& slot : SelectedAttribute) {
        std::string("untouched").copy(slot, sizeof slot - 1);
        slot[9] = '\0';
    }
    Inputs inputs("x", names);
    const Outcome outcome = run(inputs);
    EXPECT_GT(outcome.result, 0);
    EXPECT_EQ(outcome.output, "") << "names beyond the bound are no reason for a message";
    EXPECT_EQ(NbSelectedAttribute, end);
    EXPECT_EQ(countLines(outcome.calls, "\"attribute"), static_cast<int>(names.size()));
    for (int slot = 0; slot < 50; ++slot) {
        const bool captured = slot >= first && slot < end;
        EXPECT_EQ(SelectedAttribute[slot],
                  captured ? names[static_cast<std::size_t>(slot - first)] : "untouched");
    }
}

TEST_P(OperationInputs, NullCountsAsEmpty)
{
    const Outcome empty = runAt(5, Inputs("", {}));
    const Outcome null = runAt(5, Inputs(std::nullopt, {}));
    EXPECT_EQ(null.result, empty.result);
    EXPECT_EQ(null.calls, empty.calls);
    EXPECT_EQ(null.output, empty.output);
    EXPECT_EQ(null.accessLog, empty.accessLog);
    EXPECT_EQ(null.errorLog, empty.errorLog);
}

TEST_P(OperationInputs, LongTextsArriveWholeOrNotAtAll)
{
    const std::string text(10000, 'n');
    const std::string upper(10000, 'N');
    const Outcome outcome = runAt(2, Inputs(text, {"id"}));
    EXPECT_EQ(outcome.result, GetParam().calls > 0 ? 1 : 0);
    EXPECT_EQ(countLines(outcome.calls, '"' + text + '"') + countLines(outcome.calls, '"' + upper + '"'),
              GetParam().calls);
    EXPECT_EQ(countLines(outcome.calls, "nnn") + countLines(outcome.calls, "NNN"), GetParam().calls);
    EXPECT_GT(countLines(outcome.output, text) + countLines(outcome.output, upper), 0);
}

TEST_P(NamesToReadBack, AreCapturedUpToTheBoundAndAllOfThemAskedFor)
{
    connect();
    standin::setRecords({{}});
    for (const int count : {0, 1, 28, 29, 30, 31, 48, 49, 50, 51, 60}) {
        SCOPED_TRACE("with " + std::to_string(count) + " names");
        expectCapture(numberedNames("attribute", count));
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
    EXPECT_EQ(SelectedAttribute[first], fitting);
    EXPECT_EQ(SelectedAttribute[first + 1], longer.substr(0, 49));
    EXPECT_EQ(SelectedAttribute[first + 2], endless.substr(0, 49));
    EXPECT_STREQ(SelectedAttribute[first + 3], "last");
    EXPECT_EQ(countLines(outcome.calls, '"' + longer + '"') + countLines(outcome.calls, '"' + endless + '"'),
              2);
    EXPECT_EQ(countLines(outcome.output), 1);
    EXPECT_NE(outcome.output.find(GetParam().name), std::string::npos);
    EXPECT_EQ(countLines(outcome.accessLog), countLines(plain.accessLog) + 1);
    EXPECT_EQ(outcome.errorLog, "");
}

std::string nameOf(const ::testing::TestParamInfo<Operation>& tested)
{
    return tested.param.name;
}

INSTANTIATE_TEST_SUITE_P(Operations, OperationInputs, ::testing::ValuesIn(allOperations()), nameOf);
INSTANTIATE_TEST_SUITE_P(Operations, NamesToReadBack, ::testing::ValuesIn(operationsWithNames()), nameOf);

} // namespace
