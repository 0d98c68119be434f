// SPDX-License-Identifier: Apache-2.0
#include "tools/process/password.h"

#include <array>
#include <optional>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include "tools/process/environment.h"
#include "tools/process/failures.h"
#include "tools/process/files.h"
#include "tools/process/interruption.h"
#include "tools/process/standard_streams.h"
#include "tools/process/visible_text.h"

namespace tools {

namespace {

/** The terminal of the user, with the echo off while this object lives. */
class SilentTerminal {
public:
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's interface
    SilentTerminal() : file_(open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY))
    {
        if (file_ == -1 || tcgetattr(file_, &usual_) != 0) {
            throw WrongUsage("a password is needed and there is no terminal to ask for it; name a file with "
                             "--password-file or set VELRZM_PASSWORD");
        }
        termios silent = usual_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        silent.c_lflag |= static_cast<tcflag_t>(ICANON | ECHONL);
        tcsetattr(file_, TCSAFLUSH, &silent);
    }
    ~SilentTerminal()
    {
        tcsetattr(file_, TCSAFLUSH, &usual_);
        close(file_);
    }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;

    std::string ask(const std::string& question) const
    {
        static_cast<void>(writeAll(file_, visible(question)));
        std::array<char, 1024> line{};
        const ssize_t length = read(file_, line.data(), line.size());
        checkInterruption();
        if (length <= 0 || line[static_cast<std::size_t>(length) - 1] != '\n') {
            throw WrongUsage("no password was given");
        }
        return {line.data(), static_cast<std::size_t>(length) - 1};
    }

private:
    int file_;
    termios usual_ = {};
};

std::string firstLine(const std::string& path)
{
    std::ifstream file = openForReading(path);
    std::string line;
    std::getline(file, line);
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    if (line.empty()) {
        throw Refused("the first line of the password file " + path + " is empty; it must be the password");
    }
    return line;
}

/** The password, where nobody has to type it. */
std::optional<std::string> givenPassword(const std::string& file)
{
    return file.empty() ? environmentVariable(passwordVariable) : firstLine(file);
}

} // namespace

std::string password(const std::string& user, const std::string& file)
{
    const std::optional<std::string> given = givenPassword(file);
    return given.has_value() ? *given : SilentTerminal().ask("Password of " + user + ": ");
}

std::string newPassword(const std::string& user, const std::string& file)
{
    if (const std::optional<std::string> given = givenPassword(file); given.has_value()) {
        return *given;
    }
    const SilentTerminal terminal;
    std::string typed = terminal.ask("New password of " + user + ": ");
    if (terminal.ask("The same again: ") != typed) {
        throw WrongUsage("the two passwords differ; nothing was done");
    }
    return typed;
}

} // namespace tools
