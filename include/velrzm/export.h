// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_EXPORT_H
#define VELRZM_EXPORT_H

/** Marks what libvelrzm.so shows to programs. */
#define VELRZM_API __attribute__((visibility("default")))

#endif
