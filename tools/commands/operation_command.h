// SPDX-License-Identifier: Apache-2.0
//
// Commands that run an operation of the library. Each is an entry of a table: what it is called, what it
// takes, what it shows, and the call itself.
#ifndef VELRZM_TOOLS_COMMANDS_OPERATION_COMMAND_H
#define VELRZM_TOOLS_COMMANDS_OPERATION_COMMAND_H

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <velrzm/vel_types.h>

#include "tools/command_line/command_line.h"
#include "tools/output/outcome.h"
#include "tools/process/attribute_names.h"

namespace tools {

/** What a command takes: "item" is an argument with a place of its own, "--ec CHANGE" an option and what the
 * help calls its value, which is TEXT where nothing is said. A value "a|b" allows these words only. */
struct Parameter {
    enum class Need { Optional, Required };
    enum class Takes {
        Text,
        SearchText,   // a text that the server searches for
        ObjectNumber, // of an item, a change or a document; turned to upper case
        WholeNumber,  // 0 or more
        Pairs,        // NAME=VALUE, may be repeated
        Nothing       // a flag
    };

    const char* name;
    const char* description;
    Need need = Need::Optional;
    Takes takes = Takes::Text;
};

/** The arguments of one run of a command, in the forms that the operations take. */
class Call {
public:
    Call(const CLI::App& command, std::vector<std::string> shownByDefault);

    bool has(const std::string& parameter) const;
    /** The text of a parameter, "" when it was not given; a buffer of its own that the operation may change.
     */
    char* text(const std::string& parameter);

    /** The attributes to read back. */
    const std::vector<std::string>& selected() const { return selected_; }
    char** selectedArray() { return selectedArray_.data(); }
    VELListValVELUnicodeString& selectedList() { return selectedList_; }

    /** Further attributes that --set gives. */
    VELListValVELUnicodeString& inputNames() { return inputNames_; }
    VELListValVELUnicodeString& inputValues() { return inputValues_; }

    /** The selected attributes of the object that an operation left as the current result. `result` is what the
     * operation returned; throws Failure when it failed. */
    Outcome object(int result) const;
    /** The same for an operation that finds any number of records. */
    Outcome list(int result) const;
    /** Only the check of `list`, for what is not read from the current result. */
    void found(int result) const;
    /** The check of `object` alone, for an operation that leaves nothing to read. */
    Outcome nothing(int result) const;

private:
    const CLI::App& command_;
    std::map<std::string, std::string> texts_;
    std::vector<std::string> selected_;
    TextArray selectedArray_;
    VELListValVELUnicodeString selectedList_;
    VELListValVELUnicodeString inputNames_;
    VELListValVELUnicodeString inputValues_;
};

/** What a command shows: attributes of the objects of a class. */
struct ShownAttributes {
    const char* className = "";
    std::vector<std::string> names = {};
};

/** An entry of the table of commands. */
struct OperationCommand {
    const char* name; // "open"
    const char* description;
    const char* example;
    std::vector<Parameter> parameters;
    /** What is shown unless --select names other attributes; without any, --select is not offered. */
    ShownAttributes shown;
    std::function<Outcome(Call&)> run;
    /** Forms of the results that this command has beyond those of all commands. */
    NamedFormats furtherFormats = {};
};

/** The commands that share their first word. */
struct CommandGroup {
    const char* name; // "ec"
    const char* description;
    std::vector<OperationCommand> commands;
};

/** The names of parameters and options that mean the same wherever they occur. */
namespace parameters {

constexpr Parameter change = {"--ec CHANGE", "Number of the engineering change", Parameter::Need::Optional,
                              Parameter::Takes::ObjectNumber};
constexpr Parameter neededChange = {"--ec CHANGE", "Number of the engineering change",
                                    Parameter::Need::Required, Parameter::Takes::ObjectNumber};
constexpr Parameter item = {"item", "Item number", Parameter::Need::Required, Parameter::Takes::ObjectNumber};
constexpr Parameter document = {"document", "Document number", Parameter::Need::Required,
                                Parameter::Takes::ObjectNumber};
constexpr Parameter identifier = {"--id ID", "Database identifier, instead of the numbers"};
constexpr Parameter name = {"--name", "Name of the item"};
constexpr Parameter type = {"--type CODE", "Item type code"};
constexpr Parameter securityLevel = {"--security-level CODE", "Security level code"};
constexpr Parameter securityCategory = {"--security-category CODE", "Security category code"};
constexpr Parameter set = {"--set NAME=VALUE", "Further attribute to store; may be repeated",
                           Parameter::Need::Optional, Parameter::Takes::Pairs};

} // namespace parameters

/** Adds the commands of a group to the command line. */
void addOperations(CommandLine& line, const CommandGroup& group);

/** The groups, by subject. */
CommandGroup changeCommands();
CommandGroup affectedItemCommands();
CommandGroup itemCommands();
CommandGroup componentCommands();
CommandGroup componentReferenceCommands();
CommandGroup itemReferenceCommands();
CommandGroup documentCommands();
CommandGroup optionCommands();
CommandGroup packageCommands();
CommandGroup translationCommands();
CommandGroup structureCommands();

} // namespace tools

#endif
