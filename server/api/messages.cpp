// SPDX-License-Identifier: Apache-2.0
#include "server/api/messages.h"

#include <charconv>
#include <new>

namespace qvserver {

namespace {

constexpr const char* codeOfSecondThread = "-125";
static_assert(static_cast<int>(Failure::SecondThread) == -125);

Messages ofProcess; // made when the library is loaded, like the session

thread_local bool wasSecondThread = false; // at the last failed call of this thread

} // namespace

int Messages::report(Failure failure, const char* text) noexcept
{
    wasSecondThread = false;
    const int code = static_cast<int>(failure);
    *std::to_chars(code_.data(), code_.data() + code_.size() - 1, code).ptr = '\0';
    try {
        kept_ = text;
        text_ = kept_.c_str();
    } catch (const std::exception&) {
        text_ = "out of memory; no room for the message either";
    }
    size_ = 1;
    return code;
}

int Messages::reportSecondThread() noexcept
{
    wasSecondThread = true;
    return static_cast<int>(Failure::SecondThread);
}

int Messages::size() const noexcept
{
    return wasSecondThread ? 1 : size_;
}

const char* Messages::code(int index) const noexcept
{
    if (index < 0 || index >= size()) {
        return "";
    }
    return wasSecondThread ? codeOfSecondThread : code_.data();
}

const char* Messages::text(int index) const noexcept
{
    if (index < 0 || index >= size()) {
        return "";
    }
    return wasSecondThread ? "another thread is in a call of the server; make one call at a time" : text_;
}

Messages& messages() noexcept
{
    return ofProcess;
}

} // namespace qvserver
