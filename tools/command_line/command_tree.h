// SPDX-License-Identifier: Apache-2.0
//
// The tree of commands as it is told to people: help, manual, completion of words and complaints read it here,
// so that none of them can differ from what the parser takes.
//
// The parser keeps of a command: its description, whose first paragraph is a summary of one line, and its
// example, as the footer. Of an option: its type name, which stands for the value in the help, as the name of an
// argument does. A type name "a|b" holds the words that may be given; "FILE" is the name of a file, "COMMAND" a
// word of a command.
#ifndef VELRZM_TOOLS_COMMAND_LINE_COMMAND_TREE_H
#define VELRZM_TOOLS_COMMAND_LINE_COMMAND_TREE_H

#include <string>
#include <vector>

#include <CLI/App.hpp>

namespace tools {

/** The words of a command without the program's: "item create"; "" for the program itself. */
std::string pathOf(const CLI::App& command);
/** The same as it is typed: "velrzm item create". */
std::string fullNameOf(const CLI::App& command);
/** How a command is called: "velrzm item create [OPTIONS] ITEM". */
std::string usageOf(const CLI::App& command);

std::string summaryOf(const CLI::App& command);
/** What the description says beyond the summary: paragraphs parted by empty lines, or nothing. */
std::string detailsOf(const CLI::App& command);

/** The commands right below a command, without the hidden ones. */
std::vector<const CLI::App*> commandsOf(const CLI::App& command);
/** The command of that name right below, or null. */
const CLI::App* commandNamed(const CLI::App& command, const std::string& name);
/** The last command that the parsed words name. */
const CLI::App& parsedCommand(const CLI::App& program);

/** What stands at its place: the arguments of a command. */
std::vector<const CLI::Option*> argumentsOf(const CLI::App& command);
/** The options of a command alone. --help is one of the program only, although every command has it. */
std::vector<const CLI::Option*> optionsOf(const CLI::App& command);
/** The same and those of the commands above, which may stand behind the command as well, unless the command has
 * an option of that name itself. */
std::vector<const CLI::Option*> allOptionsOf(const CLI::App& command);

bool takesValue(const CLI::Option& option);
bool mayBeRepeated(const CLI::Option& option);
/** What stands for the value of an option, or for an argument: "CHANGE"; "" for a flag. */
std::string valueOf(const CLI::Option& option);
/** How an option is typed: "--ec CHANGE"; an argument: "ITEM". */
std::string signOf(const CLI::Option& option);
/** The words of which the value must be one; empty when it need not. */
std::vector<std::string> choicesOf(const CLI::Option& option);

/** Makes the parser insist on one of the words in the option's type name. */
void insistOnChoices(CLI::Option& option);

} // namespace tools

#endif
