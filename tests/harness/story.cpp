// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/story.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"
#include "tests/standin/standin.h"

namespace harness {

namespace {

/** Stands in for the buffer of std::cout, listens to the stand-in, and looks into the logs at each event. */
class Recorder : public std::streambuf {
public:
    Recorder(Outcome& outcome, const std::string& accessLog, const std::string& errorLog)
        : outcome_(outcome),
          accessLog_{accessLog, readFile(accessLog).size()}, errorLog_{errorLog, readFile(errorLog).size()},
          original_(std::cout.rdbuf(this))
    {
        standin::observe([this](const standin::Call& call) {
            readLogs();
            add("call", call.line(), outcome_.calls);
        });
    }
    ~Recorder() override
    {
        readLogs();
        if (!line_.empty()) {
            add("out ", line_ + " (without an end)", outcome_.output);
        }
        std::cout.rdbuf(original_);
        standin::observe({});
    }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

protected:
    int_type overflow(int_type unit) override
    {
        if (unit == '\n') {
            readLogs();
            add("out ", line_, outcome_.output);
            line_.clear();
        } else {
            line_ += traits_type::to_char_type(unit);
        }
        return traits_type::not_eof(unit);
    }

private:
    struct Log {
        std::string path;
        std::size_t size;
    };

    void add(const char* channel, const std::string& text, std::string& all)
    {
        all += text + '\n';
        const bool byReader = text.compare(0, 11, "DefaultRead") == 0;
        isAboutReader_ = isAboutReader_ || (byReader && outcome_.story.empty());
        if (isAboutReader_ || !byReader || !wasByReader_) {
            outcome_.story += std::string(channel) + ' ' + text + '\n';
        }
        wasByReader_ = byReader;
    }
    void readLog(Log& log, const char* channel, std::string& all)
    {
        const std::string added = readFile(log.path, log.size);
        log.size += added.size();
        std::istringstream stream(added);
        for (std::string line; std::getline(stream, line);) {
            add(channel, line, all);
        }
    }
    void readLogs()
    {
        readLog(accessLog_, "log ", outcome_.accessLog);
        readLog(errorLog_, "err ", outcome_.errorLog);
    }

    Outcome& outcome_;
    Log accessLog_;
    Log errorLog_;
    std::string line_;
    bool isAboutReader_ = false; // it is the defaults reader whose story is told
    bool wasByReader_ = false;
    std::streambuf* original_;
};

std::string state(int result)
{
    std::string names;
    const int slots = std::min(NbSelectedAttribute, static_cast<int>(std::size(SelectedAttribute)));
    for (int slot = 0; slot < slots; ++slot) {
        names += (slot == 0 ? "" : ", ") + std::string(SelectedAttribute[slot]);
    }
    return "= " + std::to_string(result) + " FromList=" + FromList + " entries=" + std::to_string(entries) +
           " LastRecNo=" + std::to_string(LastRecNo) + " QV_RC=" + std::to_string(QV_RC) +
           " SelectedAttribute=[" + names + "]\n";
}

/** The texts in quotes. */
std::vector<std::string> quotedTexts(const std::string& text)
{
    std::vector<std::string> found;
    for (std::size_t begin = text.find('"'); begin != std::string::npos; begin = text.find('"', begin)) {
        const std::size_t end = text.find('"', begin + 1);
        if (end == std::string::npos) {
            throw std::invalid_argument("no closing quote: " + text);
        }
        found.push_back(text.substr(begin + 1, end - begin - 1));
        begin = end + 1;
    }
    return found;
}

/** Writes a test's lines out as the story that is recorded at a trace level. */
class Teller {
public:
    explicit Teller(int level) : level_(level) {}

