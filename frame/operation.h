// SPDX-License-Identifier: Apache-2.0
//
// The frame that every operation is built on: its trace and log lines, its checked calls, and the rule that a
// failed call ends it. An operation is a list of steps from top to bottom; once a call has failed for good,
// the frame skips every later step together with its trace line, so that the operation itself never asks.
#ifndef VELRZM_FRAME_OPERATION_H
#define VELRZM_FRAME_OPERATION_H

#include <string>

#include <velrzm/vel_types.h>

#include "diagnostics/access_log.h"
#include "diagnostics/return_codes.h"
#include "diagnostics/trace.h"
#include "frame/names.h"

namespace velrzm {

/** The pairs that a site has configured for an operation; at most `limit` of them are used. */
class Defaults {
public:
    /** The arrays of most operations hold 19 pairs and the null that closes them. */
    static constexpr int usualLimit = 19;

    /** Reads the defaults of `operation`. */
    explicit Defaults(const char* operation);

    /** How many pairs there are. */
    int found() const noexcept { return names_.Size(); }
    /** The value at the first place where `name` stands; null when it does not. */
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
 * One use of an operation: it knows the prefix of its lines and whether a failed call has ended its steps. The requests
 * for objects and lists (object_request.h, list_request.h) make their calls through it.
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
    /** A line of the access log: the prefix and the pieces, joined by blanks. */
    template <class... Pieces>
    void log(const Pieces&... pieces) const
    {
        accessLog(prefix_, pieces...);
    }
    /** The line of the access log that joins the inputs in one text, in a buffer of 256 characters. */
    void logInputs(std::initializer_list<Piece> inputs) const;
    /** A heading and a line with each name. */
    void traceNames(const char* heading, const char* label, const AttributeNames& names) const;
    /** A heading and a line with each pair; nothing when there is no pair. */
    void tracePairs(const char* heading, const char* label, const Pairs& pairs) const;
    /** A line of the access log for each pair. */
    void logPairs(const char* label, const Pairs& pairs) const;

    // ---- Preparation ----

    /** Reads the defaults of `operation` and traces that; `dash` begins the lines. */
    Defaults readDefaults(const char* operation, const char* dash = "-") const;
    Defaults readDefaults() const { return readDefaults(prefix_); }
    /** The first 19 of the defaults; warns when there are more. */
    Pairs usual(const Defaults& defaults) const;
    /**
     * Copies up to `bound` names into the table of selected attributes: an array from slot 0 on, a list from
     * slot 1 on and therefore one name less. What does not fit a slot is cut, with a warning.
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
    /** A checked call of the server: `function` makes it and returns its code. */
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
    /** The check of a call that has just stored its code in `QV_RC`. */
    void check(const ServerCall& named, OnFailure onFailure = OnFailure::Stop)
    {
        stopped_ = mustStop(prefix_, named, onFailure);
    }
    /** Ends the operation before a call that cannot be right, as if the call had failed with `reason`. */
    void refuse(const ServerCall& named, const std::string& reason);
    /** Ends the steps without a report. */
    void stop() noexcept { stopped_ = true; }

private:
    const char* prefix_;
    bool stopped_ = false;
};

/** Runs an exported operation: `steps(operation)` are its steps, the result is `entries`. */
template <class Steps>
int runOperation(const char* prefix, const Steps& steps)
{
    Operation operation(prefix);
    steps(operation);
    return entries;
}

} // namespace velrzm

#endif
