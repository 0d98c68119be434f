// SPDX-License-Identifier: Apache-2.0
//
// The steps of the demonstration, in their order.
#ifndef VELRZM_TOOLS_DEMO_STORY_H
#define VELRZM_TOOLS_DEMO_STORY_H

#include <string>

#include "tools/demo/narrator.h"

namespace tools::demo {

constexpr const char* user = "ada";
constexpr const char* rightPassword = "difference engine";
constexpr const char* changeNumber = "EC-1001";

/** Throws Refused, when a step that the rest builds on did not succeed. */
void require(bool succeeded, const char* what);

/** "QvConnect returned 1" */
std::string returned(const char* function, int result);

void makeStore(Narrator& tell);
void logOn(Narrator& tell);
void writeDefaults(Narrator& tell);
void createChange(Narrator& tell);
void readChange(Narrator& tell);
void createItems(Narrator& tell);
void linkItems(Narrator& tell);
void queryItems(Narrator& tell);
void keepDocument(Narrator& tell);
void storeBicycle(Narrator& tell);
void explodeBicycle(Narrator& tell);
void openMissingChange(Narrator& tell);
void logOff(Narrator& tell);
void showLogs(Narrator& tell);

} // namespace tools::demo

#endif
