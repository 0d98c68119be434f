// SPDX-License-Identifier: Apache-2.0
//
// What a command gives: records, and what is shown in their place in some forms.
#ifndef VELRZM_TOOLS_OUTPUT_OUTCOME_H
#define VELRZM_TOOLS_OUTPUT_OUTCOME_H

#include <functional>
#include <map>
#include <string>

#include "tools/output/format.h"
#include "tools/output/records.h"

namespace tools {

struct Outcome {
    Records records;
    Shape shape = Shape::Object;
    bool mayBeEmpty = false;                                   // no record is an answer too
    std::map<Format, std::function<std::string()>> drawn = {}; // what to show instead of the records
};

} // namespace tools

#endif
