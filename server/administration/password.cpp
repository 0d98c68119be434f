// SPDX-License-Identifier: Apache-2.0
#include "server/administration/password.h"

#include <array>
#include <cstddef>
#include <memory>

#include <crypt.h>

#include "server/base/errors.h"

namespace qvserver {

namespace {

constexpr const char* method = "$y$"; // yescrypt
constexpr unsigned long cost = 5;
/** A setting like that of a real hash, for users that do not exist. */
constexpr const char* noSetting = "$y$j9T$F5Jx5fExrKuPp53xLKQ..1";

/** The hash of the password with a setting (method, cost, salt); "" when crypt refuses either. */
std::string crypted(const std::string& password, const std::string& setting)
{
    const auto data = std::make_unique<crypt_data>();
    const char* const hash = crypt_r(password.c_str(), setting.c_str(), data.get());
    return hash == nullptr || *hash == '*' ? "" : hash;
}

/** Compares in a time that does not depend on where the hashes differ. */
bool sameHash(const std::string& left, const std::string& right)
{
    int difference = left.size() == right.size() ? 0 : 1;
    for (std::size_t i = 0; i < left.size() && i < right.size(); ++i) {
        difference |= left[i] ^ right[i];
    }
    return difference == 0;
}

} // namespace

std::string hashOfPassword(const std::string& password)
{
    if (password.empty() || password.find('\0') != std::string::npos) {
        fail(Failure::UserAdministration,
             "the password is empty or holds a NUL character; choose another one");
    }
    std::array<char, CRYPT_GENSALT_OUTPUT_SIZE> setting = {};
    if (crypt_gensalt_rn(method, cost, nullptr, 0, setting.data(), int(setting.size())) == nullptr) {
        fail(Failure::Internal, "the system's crypt library cannot make a salt for ", method);
    }
    std::string hash = crypted(password, setting.data());
    if (hash.empty()) {
        fail(Failure::UserAdministration, "the password cannot be used; it can have ",
             CRYPT_MAX_PASSPHRASE_SIZE - 1, " characters at most");
    }
    return hash;
}

bool isPassword(const std::string& password, const std::optional<std::string>& hash)
{
    const std::string made = crypted(password, hash ? *hash : noSetting);
    return hash && !made.empty() && sameHash(made, *hash);
}

} // namespace qvserver
