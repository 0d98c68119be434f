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

    /** Records, for this thread alone, that it called while another one was in a call, which may be recording a message
     * of its own; returns the code of that. */
    static int reportSecondThread() noexcept;

    int size() const noexcept;
    /** Code and text of message `index`; "" when there is none. */
    const char* code(int index) const noexcept;
    const char* text(int index) const noexcept;

private:
    int size_ = 0;
    std::array<char, 16> code_ = {};
    std::string kept_;
    const char* text_ = "";
};

/** The messages of this process. */
Messages& messages() noexcept;

} // namespace qvserver

#endif
