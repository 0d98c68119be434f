// SPDX-License-Identifier: Apache-2.0
//
// The access log: one line for each call of the server and for the inputs and outcomes of operations.
#ifndef VELRZM_DIAGNOSTICS_ACCESS_LOG_H
#define VELRZM_DIAGNOSTICS_ACCESS_LOG_H

#include <initializer_list>

#include <velrzm/logging.h>

#include "diagnostics/text.h"

namespace velrzm {

/** Writes the pieces, joined by blanks, as one line to the open access log. */
void writeToAccessLog(std::initializer_list<Piece> pieces);

/** The same; without an open access log nothing is composed. */
template <class... Pieces>
void accessLog(const Pieces&... pieces)
{
    if (QVL_Log_File != nullptr) {
        writeToAccessLog({Piece(pieces)...});
    }
}

} // namespace velrzm

#endif
