// SPDX-License-Identifier: Apache-2.0
//
// What the functions of the stand-in share: the state behind standin.h and the recording of one call.
#ifndef VELRZM_TESTS_STANDIN_CALL_RECORDER_H
#define VELRZM_TESTS_STANDIN_CALL_RECORDER_H

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <velrzm/qv_sdk.h>

#include "tests/standin/standin.h"

namespace standin {

/** What every handle of the stand-in points at. It stays in memory until the reset, so that a late use is
 * told. */
struct Handle {
    enum class State { Live, Destroyed, DestroyRefused };
    std::string name;
    State state = State::Live;
};

} // namespace standin

struct QV_Object : standin::Handle {
    standin::Record record; // empty unless read from a list
};
struct QV_List : standin::Handle {};
struct QV_Report : standin::Handle {};

namespace standin {

/** The answer to a call: its code and the messages of a failure. */
struct Answer {
    int code = 0;
    std::vector<Message> messages;
};

struct State {
    std::vector<Call> calls;
    std::function<void(const Call&)> observer;
    std::map<std::size_t, Answer> callAnswers;
    std::map<std::string, Answer> functionAnswers;
    std::map<std::string, HandOver> handOvers;
    Record values;
    std::vector<Record> records;
    std::map<std::string, std::vector<std::pair<std::string, std::string>>> translations;

    bool lastCallFailed = false;
    std::vector<Message> messages;
    std::optional<int> errorSize;

    std::deque<QV_Object> objects;
    std::deque<QV_List> lists;
    std::deque<QV_Report> reports;
    std::deque<std::string> handedOut; // texts of the current call; the next call takes them back
    std::vector<std::string> violations;

    void violation(const std::string& text) { violations.push_back(text); }
    /** A copy that lives until the next call, so that a text that was not copied at once is found out. */
    const char* handOut(const std::optional<std::string>& text);
};

State& state();

inline std::deque<QV_Object>& handlesOf(QV_ObjectHandle /*kind*/)
{
    return state().objects;
}
inline std::deque<QV_List>& handlesOf(QV_ListHandle /*kind*/)
{
    return state().lists;
}
inline std::deque<QV_Report>& handlesOf(QV_ReportHandle /*kind*/)
{
    return state().reports;
}
inline const char* kindOf(QV_ObjectHandle /*kind*/)
{
    return "obj";
}
inline const char* kindOf(QV_ListHandle /*kind*/)
{
    return "list";
}
inline const char* kindOf(QV_ReportHandle /*kind*/)
{
    return "report";
}

/** Records one call: made first in every function, told the arguments in order, asked for the code last. */
class CallRecorder {
public:
    explicit CallRecorder(const char* function);

    bool succeeds() const { return answer_.code >= 0; }
    /** An argument that names a live handle. */
    template <class Pointer>
    CallRecorder& uses(Pointer handle);
    /** A handle variable that the call fills. */
    template <class Pointer>
    CallRecorder& fills(Pointer* variable);
    /** A handle variable whose handle the call destroys. */
    template <class Pointer>
    CallRecorder& destroys(Pointer* variable);
    CallRecorder& text(const char* value);
    CallRecorder& number(int value);
    /** A call that cannot be answered as asked: notes why and fails it. */
    void refuse(const std::string& why);
    /** Ends the call; the code to return. */
    int code();

private:
    template <class Pointer>
    static Handle* find(Pointer handle);
    void violation(const std::string& what) const { state().violation(call_.function + ": " + what); }
    bool handsOver() const;

    Call call_;
    Answer answer_;
};

template <class Pointer>
Handle* CallRecorder::find(Pointer handle)
{
    for (auto& known : handlesOf(handle)) {
        if (&known == handle) {
            return &known;
        }
    }
    return nullptr;
}

template <class Pointer>
CallRecorder& CallRecorder::uses(Pointer handle)
{
    const Handle* const known = find(handle);
    call_.arguments.push_back(known != nullptr ? known->name : "null");
    if (handle == nullptr) {
        violation("null handle used");
    } else if (known == nullptr) {
        call_.arguments.back() = "unknown";
        violation("unknown handle used");
    } else if (known->state == Handle::State::Destroyed) {
        violation("dead handle " + known->name + " used");
    }
    return *this;
}

template <class Pointer>
CallRecorder& CallRecorder::fills(Pointer* variable)
{
    const Handle* const held = find(*variable);
    if (held != nullptr && held->state == Handle::State::Live) {
        violation("live handle " + held->name + " overwritten");
    }
    if (handsOver()) {
        auto& handles = handlesOf(*variable);
        *variable = &handles.emplace_back();
        (*variable)->name = kindOf(*variable) + std::to_string(handles.size());
    } else {
        *variable = nullptr;
    }
    call_.arguments.push_back(*variable != nullptr ? (*variable)->name : "null");
    return *this;
}

template <class Pointer>
CallRecorder& CallRecorder::destroys(Pointer* variable)
{
    if (*variable == nullptr) {
        call_.arguments.emplace_back("null");
        return *this;
    }
    uses(*variable);
    if (Handle* const held = find(*variable); held != nullptr && held->state != Handle::State::Destroyed) {
        held->state = succeeds() ? Handle::State::Destroyed : Handle::State::DestroyRefused;
    }
    if (succeeds()) {
        *variable = nullptr;
    }
    return *this;
}

} // namespace standin

#endif
