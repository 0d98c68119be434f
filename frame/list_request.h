// SPDX-License-Identifier: Apache-2.0
//
// The steps of operations on the current list: create it, shape it with clauses, open and count it.
#ifndef VELRZM_FRAME_LIST_REQUEST_H
#define VELRZM_FRAME_LIST_REQUEST_H

#include "frame/operation.h"

namespace velrzm {

/** A where clause that compares an attribute with a value of the caller, in the three parts that it is built from. */
struct Clause {
    const char* head;           // up to the value
    const char* value;          // the caller's
    const char* tail;           // from the closing quote on
    const char* argument;       // its name, for the report of a refusal
    std::size_t valuePart = 80; // size of the buffer for value and tail
};

/** Steps of an operation on the list in `QV_ListPtr`. */
class ListRequest {
public:
    explicit ListRequest(Operation& operation) noexcept : operation_(operation) {}

    /** Creates a list of objects of `className`; the previous list must be gone. */
    void create(const char* className);
    /** Destroys the previous list and creates one in its place. */
    void renew(const char* className);
    void select(const char* attribute);
    void select(const AttributeNames& attributes);
    void where(const char* clause);
    /** Adds the clause, or refuses it like `requireFit`. */
    void where(const Clause& clause);
    /** Makes the operation refuse a value that does not fit the clause buffer of 80 characters; it is never cut. */
    void requireFit(const Clause& clause);
    void orderBy(std::initializer_list<const char*> attributes);
    void open(OnFailure onFailure = OnFailure::Stop);
    /** Stores the number of records in `entries`. */
    void count();

protected:
    Operation& operation() const noexcept { return operation_; }

private:
    void setClause(const char* kind, const char* function, const char* text);

    Operation& operation_;
};

/** The current list, as the result of an operation. */
class CurrentList : public ListRequest {
public:
    using ListRequest::ListRequest;

    /** Makes the current result a list, empty and with no record read. */
    void reset() noexcept;
    /** The usual last trace line. */
    void exit() const;
};

/** Runs an exported operation whose result is the current list: `steps(operation, list)` are its steps. */
template <class Steps>
int listOperation(const char* prefix, const Steps& steps)
{
    return runOperation(prefix, [&](Operation& operation) {
        CurrentList list(operation);
        steps(operation, list);
    });
}

} // namespace velrzm

#endif
