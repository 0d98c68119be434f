// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_BENCH_LOG_FOLDER_H
#define VELRZM_BENCH_LOG_FOLDER_H

#include <string>

namespace bench {

/** A folder of this run for all files that are measured, so that they lie on one file system. */
const std::string& logFolder();

} // namespace bench

#endif
