// SPDX-License-Identifier: Apache-2.0
#include "tools/output/records.h"

#include <array>

#include <velrzm/result.h>

#include "tools/process/interruption.h"
#include "tools/process/library_output.h"

namespace tools {

std::string currentValue(int record, const std::string& name)
{
    std::array<char, QV_MAX_VALUE_LENGTH + 1> value{};
    if (GetValue(record, name.c_str(), value.data(), value.size()) == 0) {
        throwServerFailure("reading record " + std::to_string(record + 1) + " of " + std::to_string(entries));
    }
    return value.data();
}

Records currentRecords(const std::vector<std::string>& names)
{
    Records records{names, {}};
    const int count = entries;
    for (int record = 0; record < count; ++record) {
        checkInterruption();
        std::vector<std::string>& row = records.rows.emplace_back();
        for (const std::string& name : names) {
            row.push_back(currentValue(record, name));
        }
    }
    return records;
}

} // namespace tools
