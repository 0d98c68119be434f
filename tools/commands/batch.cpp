// SPDX-License-Identifier: Apache-2.0
//
// A file of commands over one connection.
#include <cstring>
#include <istream>
#include <memory>

#include <CLI/App.hpp>

#include "tools/command_line/command_line.h"
#include "tools/output/pager.h"
#include "tools/process/failures.h"
#include "tools/process/files.h"
#include "tools/process/interruption.h"
#include "tools/process/multi_save.h"
#include "tools/process/session.h"

namespace tools {

namespace {

/** Splits a line into words as a shell does: at blanks that are not quoted. A "#" begins a comment. */
class WordSplitter {
public:
    std::vector<std::string> split(const std::string& line)
    {
        for (const char unit : line) {
            if (!quote_ && !escaped_ && !inWord_ && unit == '#') {
                break;
            }
            take(unit);
        }
        if (quote_ || escaped_) {
            throw WrongUsage("a quote is not closed");
        }
        endWord();
        return std::move(words_);
    }

private:
    void take(char unit)
    {
        if (escaped_) {
            add(unit);
            escaped_ = false;
        } else if (unit == '\\' && quote_ != '\'') {
            escaped_ = true;
        } else if (quote_ ? unit == quote_ : unit == '"' || unit == '\'') {
            quote_ = quote_ ? '\0' : unit;
            inWord_ = true; // "" is a word, an empty one
        } else if (!quote_ && std::strchr(" \t\r", unit) != nullptr) {
            endWord();
        } else {
            add(unit);
        }
    }

    void add(char unit)
    {
        word_ += unit;
        inWord_ = true;
    }

    void endWord()
    {
        if (inWord_) {
            words_.push_back(word_);
        }
        word_.clear();
        inWord_ = false;
    }

    std::vector<std::string> words_;
    std::string word_;
    bool inWord_ = false;
    bool escaped_ = false;
    char quote_ = '\0'; // the one that is open
};

bool isSame(const Settings& left, const Settings& right)
{
    return left.store == right.store && left.user == right.user && left.passwordFile == right.passwordFile &&
           left.traceLevel == right.traceLevel;
}

void runLine(const std::string& text, const Settings& settings)
{
    std::vector<std::string> words = WordSplitter().split(text);
    if (words.empty()) {
        return;
    }
    for (const char* const excluded : {"batch", "demo", "init", "import"}) {
        if (words.front() == excluded) {
            throw WrongUsage(words.front() + " cannot stand in a batch");
        }
    }
    CommandLine line(settings);
    line.parse(std::move(words));
    if (!isSame(line.settings(), settings)) {
        throw WrongUsage(
            "--store, --user, --password-file and --trace hold for the whole batch; give them to batch");
    }
    line.act();
}

/** Runs all lines; a message begins with file and line. */
void runLines(std::istream& lines, const std::string& name, const Settings& settings)
{
    int number = 0;
    for (std::string text; std::getline(lines, text);) {
        const std::string place = name + ":" + std::to_string(++number);
        try {
            interruptibly("the lines before " + place + " were carried out", [&] {
                checkInterruption();
                runLine(text, settings);
            });
        } catch (const Failure& failure) {
            throw Failure(failure.status(), place + ": " + failure.what());
        } catch (const std::exception& error) {
            throw Refused(place + ": " + error.what());
        }
    }
}

/** Runs all lines inside a multi-save. When that throws, the end of the connection drops what was collected. */
void runLinesTogether(std::istream& lines, const std::string& name, const Settings& settings)
{
    startMultiSave();
    interruptibly("nothing was stored", [&] { runLines(lines, name, settings); });
    commitMultiSave();
}

void runBatch(const std::string& name, bool multiSave, const Settings& settings)
{
    switchOffPager(); // which would stop at every long result
    std::ifstream file = openForReading(name == "-" ? "/dev/stdin" : name);
    connect(settings.user, settings.passwordFile);
    (multiSave ? runLinesTogether : runLines)(file, name, settings);
}

} // namespace

void addBatch(CommandLine& line)
{
    struct Options {
        std::string file;
        bool multiSave = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App& command =
        line.addCommand(line.app(), "batch",
                        "Run a file of commands over one connection, up to the first refusal\n\n"
                        "A line is a command as it is typed, without \"velrzm\"; quotes hold words "
                        "together, and \"#\" begins a comment. --store, --user, --password-file and --trace "
                        "hold for the whole batch; --format may stand on a line.",
                        "velrzm batch commands.txt --multi-save",
                        [&line, options] { runBatch(options->file, options->multiSave, line.settings()); });
    command.add_option("file", options->file, "File of commands; - for standard input")->required();
    command.add_flag("--multi-save", options->multiSave, "Store everything together or nothing at all");
}

} // namespace tools
