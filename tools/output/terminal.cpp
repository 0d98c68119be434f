// SPDX-License-Identifier: Apache-2.0
#include "tools/output/terminal.h"

#include <algorithm>
#include <clocale>
#include <cstring>
#include <cwchar>

#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "tools/process/environment.h"
#include "tools/process/standard_streams.h"
#include "tools/process/visible_text.h"

namespace tools {

namespace {

Terminal shown;

bool showsColour()
{
    const std::string type = environmentText("TERM");
    return !type.empty() && type != "dumb" && environmentText("NO_COLOR").empty();
}

void setSize(Terminal& sized, int descriptor)
{
    winsize size = {};
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): that is how the system is asked
    if (ioctl(descriptor, TIOCGWINSZ, &size) == 0) {
        sized.width = size.ws_col > 0 ? size.ws_col : sized.width;
        sized.height = size.ws_row > 0 ? size.ws_row : sized.height;
    }
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

/** In columns. */
std::size_t widthOf(const Character& character)
{
    const bool isShown = character.isValid && character.code != 0;
    return isShown ? static_cast<std::size_t>(std::max(wcwidth(static_cast<wchar_t>(character.code)), 0)) : 1;
}

/** How many bytes of a text take at most `width` columns. */
std::size_t fittingSize(std::string_view text, std::size_t width)
{
    std::size_t size = 0;
    for (std::size_t used = 0; size < text.size();) {
        const Character character = firstCharacter(text.substr(size));
        used += widthOf(character);
        if (used > width) {
            break;
        }
        size += character.size;
    }
    return size;
}

} // namespace

void inspectTerminal()
{
    shown.unicode = setTextLocale();
    shown.interactive = isatty(resultDescriptor()) == 1;
    shown.colour = shown.interactive && showsColour();
    setSize(shown, resultDescriptor());
}

const Terminal& terminal()
{
    return shown;
}

std::string styled(Style style, std::string_view text)
{
    if (!shown.colour || style == Style::Plain || text.empty()) {
        return std::string(text);
    }
    const char* const codes[] = {"", "\033[1m", "\033[2m", "\033[32m", "\033[31m"};
    return codes[static_cast<int>(style)] + std::string(text) + "\033[0m";
}

std::size_t shownWidth(std::string_view text)
{
    std::size_t width = 0;
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        width += widthOf(character);
        text.remove_prefix(character.size);
    }
    return width;
}

std::string padded(std::string_view text, std::size_t width)
{
    const std::size_t own = shownWidth(text);
    std::string result(text);
    return result.append(width > own ? width - own : 0, ' ');
}

std::string cut(std::string_view text, std::size_t width)
{
    const std::string_view mark = shown.unicode ? "\u2026" : "...";
    const std::size_t room = width - std::min(width, shownWidth(mark));
    return std::string(text.substr(0, fittingSize(text, room))).append(mark);
}

std::vector<std::string> brokenLines(std::string_view text, std::size_t width)
{
    std::vector<std::string> lines;
    while (shownWidth(text) > width) {
        const std::size_t fitting = std::max(fittingSize(text, width), firstCharacter(text).size);
        const std::size_t blank = text.rfind(' ', fitting);
        const bool isBrokenAtBlank = blank != std::string_view::npos && blank > 0;
        lines.emplace_back(text.substr(0, isBrokenAtBlank ? blank : fitting));
        text.remove_prefix(isBrokenAtBlank ? blank + 1 : fitting);
    }
    lines.emplace_back(text);
    return lines;
}

} // namespace tools
