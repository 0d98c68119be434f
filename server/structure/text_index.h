// SPDX-License-Identifier: Apache-2.0
//
// Texts that are numbered, found by their hashes.
#ifndef VELRZM_SERVER_STRUCTURE_TEXT_INDEX_H
#define VELRZM_SERVER_STRUCTURE_TEXT_INDEX_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

#include "server/base/arena.h"

namespace qvserver {

/** Numbers of texts, found by the text. It keeps hashes only; its user knows the texts. */
class TextIndex {
public:
    /** Has the place of a hash fetched from memory meanwhile: fetch some, then find them. */
    void fetch(std::uint32_t hash) const noexcept
    {
        if (!slots_.empty()) {
            __builtin_prefetch(&slots_[hash & (slots_.size() - 1)]);
        }
    }
    /** The number of the text that has that hash, `next` when it has none yet; `isText(number)` tells whether a
     * number is that of the text. */
    template <typename IsText>
    std::uint32_t find(std::uint32_t hash, std::uint32_t next, IsText isText)
    {
        if (2 * (size_ + 1) > slots_.size()) {
            grow();
        }
        Slot* slot = &slots_[hash & (slots_.size() - 1)];
        while (slot->number != none && (slot->hash != hash || !isText(slot->number))) {
            slot = slot == &slots_.back() ? slots_.data() : slot + 1;
        }
        if (slot->number == none) {
            *slot = {hash, next};
            ++size_;
        }
        return slot->number;
    }

private:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = none;
    };

    void grow()
    {
        constexpr std::size_t firstSize = 64; // a power of two, as all sizes are
        std::pmr::vector<Slot> larger(std::max(firstSize, 2 * slots_.size()), &largePages());
        for (const Slot& old : slots_) {
            std::size_t place = old.hash & (larger.size() - 1);
            while (old.number != none && larger[place].number != none) {
                place = (place + 1) & (larger.size() - 1);
            }
            if (old.number != none) {
                larger[place] = old;
            }
        }
        slots_ = std::move(larger);
    }

    std::pmr::vector<Slot> slots_{
        &largePages()}; // never full, each number as near behind the place of its hash as was free
    std::size_t size_ = 0;
};

} // namespace qvserver

#endif
