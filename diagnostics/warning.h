// SPDX-License-Identifier: Apache-2.0
//
// Warnings: what the library leaves out of a request that it carries out all the same.
#ifndef VELRZM_DIAGNOSTICS_WARNING_H
#define VELRZM_DIAGNOSTICS_WARNING_H

#include <string>

namespace velrzm {

/** Writes a warning of the operation `prefix` to standard output (level 0) and to the access log. */
void warn(const char* prefix, const std::string& text);

} // namespace velrzm

#endif
