// SPDX-License-Identifier: Apache-2.0
//
// Handles of the interface. A handle is a number in the shape of a pointer: the slot of its state in a table, how
// often that slot was used before, and the kind of handle. It is looked up, never dereferenced, so a handle that is
// null, foreign or destroyed is an error and nothing worse.
#ifndef VELRZM_SERVER_API_HANDLES_H
#define VELRZM_SERVER_API_HANDLES_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <utility>
#include <vector>

#include "server/base/errors.h"

namespace qvserver {

/** The live handles of one kind; `kind` is a number between 1 and 15 that no other type of handle has. */
template <typename Handle, typename State, std::uint64_t kind>
class HandleTable {
    static_assert(sizeof(std::uintptr_t) == sizeof(std::uint64_t),
                  "a handle holds slot, generation and kind in 64 bits");

public:
    Handle insert(State state)
    {
        if (free_.empty()) {
            free_.reserve(slots_.size() + 1); // so that erase does not allocate
            slots_.emplace_back();
            free_.push_back(slots_.size() - 1);
        }
        const std::size_t place = free_.back();
        slots_[place].state.emplace(std::move(state));
        free_.pop_back();
        const std::uint64_t bits = (slots_[place].generation << 32) | (kind << 28) | place;
        return reinterpret_cast<Handle>(bits); // NOLINT(performance-no-int-to-ptr): never dereferenced
    }

    State& at(Handle handle) { return *slots_[placeOf(handle)].state; }

    void erase(Handle handle) { release(placeOf(handle)); }

    /** Calls `visit(state)` for the state of every handle. */
    template <typename Visit>
    void forEach(Visit visit)
    {
        for (Slot& slot : slots_) {
            if (slot.state) {
                visit(*slot.state);
            }
        }
    }

    void clear() noexcept
    {
        for (std::size_t place = 0; place < slots_.size(); ++place) {
            if (slots_[place].state) {
                release(place);
            }
        }
    }

private:
    struct Slot {
        std::uint64_t generation = 0;
        std::optional<State> state;
    };

    std::size_t placeOf(Handle handle) const
    {
        const auto bits = reinterpret_cast<std::uint64_t>(handle);
        const std::size_t place = bits & 0x0FFFFFFF;
        if (handle == nullptr) {
            fail(Failure::BadHandle, "the handle is null; create or read the object, list or report first");
        }
        if (((bits >> 28) & 0xF) != kind || place >= slots_.size() || !slots_[place].state ||
            slots_[place].generation != bits >> 32) {
            fail(Failure::BadHandle,
                 "the handle was destroyed, belongs to an earlier logon, or is not of this kind; "
                 "create or read the object, list or report again");
        }
        return place;
    }

    void release(std::size_t place) noexcept
    {
        slots_[place].state.reset();
        slots_[place].generation = (slots_[place].generation + 1) & 0xFFFFFFFF;
        free_.push_back(place);
    }

    std::deque<Slot> slots_; // a deque, so that states do not move when others are inserted
    std::vector<std::size_t> free_;
};

} // namespace qvserver

#endif
