// SPDX-License-Identifier: Apache-2.0
#include "tools/process/child_process.h"

#include <cerrno>
#include <csignal>
#include <thread>
#include <utility>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tools/process/attribute_names.h"
#include "tools/process/environment.h"

namespace tools {

namespace {

/** Where a child's standard input and output come from. */
class FileActions {
public:
    FileActions(int input, int output)
    {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_adddup2(&actions_, input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
    }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_ = {};
};

/** Signals that this program ignores and a child does not. */
class DefaultSignals {
public:
    DefaultSignals()
    {
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, SIGPIPE);
        sigaddset(&signals, SIGXFSZ);
        posix_spawnattr_init(&attributes_);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF);
    }
    ~DefaultSignals() { posix_spawnattr_destroy(&attributes_); }
    DefaultSignals(const DefaultSignals&) = delete;
    DefaultSignals& operator=(const DefaultSignals&) = delete;
    const posix_spawnattr_t* get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_ = {};
};

} // namespace

ChildProcess::ChildProcess(std::vector<std::string> words, int input, int output,
                           const std::vector<std::string>& variables)
{
    TextArray arguments(std::move(words));
    TextArray environment(childEnvironment(variables));
    startError_ = posix_spawnp(&process_, *arguments.data(), FileActions(input, output).get(),
                               DefaultSignals().get(), arguments.data(), environment.data());
    if (startError_ != 0) {
        process_ = -1;
    }
}

ChildProcess::~ChildProcess()
{
    if (process_ != -1) {
        kill(process_, SIGTERM);
        wait();
    }
}

int ChildProcess::wait()
{
    return status(0).value_or(0);
}

std::optional<int> ChildProcess::waitFor(std::chrono::milliseconds time)
{
    constexpr std::chrono::milliseconds pause(20);
    const auto end = std::chrono::steady_clock::now() + time;
    std::optional<int> ended = status(WNOHANG);
    while (!ended.has_value() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(pause);
        ended = status(WNOHANG);
    }
    return ended;
}

std::optional<int> ChildProcess::status(int options)
{
    int status = 0;
    pid_t ended = -1;
    while ((ended = waitpid(process_, &status, options)) == -1 && errno == EINTR) {
    }
    if (ended != process_) {
        return std::nullopt;
    }
    process_ = -1;
    constexpr int bySignal = 128;
    return WIFEXITED(status) ? WEXITSTATUS(status) : bySignal + WTERMSIG(status);
}

} // namespace tools
