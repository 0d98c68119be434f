// SPDX-License-Identifier: Apache-2.0
#include "frame/operation.h"

#include <velrzm/defaults.h>

#include "diagnostics/warning.h"

namespace velrzm {
namespace {

constexpr int slots = sizeof SelectedAttribute / sizeof SelectedAttribute[0];
constexpr std::size_t slotSize = sizeof SelectedAttribute[0];

} // namespace

Defaults::Defaults(const char* operation)
{
    DefaultRead(operation, names_, values_);
}

void Operation::logInputs(std::initializer_list<Piece> inputs) const
{
    if (QVL_Log_File != nullptr) {
        log(BoundedText<256>(inputs).view());
    }
}

void Operation::traceNames(const char* heading, const char* label, const AttributeNames& names) const
{
    if (!traced(OperationLevel)) {
        return;
    }
    trace(heading);
    for (const char* const name : names) {
        trace(label, name, "-");
    }
}

void Operation::tracePairs(const char* heading, const char* label, const Pairs& pairs) const
{
    if (!traced(OperationLevel) || pairs.size() == 0) {
        return;
    }
    trace(heading);
    for (const Pair pair : pairs) {
        trace(label, pair.name, "=", pair.value, "-");
    }
}

void Operation::logPairs(const char* label, const Pairs& pairs) const
{
    if (QVL_Log_File == nullptr) {
        return;
    }
    for (const Pair pair : pairs) {
        log(label, pair.name, "=", pair.value);
    }
}

Defaults Operation::readDefaults(const char* operation, const char* dash) const
{
    trace(dash, " Calling DefaultRead for ", operation);
    Defaults defaults(operation);
    trace(dash, " rc(DefaultRead)=", defaults.found());
    return defaults;
}

Pairs Operation::usual(const Defaults& defaults) const
{
    if (defaults.found() > Defaults::usualLimit) {
        warn(prefix_, std::to_string(defaults.found() - Defaults::usualLimit) +
                          " default attributes beyond the first 19 are left out");
    }
    return defaults.first(Defaults::usualLimit);
}

void Operation::capture(const AttributeNames& names, int bound) const
{
    const int firstSlot = names.isList() ? 1 : 0;
    const int captured = std::min(names.size(), std::min(bound, slots) - firstSlot);
    int cut = 0;
    for (int index = 0; index < captured; ++index) {
        cut += copyToFit(SelectedAttribute[firstSlot + index], slotSize, names[index]) ? 0 : 1;
    }
    NbSelectedAttribute = firstSlot + captured;
    if (cut > 0) {
        warn(prefix_, std::to_string(cut) + " names of selected attributes are cut to 49 characters");
    }
}

void Operation::refuse(const ServerCall& named, const std::string& reason)
{
    if (!stopped_) {
        reportRefusal(prefix_, named, reason);
        stopped_ = true;
    }
}

} // namespace velrzm
