// SPDX-License-Identifier: Apache-2.0
#include "tools/command_line/completion.h"

#include <algorithm>
#include <set>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "tools/command_line/command_tree.h"

namespace tools {

namespace {

/** Reads words as the parser does, but does not insist on anything: the line is not finished. */
class UnfinishedLine {
public:
    explicit UnfinishedLine(const CLI::App& program) : program_(program), command_(&program) {}

    void read(const std::string& word)
    {
        if (valued_ != nullptr) {
            valued_ = nullptr;
        } else if (word == "--" && !areOptionsOver_) {
            areOptionsOver_ = true;
        } else if (isOption(word)) {
            readOption(word);
        } else if (const CLI::App* const below = commandNamed(*command_, word); below != nullptr) {
            command_ = below;
        } else {
            argumentsRead_.push_back(word);
        }
    }

    std::string complete(const std::string& word)
    {
        beginning_ = word;
        const std::size_t equals = word.find('=');
        if (valued_ != nullptr) {
            offerValues(*valued_, "");
        } else if (isOption(word) && equals != std::string::npos) {
            if (const CLI::Option* const option = optionNamed(word.substr(0, equals)); option != nullptr) {
                offerValues(*option, word.substr(0, equals + 1));
            }
        } else if (isOption(word)) {
            offerOptions();
        } else {
            offerNextWord();
        }
        return offered_;
    }

private:
    bool isOption(const std::string& word) const
    {
        return !areOptionsOver_ && !word.empty() && word.front() == '-';
    }

    const CLI::Option* optionNamed(const std::string& name) const
    {
        const auto options = allOptionsOf(*command_);
        const auto found = std::find_if(options.begin(), options.end(), [&name](const CLI::Option* option) {
            return "--" + option->get_lnames().front() == name;
        });
        return found == options.end() ? nullptr : *found;
    }

    void readOption(const std::string& word)
    {
        const std::size_t equals = word.find('=');
        const CLI::Option* const option = optionNamed(word.substr(0, equals));
        if (option != nullptr) {
            given_.insert(option);
            valued_ = takesValue(*option) && equals == std::string::npos ? option : nullptr;
        }
    }

    void offer(const std::string& word, const std::string& meaning)
    {
        if (word.compare(0, beginning_.size(), beginning_) == 0) {
            offered_.append(word).append("\t").append(meaning).append("\n");
        }
    }

    void offerValues(const CLI::Option& option, const std::string& lead)
    {
        for (const std::string& choice : choicesOf(option)) {
            offer(lead + choice, "");
        }
        if (valueOf(option) == "FILE") {
            offered_ += ":file\n";
        } else if (valueOf(option) == "COMMAND") {
            offerCommandsAfterThose(argumentsRead_);
        }
    }

    void offerOptions()
    {
        for (const CLI::Option* const option : allOptionsOf(*command_)) {
            if (given_.count(option) == 0 || mayBeRepeated(*option)) {
                offer("--" + option->get_lnames().front(), option->get_description());
            }
        }
    }

    void offerCommands(const CLI::App& command)
    {
        for (const CLI::App* const below : commandsOf(command)) {
            offer(below->get_name(), summaryOf(*below));
        }
    }

    /** For a command that takes the words of another one. */
    void offerCommandsAfterThose(const std::vector<std::string>& words)
    {
        const CLI::App* command = &program_;
        for (const std::string& word : words) {
            command = command == nullptr ? nullptr : commandNamed(*command, word);
        }
        if (command != nullptr) {
            offerCommands(*command);
        }
    }

    /** A command if there are any, else the next argument, and options where neither is left. */
    void offerNextWord()
    {
        const auto arguments = argumentsOf(*command_);
        if (!commandsOf(*command_).empty()) {
            if (argumentsRead_.empty()) { // else there is a word that is no command
                offerCommands(*command_);
            }
        } else if (argumentsRead_.size() < arguments.size()) {
            offerValues(*arguments[argumentsRead_.size()], "");
        } else if (!arguments.empty() && mayBeRepeated(*arguments.back())) {
            offerValues(*arguments.back(), "");
        } else if (!areOptionsOver_) {
            offerOptions();
        }
    }

    const CLI::App& program_;
    const CLI::App* command_;
    const CLI::Option* valued_ = nullptr; // the option whose value comes next
    std::set<const CLI::Option*> given_;
    std::vector<std::string> argumentsRead_;
    bool areOptionsOver_ = false;
    std::string beginning_; // of the word to complete
    std::string offered_;
};

} // namespace

std::string completions(const CLI::App& program, const std::vector<std::string>& words)
{
    UnfinishedLine line(program);
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        line.read(words[i]);
    }
    return line.complete(words.empty() ? "" : words.back());
}

} // namespace tools
