// SPDX-License-Identifier: Apache-2.0
//
// Help, and what the shells and the build ask the program about itself.
#include <memory>

#include <CLI/App.hpp>

#include "tools/command_line/command_line.h"
#include "tools/command_line/command_tree.h"
#include "tools/command_line/completion.h"
#include "tools/command_line/completion_scripts.h"
#include "tools/command_line/help.h"
#include "tools/command_line/manual.h"
#include "tools/command_line/wrong_usage.h"
#include "tools/output/results.h"

namespace tools {

namespace {

constexpr const char* hidden = ""; // the group of commands that no help lists

void explain(const CLI::App& program, const std::vector<std::string>& words)
{
    const CLI::App* command = &program;
    for (const std::string& word : words) {
        const CLI::App* const below = commandNamed(*command, word);
        if (below == nullptr) {
            throw unknownCommand(*command, word);
        }
        command = below;
    }
    writeResult(helpText(*command));
}

void addHelp(CommandLine& line)
{
    struct Options {
        std::vector<std::string> words;
        bool all = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App& command = line.addCommand(line.app(), "help", "Explain a command, or list all commands",
                                        "velrzm help item create", [&line, options] {
                                            if (options->all) {
                                                writeResult(allCommands(line.app()));
                                            } else {
                                                explain(line.app(), options->words);
                                            }
                                        });
    haveOneForm(command);
    command.add_option("command", options->words,
                       "Command to explain, one word or two; by default velrzm itself");
    command.add_flag("--all", options->all, "List every command with its summary");
}

void addCompletion(CommandLine& line)
{
    const auto shell = std::make_shared<std::string>();
    CLI::App& command = line.addCommand(
        line.app(), "completion",
        "Print a script that lets a shell complete words\n\n"
        "An installation puts the scripts where both shells find them. Otherwise, for one session of bash: "
        "source <(velrzm completion bash).",
        "velrzm completion zsh > ~/.zfunc/_velrzm",
        [shell] { writeResult(*shell == "zsh" ? zshCompletion : bashCompletion); });
    haveOneForm(command);
    insistOnChoices(*command.add_option("shell", *shell, "Shell that reads the script")
                         ->required()
                         ->type_name("bash|zsh"));
}

/** What the scripts ask. */
void addComplete(CommandLine& line)
{
    const auto words = std::make_shared<std::vector<std::string>>();
    CLI::App& command = line.addCommand(
        line.app(), "complete", "Say what may stand in the place of the last word",
        "velrzm complete -- item cr", [&line, words] { writeResult(completions(line.app(), *words)); });
    command.add_option("words", *words, "Words of a command line");
    command.group(hidden);
}

/** What the build asks. */
void addManual(CommandLine& line)
{
    const auto directory = std::make_shared<std::string>();
    CLI::App& command =
        line.addCommand(line.app(), "manual", "Write the manual pages into a directory", "velrzm manual man1",
                        [&line, directory] { writeManual(line.app(), *directory); });
    command.add_option("directory", *directory, "Directory that is there")->required();
    command.group(hidden);
}

} // namespace

void addHelpCommands(CommandLine& line)
{
    addHelp(line);
    addCompletion(line);
    addComplete(line);
    addManual(line);
}

} // namespace tools
