// SPDX-License-Identifier: Apache-2.0
#include "tools/process/password.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include "tools/process/failures.h"
#include "tools/process/interruption.h"

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
        static_cast<void>(write(file_, question.data(), question.size()) < 0);
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
    std::ifstream file(path);
    std::string line;
    if (!file.is_open() || (!std::getline(file, line) && file.bad())) {
        throw WrongUsage("the password file " + path + " cannot be read: " + std::strerror(errno));
    }
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    if (line.empty()) {
        throw WrongUsage("the first line of the password file " + path +
                         " is empty; it must be the password");
    }
    return line;
}

/** The password from where nobody has to type it; false when there is no such place. */
bool findPassword(const std::string& file, std::string& found)
{
    if (!file.empty()) {
        found = firstLine(file);
        return true;
    }
    const char* const value = std::getenv("VELRZM_PASSWORD"); // NOLINT(concurrency-mt-unsafe): one thread
    found = value == nullptr ? "" : value;
    return value != nullptr;
}

} // namespace

std::string password(const std::string& user, const std::string& file)
{
    std::string found;
    return findPassword(file, found) ? found : SilentTerminal().ask("Password of " + user + ": ");
}

std::string newPassword(const std::string& user, const std::string& file)
{
    std::string found;
    if (findPassword(file, found)) {
        return found;
    }
    const SilentTerminal terminal;
    found = terminal.ask("New password of " + user + ": ");
    if (terminal.ask("The same again: ") != found) {
        throw WrongUsage("the two passwords are not the same; nothing was done");
    }
    return found;
}

} // namespace tools
