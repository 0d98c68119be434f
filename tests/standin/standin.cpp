// SPDX-License-Identifier: Apache-2.0
#include "tests/standin/standin.h"

#include <algorithm>

#include "tests/standin/call_recorder.h"

namespace standin {

State& state()
{
    static State instance;
    return instance;
}

const char* State::handOut(const std::optional<std::string>& text)
{
    return text ? handedOut.emplace_back(*text).c_str() : nullptr;
}

std::string Call::line() const
{
    std::string text = function + '(';
    for (const std::string& argument : arguments) {
        text += (text.back() == '(' ? "" : ", ") + argument;
    }
    return text + ") = " + std::to_string(code);
}

void reset()
{
    state() = State();
}

const std::vector<Call>& calls()
{
    return state().calls;
}

void forgetCalls()
{
    state().calls.clear();
}

void observe(std::function<void(const Call&)> observer)
{
    state().observer = std::move(observer);
}

Script& script()
{
    return state().script;
}

void answer(const std::string& call, int code, std::vector<Message> messages)
{
    script().answers[call] = {code, std::move(messages)};
}

void failLastCall(std::vector<Message> messages)
{
    state().lastCallFailed = true;
    state().messages = std::move(messages);
}

std::string nameOf(const void* handle)
{
    const Handle* const known = CallRecorder::find(handle);
    return known != nullptr ? known->name : "null";
}

std::string violations(std::initializer_list<const void*> held)
{
    for (const auto& handle : state().handles) {
        const bool isHeld = std::find(held.begin(), held.end(), handle.get()) != held.end();
        if (handle->state == Handle::State::Live && !isHeld) {
            state().violation("handle " + handle->name + " leaked");
        }
    }
    return state().violations;
}

CallRecorder::CallRecorder(const char* function)
{
    call_.function = function;
    state().handedOut.clear();
    auto& answers = script().answers;
    const auto byNumber = answers.find(std::to_string(state().calls.size() + 1));
    answer_ = byNumber != answers.end() ? byNumber->second : answers[function];
}

void CallRecorder::add(const char* text)
{
    if (text == nullptr) {
        violation("null text passed");
    }
    call_.arguments.push_back(text == nullptr ? "null" : '"' + std::string(text) + '"');
}

void CallRecorder::add(const Handle* handle)
{
    const Handle* const known = find(handle);
    call_.arguments.push_back(known != nullptr ? known->name : "unknown");
    if (known == nullptr) {
        violation("null or unknown handle used");
    } else if (known->state == Handle::State::Destroyed) {
        violation("dead handle " + known->name + " used");
    }
}

Handle* CallRecorder::find(const void* handle)
{
    const auto& handles = state().handles;
    const auto found = std::find_if(handles.begin(), handles.end(),
                                    [=](const auto& known) { return known.get() == handle; });
    return found == handles.end() ? nullptr : found->get();
}

int CallRecorder::code()
{
    call_.code = answer_.code;
    state().calls.push_back(call_);
    if (state().observer) {
        state().observer(call_);
    }
    // What a failed call handed over may be given back before the failure is reported.
    if (!succeeds() || call_.function != "QV_Destroy_Object") {
        state().lastCallFailed = !succeeds();
        state().messages = succeeds() ? std::vector<Message>() : answer_.messages;
    }
    return answer_.code;
}

bool CallRecorder::handsOver() const
{
    const HandOver when = script().handOvers[call_.function];
    return when == HandOver::Always || (when == HandOver::OnSuccess && succeeds());
}

} // namespace standin
