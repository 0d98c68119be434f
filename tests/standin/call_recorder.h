// SPDX-License-Identifier: Apache-2.0
//
// The recording of one call, which the functions of the stand-in share.
#ifndef VELRZM_TESTS_STANDIN_CALL_RECORDER_H
#define VELRZM_TESTS_STANDIN_CALL_RECORDER_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <velrzm/qv_sdk.h>

#include "tests/standin/memory.h"
#include "tests/standin/standin.h"

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
    explicit CallRecorder(const char* function)
    {
        call_.function = function;
        state().handedOut.clear();
        auto& answers = state().answers;
        const auto byNumber = answers.find(std::to_string(state().calls.size() + 1));
        answer_ = byNumber != answers.end() ? byNumber->second : answers[function];
    }

    bool succeeds() const { return answer_.code >= 0; }
    void add(int number) { call_.arguments.push_back(std::to_string(number)); }
    void add(const char* text)
    {
        expect(text != nullptr, "null text passed");
        call_.arguments.push_back(text == nullptr ? "null" : '"' + std::string(text) + '"');
    }
    /** A handle that must be live. */
    void add(const Handle* handle)
    {
        const Handle* const known = state().find(handle);
        call_.arguments.push_back(known != nullptr ? known->name : "unknown");
        expect(known != nullptr, "null or unknown handle used");
        expect(known == nullptr || known->state != Handle::State::Destroyed, "dead handle used");
    }
    /** A handle variable that the call fills. */
    template <class Kind>
    void add(Kind** variable)
    {
        const Handle* const held = state().find(*variable);
        expect(held == nullptr || held->state != Handle::State::Live, "live handle overwritten");
        *variable = nullptr;
        const HandOver when = state().handOvers[call_.function];
        if (when == HandOver::Always || (when == HandOver::OnSuccess && succeeds())) {
            const auto made = std::make_shared<Kind>();
            made->name = Kind::kind + std::to_string(++state().handlesOfKind[Kind::kind]);
            state().handles.push_back(made);
            *variable = made.get();
        }
        call_.arguments.push_back(nameOf(*variable));
    }
    template <class Kind>
    void add(Destroyed<Kind> destroyed)
    {
        Handle* const held = state().find(*destroyed.variable);
        if (*destroyed.variable == nullptr) {
            call_.arguments.emplace_back("null");
            return;
        }
        add(*destroyed.variable);
        if (held != nullptr && held->state != Handle::State::Destroyed) {
            held->state = succeeds() ? Handle::State::Destroyed : Handle::State::DestroyRefused;
        }
        *destroyed.variable = succeeds() ? nullptr : *destroyed.variable;
    }
    /** What is asked for; when it does not exist, the call fails. */
    template <class Element>
    const Element* elementAt(const std::vector<Element>& all, int index)
    {
        if (index >= 0 && index < static_cast<int>(all.size())) {
            return &all[static_cast<std::size_t>(index)];
        }
        expect(false, "nothing at " + std::to_string(index));
        answer_ = {-1, {{"STANDIN", "not there"}}};
        return nullptr;
    }
    /** Ends the call; the code to return. */
    int code()
    {
        call_.code = answer_.code;
        state().calls.push_back(call_);
        if (state().observer) {
            state().observer(call_);
        }
        // What a failed call handed over may be given back before the failure is reported.
        if (!succeeds() || call_.function != "QV_Destroy_Object") {
            state().hasFailed = !succeeds();
            state().messages = succeeds() ? std::vector<Message>() : answer_.messages;
        }
        return answer_.code;
    }

private:
    void expect(bool isSo, const std::string& otherwise) const
    {
        if (!isSo) {
            state().violation(Call(call_).line() + ": " + otherwise);
        }
    }

    AmpleMemory ample_;
    Call call_;
    Answer answer_;
};

} // namespace standin

#endif
