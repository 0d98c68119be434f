// SPDX-License-Identifier: Apache-2.0
//
// What the functions of the stand-in share: the state behind standin.h and the recording of one call.
#ifndef VELRZM_TESTS_STANDIN_CALL_RECORDER_H
#define VELRZM_TESTS_STANDIN_CALL_RECORDER_H

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <velrzm/qv_sdk.h>

#include "tests/standin/memory.h"
#include "tests/standin/standin.h"

namespace standin {

/** What every handle of the stand-in points at. It stays in memory until the reset, so that a late use is
 * told. */
struct Handle {
    enum class State { Live, Destroyed, DestroyRefused };
    std::string name;
    State state = State::Live;
    Record record; // empty unless read from a list
};

} // namespace standin

struct QV_Object : standin::Handle {
    static constexpr const char* kind = "obj";
};
struct QV_List : standin::Handle {
    static constexpr const char* kind = "list";
};
struct QV_Report : standin::Handle {
    static constexpr const char* kind = "report";
};

namespace standin {

struct State {
    std::vector<Call> calls;
    std::function<void(const Call&)> observer;
    Script script;

    bool lastCallFailed = false;
    std::vector<Message> messages;

    std::vector<std::shared_ptr<Handle>> handles;
    std::map<std::string, int> handlesOfKind;
    std::deque<std::string> handedOut; // texts of the current call; the next call takes them back
    std::string violations;

    void violation(const std::string& text) { violations += text + '\n'; }
    /** Element `index`; none, and a violation, when there is no such one. */
    template <class Element>
    const Element* elementAt(const std::vector<Element>& all, int index, const std::string& function)
    {
        if (index >= 0 && index < static_cast<int>(all.size())) {
            return &all[static_cast<std::size_t>(index)];
        }
        violation(function + ": nothing at " + std::to_string(index));
        return nullptr;
    }
    /** A copy that lives until the next call, so that a text that was not copied at once is found out. */
    const char* handOut(const std::optional<std::string>& text);
};

State& state();

/** A handle variable whose handle a call destroys. */
template <class Kind>
struct Destroyed {
    Kind** variable;
};
template <class Kind>
Destroyed(Kind**) -> Destroyed<Kind>;

/** Records one call: made first in every function, told the arguments in order, asked for the code last. */
class CallRecorder {
public:
    explicit CallRecorder(const char* function);

    bool succeeds() const { return answer_.code >= 0; }
    void add(const char* text);
    void add(int number) { call_.arguments.push_back(std::to_string(number)); }
    /** A handle that must be live. */
    void add(const Handle* handle);
    /** A handle variable that the call fills. */
    template <class Kind>
    void add(Kind** variable);
    template <class Kind>
    void add(Destroyed<Kind> destroyed);
    /** What is asked for; when it does not exist, the call fails. */
    template <class Element>
    const Element* elementAt(const std::vector<Element>& all, int index)
    {
        const Element* const found = state().elementAt(all, index, call_.function);
        answer_ = found != nullptr ? answer_ : Answer{-1, {{"STANDIN", "not there"}}};
        return found;
    }
    /** Ends the call; the code to return. */
    int code();

    static Handle* find(const void* handle);

private:
    void violation(const std::string& what) const { state().violation(call_.function + ": " + what); }
    bool handsOver() const;

    AmpleMemory ample_;
    Call call_;
    Answer answer_;
};

template <class Kind>
void CallRecorder::add(Kind** variable)
{
    const Handle* const held = find(*variable);
    if (held != nullptr && held->state == Handle::State::Live) {
        violation("live handle " + held->name + " overwritten");
    }
    *variable = nullptr;
    if (handsOver()) {
        const auto made = std::make_shared<Kind>();
        made->name = Kind::kind + std::to_string(++state().handlesOfKind[Kind::kind]);
        state().handles.push_back(made);
        *variable = made.get();
    }
    call_.arguments.push_back(*variable != nullptr ? (*variable)->name : "null");
}

template <class Kind>
void CallRecorder::add(Destroyed<Kind> destroyed)
{
    Kind** const variable = destroyed.variable;
    if (*variable == nullptr) {
        call_.arguments.emplace_back("null");
        return;
    }
    add(*variable);
    if (Handle* const held = find(*variable); held != nullptr && held->state != Handle::State::Destroyed) {
        held->state = succeeds() ? Handle::State::Destroyed : Handle::State::DestroyRefused;
    }
    if (succeeds()) {
        *variable = nullptr;
    }
}

} // namespace standin

#endif
