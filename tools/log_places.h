// SPDX-License-Identifier: Apache-2.0
//
// Where the library's logs go.
#ifndef VELRZM_TOOLS_LOG_PLACES_H
#define VELRZM_TOOLS_LOG_PLACES_H

namespace tools {

/** Error log and last-error file go where the environment says, otherwise into the user's state directory: in
 * the working directory, the library's own default, they would replace those of the program that is looked
 * into. */
void keepLogsOutOfTheWay();

} // namespace tools

#endif
