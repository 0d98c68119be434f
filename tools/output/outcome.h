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
    std::string noRecords = {}; // what no record means, where that is an answer too: "no difference"
    /** What to show instead of the records. In place of the table it is a text for a terminal: made visible, styled. */
    std::map<Format, std::function<std::string()>> drawn = {};
};

/** An outcome that a person reads as a sentence, and a program as a record. */
Outcome sentence(const std::string& text, Records record);

/** Writes an outcome to the results; what no record means goes to standard error. */
void writeOutcome(const Outcome& outcome, Format format);

} // namespace tools

#endif
