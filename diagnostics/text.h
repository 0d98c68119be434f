// SPDX-License-Identifier: Apache-2.0
//
// Text of trace and log lines: the pieces that a line is composed of, the line itself, and text of limited size.
#ifndef VELRZM_DIAGNOSTICS_TEXT_H
#define VELRZM_DIAGNOSTICS_TEXT_H

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>

#include <velrzm/vel_types.h>

namespace velrzm {

/** `text`, or "" for a null pointer. */
inline const char* orEmpty(const char* text) noexcept
{
    return text == nullptr ? "" : text;
}

/** Whether a text was given: neither null nor empty. */
inline bool given(const char* text) noexcept
{
    return text != nullptr && *text != '\0';
}

/** One piece of a line: a text, where null counts as empty, or a decimal number. It does not own the text. */
class Piece {
public:
    // NOLINTBEGIN(google-explicit-constructor): lines are written as lists of plain texts and numbers
    Piece(const char* text) noexcept : text_(orEmpty(text)) {}
    Piece(std::string_view text) noexcept : text_(text) {}
    Piece(const std::string& text) noexcept : text_(text) {}
    Piece(const VELUnicodeString& text) noexcept
        : text_(text.CastToCharPtr(), static_cast<std::size_t>(text.GetLengthInChar()))
    {}
    Piece(int number) noexcept
    {
        const auto end = std::to_chars(digits_.data(), digits_.data() + digits_.size(), number).ptr;
        text_ = std::string_view(digits_.data(), static_cast<std::size_t>(end - digits_.data()));
    }
    // NOLINTEND(google-explicit-constructor)
    Piece(const Piece&) = delete; // text_ may point into digits_
    Piece& operator=(const Piece&) = delete;
    ~Piece() = default;

    std::string_view text() const noexcept { return text_; }

private:
    std::array<char, 12> digits_; // filled for numbers only
    std::string_view text_;
};

/**
 * A line composed of pieces, with `separator` between them and `ending` after the last, contiguous and ready to be
 * written. At most `limit` characters are kept before the ending.
 */
class Line {
public:
    Line(std::initializer_list<Piece> pieces, std::string_view separator, std::string_view ending,
         std::size_t limit = std::numeric_limits<std::size_t>::max());
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    ~Line() = default;

    const char* data() const noexcept { return long_.empty() ? short_.data() : long_.data(); }
    std::size_t size() const noexcept { return size_; }

private:
    std::size_t size_ = 0;
    std::array<char, 1024> short_; // holds the usual line without an allocation
    std::string long_;
};

/** Copies as much of `text` as fits a buffer of `size` bytes with its terminator; returns whether all of it did. */
inline bool copyToFit(char* buffer, std::size_t size, std::string_view text) noexcept
{
    if (buffer == nullptr || size == 0) {
        return false;
    }
    const std::size_t length = std::min(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    return length == text.size();
}

/** Text appended piece by piece to a buffer of `Size` bytes, terminator included; what does not fit is cut. */
template <std::size_t Size>
class BoundedText {
public:
    BoundedText(std::initializer_list<Piece> pieces) noexcept
    {
        buffer_.front() = '\0';
        for (const Piece& piece : pieces) {
            append(piece);
        }
    }

    void append(const Piece& piece) noexcept
    {
        copyToFit(&buffer_[used()], Size - used(), piece.text());
        wanted_ += piece.text().size();
    }

    const char* text() const noexcept { return buffer_.data(); }
    std::string_view view() const noexcept { return {buffer_.data(), used()}; }
    /** Whether nothing was cut. */
    bool fits() const noexcept { return wanted_ < Size; }

private:
    std::size_t used() const noexcept { return std::min(wanted_, Size - 1); }

    std::size_t wanted_ = 0;
    std::array<char, Size> buffer_;
};

} // namespace velrzm

#endif
