// SPDX-License-Identifier: Apache-2.0
#include "diagnostics/trace.h"

#include <iostream>

int QVL_Traces_Level = 0;
int QVL_Traces_FirstTime = 1;

namespace velrzm {

namespace {

std::size_t sizeOf(std::initializer_list<Piece> pieces, std::string_view separator, std::string_view ending)
{
    std::size_t size = ending.size() + (pieces.size() > 1 ? (pieces.size() - 1) * separator.size() : 0);
    for (const Piece& piece : pieces) {
        size += piece.text().size();
    }
    return size;
}

} // namespace

Line::Line(std::initializer_list<Piece> pieces, std::string_view separator, std::string_view ending)
    : size_(sizeOf(pieces, separator, ending))
{
    if (size_ > short_.size()) {
        long_.resize(size_);
    }
    char* next = long_.empty() ? short_.data() : long_.data();
    const auto put = [&next](std::string_view text) { next = std::copy(text.begin(), text.end(), next); };
    for (const Piece& piece : pieces) {
        if (&piece != pieces.begin()) {
            put(separator);
        }
        put(piece.text());
    }
    put(ending);
}

void writeToConsole(std::initializer_list<Piece> pieces)
{
    const Line line(pieces, "", "\n");
    std::cout.write(line.data(), static_cast<std::streamsize>(line.size())).flush();
}

} // namespace velrzm
