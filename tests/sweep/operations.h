// SPDX-License-Identifier: Apache-2.0
//
// A table of all operations, for what holds for each of them: one row says how an operation is used and what
// is its own. Each family has a file of rows; operations.cpp joins them.
#ifndef VELRZM_TESTS_SWEEP_OPERATIONS_H
#define VELRZM_TESTS_SWEEP_OPERATIONS_H

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/harness/texts.h"

namespace sweep {

using List = VELListValVELUnicodeString;

/**
 * One text for every argument of a use, each time in memory of its own, and the names to read back. Without a
 * text every argument is a null pointer, the array of names too.
 */
class Inputs {
public:
    Inputs(std::optional<std::string> text, const std::vector<std::string>& names);

    /** The text for text argument `number`, counted from 0. */
    char* text(int number);
    /** What the operation made of it. */
    const std::string& textAfterwards(int number) const { return copies_.at(number); }
    char** names() { return text_ ? static_cast<char**>(names_) : nullptr; }
    List& nameList() { return nameList_; }
    /** The names and the values of one further attribute. */
    List& pair() { return pair_; }

private:
    std::optional<std::string> text_;
    std::map<int, std::string> copies_;
    harness::Names names_;
    List nameList_;
    List pair_;
};

/** Calls of an operation: those of `function` that pass the text `argument`; empty: every call of the function. */
struct CallPattern {
    std::string function;
    std::string argument = {};
    /** What the report of a failure names when it is not the operation's own prefix. */
    std::string reporter = {};
    /** A second text that the call passes as well. */
    std::optional<std::string> value = {};
};

inline const std::vector<CallPattern> updateCountIsSet{{"QV_Set_Object_Attr", "update_count"}};

struct Operation {
    std::string name;
    std::function<int(Inputs&)> run;
    /** What `FromList` says afterwards. */
    std::string resultKind;
    /** Calls that are not checked: their failure is not even reported. */
    std::vector<CallPattern> unchecked;
    /** What it tells at the end once a call has stopped it, as lines of a story. */
    std::string end;
    /** What stands before its lines when it is not its name. */
    std::string prefix;
    /** Calls whose failure is reported and does not stop the operation; every other one stops it. */
    std::vector<CallPattern> goesOn = {};
    /** Calls whose failure changes the calls that follow; each has a test of its own. */
    std::vector<CallPattern> testedElsewhere = {};
    /** Whether it destroys handles of its own at the end and returns its own code in place of `entries`. */
    bool hasOwnHandles = false;

    /** A letter for each text: "U" where the caller's text is turned to upper case, "-" where it is not. */
    std::string texts = {};
    /** How many calls carry a given text; 0 when a long one is refused. */
    int carriers = 0;
    /** Whether the access log shows the inputs in one line of at most 255 characters. */
    bool joinsInputs = false;
    /** The first text's name and the longest that fits its clause. */
    std::string limited = {};
    std::size_t limit = 0;
    /** The slots that the names to read back are captured into; the end is 0 when there are no names. */
    int firstSlot = 0;
    int endSlot = 0;
    /** Under which name its defaults are found; "" when it has none. */
    std::string defaults = {};
    /** How many it uses, and how many of these it sets. */
    int defaultsUsed = 0;
    int defaultsSet = 0;

    std::string writer() const { return prefix.empty() ? name : prefix; }

    // ---- To write a row ----

    Operation& takes(const std::string& eachText, int calls);
    Operation& joiningInputs();
    Operation& refusing(const std::string& argument, std::size_t longerThan);
    /** An array of names, captured from slot 0 on. */
    Operation& takesNames(int slots);
    /** A list of names, captured from slot 1 on. */
    Operation& takesNameList(int slots);
    Operation& usesDefaults(const std::string& of, int used, int set);
    Operation& endsWith(const std::string& lines);
    Operation& notChecking(std::vector<CallPattern> calls);
    Operation& goingOn(std::vector<CallPattern> calls);
    Operation& elsewhere(std::vector<CallPattern> calls);
};

/** A row of an operation on the current object, or on the current list, with the usual last line. */
Operation onObject(const std::string& name, std::function<int(Inputs&)> run, const std::string& prefix = "");
Operation onList(const std::string& name, std::function<int(Inputs&)> run, const std::string& prefix = "");

/** Shows the name in the output of a failing test. */
void PrintTo(const Operation& operation, std::ostream* stream);

std::vector<Operation> changesAndItems();
std::vector<Operation> documents();
std::vector<Operation> productStructure();

/** Every operation. */
std::vector<Operation> allOperations();

/** Prepares a process for an operation so that it makes all its calls: two defaults, and what the server finds. */
void prepare(const Operation& operation);

} // namespace sweep

#endif
