// SPDX-License-Identifier: Apache-2.0
#include "tests/server/server_test.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <velrzm/qvlocal.h>

namespace servertest {

std::string message()
{
    return QV_Error_MsgTxt(0);
}

Object::Object(const std::string& className, const Pairs& attributes)
{
    EXPECT_EQ(QV_Create_Object(&handle_, className.c_str()), 0) << message();
    for (const auto& [path, value] : attributes) {
        EXPECT_EQ(set(path, value), 0) << message();
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
    Object object(className, attributes);
    object.subscribe("db_object_id");
    return object.save() == 0 ? object.get("db_object_id") : "";
}

std::string read(const std::string& className, const Pairs& keys, const std::string& path)
{
    Object object(className, keys);
    object.subscribe(path);
    return object.open() == 0 ? object.get(path) : "";
}

namespace {

/** The values that the Select clauses ask for of record `row`. */
std::vector<std::string> readRow(QV_ListHandle list, int row, const Clauses& clauses)
{
    std::vector<std::string> values;
    QV_ObjectHandle record = nullptr;
    EXPECT_EQ(QV_Read_List(list, row, &record), 0) << message();
    for (const auto& [kind, text] : clauses) {
        const char* value = nullptr;
        if (kind == "Select") {
            EXPECT_EQ(QV_Get_Object_Attr(record, text.c_str(), &value), 0) << message();
            values.emplace_back(value == nullptr ? "" : value);
        }
    }
    EXPECT_EQ(QV_Destroy_Object(&record), 0) << message();
    return values;
}

} // namespace

Table query(const std::string& className, const Clauses& clauses)
{
    QV_ListHandle list = nullptr;
    EXPECT_EQ(QV_Create_List(&list, className.c_str()), 0) << message();
    for (const auto& [kind, text] : clauses) {
        EXPECT_EQ(QV_Set_Clause(list, kind.c_str(), text.c_str()), 0) << message();
    }
    EXPECT_EQ(QV_Open_List(list), 0) << message();
    int size = 0;
    EXPECT_EQ(QV_SizeOf_List(list, &size), 0) << message();
    Table table;
    for (int row = 0; row < size; ++row) {
        table.push_back(readRow(list, row, clauses));
    }
    EXPECT_EQ(QV_Destroy_List(&list), 0) << message();
    return table;
}

OtherSession::OtherSession(std::string user)
{
    std::array<int, 2> input = {};
    std::array<int, 2> output = {};
    if (pipe(input.data()) != 0 || pipe(output.data()) != 0) {
        throw std::runtime_error("no pipe to another process");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, input[1]);
    posix_spawn_file_actions_addclose(&actions, output[0]);
    std::string program = OTHER_SESSION;
    std::array<char*, 3> arguments = {program.data(), user.data(), nullptr};
    const int failed = posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(input[0]);
    close(output[1]);
    input_ = input[1];
    output_ = output[0];
    if (failed != 0) {
        throw std::runtime_error("cannot start " + program);
    }
}

OtherSession::~OtherSession()
{
    close(input_);
    close(output_);
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
    EXPECT_EQ(write(input_, commands.data(), commands.size()), static_cast<ssize_t>(commands.size()));
}

std::optional<int> OtherSession::answer() const
{
    std::string text;
    char next = 0;
    while (::read(output_, &next, 1) == 1 && next != '\n') {
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
