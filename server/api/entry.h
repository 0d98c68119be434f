// SPDX-License-Identifier: Apache-2.0
//
// One call at a time.
#ifndef VELRZM_SERVER_API_ENTRY_H
#define VELRZM_SERVER_API_ENTRY_H

#include <atomic>

namespace qvserver {

/** A call of the interface, as long as it runs. */
class Entry {
public:
    Entry() noexcept : isOnly_(!isTaken_.exchange(true, std::memory_order_acquire)) {}
    ~Entry()
    {
        if (isOnly_) {
            isTaken_.store(false, std::memory_order_release);
        }
    }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

    /** False when another call was running when this one came. */
    bool isOnly() const noexcept { return isOnly_; }

private:
    static inline std::atomic<bool> isTaken_ = false;
    bool isOnly_;
};

} // namespace qvserver

#endif
