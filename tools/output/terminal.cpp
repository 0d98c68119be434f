// SPDX-License-Identifier: Apache-2.0
#include "tools/output/terminal.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cstring>

#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "tools/process/standard_streams.h"

namespace tools {

namespace {

Terminal shown;

bool isSet(const char* variable)
{
    const char* const value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): one thread
    return value != nullptr && *value != '\0';
}

bool isDumb()
{
    const char* const type = std::getenv("TERM"); // NOLINT(concurrency-mt-unsafe): one thread
    return type == nullptr || std::strcmp(type, "dumb") == 0;
}

unsigned widthOf(int descriptor)
{
    constexpr unsigned usual = 80;
    winsize size = {};
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): that is how the system is asked
    return ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

/** Whether the user's locale is UTF-8. Texts are UTF-8 in any case. */
bool setTextLocale()
{
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0) {
        return true;
    }
    std::setlocale(LC_CTYPE, "C.UTF-8");
    return false;
}

} // namespace

void inspectTerminal()
{
    shown.unicode = setTextLocale();
    shown.interactive = isatty(resultDescriptor()) == 1;
    shown.colour = shown.interactive && !isSet("NO_COLOR") && !isDumb();
    shown.width = widthOf(resultDescriptor());
}

const Terminal& terminal()
{
    return shown;
}

std::string styled(Style style, std::string_view text)
{
    if (!shown.colour || text.empty()) {
        return std::string(text);
    }
    const char* const codes[] = {"\033[1m", "\033[2m", "\033[32m", "\033[31m"};
    return codes[static_cast<int>(style)] + std::string(text) + "\033[0m";
}

std::string padded(std::string_view text, std::size_t width)
{
    const auto isContinuation = [](char unit) { return (static_cast<unsigned char>(unit) & 0xC0U) == 0x80U; };
    const auto continuations = std::count_if(text.begin(), text.end(), isContinuation);
    const std::size_t length = text.size() - static_cast<std::size_t>(continuations);
    std::string result(text);
    return result.append(width > length ? width - length : 0, ' ');
}

} // namespace tools
