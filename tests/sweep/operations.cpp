// SPDX-License-Identifier: Apache-2.0
#include "tests/sweep/operations.h"

#include <ostream>

namespace sweep {

void PrintTo(const Operation& operation, std::ostream* stream)
{
    *stream << operation.name;
}

std::vector<Operation> allOperations()
{
    std::vector<Operation> all;
    for (const auto& family : {engineeringChanges(), affectedItems(), items(), documents(),
                               productStructure(), productConfiguration()}) {
        all.insert(all.end(), family.begin(), family.end());
    }
    return all;
}

} // namespace sweep
