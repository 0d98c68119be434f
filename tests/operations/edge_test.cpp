// SPDX-License-Identifier: Apache-2.0
//
// Nothing leaves an exported function as an exception: neither when standard output throws nor when memory runs out.
#include <algorithm>
#include <cctype>
#include <iostream>
#include <set>
#include <streambuf>

#include "tests/operations/operations.h"
#include "tests/operations/stories.h"
#include "tests/standin/memory.h"

using namespace harness;

namespace {

const std::string longText(1500, 'x'); // longer than a line that needs no memory

/** An exported function, or a use of several. */
struct Exported {
    std::string name;
    std::function<void()> prepare;
    /** Gives `failure` when it has failed and left nothing half done. */
    std::function<int()> use;
    int failure = 0;
    /** Whether `QV_RC` stays what it was. */
    bool onlyWrites = false;
    bool allocates = true;
};

/** Each operation as in its first story, with texts as long as they may be. */
std::vector<Exported> exportedOperations()
{
    // Those that do nothing or are below.
    std::set<std::string> names{
        "DestroyListOrReport", "ItemReferenceQuery", "MultiSaveCommit", "MultiSaveDiscard",
        "MultiSaveStart",      "Process_QV_RC",      "QvConnect",       "QvExit"};
    std::vector<Exported> all;
    for (const operations::Story& story : operations::allStories()) {
        const operations::Scene& last = story.scenes.back();
        Use use = last.use;
        if (!names.insert(use.operation).second) {
            continue;
        }
        const bool isLimited = std::any_of(last.lines.begin(), last.lines.end(), [](const std::string& line) {
            return line.find("'...") != std::string::npos;
        });
        for (Named& argument : use.arguments) {
            argument.value = argument.isFixed ? argument.value : isLimited ? std::string(44, 'x') : longText;
        }
        if (use.operation == "ItemHeaderCreate") {
            use.arguments[0].value = ""; // with a change it is AffectedItemCreate as well
        }
        if (use.selection) {
            use.selection->names = {"db_object_id", longText};
        }
        const bool onlyReads = use.operation.find("Get") == 0;
        all.push_back({use.operation,
                       [=] {
                           for (const operations::Scene& scene : story.scenes) {
                               prepare(scene, use);
                           }
                           standin::State& script = standin::state();
                           script.records.resize(2);
                           script.values = script.records[0] = {{"id", longText}, {"desc", longText}};
                           script.translations["COLOUR_TAB"] = {{"mm", longText}, {"cm", longText}};
                       },
                       [=] {
                           operations::Inputs inputs(use);
                           const int result = run(inputs);
                           std::string left = inputs.output();
                           replaceAll(left, "untouched", "");
                           const auto letters = std::count_if(left.begin(), left.end(), isalpha);
                           return result != 0 ? result
                                              : static_cast<int>(letters) + (onlyReads ? 0 : entries);
                       }});
        all.back().allocates = use.operation != "DocumentGetLastRevision";
    }
    return all;
}

/** There is a list and a multi-save, and calls fail whose reports need memory. */
void failCalls()
{
    captureOutput([] { AffectedItemQuery(Text("1"), Names({"id"})); });
    MultiSaveStarted = 1;
    for (const char* const function : {"QV_Destroy_List", "QV_Start_Multisave", "QV_Commit_Multisave",
                                       "QV_Discard_Multisave", "QV_Logoff"}) {
        standin::answer(function, -7, {{longText, longText}});
    }
}

void connectWithALongPath()
{
    std::fclose(std::exchange(QVL_Log_File, nullptr));
    setenv("QVL_LOG_FILE", longText.c_str(), 1); // the fixture takes it back
    QVL_Log_FirstTime = 1;
    UserLoggedOn = 0;
}

int readPrintList()
{
    static const VELUnicodeString file = "parts.txt";
    QV_PrintList::Close();
    QV_PrintList::Open(file);
    return QV_PrintList::Next() + _AttrNames.Size() + _AttrValues.Size();
}

int printListValue()
{
    static const VELUnicodeString missing = "missing";
    return QV_PrintList::GetValue(missing).IsNull() ? 0 : 1; // it is ""
}

std::vector<Exported> otherFunctions()
{
    static Text text(longText);
    const auto writer = [](const char* name, void (*use)()) {
        return Exported{name, [] {}, [=] { return use(), 0; }, 0, true};
    };
    return {
        {"QV_PrintList",
         [] { writeFile("parts.txt", "\n- of 1\nQV_Object[1]\n\n- [a] = [b]\n- [c] = [d]\n\n"); },
         readPrintList},
        {"QV_PrintList_GetValue", [] {}, printListValue},
        {"MultiSaveStart", failCalls, MultiSaveStart},
        {"MultiSaveCommit", failCalls, [] { return MultiSaveCommit() + MultiSaveStarted; }},
        {"MultiSaveDiscard", failCalls, [] { return MultiSaveDiscard() + MultiSaveStarted; }},
        {"DestroyListOrReport", failCalls, DestroyListOrReport, 1},
        {"QvExit", failCalls, QvExit, 1},
        {"QvConnect", connectWithALongPath, [] { return QvConnect("jdoe", "secret"); }},
        writer("QVL_Log", [] { QVL_Log(text, text); }),
        writer("DisplayError", [] { DisplayError("Import", text); }),
        writer("Process_QV_RC", [] { Process_QV_RC(text, text, text, text, 0); }),
    };
}

/** Takes nothing, and has the stream throw. */
class BrokenOutput : public std::streambuf {
public:
    BrokenOutput() : original_(std::cout.rdbuf(this)) { std::cout.exceptions(std::ios::badbit); }
    BrokenOutput(const BrokenOutput&) = delete;
    BrokenOutput& operator=(const BrokenOutput&) = delete;
    ~BrokenOutput() override
    {
        std::cout.exceptions(std::ios::goodbit);
        std::cout.rdbuf(original_);
    }

private:
    std::streambuf* original_;
};

class Edge : public LibraryTest, public ::testing::WithParamInterface<Exported> {
protected:
    void start(int level)
    {
        restart();
        connect(level);
        GetParam().prepare();
        QV_RC = 3;
    }
};

TEST_P(Edge, AStandardOutputThatThrowsChangesNothingElse)
{
    start(9);
    const Outcome clean = record(GetParam().use);
    start(9);
    const Outcome broken = record([] {
        const BrokenOutput output;
        return GetParam().use();
    });
    EXPECT_EQ(broken.result, clean.result);
    EXPECT_EQ(broken.calls, clean.calls);
    EXPECT_EQ(broken.accessLog, clean.accessLog);
    EXPECT_EQ(broken.errorLog, clean.errorLog);
    EXPECT_EQ(broken.output, "");
}

TEST_P(Edge, MemoryThatRunsOutIsReportedAndAFailure)
{
    start(9);
    const int result = record(GetParam().use).result;
    bool ranOut = true;
    int allocations = 0;
    for (; ranOut; ++allocations) {
        SCOPED_TRACE("after " + std::to_string(allocations) + " allocations");
        start(9);
        const std::size_t size = readFile("QVL_LOG_ERROR").size();
        int given = 0;
        const std::string output = captureOutput([&] {
            const standin::ScarceMemory memory(allocations);
            given = GetParam().use();
            ranOut = standin::ScarceMemory::hasRunOut();
        });
        EXPECT_EQ(given, ranOut ? GetParam().failure : result);
        EXPECT_EQ(countLines(readFile("QVL_LOG_ERROR", size), "Memory has run out "), ranOut ? 1 : 0);
        EXPECT_EQ(countLines(output, "****** Memory has run out ."), ranOut ? 1 : 0);
        if (ranOut) {
            EXPECT_EQ(QV_RC, GetParam().onlyWrites ? 3 : -1);
        }
    }
    EXPECT_EQ(allocations > 1, GetParam().allocates);
}

const auto nameOf = [](const ::testing::TestParamInfo<Exported>& tested) { return tested.param.name; };

INSTANTIATE_TEST_SUITE_P(Operations, Edge, ::testing::ValuesIn(exportedOperations()), nameOf);
INSTANTIATE_TEST_SUITE_P(Others, Edge, ::testing::ValuesIn(otherFunctions()), nameOf);

} // namespace
