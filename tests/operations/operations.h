// SPDX-License-Identifier: Apache-2.0
//
// Uses the library's functions by name, as stories tell it.
#ifndef VELRZM_TESTS_OPERATIONS_OPERATIONS_H
#define VELRZM_TESTS_OPERATIONS_OPERATIONS_H

#include <array>
#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <velrzm/vel_types.h>

#include "tests/harness/texts.h"
#include "tests/harness/use.h"
#include "tests/standin/memory.h"

namespace operations {

/** The arguments of one use, each in memory of its own, and what the caller's memory holds afterwards. */
class Inputs {
public:
    explicit Inputs(const harness::Use& use);

    /** The next text, which the function may change or not; behind the last, a buffer that it fills. */
    char* text(bool isChangeable);
    char** names();
    VELListValVELUnicodeString& list(int position) { return lists_.at(static_cast<std::size_t>(position)); }
    const harness::Use& use() const { return use_; }
    /** Makes the call itself, the only thing for which memory may be scarce. */
    template <class Call>
    int make(const Call& call)
    {
        ample_.reset();
        const int result = call();
        ample_.emplace();
        return result;
    }

    /** The texts afterwards, and what they ought to be: keys that could be changed are in upper case. */
    std::vector<std::string> textsAfterwards() const { return {copies_.begin(), copies_.end()}; }
    const std::vector<std::string>& expectedTexts() const { return expected_; }
    const std::deque<std::array<char, 20000>>& buffers() const { return buffers_; }
    /** Adds to what came back in buffers, lists and variables: "[TEXT | TEXT]", or nothing. */
    void put(const std::string& text) { output_ += (output_.empty() ? "[" : " | ") + text; }
    std::string output() const { return output_.empty() ? "" : output_ + ']'; }

private:
    std::optional<standin::AmpleMemory> ample_{std::in_place};
    harness::Use use_;
    std::size_t next_ = 0;
    std::deque<std::string> copies_;
    std::deque<std::array<char, 20000>> buffers_;
    std::string output_;
    std::vector<std::string> expected_;
    std::optional<harness::Names> names_;
    std::vector<VELListValVELUnicodeString> lists_; // further attributes, their values, names to read back
};

int run(Inputs& inputs);

} // namespace operations

#endif
