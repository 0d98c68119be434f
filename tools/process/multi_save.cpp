// SPDX-License-Identifier: Apache-2.0
#include "tools/process/multi_save.h"

#include <velrzm/multi_save.h>

#include "tools/process/environment.h"
#include "tools/process/library_output.h"

namespace tools {

void startMultiSave()
{
    unsetEnvironmentVariable("QV_MULTI_SAVE");
    if (MultiSaveStart() != 1) {
        throwServerFailure("starting the multi-save");
    }
}

void commitMultiSave()
{
    if (MultiSaveCommit() != 1) {
        throwServerFailure("committing the multi-save, so that nothing was stored");
    }
}

void discardMultiSave()
{
    if (MultiSaveDiscard() != 1) {
        throwServerFailure("discarding the multi-save");
    }
}

} // namespace tools
