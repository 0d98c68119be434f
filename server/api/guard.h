// SPDX-License-Identifier: Apache-2.0
//
// The way into every function of the interface: no exception gets out, and a failure becomes its code and a
// message. A call that succeeds leaves the message of the last failure, so that callers may clean up before
// they ask for it.
#ifndef VELRZM_SERVER_API_GUARD_H
#define VELRZM_SERVER_API_GUARD_H

#include <exception>
#include <new>
#include <string_view>

#include "server/api/messages.h"
#include "server/api/session.h"
#include "server/base/errors.h"

namespace qvserver {

/** Runs `call(session)`: 0, or the code of its failure. */
template <typename Call>
int guardWithoutLogon(Call call) noexcept
{
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

/** As `guardWithoutLogon`, for the functions that need a user. */
template <typename Call>
int guard(Call call) noexcept
{
    return guardWithoutLogon([&call](Session& session) {
        session.checkLoggedOn();
        call(session);
    });
}

/** The text of an argument. */
inline std::string_view given(const char* text, const char* argument)
{
    if (text == nullptr) {
        fail(Failure::BadArgument, "the ", argument, " is a null pointer");
    }
    return text;
}

/** The caller's variable that a result goes to. */
template <typename Variable>
Variable& given(Variable* variable, const char* argument)
{
    if (variable == nullptr) {
        fail(Failure::BadArgument, "the address of the ", argument, " is a null pointer");
    }
    return *variable;
}

/** Releases the handle in the caller's variable and leaves that null, also when the handle is none. */
template <typename Table, typename Handle>
void destroy(Table& table, Handle* variable)
{
    Handle& handle = given(variable, "handle");
    if (handle != nullptr) {
        const Handle released = handle;
        handle = nullptr;
        table.erase(released);
    }
}

} // namespace qvserver

#endif
