// SPDX-License-Identifier: Apache-2.0
#include "tests/standin/standin.h"

#include <algorithm>

#include "tests/standin/call_recorder.h"

namespace standin {

namespace {

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

} // namespace

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

bool Call::hasText(const std::string& text) const
{
    return std::find(arguments.begin(), arguments.end(), quoted(text)) != arguments.end();
}

void reset()
{
    state() = State();
}

const std::vector<Call>& calls()
{
    return state().calls;
}

std::string transcript()
{
    std::string text;
    for (const Call& call : state().calls) {
        text += call.line() + '\n';
    }
    return text;
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

void answerCall(std::size_t number, int code, std::vector<Message> messages)
{
    script().calls[number] = {code, std::move(messages)};
}

void answer(const std::string& function, int code, std::vector<Message> messages)
{
    script().functions[function] = {code, std::move(messages)};
}

void failLastCall(std::vector<Message> messages)
{
    state().lastCallFailed = true;
    state().messages = std::move(messages);
}

std::string violations()
{
    return state().violations;
}

std::string nameOf(const void* handle)
{
    const Handle* const known = CallRecorder::find(handle);
    return known != nullptr ? known->name : "null";
}

void noteLeaks(std::initializer_list<const void*> held)
{
    for (const auto& handle : state().handles) {
        const bool isHeld = std::find(held.begin(), held.end(), handle.get()) != held.end();
        if (handle->state == Handle::State::Live && !isHeld) {
            state().violation("handle " + handle->name + " leaked");
        }
    }
}

CallRecorder::CallRecorder(const char* function)
{
    call_.function = function;
    state().handedOut.clear();
    const auto byNumber = script().calls.find(state().calls.size() + 1);
    answer_ = byNumber != script().calls.end() ? byNumber->second : script().functions[function];
}

void CallRecorder::add(const char* text)
{
    if (text == nullptr) {
        violation("null text passed");
    }
    call_.arguments.push_back(text == nullptr ? "null" : quoted(text));
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

void CallRecorder::refuse(const std::string& why)
{
    violation(why);
    answer_ = {-1, {{"STANDIN", why}}};
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
