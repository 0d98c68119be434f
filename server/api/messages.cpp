// SPDX-License-Identifier: Apache-2.0
#include "server/api/messages.h"

#include <charconv>
#include <new>

namespace qvserver {

namespace {

Messages ofProcess; // made when the library is loaded, like the session

} // namespace

int Messages::report(Failure failure, const char* text) noexcept
{
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

Messages& messages() noexcept
{
    return ofProcess;
}

} // namespace qvserver
