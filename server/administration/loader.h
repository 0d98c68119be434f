// SPDX-License-Identifier: Apache-2.0
//
// Loading what no call of the interface stores, from CSV files.
#ifndef VELRZM_SERVER_ADMINISTRATION_LOADER_H
#define VELRZM_SERVER_ADMINISTRATION_LOADER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "server/store/store.h"

namespace qvserver {

/** A column of a file, and the attribute that its values go to. */
struct LoadColumn {
    std::string_view name;
    std::string_view path;
    bool mayBeEmpty = false;
};

/** A kind of file. The first column tells whose rows they are; loading replaces all of that owner's. */
struct LoadFormat {
    std::string_view className;
    std::vector<LoadColumn> columns;
};

const LoadFormat& productOptions();
const LoadFormat& productPackages();
const LoadFormat& translationTables();

/** Loads the file, all of it or nothing, and tells how many rows it has. */
std::size_t load(Store& store, const LoadFormat& format, const std::string& path);

} // namespace qvserver

#endif
