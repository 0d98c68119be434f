// SPDX-License-Identifier: Apache-2.0
#include "tests/operations/stories.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "tests/operations/operations.h"

using namespace harness;

namespace operations {

namespace {

/** What the lines do that prepare a process, by verb; they are given the text behind it. */
const std::map<std::string, void (*)(const std::string& text)> preparations = {
    {"without", [](const std::string& /*text*/) {}}, // see StoryTest::begin
    {"answer",
     [](const std::string& text) {
         const Lines words = split(text, " ");
         standin::answer(words[0], std::stoi(words.at(1)),
                         {{words.at(2), text.substr(text.find(" - ") + 3)}});
     }},
    {"hands", [](const std::string& text) { standin::state().handOvers[text] = standin::HandOver::Always; }},
    {"keeps", [](const std::string& text) { standin::state().handOvers[text] = standin::HandOver::Never; }},
    {"record",
     [](const std::string& text) {
         standin::Record& record = standin::state().records.emplace_back();
         for (const std::string& word : split(text, " ")) {
             const Named attribute = parseNamed(word);
             record[attribute.name] = attribute.value;
         }
     }},
    {"value",
     [](const std::string& text) {
         const Named attribute = parseNamed(text);
         standin::state().values[attribute.name] = attribute.value;
     }},
    {"translation",
     [](const std::string& text) {
         const Lines words = split(text, " ");
         const Named entry = parseNamed(words.at(1));
         standin::state().translations[words[0]].emplace_back(entry.name, entry.text());
     }},
    {"file",
     [](const std::string& text) {
         const std::size_t blank = text.find(' ');
         writeFile(text.substr(0, blank), text.substr(blank + 1) + '\n');
     }},
    {"environment",
     [](const std::string& text) {
         const Named variable = parseNamed(text);
         setenv(variable.name.c_str(), variable.text().c_str(), 1); // the fixture takes it back
     }},
    {"after",
     [](const std::string& text) {
         Inputs inputs(Use::parse(text));
         captureOutput([&] { run(inputs); });
     }},
};

void addLine(Story& story, const std::string& line)
{
    std::string text = line;
    const std::string verb = cutHead(text, " ");
    const bool prepares = verb == "use" || verb == "entry" || preparations.count(verb) > 0;
    if (story.scenes.empty() || (!story.scenes.back().use.operation.empty() && prepares)) {
        story.scenes.emplace_back();
    }
    Scene& scene = story.scenes.back();
    if (verb == "entry") {
        auto& defaults = scene.use.defaults[cutHead(text, " ")];
        const Lines entries = split(text, " ");
        std::transform(entries.begin(), entries.end(), std::back_inserter(defaults), parseNamed);
    } else if (verb == "use") {
        auto defaults = std::move(scene.use.defaults);
        scene.use = Use::parse(text);
        scene.use.defaults = std::move(defaults);
    } else if (verb == "also") {
        scene.variants.push_back(text);
    } else if (verb == "part") {
        scene.isPart = true;
    } else {
        (prepares ? scene.preparation : scene.lines).push_back(line);
    }
}

void addFile(std::vector<Story>& stories, const std::filesystem::path& path)
{
    std::string content = readFile(path);
    replaceAll(content, R"(\t)", "\t");
    std::istringstream file(content);
    bool isBegun = false;
    for (std::string line; std::getline(file, line);) {
        for (std::size_t star = line.find('*'); star != std::string::npos; star = line.find('*', star + 1)) {
            const std::size_t begin = line.rfind('<', star);
            if (begin != std::string::npos && line.find('>', star) == star + 2) { // <49*x>
                line.replace(begin, star + 3 - begin, std::stoul(line.substr(begin + 1)), line[star + 1]);
            }
        }
        if (line.find("== ") == 0) {
            stories.push_back({line.substr(3), {}});
            isBegun = true;
        } else if (isBegun && !line.empty()) {
            addLine(stories.back(), line);
        }
    }
}

} // namespace

void PrintTo(const Story& story, std::ostream* stream)
{
    *stream << story.name;
}

const std::vector<Story>& allStories()
{
    static const std::vector<Story> stories = [] {
        std::vector<Story> all;
        for (const auto& file : std::filesystem::recursive_directory_iterator(VELRZM_STORIES)) {
            if (file.path().extension() == ".story") {
                addFile(all, file.path());
            }
        }
        return all;
    }();
    return stories;
}

std::vector<Story> wholeStories()
{
    std::vector<Story> stories = allStories();
    stories.erase(std::remove_if(stories.begin(), stories.end(),
                                 [](const Story& story) { return story.scenes.back().isPart; }),
                  stories.end());
    return stories;
}

std::string nameOf(const ::testing::TestParamInfo<Story>& tested)
{
    return tested.param.name;
}

void prepare(const Scene& scene, const Use& use)
{
    std::string entries = "NoOperation no no\n";
    for (const auto& [operation, defaults] : use.defaults) {
        for (const Named& entry : defaults) {
            entries += operation + ' ' + entry.name + ' ' + entry.text() + '\n';
        }
    }
    writeFile("QVL_RZM_DEFAULT", entries);
    for (std::string text : scene.preparation) {
        preparations.at(cutHead(text, " "))(text);
    }
}

std::vector<Use> StoryTest::uses()
{
    const Scene& last = GetParam().scenes.back();
    std::vector<Use> all{last.use};
    for (const std::string& variant : last.variants) {
        all.push_back(last.use.with(variant));
    }
    return all;
}

std::vector<Use> StoryTest::everyOperation()
{
    std::set<std::string> names;
    std::vector<Use> all = uses();
    all.erase(std::remove_if(all.begin(), all.end(),
                             [&](const Use& use) { return !names.insert(use.operation).second; }),
              all.end());
    return all;
}

void StoryTest::begin(int level)
{
    restart();
    setLevel(level);
    const Lines& first = GetParam().scenes.front().preparation;
    if (first.empty() || first.front() != "without connection") {
        connect(level);
    }
}

Outcome StoryTest::recordUse(const Use& use, bool isPart)
{
    Inputs inputs(use);
    const std::vector<std::string> table(std::begin(SelectedAttribute), std::end(SelectedAttribute));
    Outcome outcome = record([&] { return run(inputs); });
    for (auto slot = static_cast<std::size_t>(NbSelectedAttribute); slot < table.size(); ++slot) {
        EXPECT_EQ(SelectedAttribute[slot], table[slot])
            << "slot " << slot << " is not one of the operation's";
    }
    if (!inputs.output().empty()) {
        outcome.story.insert(outcome.story.size() - 1, " output=" + inputs.output());
    }
    if (outcome.result > 0 || isPart) {
        EXPECT_EQ(inputs.textsAfterwards(), inputs.expectedTexts());
    }
    return outcome;
}

Outcome StoryTest::outcomeOf(int level, const Use& lastUse)
{
    begin(level);
    Outcome outcome;
    for (const Scene& scene : GetParam().scenes) {
        const Use& use = &scene == &GetParam().scenes.back() ? lastUse : scene.use;
        prepare(scene, use);
        outcome = recordUse(use, scene.isPart);
    }
    return outcome;
}

void StoryTest::tell(Teller& teller, const Scene& scene, const Use& use)
{
    static const std::map<std::string, Lines> linesByStory = [] {
        std::map<std::string, Lines> lines;
        for (const Story& story : allStories()) {
            lines[story.name] = story.scenes.back().lines;
        }
        return lines;
    }();
    teller.tell(use.operation + ':');
    for (const std::string& line : expand(scene.lines, use, linesByStory)) {
        teller.tell(line);
    }
}

void StoryTest::expectPart(int level, const Scene& scene, const Use& use)
{
    const std::string story = recordUse(use, true).story;
    Teller teller(level, currentState());
    tell(teller, scene, use);
    EXPECT_NE(story.find(teller.story()), std::string::npos) << teller.story() << "is no part of\n" << story;
}

std::vector<ToldCall> StoryTest::expectWhole(int level, const Scene& scene, Use use,
                                             std::optional<OtherAnswer> answer)
{
    if (use.selection) {
        use.selection->slot0 = SelectedAttribute[0];
    }
    Teller teller(level, currentState(), answer);
    tell(teller, scene, use);
    teller.tellEnd();
    for (std::size_t call = 1; answer && call <= teller.calls().size(); ++call) {
        if (answer->call == call || (answer->call == 0 && teller.calls()[call - 1].code == 0)) {
            standin::answer(std::to_string(call), answer->code, {{"E7", "refused"}});
        }
    }
    EXPECT_EQ(recordUse(use, false).story, teller.story());
    EXPECT_EQ(lastError(), teller.state().at("lastError"));
    return teller.calls();
}

std::vector<ToldCall> StoryTest::expectStory(int level, const Use& lastUse, std::optional<OtherAnswer> answer)
{
    SCOPED_TRACE("at trace level " + std::to_string(level));
    std::vector<ToldCall> calls;
    begin(level);
    for (auto& slot : SelectedAttribute) {
        std::string("untouched").copy(slot, sizeof slot - 1);
    }
    for (const Scene& scene : GetParam().scenes) {
        const bool isLast = &scene == &GetParam().scenes.back();
        const Use& use = isLast ? lastUse : scene.use;
        prepare(scene, use);
        if (scene.isPart) {
            expectPart(level, scene, use);
        } else {
            calls = expectWhole(level, scene, use, isLast ? answer : std::nullopt);
        }
    }
    return calls;
}

} // namespace operations
