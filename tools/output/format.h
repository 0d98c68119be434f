// SPDX-License-Identifier: Apache-2.0
//
// Results in the forms that people and programs read.
#ifndef VELRZM_TOOLS_OUTPUT_FORMAT_H
#define VELRZM_TOOLS_OUTPUT_FORMAT_H

#include "tools/output/records.h"

namespace tools {

/** Dot, Svg and Html are offered by commands that draw them themselves. */
enum class Format { Table, Json, Csv, PrintList, Dot, Svg, Html };

/** One object, or any number. */
enum class Shape { Object, List };

/** Writes records to the results. Only a table on a terminal may cut values. */
void writeRecords(const Records& records, Shape shape, Format format);

} // namespace tools

#endif
