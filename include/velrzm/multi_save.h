// SPDX-License-Identifier: Apache-2.0
//
// Multi-save: a bracket around several operations whose saves are stored together or not at all.
//
//     MultiSaveStart();
//     const bool good = ItemCreate(...) == 1 && ComponentCreate(...) == 1;
//     good ? MultiSaveCommit() : MultiSaveDiscard();
//
// With the environment variable QV_MULTI_SAVE set to "0" or "OFF", read at every call, the three functions do
// nothing and every save is stored at once.
#ifndef VELRZM_MULTI_SAVE_H
#define VELRZM_MULTI_SAVE_H

#include <velrzm/export.h>

/** 1 while a multi-save that MultiSaveStart opened is open, else 0. */
VELRZM_API extern int MultiSaveStarted;

/** Starts collecting saves. Returns 1, also when the mechanism is switched off; 0 when the server refused. */
VELRZM_API int MultiSaveStart();
/** Stores the collected saves. Returns 1, also when there was nothing to commit; 0 when the server failed to.
 */
VELRZM_API int MultiSaveCommit();
/** Drops the collected saves. Returns 1, also when there was nothing to drop; 0 when the server failed to. */
VELRZM_API int MultiSaveDiscard();

#endif
