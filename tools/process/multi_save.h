// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_TOOLS_PROCESS_MULTI_SAVE_H
#define VELRZM_TOOLS_PROCESS_MULTI_SAVE_H

namespace tools {

/** Begins a multi-save, even where QV_MULTI_SAVE switches them off: the commands that use one promise to store
 * everything or nothing. What it collects is dropped with the connection unless it is committed. Throws Failure. */
void startMultiSave();

/** Stores what the multi-save has collected. Throws Failure; then nothing was stored. */
void commitMultiSave();

/** Drops what the multi-save has collected. Throws Failure. */
void discardMultiSave();

} // namespace tools

#endif
