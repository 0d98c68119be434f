// SPDX-License-Identifier: Apache-2.0
#include "tests/standin/standin.h"

#include <algorithm>

namespace standin {

std::string Call::line() const
{
    std::string text = function + '(';
    for (const std::string& argument : arguments) {
        text += (text.back() == '(' ? "" : ", ") + argument;
    }
    return text + ") = " + std::to_string(code);
}

Handle* State::find(const void* handle) const
{
    const auto found = std::find_if(handles.begin(), handles.end(),
                                    [=](const auto& known) { return known.get() == handle; });
    return found == handles.end() ? nullptr : found->get();
}

const char* State::handOut(const std::optional<std::string>& text)
{
    return text ? handedOut.emplace_back(*text).c_str() : nullptr;
}

State& state()
{
    static State instance;
    return instance;
}

void answer(const std::string& call, int code, std::vector<Message> messages)
{
    state().answers[call] = {code, std::move(messages)};
}

std::string nameOf(const void* handle)
{
    const Handle* const known = state().find(handle);
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

} // namespace standin
