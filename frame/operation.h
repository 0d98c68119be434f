// SPDX-License-Identifier: Apache-2.0
//
// The frame that every operation is built on: its trace and log lines, its checked calls, and the rule that a
// failed call ends it. An operation is a list of steps from top to bottom; after a failed call that ends it, the
// frame skips every later step together with its trace line, so operations need no checks of their own.
#ifndef VELRZM_FRAME_OPERATION_H
#define VELRZM_FRAME_OPERATION_H

#include <string>

#include <velrzm/vel_types.h>

#include "diagnostics/access_log.h"
#include "diagnostics/guard.h"
#include "diagnostics/return_codes.h"
#include "diagnostics/trace.h"
#include "frame/names.h"

namespace velrzm {

/** The attribute defaults that the site has configured for an operation. */
class Defaults {
public:
    /** The most pairs that are used by operations with such a limit. */
    static constexpr int usualLimit = 19;

    /** Reads the defaults of `operation`. */
    explicit Defaults(const char* operation);

    /** How many pairs there are. */
    int found() const noexcept { return names_.Size(); }
    /** The value of the first pair called `name`; null if there is none. */
    const char* valueOf(const VELUnicodeString& name) const
    {
        const int position = names_.Locate(name);
        return position == 0 ? nullptr : values_[position].CastToCharPtr();
    }
    Pairs all() const noexcept { return {names_, values_}; }
    Pairs first(int limit) const noexcept { return {names_, values_, limit}; }

private:
    VELListValVELUnicodeString names_;
    VELListValVELUnicodeString values_;
};

/**
 * One run of an operation: the prefix of its lines, and whether a failed call has ended its steps. Requests for objects
 * and lists (object_request.h, list_request.h) make their calls through it.
 */
class Operation {
public:
    /** `prefix` heads every line of the operation; it must outlive the operation. */
    explicit Operation(const char* prefix) noexcept : prefix_(prefix) {}
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;
    ~Operation() = default;

    const char* prefix() const noexcept { return prefix_; }
    bool stopped() const noexcept { return stopped_; }

    // ---- Lines ----

    /** A trace line: the prefix, the pieces, ".". */
    template <class... Pieces>
    void trace(const Pieces&... pieces) const
    {
        traceAt(OperationLevel, pieces...);
    }
    template <class... Pieces>
    void traceAt(int level, const Pieces&... pieces) const
    {
        velrzm::trace(level, prefix_, pieces...);
    }
    /** The usual first trace line. */
    void start() const { trace("-----Start------------------------------"); }
    /** An access-log line: the prefix and the pieces, joined by blanks. */
    template <class... Pieces>
    void log(const Pieces&... pieces) const
    {
        accessLog(prefix_, pieces...);
    }
    /** The access-log line of all inputs: one text, cut to 255 characters. */
    void logInputs(std::initializer_list<Piece> inputs) const;
    /** Traces a heading and a line for each name. */
    void traceNames(const char* heading, const char* label, const AttributeNames& names) const;
    /** Traces a heading and a line for each pair; nothing if there are none. */
    void tracePairs(const char* heading, const char* label, const Pairs& pairs) const;
    /** Writes an access-log line for each pair. */
    void logPairs(const char* label, const Pairs& pairs) const;

    // ---- Preparation ----

    /** Reads the defaults of `operation`, with a trace line before and after, each starting with `dash`. */
    Defaults readDefaults(const char* operation, const char* dash = "-") const;
    Defaults readDefaults() const { return readDefaults(prefix_); }
    /** The first 19 of the defaults; warns when there are more. */
    Pairs usual(const Defaults& defaults) const;
    /**
     * Copies up to `bound` names to SelectedAttribute: an array from slot 0 on, a list from slot 1 on and so one name
     * less. A name too long for its slot is cut, with a warning.
     */
    void capture(const AttributeNames& names, int bound) const;

    // ---- Steps: skipped once the operation has stopped ----

    /** A trace line that belongs to a step. */
    template <class... Pieces>
    void step(const Pieces&... pieces) const
    {
        stepAt(OperationLevel, pieces...);
    }
    template <class... Pieces>
    void stepAt(int level, const Pieces&... pieces) const
    {
        if (!stopped_) {
            traceAt(level, pieces...);
        }
    }
    /** A checked server call: `function` makes it and returns its code. */
    template <class Function>
    void call(const ServerCall& named, OnFailure onFailure, const Function& function)
    {
        if (!stopped_) {
            QV_RC = function();
            check(named, onFailure);
        }
    }
    template <class Function>
    void call(const ServerCall& named, const Function& function)
    {
        call(named, OnFailure::Stop, function);
    }
    /** Checks the code that a call has just stored in `QV_RC`. */
    void check(const ServerCall& named, OnFailure onFailure = OnFailure::Stop)
    {
        stopped_ = mustStop(prefix_, named, onFailure);
    }
    /** Stops the operation in place of a call whose arguments are invalid, and reports `reason` as its failure. */
    void refuse(const ServerCall& named, const std::string& reason);
    /** Stops the operation without a report. */
    void stop() noexcept { stopped_ = true; }

private:
    const char* prefix_;
    bool stopped_ = false;
};

/** The result of an operation that could not be completed: no entries. */
inline int withoutResult() noexcept
{
    entries = 0;
    return entries;
}

/** Runs an exported operation: `steps(operation)` are its steps, the result is `entries`. */
template <class Steps>
int runOperation(const char* prefix, const Steps& steps)
{
    const auto run = [&] {
        Operation operation(prefix);
        steps(operation);
        return entries;
    };
    return guarded(prefix, run, withoutResult);
}

} // namespace velrzm

#endif
