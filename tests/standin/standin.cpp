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

template <class Handles>
void noteLeaksAmong(const Handles& handles, std::initializer_list<const void*> held)
{
    for (const auto& handle : handles) {
        const bool isHeld = std::find(held.begin(), held.end(), &handle) != held.end();
        if (handle.state == Handle::State::Live && !isHeld) {
            state().violation("handle " + handle.name + " leaked");
        }
    }
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

void answerCall(std::size_t number, int code, std::vector<Message> messages)
{
    state().callAnswers[number] = {code, std::move(messages)};
}

void answer(const std::string& function, int code, std::vector<Message> messages)
{
    state().functionAnswers[function] = {code, std::move(messages)};
}

void failLastCall(std::vector<Message> messages)
{
    state().lastCallFailed = true;
    state().messages = std::move(messages);
}

void setErrorSize(int size)
{
    state().errorSize = size;
}

void handOver(const std::string& function, HandOver when)
{
    state().handOvers[function] = when;
}

void setValue(const std::string& path, std::optional<std::string> value)
{
    state().values[path] = std::move(value);
}

void setRecords(std::vector<Record> records)
{
    state().records = std::move(records);
}

void setTranslations(const std::string& name, std::vector<std::pair<std::string, std::string>> entries)
{
    state().translations[name] = std::move(entries);
}

std::string violations()
{
    std::string text;
    for (const std::string& violation : state().violations) {
        text += violation + '\n';
    }
    return text;
}

void noteLeaks(std::initializer_list<const void*> held)
{
    noteLeaksAmong(state().objects, held);
    noteLeaksAmong(state().lists, held);
    noteLeaksAmong(state().reports, held);
}

CallRecorder::CallRecorder(const char* function)
{
    State& shared = state();
    call_.function = function;
    shared.handedOut.clear();
    if (const auto found = shared.callAnswers.find(shared.calls.size() + 1);
        found != shared.callAnswers.end()) {
        answer_ = found->second;
    } else if (const auto byName = shared.functionAnswers.find(function);
               byName != shared.functionAnswers.end()) {
        answer_ = byName->second;
    }
}

CallRecorder& CallRecorder::text(const char* value)
{
    if (value == nullptr) {
        violation("null text passed");
    }
    call_.arguments.push_back(value == nullptr ? "null" : quoted(value));
    return *this;
}

CallRecorder& CallRecorder::number(int value)
{
    call_.arguments.push_back(std::to_string(value));
    return *this;
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
    const auto found = state().handOvers.find(call_.function);
    const HandOver when = found == state().handOvers.end() ? HandOver::OnSuccess : found->second;
    return when == HandOver::Always || (when == HandOver::OnSuccess && succeeds());
}

} // namespace standin
