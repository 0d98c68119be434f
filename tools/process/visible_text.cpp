// SPDX-License-Identifier: Apache-2.0
#include "tools/process/visible_text.h"

#include <array>

namespace tools {

namespace {

/** Ranges of characters that a terminal obeys. */
struct Range {
    std::uint32_t first;
    std::uint32_t last;
};
constexpr std::array obeyed = {
    Range{0x00, 0x1F},     Range{0x7F, 0x9F},     // controls
    Range{0x061C, 0x061C}, Range{0x200E, 0x200F}, // marks of direction
    Range{0x2028, 0x202E},                        // separators of lines, embeddings and overrides
    Range{0x2066, 0x206F},                        // isolates and what they replace
    Range{0xFEFF, 0xFEFF}, Range{0xFFF9, 0xFFFB},
};

bool isObeyed(std::uint32_t code)
{
    for (const Range& range : obeyed) {
        if (code >= range.first && code <= range.last) {
            return true;
        }
    }
    return false;
}

std::string escapeOf(std::uint32_t code)
{
    switch (code) {
    case '\n':
        return "\\n";
    case '\t':
        return "\\t";
    default:
        std::string escape = "\\u"; // of four digits: none of the ranges goes further
        for (unsigned shift = 16; shift > 0;) {
            shift -= 4;
            escape += "0123456789abcdef"[code >> shift & 0xFU];
        }
        return escape;
    }
}

std::string written(std::string_view text, std::string_view kept)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        const bool isKept =
            character.code < 0x80 && kept.find(static_cast<char>(character.code)) != std::string_view::npos;
        if (character.isValid && (isKept || !isObeyed(character.code))) {
            result.append(text.substr(0, character.size));
        } else {
            result.append(escapeOf(character.code));
        }
        text.remove_prefix(character.size);
    }
    return result;
}

} // namespace

Character firstCharacter(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t size = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
    if (size == 0 || size > text.size()) {
        return {lead, 1, false};
    }
    std::uint32_t code = size == 1 ? lead : lead & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        const auto unit = static_cast<unsigned char>(text[i]);
        if ((unit & 0xC0U) != 0x80U) {
            return {lead, 1, false};
        }
        code = code << 6U | (unit & 0x3FU);
    }
    const bool isOverlong = (size == 3 && code < 0x800) || (size == 4 && code < 0x10000);
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (isOverlong || isSurrogate || code > 0x10FFFF) {
        return {lead, 1, false};
    }
    return {code, size, true};
}

std::string visible(std::string_view text)
{
    return written(text, "\n\t");
}

std::string visibleLine(std::string_view text)
{
    return written(text, "");
}

} // namespace tools
