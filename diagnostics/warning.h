// SPDX-License-Identifier: Apache-2.0
//
// Warnings about parts of a request that the library leaves out while it carries out the rest.
#ifndef VELRZM_DIAGNOSTICS_WARNING_H
#define VELRZM_DIAGNOSTICS_WARNING_H

#include <string>

namespace velrzm {

/** Writes a warning of the operation `prefix` to standard output (level 0) and to the access log. */
void warn(const char* prefix, const std::string& text);

} // namespace velrzm

#endif
