// SPDX-License-Identifier: Apache-2.0
#include "server/objects/translation.h"

#include <utility>

#include "server/base/errors.h"

namespace qvserver {

std::size_t TranslationTable::sizeOf(Store& store, std::string_view name)
{
    auto entries =
        store.select({&classNamed(classes::translationEntry), {"from", "to"}, {equals("table_name", name)}});
    if (entries->empty()) {
        fail(Failure::NotFound, "there is no translation table ", inQuotes(name),
             "; load its entries into the store first");
    }
    name_ = name;
    entries_ = std::move(entries);
    return entries_->size();
}

TranslationTable::Entry TranslationTable::entry(Store& store, std::string_view name, int index)
{
    if (entries_ == nullptr || !sameText(name, name_)) {
        sizeOf(store, name);
    }
    const auto row = static_cast<std::size_t>(index);
    if (index < 0 || row >= entries_->size()) {
        fail(Failure::BadArgument, "there is no entry ", index, " in the translation table ", inQuotes(name_),
             " of ", entries_->size(), "; entries are numbered from 0");
    }
    return {entries_->value(row, 0), entries_->value(row, 1)};
}

} // namespace qvserver
