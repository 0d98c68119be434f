// SPDX-License-Identifier: Apache-2.0
//
// The operations as the failing-call sweep sees them. Each family has a file of rows; operations.cpp joins
// them.
#ifndef VELRZM_TESTS_SWEEP_OPERATIONS_H
#define VELRZM_TESTS_SWEEP_OPERATIONS_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace sweep {

/** Calls of an operation: those of `function` that pass the text `argument`; empty: every call of the
 * function. */
struct CallPattern {
    std::string function;
    std::string argument;
    /** What the report of a failure names when it is not the operation's own prefix. */
    std::string reporter = {};
    /** A second text that the call passes as well. */
    std::optional<std::string> value = {};
};

struct Operation {
    std::string name;
    /** One use of the operation with every optional input given, so that no call is left out. */
    std::function<int()> run;
    /** Defaults files, records and the like; called before each use, in an empty working directory. */
    std::function<void()> prepare;
    /** What `FromList` says afterwards. */
    std::string resultKind;
    /** Calls whose failure is reported and does not stop the operation; every other one stops it. */
    std::vector<CallPattern> goesOn;
    /** Calls that are not checked: their failure is not even reported. */
    std::vector<CallPattern> unchecked;
    /** What the reports of failures name when it is not the operation's name. */
    std::string prefix = {};
    /** Calls whose failure changes the calls that follow; each has a test of its own. */
    std::vector<CallPattern> testedElsewhere = {};
    /** Whether it destroys handles of its own at the end and returns its own code in place of `entries`. */
    bool hasOwnHandles = false;
};

/** Shows the name in the output of a failing test. */
void PrintTo(const Operation& operation, std::ostream* stream);

std::vector<Operation> engineeringChanges();
std::vector<Operation> affectedItems();
std::vector<Operation> items();
std::vector<Operation> documents();
std::vector<Operation> productStructure();
std::vector<Operation> productConfiguration();

/** Every operation. */
std::vector<Operation> allOperations();

} // namespace sweep

#endif
