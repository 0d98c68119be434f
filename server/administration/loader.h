// SPDX-License-Identifier: Apache-2.0
//
// Loading objects that no call of the interface creates, from CSV files.
#ifndef VELRZM_SERVER_ADMINISTRATION_LOADER_H
#define VELRZM_SERVER_ADMINISTRATION_LOADER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "server/store/store.h"

namespace qvserver {

/** A column of a file, and the attribute for its values. */
struct LoadColumn {
    std::string_view name;
    std::string_view path;
    bool mayBeEmpty = false;
};

/** A kind of file. The first column names the owner of a row; loading replaces all that its owners have. */
struct LoadFormat {
    std::string_view className;
    std::vector<LoadColumn> columns;
};

const LoadFormat& productOptions();
const LoadFormat& productPackages();
const LoadFormat& translationTables();

/** Loads the file, all of it or nothing, and returns its number of rows. */
std::size_t load(Store& store, const LoadFormat& format, const std::string& path);

} // namespace qvserver

#endif
