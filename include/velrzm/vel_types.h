// SPDX-License-Identifier: Apache-2.0
//
// The value types of the CAD application's framework, as far as VELRZM needs them: a string, a list of
// strings that counts from 1, a tokenizer and the profiling hooks. They are complete in this header; at a
// site that has the framework itself, its own header takes this one's place.
#ifndef VELRZM_VEL_TYPES_H
#define VELRZM_VEL_TYPES_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/**
 * A text of `char` units. Copies share the text and cost a pointer; a changed copy gets a text of its own.
 *
 * A string that was never given a text, or was made from a null pointer, is null (`IsNull`). Everywhere else
 * it behaves like an empty one.
 */
class VELUnicodeString {
public:
    VELUnicodeString() noexcept = default;
    // NOLINTNEXTLINE(google-explicit-constructor): a text is a string wherever the framework asks for one
    VELUnicodeString(const char* text)
        : text_(text == nullptr ? nullptr : std::make_shared<const std::string>(text))
    {}

    /** The number of `char` units; `GetLengthInChar() + 1` bytes hold the converted text. */
    int GetLengthInChar() const noexcept { return text_ ? static_cast<int>(text_->size()) : 0; }
    /** Copies the text and its terminator into `buffer`, which holds at least `GetLengthInChar() + 1` bytes.
     */
    void ConvertToChar(char* buffer) const
    {
        std::memcpy(buffer, CastToCharPtr(), std::size_t(GetLengthInChar()) + 1);
    }
    /** The text, owned by the string and valid until it is changed or destroyed; never a null pointer. */
    const char* CastToCharPtr() const noexcept { return text_ ? text_->c_str() : ""; }
    // NOLINTNEXTLINE(google-explicit-constructor): the framework's own conversion
    operator const char*() const noexcept { return CastToCharPtr(); }

    /** Adds `tail` at the end; the result is not null, even when both are. */
    VELUnicodeString& Append(const VELUnicodeString& tail)
    {
        std::string joined;
        joined.reserve(std::size_t(GetLengthInChar()) + std::size_t(tail.GetLengthInChar()));
        joined.append(CastToCharPtr()).append(tail.CastToCharPtr());
        text_ = std::make_shared<const std::string>(std::move(joined));
        return *this;
    }
    /** Negative, zero or positive when this text sorts before, equals or sorts after `other`, byte by byte.
     */
    int Compare(const VELUnicodeString& other) const noexcept
    {
        return std::strcmp(CastToCharPtr(), other.CastToCharPtr());
    }
    /** Whether the string was never given a text. */
    bool IsNull() const noexcept { return text_ == nullptr; }

private:
    std::shared_ptr<const std::string> text_;
};

inline bool operator==(const VELUnicodeString& left, const VELUnicodeString& right) noexcept
{
    return left.Compare(right) == 0;
}
inline bool operator==(const VELUnicodeString& left, const char* right) noexcept
{
    return std::strcmp(left.CastToCharPtr(), right == nullptr ? "" : right) == 0;
}
inline bool operator==(const char* left, const VELUnicodeString& right) noexcept
{
    return right == left;
}
inline bool operator!=(const VELUnicodeString& left, const VELUnicodeString& right) noexcept
{
    return !(left == right);
}
inline bool operator!=(const VELUnicodeString& left, const char* right) noexcept
{
    return !(left == right);
}
inline bool operator!=(const char* left, const VELUnicodeString& right) noexcept
{
    return !(right == left);
}

/** Names that the framework's collections share. */
class VELCollec {
public:
    /**
     * What becomes of the elements of a collection that is emptied; lists of values release theirs in any
     * case.
     */
    enum MemoryHandling { KeepElements = 0, ReleaseElements = 1 };
};

/** A list of strings whose positions count from 1. */
class VELListValVELUnicodeString {
public:
    /** The number of strings. */
    int Size() const noexcept { return static_cast<int>(values_.size()); }

    /** The string at `position`; throws std::out_of_range unless 1 <= position <= Size(). */
    VELUnicodeString& operator[](int position) { return values_[indexOf(position)]; }
    const VELUnicodeString& operator[](int position) const { return values_[indexOf(position)]; }

    /** Adds `value` at the end. */
    void Append(const VELUnicodeString& value) { values_.push_back(value); }
    /** The first position from `start` on where `value` stands, compared exactly; 0 when there is none. */
    int Locate(const VELUnicodeString& value, int start = 1) const noexcept
    {
        const auto from = values_.begin() + std::min(std::max(start, 1) - 1, Size());
        const auto found = std::find(from, values_.end(), value);
        return found == values_.end() ? 0 : static_cast<int>(found - values_.begin()) + 1;
    }
    /** Puts `value` in the place of the string at `position`; throws std::out_of_range like `operator[]`. */
    void Replace(int position, const VELUnicodeString& value) { values_[indexOf(position)] = value; }
    /** Empties the list. */
    void RemoveAll(VELCollec::MemoryHandling /*handling*/ = VELCollec::ReleaseElements) noexcept
    {
        values_.clear();
    }

private:
    std::size_t indexOf(int position) const
    {
        if (position < 1 || position > Size()) {
            throw std::out_of_range("VELListValVELUnicodeString: position " + std::to_string(position) +
                                    " is outside 1 to " + std::to_string(Size()));
        }
        return static_cast<std::size_t>(position) - 1;
    }

    std::vector<VELUnicodeString> values_;
};

/** Splits a text into tokens: `VELToken words("ItemCreate name BOLT");`. */
class VELToken {
public:
    explicit VELToken(VELUnicodeString text) noexcept : text_(std::move(text)) {}

    /**
     * The next token, which ends before one of `separators`; an empty string when no token is left. Line ends
     * are among the usual separators, so that a file from Windows has the same tokens.
     */
    VELUnicodeString GetNextToken(const char* separators = " \t\r\n")
    {
        const char* const rest = text_.CastToCharPtr() + next_;
        const char* const begin = rest + std::strspn(rest, separators);
        const std::size_t length = std::strcspn(begin, separators);
        next_ += static_cast<std::size_t>(begin - rest) + length;
        return std::string(begin, length).c_str();
    }

private:
    VELUnicodeString text_;
    std::size_t next_ = 0;
};

/** The framework's profiling hooks; without a profiler they do nothing. */
class VELRZMProfiling {
public:
    static void StepIn(const char* /*name*/) noexcept {}
    static void StepOut(const char* /*name*/) noexcept {}
};

#endif
