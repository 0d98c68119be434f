// SPDX-License-Identifier: Apache-2.0
#include "tests/operations/stories.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

#include "tests/operations/operations.h"

using namespace harness;

namespace operations {

namespace {

constexpr const char* withoutConnection = "without connection";

/** The part of a line behind its verb. */
std::string afterVerb(const std::string& line)
{
    return line.substr(std::min(line.find(' '), line.size() - 1) + 1);
}

void addLine(Story& story, const std::string& line)
{
    static const std::set<std::string> preparing{"after",       "answer", "entry", "environment",
                                                 "file",        "hands",  "keeps", "record",
                                                 "translation", "use",    "value", "without"};
    const std::vector<std::string> words = split(line, " ");
    const std::string& verb = words.front();
    if (story.scenes.empty() || (!story.scenes.back().use.operation.empty() && preparing.count(verb) > 0)) {
        story.scenes.emplace_back();
    }
    Scene& scene = story.scenes.back();
    if (verb == "entry") {
        std::transform(words.begin() + 2, words.end(), std::back_inserter(scene.use.defaults[words.at(1)]),
                       parseNamed);
    } else if (verb == "use") {
        auto defaults = std::move(scene.use.defaults);
        scene.use = Use::parse(afterVerb(line));
        scene.use.defaults = std::move(defaults);
    } else if (verb == "also") {
        scene.variants.push_back(afterVerb(line));
    } else if (verb == "part") {
        scene.isPart = true;
    } else {
        (scene.use.operation.empty() ? scene.preparation : scene.lines).push_back(line);
    }
}

void addFile(std::vector<Story>& stories, const std::filesystem::path& path)
{
    std::istringstream file(lines('\n' + readFile(path)));
    bool isBegun = false;
    for (std::string line; std::getline(file, line);) {
        for (std::size_t star = line.find('*'); star != std::string::npos; star = line.find('*', star + 1)) {
            const std::size_t begin = line.rfind('<', star);
            if (begin != std::string::npos && line.find('>', star) == star + 2) { // <49*x>
                line.replace(begin, star + 3 - begin, std::stoul(line.substr(begin + 1)), line[star + 1]);
            }
        }
        if (line.find("== ") == 0) {
            stories.push_back({afterVerb(line), {}});
            isBegun = true;
        } else if (isBegun && !line.empty()) {
            addLine(stories.back(), line);
        }
    }
}

void prepareBy(const std::string& line)
{
    const std::vector<std::string> words = split(line, " ");
    const std::string& verb = words.front();
    if (verb == "answer") {
        const std::size_t message = line.find(" - ");
        standin::answer(words[1], std::stoi(words.at(2)), {{words.at(3), line.substr(message + 3)}});
    } else if (verb == "hands") {
        standin::state().handOvers[words.at(2)] = standin::HandOver::Always;
    } else if (verb == "keeps") {
        standin::state().handOvers[words.at(1)] = standin::HandOver::Never;
    } else if (verb == "record") {
        standin::Record& record = standin::state().records.emplace_back();
        std::for_each(words.begin() + 1, words.end(), [&](const std::string& word) {
            const Named attribute = parseNamed(word);
            record[attribute.name] = attribute.value;
        });
    } else if (verb == "value") {
        const Named attribute = parseNamed(afterVerb(line));
        standin::state().values[attribute.name] = attribute.value;
    } else if (verb == "translation") {
        const Named entry = parseNamed(words.at(2));
        standin::state().translations[words[1]].emplace_back(entry.name, entry.text());
    } else if (verb == "file") {
        writeFile(words.at(1), line.substr(line.find(words[2])) + '\n');
    } else if (verb == "environment") {
        const Named variable = parseNamed(afterVerb(line));
        setenv(variable.name.c_str(), variable.text().c_str(), 1); // the fixture takes it back
    } else if (verb == "after") {
        Inputs inputs(Use::parse(afterVerb(line)));
        captureOutput([&] { run(inputs); });
    } else if (line != withoutConnection) {
        throw std::invalid_argument("no line of a story: " + line);
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
    std::for_each(scene.preparation.begin(), scene.preparation.end(),
                  [](const std::string& line) { prepareBy(line); });
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
    if (std::find(first.begin(), first.end(), withoutConnection) == first.end()) {
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
