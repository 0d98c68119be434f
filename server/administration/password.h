// SPDX-License-Identifier: Apache-2.0
//
// Passwords as salted hashes.
#ifndef VELRZM_SERVER_ADMINISTRATION_PASSWORD_H
#define VELRZM_SERVER_ADMINISTRATION_PASSWORD_H

#include <optional>
#include <string>

namespace qvserver {

/** The hash of `password` with a new salt; fails when the password cannot be used. */
std::string hashOfPassword(const std::string& password);

/** Whether `password` has this hash; without a hash it is false, after the same time. */
bool isPassword(const std::string& password, const std::optional<std::string>& hash);

} // namespace qvserver

#endif
