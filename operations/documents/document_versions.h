// SPDX-License-Identifier: Apache-2.0
//
// The list of the versions of a document, used by several operations.
#ifndef VELRZM_OPERATIONS_DOCUMENTS_DOCUMENT_VERSIONS_H
#define VELRZM_OPERATIONS_DOCUMENTS_DOCUMENT_VERSIONS_H

#include "frame/list_request.h"

namespace velrzm {

/** The condition that selects the versions of the document. */
inline Clause versionsOf(const char* documentNumber) noexcept
{
    return {"&=(doc_revision@doc_number,'", documentNumber, "')", "documentNumber"};
}

/**
 * Opens the list of those versions of the document that are the primary configuration of their revision, the latest
 * last. `columns` are the attributes of each record, closed by a null pointer.
 */
void openVersions(ListRequest& list, const char* documentNumber, const char* const* columns);

} // namespace velrzm

#endif
