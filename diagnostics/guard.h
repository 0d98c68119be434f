// SPDX-License-Identifier: Apache-2.0
//
// The edge of the library: no exception leaves an exported function.
#ifndef VELRZM_DIAGNOSTICS_GUARD_H
#define VELRZM_DIAGNOSTICS_GUARD_H

#include <velrzm/result.h>

namespace velrzm {

/** Tells an exported function that the program calls from one that another exported function calls. */
class Entry {
public:
    Entry() noexcept { ++running; }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;
    ~Entry() { --running; }

    bool isFromOutside() const noexcept { return running == 1; }

private:
    inline static int running = 0;
};

/**
 * Sets `QV_RC` to -1 and reports the exception that is being handled as a failure of `function`. Allocates nothing,
 * because memory has usually run out.
 */
void reportException(const char* function) noexcept;

/**
 * Runs `body`, the work of the exported function `function`, and returns its result. If it throws, the exception is
 * reported and the result is that of `otherwise`: what the function documents for a failure. Inside another exported
 * function the exception is passed on, so that the caller does not carry on with half of what it asked for.
 */
template <class Body, class Otherwise>
auto guarded(const char* function, const Body& body, const Otherwise& otherwise) -> decltype(body())
{
    const Entry entry;
    try {
        return body();
    } catch (...) {
        if (!entry.isFromOutside()) {
            throw;
        }
        reportException(function);
        return otherwise();
    }
}

/** The same for a function that only writes: `QV_RC` keeps the code of the last server call. */
template <class Body>
void guardedWriting(const char* function, const Body& body)
{
    guarded(function, body, [code = QV_RC] { QV_RC = code; });
}

} // namespace velrzm

#endif
