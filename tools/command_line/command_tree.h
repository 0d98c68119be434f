// SPDX-License-Identifier: Apache-2.0
//
// The tree of commands as people are shown it. Help, manual, completion and complaints all read it here, so none of
// them can differ from what the parser takes.
//
// For a command the parser keeps the description, whose first paragraph is a summary of one line, and an example, as
// the footer. For an option it keeps the type name, which stands for the value in the help, as the name of an
// argument does. A type name "a|b" lists the words that may be given; "FILE" is the name of a file, "COMMAND" a word
// of a command.
#ifndef VELRZM_TOOLS_COMMAND_LINE_COMMAND_TREE_H
#define VELRZM_TOOLS_COMMAND_LINE_COMMAND_TREE_H

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

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

/** The arguments of a command, which have their places. */
std::vector<const CLI::Option*> argumentsOf(const CLI::App& command);
/** The options of a command itself. Every command has --help, but it counts as one of the program only. */
std::vector<const CLI::Option*> optionsOf(const CLI::App& command);
/** The same and those of the commands above, which may stand behind the command as well, except where the command
 * has an option of that name itself. */
std::vector<const CLI::Option*> allOptionsOf(const CLI::App& command);

bool takesValue(const CLI::Option& option);
bool mayBeRepeated(const CLI::Option& option);
/** What stands for the value of an option, or for an argument: "CHANGE"; "" for a flag. */
std::string valueOf(const CLI::Option& option);
/** How an option is typed: "--ec CHANGE"; an argument: "ITEM". */
std::string syntaxOf(const CLI::Option& option);
/** The words of which the value must be one; empty when it need not. */
std::vector<std::string> choicesOf(const CLI::Option& option);

/** Makes a command refuse every --format but `form`, because its results have one form only. */
void haveOneForm(CLI::App& command, const std::string& form = "");
/** Whether a command that has one form only was given another --format. */
bool wantsAnotherForm(const CLI::App& command);

/** Makes the parser insist on one of the words in the option's type name. */
void insistOnChoices(CLI::Option& option);
/** Makes the parser insist on a whole number of at least `least`. */
void insistOnWholeNumber(CLI::Option& option, int least);
/** Makes the parser refuse an apostrophe, which ends a text in the conditions that the server searches by. */
void insistOnNoApostrophe(CLI::Option& option);
/** Makes the parser turn the number of an item, a change or a document to upper case, as it is stored. It refuses
 * an apostrophe. */
void takeObjectNumber(CLI::Option& option);
/** Lets an option be repeated and take several values at once, "A,B". */
void takeList(CLI::Option& option);

} // namespace tools

#endif
