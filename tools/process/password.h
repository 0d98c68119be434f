// SPDX-License-Identifier: Apache-2.0
//
// Passwords: from a file, from the environment variable VELRZM_PASSWORD, or typed without echo. Never from
// the command line, which every user of the machine can read.
#ifndef VELRZM_TOOLS_PROCESS_PASSWORD_H
#define VELRZM_TOOLS_PROCESS_PASSWORD_H

#include <string>

namespace tools {

/** The password of `user`; `file` is the file that the command line names, empty for none. Its first line is
 * the password. */
std::string password(const std::string& user, const std::string& file);

/** The same for a password that is to be set: typed twice. */
std::string newPassword(const std::string& user, const std::string& file);

} // namespace tools

#endif
