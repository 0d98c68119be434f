// SPDX-License-Identifier: Apache-2.0
//
// Translation tables of the store, read by index.
#ifndef VELRZM_SERVER_OBJECTS_TRANSLATION_H
#define VELRZM_SERVER_OBJECTS_TRANSLATION_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "server/store/rows.h"
#include "server/store/store.h"

namespace qvserver {

/** The entries of one table, as they were when its size was asked for last. */
class TranslationTable {
public:
    struct Entry {
        const char* from;
        const char* to;
    };

    /** Reads the table and returns its number of entries; fails when there is no such table. */
    std::size_t sizeOf(Store& store, std::string_view name);
    /** Entry `index`, counted from 0, of the table, which is read unless it was the one read last. */
    Entry entry(Store& store, std::string_view name, int index);

private:
    std::string name_;
    std::shared_ptr<const Rows> entries_;
};

} // namespace qvserver

#endif