    void tell(const std::string& line)
    {
        const std::size_t blank = line.find(' ');
        const std::string sign = line.substr(0, blank);
        const std::string text = blank == std::string::npos ? "" : line.substr(blank + 1);
        if (sign == "log" || sign == "err") {
            add(sign + ' ', text);
        } else if (sign == "*" || (sign.size() == 1 && sign >= "0" && sign <= "9")) {
            const std::size_t call = text.find(" > QV_");
            show(sign == "*" ? level_ : std::stoi(sign), text.substr(0, call));
            if (call != std::string::npos) {
                tellCheckedCall(text.substr(call + 3));
            }
        } else if (sign == "-") {
            add("call", text);
        } else if (sign == ">") {
            tellCheckedCall(text);
        } else if (sign == "!") {
            tellFailure(text);
        } else if (sign == "defaults") {
            show(2, "@- Calling DefaultRead for @.");
            show(2, "DefaultRead-----Start------------------------------.");
            show(2, "@- rc(DefaultRead)=" + text + '.');
        } else if (sign == "new") {
            add("call", "QV_Destroy_Object(null) = 0");
            tellCheckedCall("QV_Create_Object(obj1, \"" + text + "\") = 0");
        } else if (sign == "=") {
            story_ += std::exchange(errors_, "") + line + '\n';
        } else if (!line.empty() && line.back() == ':') {
            writer_ = line.substr(0, line.size() - 1);
        } else {
            throw std::invalid_argument("no line of a story: " + line);
        }
    }
    std::string story() const { return story_ + errors_; }

private:
    void add(const std::string& channel, std::string text)
    {
        for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + 1)) {
            if (at == 0 || text[at - 1] == ' ') {
                text.replace(at, 1, writer_);
            }
        }
        text = channel + ' ' + text + '\n';
        if (channel == "err ") {
            errors_ += text;
        } else {
            story_ += channel == "log " ? text : std::exchange(errors_, "") + text;
        }
    }
    void show(int level, const std::string& text)
    {
        if (level <= level_) {
            add("out ", text);
        }
    }
    void tellCheckedCall(const std::string& text)
    {
        const std::size_t as = text.find(" as ");
        const std::string call = text.substr(0, as);
        const std::string code = call.substr(call.rfind(' ') + 1);
        std::string name = call.substr(0, call.find('('));
        std::vector<std::string> details = quotedTexts(call);
        if (name == "QV_Set_Clause") {
            const std::string& kind = details.front();
            name = (kind == "OrderBy" ? "" : "Append" + kind + "- ") + "QV_Set_Clause-" + kind;
            details.erase(details.begin());
        }
        if (as != std::string::npos) {
            const std::string report = text.substr(as + 4);
            name = report.substr(0, report.find('"'));
            if (name.size() < report.size()) {
                details = quotedTexts(report);
                name.erase(name.find_last_not_of(' ') + 1);
            }
        }
        details.resize(2);
        add("call", call);
        show(5, "@ " + name + ' ' + details[0] + ' ' + details[1] + ": QV_RC=" + code + '.');
        const std::string second = details[1].empty() ? "" : '=' + details[1];
        add("log ", "@- rc(" + name + (details[0].empty() ? "" : "::" + details[0] + second) + ") = " + code);
    }
    void tellFailure(const std::string& message)
    {
        const std::string text = message.substr(message.find(" - ") + 3) + ' ';
        add("log ", message);
        show(0, "****** " + text + '.');
        std::istringstream block(errorBlock(writer_, text));
        for (std::string line; std::getline(block, line);) {
            add("err ", line);
        }
    }

    int level_;
    std::string writer_;
    std::string story_;
    std::string errors_; // what the error log has gained since the last event that is no line of a log
};

} // namespace

std::string Outcome::storyFrom(const std::string& text) const
{
    const std::size_t found = story.find(text);
    if (found == std::string::npos) {
        return "nothing in the story: " + text + '\n' + story;
    }
    return story.substr(story.rfind('\n', found) + 1);
}

Outcome recordStory(const std::function<int()>& use, const std::string& accessLog,
                    const std::string& errorLog)
{
    Outcome outcome;
    {
        const Recorder recorder(outcome, accessLog, errorLog);
        EXPECT_EQ(captureOutput([&] { outcome.result = use(); }), "") << "not written by std::cout";
    }
    outcome.story += state(outcome.result);
    return outcome;
}

std::string story(const std::string& raw, int level)
{
    std::istringstream told(lines(raw));
    Teller teller(level);
    for (std::string line; std::getline(told, line);) {
        teller.tell(line);
    }
    return teller.story();
}

} // namespace harness
