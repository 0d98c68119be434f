// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_PROCESS_LOCAL_SERVER_H
#define VELRZM_TOOLS_PROCESS_LOCAL_SERVER_H

namespace tools {

/** Whether the local server, and not another library, serves this program's calls. */
bool localServerServes();

/** Whether the store is in memory. Such a one takes any user and password, and its administration cannot reach it. */
bool storeIsInMemory();

} // namespace tools

#endif
