// SPDX-License-Identifier: Apache-2.0
#include "tools/output/outcome.h"

#include <utility>

#include "tools/output/results.h"
#include "tools/process/standard_streams.h"
#include "tools/process/visible_text.h"

namespace tools {

Outcome sentence(const std::string& text, Records record)
{
    Outcome outcome{std::move(record)};
    outcome.drawn[Format::Table] = [text] { return visibleLine(text) + "\n"; };
    return outcome;
}

void writeOutcome(const Outcome& outcome, Format format)
{
    if (const auto drawn = outcome.drawn.find(format); drawn != outcome.drawn.end()) {
        (format == Format::Table ? writeStyledResult : writeResult)(drawn->second());
    } else {
        writeRecords(outcome.records, outcome.shape, format);
    }
    if (outcome.records.rows.empty() && !outcome.noRecords.empty()) {
        writeNote(outcome.noRecords + "\n");
    }
}

} // namespace tools
