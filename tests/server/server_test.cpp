// SPDX-License-Identifier: Apache-2.0
#include "tests/server/server_test.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include <spawn.h>
#include <sqlite3.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <velrzm/qvlocal.h>

namespace servertest {

std::string message()
{
    return QV_Error_MsgTxt(0);
}

testing::AssertionResult refused(int answer, int code, const std::string& told)
{
    const bool asTold = answer == code && message().find(told) != std::string::npos;
    return (asTold ? testing::AssertionSuccess() : testing::AssertionFailure())
           << answer << " with \"" << message() << "\" instead of " << code << " with \"" << told << '"';
}

std::string failureOf(const std::function<void()>& call)
{
    try {
        call();
        return "";
    } catch (const qvlocal::StoreError& error) {
        return error.what();
    }
}

Pairs item(const std::string& number, const std::string& change)
{
    return {{"logical_key@item_number", number}, {"il_ec_number", change}};
}

Pairs component(const std::string& parent, const std::string& child, const std::string& sequence,
                const std::string& change)
{
    return {{"logical_key@item_number", parent},
            {"logical_key@comp_item_number", child},
            {"logical_key@comp_seq_nm", sequence},
            {"il_ec_number", change}};
}

Object::Object(const std::string& className, const Pairs& attributes,
               const std::vector<std::string>& subscribed)
{
    EXPECT_EQ(QV_Create_Object(&handle_, className.c_str()), 0) << message();
    for (const auto& [path, value] : attributes) {
        EXPECT_EQ(set(path, value), 0) << message();
    }
    for (const std::string& path : subscribed) {
        EXPECT_EQ(subscribe(path), 0) << message();
    }
}

int Object::set(const std::string& path, const std::string& value)
{
    return QV_Set_Object_Attr(handle_, path.c_str(), value.c_str());
}

std::string Object::get(const std::string& path) const
{
    const char* value = nullptr;
    EXPECT_EQ(QV_Get_Object_Attr(handle_, path.c_str(), &value), 0) << message();
    return value == nullptr ? "" : value;
}

std::string create(const std::string& className, const Pairs& attributes)
{
    Object object(className, attributes, {"db_object_id"});
    return object.save() == 0 ? object.get("db_object_id") : "";
}

std::string read(const std::string& className, const Pairs& keys, const std::string& path)
{
    Object object(className, keys, {path});
    return object.open() == 0 ? object.get(path) : "";
}

Table rowsOf(QV_ListHandle list, const std::vector<std::string>& columns)
{
    int size = 0;
    EXPECT_EQ(QV_SizeOf_List(list, &size), 0) << message();
    Table rows;
    for (int row = 0; row < size; ++row) {
        QV_ObjectHandle record = nullptr;
        EXPECT_EQ(QV_Read_List(list, row, &record), 0) << message();
        rows.emplace_back();
        for (const std::string& column : columns) {
            const char* value = nullptr;
            EXPECT_EQ(QV_Get_Object_Attr(record, column.c_str(), &value), 0) << message();
            rows.back().emplace_back(value == nullptr ? "" : value);
        }
        EXPECT_EQ(QV_Destroy_Object(&record), 0) << message();
    }
    return rows;
}

Table query(const std::string& className, const Clauses& clauses)
{
    QV_ListHandle list = nullptr;
    std::vector<std::string> columns;
    EXPECT_EQ(QV_Create_List(&list, className.c_str()), 0) << message();
    for (const auto& [kind, text] : clauses) {
        EXPECT_EQ(QV_Set_Clause(list, kind.c_str(), text.c_str()), 0) << message();
        if (kind == "Select") {
            columns.push_back(text);
        }
    }
    EXPECT_EQ(QV_Open_List(list), 0) << message();
    Table rows = rowsOf(list, columns);
    EXPECT_EQ(QV_Destroy_List(&list), 0) << message();
    return rows;
}

std::string sql(const std::string& path, const std::string& statement)
{
    sqlite3* database = nullptr;
    std::string answer;
    const auto take = [](void* text, int /*columns*/, char** values, char** /*names*/) {
        *static_cast<std::string*>(text) += values[0];
        return 0;
    };
    EXPECT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, statement.c_str(), take, &answer, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
    return answer;
}

OtherSession::OtherSession(std::string user)
{
    std::array<int, 2> ends = {};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throw std::runtime_error("no way to another process");
    }
    connection_ = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::string program = OTHER_SESSION;
    std::array<char*, 3> arguments = {program.data(), user.data(), nullptr};
    const int failed = posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (failed != 0) {
        throw std::runtime_error("cannot start " + program);
    }
}

OtherSession::~OtherSession()
{
    close(connection_);
    if (process_ > 0) {
        waitpid(process_, nullptr, 0);
    }
}

int OtherSession::run(const std::string& command) const
{
    send(command + '\n');
    const std::optional<int> code = answer();
    EXPECT_TRUE(code) << "no answer to " << command;
    return code.value_or(-1);
}

void OtherSession::send(const std::string& commands) const
{
    EXPECT_EQ(write(connection_, commands.data(), commands.size()), static_cast<ssize_t>(commands.size()));
}

std::optional<int> OtherSession::answer() const
{
    std::string text;
    char next = 0;
    while (::read(connection_, &next, 1) == 1 && next != '\n') {
        text += next;
    }
    return next == '\n' ? std::optional(std::stoi(text)) : std::nullopt;
}

void OtherSession::kill()
{
    ::kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = -1;
}

ServerTest::ServerTest(const std::string& location)
{
    environment.set("QV_STORE", location);
}

ServerTest::~ServerTest()
{
    QV_Close_Env();
}

void ServerTest::SetUp()
{
    ASSERT_EQ(QV_Open_Env(), 0) << message();
    ASSERT_EQ(logon(), 0) << message();
}

int ServerTest::logon(const std::string& user, const std::string& password)
{
    std::array<char, 1> reserved1 = {};
    std::array<char, 1> reserved2 = {};
    return QV_Logon(user.c_str(), password.c_str(), reserved1.data(), reserved2.data());
}

void StoreFileTest::SetUp()
{
    qvlocal::initializeStore(location, "jdoe", "secret");
    ServerTest::SetUp();
}

} // namespace servertest
