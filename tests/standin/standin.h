// SPDX-License-Identifier: Apache-2.0
//
// A scripted stand-in for the server's client library: it defines the 38 functions of <velrzm/qv_sdk.h> in
// the test program, records what the library calls and answers as its state says. Without a script every
// call succeeds with 0.
//
//     standin::state().values["id"] = "EC-1";                // what QV_Get_Object_Attr hands out
//     standin::answer("2", -7, {{"E1", "no such class"}});   // the second call from now on fails
//     ... use the library ...
//     EXPECT_EQ(standin::state().calls[1].line(), "QV_Open_Object(obj1) = -7");
//     EXPECT_EQ(standin::violations({QV_ObjPtr}), "");
//
// The three message functions are no calls of their own: they are neither recorded nor counted. They answer
// for the last call only, as the server does, so a check that comes too late finds nothing and is a
// violation.
#ifndef VELRZM_TESTS_STANDIN_STANDIN_H
#define VELRZM_TESTS_STANDIN_STANDIN_H

#include <deque>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace standin {

/** A call as it was made: arguments are quoted texts, numbers, and handles by kind and order of creation. */
struct Call {
    std::string function;
    std::vector<std::string> arguments;
    int code = 0;

    /** `QV_Set_Object_Attr(obj1, "id", "EC-1") = 0`; a handle that a create fills is the new one, null if
     * none. */
    std::string line() const;
};

/** A message of a failed call; without a value a null pointer is handed out. */
struct Message {
    std::optional<std::string> code;
    std::optional<std::string> text;
};

/** The answer to a call: its code, and the messages of a failure, which is negative. */
struct Answer {
    int code = 0;
    std::vector<Message> messages = {};
};

/** The attribute values of one list record; without a value a null pointer is handed out. */
using Record = std::map<std::string, std::optional<std::string>>;

/** When a create, read or generate function hands a handle over. */
enum class HandOver { OnSuccess, Always, Never };

/** What every handle of the stand-in points at. It stays in memory, so that a late use is told. */
struct Handle {
    enum class State { Live, Destroyed, DestroyRefused };
    std::string name;
    State state = State::Live;
    Record record; // empty unless read from a list
};

/** What is answered, and what was called. A new one has forgotten everything. */
struct State {
    /** By the number of the call, counted from 1 since `calls` was last emptied; otherwise by function. */
    std::map<std::string, Answer> answers;
    /** When a function fills its handle variable; on success if nothing is said. */
    std::map<std::string, HandOver> handOvers;
    /** The attributes of every object that has none of its own from a list record; "" if nothing is said. */
    Record values;
    /** The records of every list. */
    std::vector<Record> records;
    /** The entries of the translation tables, by name. */
    std::map<std::string, std::vector<std::pair<std::string, std::string>>> translations;
    /** What QV_Error_Size answers instead of the number of messages. */
    std::optional<int> errorSize;

    std::vector<Call> calls;
    /** Is told of each call as it is made. */
    std::function<void(const Call&)> observer;
    /** Whether the last call failed, and its messages. */
    bool hasFailed = false;
    std::vector<Message> messages;

    std::vector<std::shared_ptr<Handle>> handles;
    std::map<std::string, int> handlesOfKind;
    std::deque<std::string> handedOut; // texts of the current call; the next call takes them back
    std::string violations;

    void violation(const std::string& text) { violations += text + '\n'; }
    /** The handle that a pointer stands for, if it was ever handed over. */
    Handle* find(const void* handle) const;
    /** A copy that lives until the next call, so that a text that was not copied at once is found out. */
    const char* handOut(const std::optional<std::string>& text);
};

State& state();
/** Answers a call by its number, or every call of a function. */
void answer(const std::string& call, int code, std::vector<Message> messages = {});
/** The name of a handle that was handed out; "null" of a null one. */
std::string nameOf(const void* handle);
/**
 * What the library did that no client may do, one line each: a null, dead or unknown handle used, a live
 * handle overwritten or, unless it is one of `held`, never given back, a null text passed, a record or message
 * asked for that does not exist.
 */
std::string violations(std::initializer_list<const void*> held);

} // namespace standin

#endif
