// SPDX-License-Identifier: Apache-2.0
//
// What every test of the server starts from: a logged-on session over a store of its own, handles that
// release themselves, and a second session in another process.
#ifndef VELRZM_TESTS_SERVER_SERVER_TEST_H
#define VELRZM_TESTS_SERVER_SERVER_TEST_H

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <sys/types.h>

#include <velrzm/qv_sdk.h>
#include <velrzm/qvlocal.h>

#include "tests/harness/files.h"

namespace servertest {

using Pairs = std::vector<std::pair<std::string, std::string>>;

/** The text of the last failure; "" when there was none. */
std::string message();
/** Whether a call gave `answer`, which must be `code`, and a message with `told` in it. */
testing::AssertionResult refused(int answer, int code, const std::string& told);
/** What a StoreError of `call` says; "" when there is none. */
std::string failureOf(const std::function<void()>& call);

/** The attributes that tell an item, or a component, from the others. */
Pairs item(const std::string& number, const std::string& change = "");
Pairs component(const std::string& parent, const std::string& child, const std::string& sequence,
                const std::string& change = "");

/** An object handle of its own. */
class Object {
public:
    explicit Object(const std::string& className, const Pairs& attributes = {},
                    const std::vector<std::string>& subscribed = {});
    ~Object() { QV_Destroy_Object(&handle_); }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    int set(const std::string& path, const std::string& value);
    int subscribe(const std::string& path) { return QV_Subscribe_Object_Attr(handle_, path.c_str()); }
    int open() { return QV_Open_Object(handle_); }
    int save() { return QV_Save_Object(handle_); }
    int remove() { return QV_Delete_Object(handle_); }
    int createAndCheckIn() { return QV_Create_and_CheckIn_Doc(handle_, 0); }
    int checkOut() { return QV_CheckOut_Doc(handle_); }
    int checkIn() { return QV_CheckIn_Doc(handle_, 0); }
    int cancel() { return QV_Cancel_CheckOut_Doc(handle_); }
    std::string get(const std::string& path) const;
    QV_ObjectHandle handle() const { return handle_; }

private:
    QV_ObjectHandle handle_ = nullptr;
};

/** Saves a new object; its db_object_id, "" when it was refused. */
std::string create(const std::string& className, const Pairs& attributes);
/** Opens an object and reads `path`; "" when it was not found. */
std::string read(const std::string& className, const Pairs& keys, const std::string& path);

using Clauses = std::vector<std::pair<std::string, std::string>>; // kind, text
using Table = std::vector<std::vector<std::string>>;
/** The rows of a list: of each record the values of these attributes. */
Table rowsOf(QV_ListHandle list, const std::vector<std::string>& columns);
/** The rows of the list that the clauses describe, with the values of all Select clauses. */
Table query(const std::string& className, const Clauses& clauses = {});

/** What the database answers to a statement about a file, one value behind the other. */
std::string sql(const std::string& path, const std::string& statement);

/** A user in a process of its own. Every command answers the code of the call that it is named after. */
class OtherSession {
public:
    explicit OtherSession(std::string user = "jdoe");
    ~OtherSession();
    OtherSession(const OtherSession&) = delete;
    OtherSession& operator=(const OtherSession&) = delete;

    /** "start", "commit", "discard", "size CLASS"; "create CLASS PATH=VALUE ..."; "change CLASS KEY=VALUE ...
     * with PATH=VALUE ..."; of the vault "create-and-check-in", "check-out", "check-in", "cancel", "revise",
     * each with CLASS PATH=VALUE ...; "watch CLASS N" answers at the next command, and before it: how many of
     * the sizes of the class that it read meanwhile were no multiples of N. */
    int run(const std::string& command) const;
    /** Gives commands, one a line, without waiting for their answers. */
    void send(const std::string& commands) const;
    /** The next answer; none when the process ended before it. */
    std::optional<int> answer() const;
    /** Ends the process at once, as a crash would, and waits until it is gone; its answers can still be read. */
    void kill();

private:
    pid_t process_ = -1;
    int connection_ = -1;
};

/** A session over a store in memory. */
class ServerTest : public testing::Test {
public:
    ~ServerTest() override;

protected:
    explicit ServerTest(const std::string& location = "sqlite::memory:");
    void SetUp() override;
    /** Logs on; the code. */
    static int logon(const std::string& user = "jdoe", const std::string& password = "secret");

    harness::TemporaryDirectory directory;
    harness::Environment environment;
};

/** A session over a store in a file. */
class StoreFileTest : public ServerTest {
protected:
    static constexpr const char* location = "sqlite:store.db";
    StoreFileTest() : ServerTest(location) {}
    void SetUp() override;
};

} // namespace servertest

#endif
