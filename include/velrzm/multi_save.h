// SPDX-License-Identifier: Apache-2.0
//
// Multi-save: a bracket around several operations whose saves are stored together or not at all.
//
//     MultiSaveStart();
//     const bool good = ItemCreate(...) == 1 && ComponentCreate(...) == 1;
//     good ? MultiSaveCommit() : MultiSaveDiscard();
//
// The three functions store their result in `entries`, too, and leave the rest of the current result as it is. So read
// the values of a list before them: afterwards `entries` is 1, and only its first record can be read, or 0, and none.
// For the same reason an object whose operation failed is readable after a success of theirs; its values mean nothing.
//
// With the environment variable QV_MULTI_SAVE set to "0" or "OFF" (read at every call) they only write that to the
// access log and return 1; every save is then stored at once. QvExit neither commits nor discards.
#ifndef VELRZM_MULTI_SAVE_H
#define VELRZM_MULTI_SAVE_H

#include <velrzm/export.h>

/** 1 while a multi-save that MultiSaveStart opened is open, else 0. */
VELRZM_API extern int MultiSaveStarted;

/**
 * Starts collecting saves. Returns 1, also when multi-saves are switched off; 0 when the server refused. It asks the
 * server even when a multi-save is open already, and `MultiSaveStarted` is then what the server answered.
 */
VELRZM_API int MultiSaveStart();
/**
 * Stores the collected saves. Returns 1, also when no multi-save was open; 0 when the server failed to. The multi-save
 * counts as closed in either case.
 */
VELRZM_API int MultiSaveCommit();
/** Drops the collected saves; otherwise like MultiSaveCommit. */
VELRZM_API int MultiSaveDiscard();

#endif
