// SPDX-License-Identifier: Apache-2.0
#include <velrzm/multi_save.h>

#include <cstdlib>

#include "frame/operation.h"

int MultiSaveStarted = 0;

using namespace velrzm;

namespace {

constexpr const char* startLine = "-----Start-------------------------------------";
constexpr const char* exitLine = "-----Exit--------------------------------------";

/** Whether the site has switched multi-saves off, which is then written to the access log. */
bool switchedOff(const Operation& op)
{
    const char* const value = std::getenv("QV_MULTI_SAVE");
    const std::string_view setting = orEmpty(value);
    const bool off = setting == "0" || setting == "OFF";
    if (off) {
        op.log("--- OFF ---");
    }
    return off;
}

int start()
{
    Operation op("MultiSaveStart");
    op.trace(startLine);
    if (switchedOff(op)) {
        return 1;
    }
    op.call({"QV_Start_MultiSave"}, OnFailure::GoOn, QV_Start_Multisave);
    entries = QV_RC >= 0 ? 1 : 0;
    MultiSaveStarted = entries;
    op.trace(exitLine);
    return entries;
}

/** Commit and discard: both end the open multi-save, whatever the server answers. */
int end(const char* name, const char* function, int (*call)())
{
    Operation op(name);
    op.trace(startLine);
    if (switchedOff(op)) {
        return 1;
    }
    entries = 1;
    if (MultiSaveStarted != 0) {
        MultiSaveStarted = 0;
        op.call({function}, OnFailure::GoOn, call);
        entries = QV_RC >= 0 ? 1 : 0;
    }
    op.trace(exitLine);
    return entries;
}

} // namespace

int MultiSaveStart()
{
    return guarded("MultiSaveStart", start, withoutResult);
}

int MultiSaveCommit()
{
    const auto commit = [] { return end("MultiSaveCommit", "QV_Commit_Multisave", QV_Commit_Multisave); };
    return guarded("MultiSaveCommit", commit, withoutResult);
}

int MultiSaveDiscard()
{
    const auto discard = [] { return end("MultiSaveDiscard", "QV_Discard_Multisave", QV_Discard_Multisave); };
    return guarded("MultiSaveDiscard", discard, withoutResult);
}
