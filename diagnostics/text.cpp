// SPDX-License-Identifier: Apache-2.0
#include "diagnostics/text.h"

namespace velrzm {
namespace {

std::size_t joinedSize(std::initializer_list<Piece> pieces, std::string_view separator) noexcept
{
    std::size_t size = pieces.size() > 1 ? (pieces.size() - 1) * separator.size() : 0;
    for (const Piece& piece : pieces) {
        size += piece.text().size();
    }
    return size;
}

} // namespace

Line::Line(std::initializer_list<Piece> pieces, std::string_view separator, std::string_view ending,
           std::size_t limit)
{
    const std::size_t joined = std::min(joinedSize(pieces, separator), limit);
    size_ = joined + ending.size();
    if (size_ > short_.size()) {
        long_.resize(size_);
    }
    char* const begin = long_.empty() ? short_.data() : long_.data();
    std::size_t used = 0;
    const auto put = [&](std::string_view text) {
        if (const std::size_t length = std::min(text.size(), joined - used); length > 0) {
            std::memcpy(begin + used, text.data(), length);
            used += length;
        }
    };
    for (const Piece& piece : pieces) {
        if (&piece != pieces.begin()) {
            put(separator);
        }
        put(piece.text());
    }
    std::memcpy(begin + used, ending.data(), ending.size());
}

} // namespace velrzm
