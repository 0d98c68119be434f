// SPDX-License-Identifier: Apache-2.0
//
// The message of the last failed call. Recording it cannot fail: when there is no memory for its text, a fixed text
// takes its place.
#ifndef VELRZM_SERVER_API_MESSAGES_H
#define VELRZM_SERVER_API_MESSAGES_H

#include <array>
#include <string>

#include "server/base/errors.h"

namespace qvserver {

/** Code and text of the last failed call. */
class Messages {
public:
    /** Records the message and returns the code of `failure`. */
    int report(Failure failure, const char* text) noexcept;

    int size() const noexcept { return size_; }
    /** Code and text of message `index`; "" when there is none. */
    const char* code(int index) const noexcept { return exists(index) ? code_.data() : ""; }
    const char* text(int index) const noexcept { return exists(index) ? text_ : ""; }

private:
    bool exists(int index) const noexcept { return index >= 0 && index < size_; }

    int size_ = 0;
    std::array<char, 16> code_ = {};
    std::string kept_;
    const char* text_ = "";
};

/** The messages of this process. */
Messages& messages() noexcept;

} // namespace qvserver

#endif
