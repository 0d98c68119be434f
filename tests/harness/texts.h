// SPDX-License-Identifier: Apache-2.0
//
// Texts for the library's `char*` arguments, and the writing of expected transcripts.
#ifndef VELRZM_TESTS_HARNESS_TEXTS_H
#define VELRZM_TESTS_HARNESS_TEXTS_H

#include <string>
#include <utility>
#include <vector>

namespace harness {

/** A text in memory of its own for a `char*` argument: `EngineeringChangeOpen(Text(""), Text("EC-1"),
 * names)`. */
class Text {
public:
    explicit Text(std::string text) : text_(std::move(text)) {}
    // NOLINTNEXTLINE(google-explicit-constructor): stands where a `char*` is asked for
    operator char*() { return text_.data(); }
    const std::string& str() const { return text_; }

private:
    std::string text_;
};

/** A null-terminated array of names. */
class Names {
public:
    explicit Names(std::vector<std::string> names) : names_(std::move(names))
    {
        for (std::string& name : names_) {
            pointers_.push_back(name.data());
        }
        pointers_.push_back(nullptr);
    }
    Names(const Names&) = delete;
    Names& operator=(const Names&) = delete;
    ~Names() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): stands where a `char**` is asked for
    operator char**() { return pointers_.data(); }

private:
    std::vector<std::string> names_;
    std::vector<char*> pointers_;
};

/** The block that a failure adds to the error log. */
std::string errorBlock(const std::string& function, const std::string& text);

using Lines = std::vector<std::string>;

/** Cuts off the text up to `separator`, and the separator. */
std::string cutHead(std::string& text, const std::string& separator);

/** The parts of a text between separators; none of an empty text. */
Lines split(const std::string& text, const std::string& separator);

/** Puts `other` in the place of every `part`. */
void replaceAll(std::string& text, const std::string& part, const std::string& other);

/** How many lines of `text` contain `part`. */
int countLines(const std::string& text, const std::string& part = "");

} // namespace harness

#endif
