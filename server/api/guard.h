// SPDX-License-Identifier: Apache-2.0
//
// The guard around every function of the interface: no exception escapes, and a failure becomes its code and a
// message. A call that succeeds keeps the message of the last failure, so that callers may clean up before they
// ask for it.
#ifndef VELRZM_SERVER_API_GUARD_H
#define VELRZM_SERVER_API_GUARD_H

#include <exception>
#include <new>
#include <string_view>

#include "server/api/entry.h"
#include "server/api/messages.h"
#include "server/api/session.h"
#include "server/base/errors.h"

namespace qvserver {

/** Runs `call(session)`; 0, or the code of its failure. */
template <typename Call>
int guardWithoutLogon(Call call) noexcept
{
    if (session().isInherited()) {
        return messages().report(
            Failure::ForkedProcess,
            "this process was forked from one that is logged on, whose logon it cannot "
            "use; fork before the logon, or start another program, which logs on itself");
    }
    const Entry entry;
    if (!entry.isOnly()) {
        return messages().reportSecondThread();
    }
    try {
        call(session());
        return 0;
    } catch (const ServerError& error) {
        return messages().report(error.failure(), error.what());
    } catch (const std::bad_alloc&) {
        return messages().report(Failure::OutOfMemory, "out of memory");
    } catch (const std::exception& error) {
        return messages().report(Failure::Internal, error.what());
    } catch (...) {
        return messages().report(Failure::Internal, "unknown failure");
    }
}

/** Like `guardWithoutLogon`, for functions that require a user. */
template <typename Call>
int guard(Call call) noexcept
{
    return guardWithoutLogon([&call](Session& session) {
        session.checkLoggedOn();
        call(session);
    });
}

/** The text of an argument; fails when it is a null pointer. */
inline std::string_view requireText(const char* text, const char* argument)
{
    if (text == nullptr) {
        fail(Failure::BadArgument, "the ", argument, " is a null pointer");
    }
    return text;
}

/** The caller's variable for a result; fails when its address is a null pointer. */
template <typename Variable>
Variable& requireVariable(Variable* variable, const char* argument)
{
    if (variable == nullptr) {
        fail(Failure::BadArgument, "the address of the ", argument, " is a null pointer");
    }
    return *variable;
}

/** Releases the handle in the caller's variable, which becomes null even when the handle is not a valid one. */
template <typename Table, typename Handle>
void destroy(Table& table, Handle* variable)
{
    Handle& handle = requireVariable(variable, "handle");
    if (handle != nullptr) {
        const Handle released = handle;
        handle = nullptr;
        table.erase(released);
    }
}

} // namespace qvserver

#endif
