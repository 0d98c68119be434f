// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/story.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <sstream>
#include <streambuf>

#include <gtest/gtest.h>
#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
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
        standin::state().observer = [this](const standin::Call& call) {
            readLogs();
            add("call", call.line(), outcome_.calls);
        };
    }
    ~Recorder() override
    {
        readLogs();
        if (!line_.empty()) {
            add("out ", line_ + " (without an end)", outcome_.output);
        }
        std::cout.rdbuf(original_);
        standin::state().observer = {};
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

} // namespace

State currentState()
{
    std::string names;
    const int slots = std::min(NbSelectedAttribute, static_cast<int>(std::size(SelectedAttribute)));
    for (int slot = 0; slot < slots; ++slot) {
        names += (slot == 0 ? "" : ", ") + std::string(SelectedAttribute[slot]);
    }
    return {{"FromList", FromList},
            {"entries", std::to_string(entries)},
            {"LastRecNo", std::to_string(LastRecNo)},
            {"QV_RC", std::to_string(QV_RC)},
            {"SelectedAttribute", '[' + names + ']'},
            {"lastError", readFile("QVL_LAST_ERROR")},
            {"obj", standin::nameOf(QV_ObjPtr)},
            {"list", standin::nameOf(QV_ListPtr)},
            {"report", standin::nameOf(QV_RepPtr)}};
}

std::string lineOf(const State& state)
{
    std::string line = "= " + state.at("result");
    for (const std::string name :
         {"FromList", "entries", "LastRecNo", "QV_RC", "SelectedAttribute", "output"}) {
        line += state.count(name) > 0 ? ' ' + name + '=' + state.at(name) : "";
    }
    return line + '\n';
}

Outcome recordStory(const std::function<int()>& use, const std::string& accessLog,
                    const std::string& errorLog)
{
    Outcome outcome;
    {
        const Recorder recorder(outcome, accessLog, errorLog);
        EXPECT_EQ(captureOutput([&] { outcome.result = use(); }), "") << "not written by std::cout";
    }
    State state = currentState();
    state["result"] = std::to_string(outcome.result);
    outcome.story += lineOf(state);
    return outcome;
}

} // namespace harness
