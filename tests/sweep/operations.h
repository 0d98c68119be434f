// SPDX-License-Identifier: Apache-2.0
//
// A table of all operations, for what holds for each of them: one row says how an operation is used and what
// is its own. Each family has a file of rows; operations.cpp joins them.
#ifndef VELRZM_TESTS_SWEEP_OPERATIONS_H
#define VELRZM_TESTS_SWEEP_OPERATIONS_H

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/harness/texts.h"
#include "tests/standin/memory.h"

namespace sweep {

using List = VELListValVELUnicodeString;

/**
 * One text for every argument of a use, each time in memory of its own, and the names to read back. Without a
 * text every argument is a null pointer, the array of names too.
 */
class Inputs {
public:
    Inputs(std::optional<std::string> text, const std::vector<std::string>& names);

    char* text()
    {
        const standin::AmpleMemory ample;
        return text_ ? copies_.emplace_back(*text_).data() : nullptr;
    }
    /** What the operation made of text argument `number`, counted from 0. */
    const std::string& textAfterwards(std::size_t number) const { return copies_.at(number); }
    char** names() { return text_ ? static_cast<char**>(names_) : nullptr; }
    List& nameList() { return nameList_; }
    /** The names and the values of one further attribute. */
    List& pair() { return pair_; }

private:
    std::optional<std::string> text_;
    std::deque<std::string> copies_;
    harness::Names names_;
    List nameList_;
    List pair_;
};

/** The next argument of an operation that has `lists` lists left, of which the last has the names to read back. */
template <class Parameter>
decltype(auto) nextArgument(Inputs& in, int& lists)
{
    if constexpr (std::is_same_v<Parameter, List&>) {
        return --lists > 0 ? in.pair() : in.nameList();
    } else if constexpr (std::is_same_v<Parameter, char**>) {
        return in.names();
    } else {
        return in.text();
    }
}

/** The use of an operation that takes nothing but inputs. */
template <class... Parameters>
std::function<int(Inputs&)> use(int (*operation)(Parameters...))
{
    return [operation](Inputs& in) {
        int lists = (0 + ... + (std::is_same_v<Parameters, List&> ? 1 : 0));
        std::optional<standin::AmpleMemory> ample(std::in_place);
        std::tuple<std::conditional_t<std::is_same_v<Parameters, List&>, List&, std::decay_t<Parameters>>...>
            arguments{nextArgument<Parameters>(in, lists)...};
        ample.reset(); // the arguments are made
        return std::apply(operation, arguments);
    };
}

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

    /**
     * A letter for each text: "U" where the caller's text is turned to upper case by the locale, "A" where only its ASCII
     * letters are, "c" where a copy for one call is turned by the locale, "-" where it stays.
     */
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

    Operation& takes(const std::string& eachText, int calls)
    {
        texts = eachText;
        carriers = calls;
        return *this;
    }
    Operation& joiningInputs()
    {
        joinsInputs = true;
        return *this;
    }
    Operation& refusing(const std::string& argument, std::size_t longerThan)
    {
        limited = argument;
        limit = longerThan;
        return *this;
    }
    /** Names captured up to `slots`: an array from slot 0 on, a list from slot 1 on. */
    Operation& takesNames(int slots, int first = 0)
    {
        firstSlot = first;
        endSlot = slots;
        return *this;
    }
    Operation& takesNameList(int slots) { return takesNames(slots, 1); }
    Operation& usesDefaults(const std::string& of, int used, int set)
    {
        defaults = of;
        defaultsUsed = used;
        defaultsSet = set;
        return *this;
    }
    Operation& endsWith(const std::string& lines)
    {
        end = lines;
        return *this;
    }
    Operation& notChecking(std::vector<CallPattern> calls)
    {
        unchecked = std::move(calls);
        return *this;
    }
    Operation& goingOn(std::vector<CallPattern> calls)
    {
        goesOn = std::move(calls);
        return *this;
    }
    Operation& elsewhere(std::vector<CallPattern> calls)
    {
        testedElsewhere = std::move(calls);
        return *this;
    }
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
