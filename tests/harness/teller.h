// SPDX-License-Identifier: Apache-2.0
//
// Writes the lines of a test out as a story; docs/stories.md has the notation.
#ifndef VELRZM_TESTS_HARNESS_TELLER_H
#define VELRZM_TESTS_HARNESS_TELLER_H

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/harness/story.h"
#include "tests/harness/texts.h"

namespace harness {

/** A call of a story, and whether its failure has a story of its own. */
struct ToldCall {
    int code;
    bool isToldElsewhere;
};

/** The code that one call gives, or with number 0 each that succeeds, whatever the lines say. */
struct OtherAnswer {
    std::size_t call;
    int code;
};

class Teller {
public:
    explicit Teller(int level, State before = {}, std::optional<OtherAnswer> answer = {})
        : level_(level), state_(std::move(before)), answer_(answer)
    {}

    void tell(const std::string& line);
    /** Tells the result, and what the global variables say at the end. */
    void tellEnd();
    std::string story() const { return story_ + errors_; }
    const std::vector<ToldCall>& calls() const { return calls_; }
    const State& state() const { return state_; }

private:
    /** An operation that writes: the one that is told, or one that it calls. */
    struct Scope {
        std::string writer;
        bool isLeftOut = false;
        bool isStopped = false;
    };

    void tellAll(Lines lines, const std::string& text);
    void tellSetting(const std::string& mark, const std::string& text);
    void tellEvent(const std::string& verb, const std::string& text);
    void tellCall(const std::string& mark, std::string text);
    void tellFailure(const std::string& message);
    void setKind(const std::string& kind);
    void nameHandles(std::string& text, int code);
    void show(int level, const std::string& text);
    void add(const std::string& channel, std::string text);
    /** What the operation returns. */
    std::string result() const;

    int level_;
    State state_;
    std::optional<OtherAnswer> answer_;
    std::vector<Scope> scopes_{Scope()};
    std::vector<ToldCall> calls_;
    std::set<std::string> handedOver_;
    std::string kind_;     // of the result: Object or List, or none yet
    std::string returned_; // by the operation that was called last
    std::string story_;
    std::string errors_; // what the error log has gained since the last event that is no line of a log
};

} // namespace harness

#endif
