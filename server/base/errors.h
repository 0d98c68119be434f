// SPDX-License-Identifier: Apache-2.0
//
// The kinds of failure of the local server. Their numbers are part of its interface: they never change, and the number
// of a kind that is dropped is not used again.
#ifndef VELRZM_SERVER_BASE_ERRORS_H
#define VELRZM_SERVER_BASE_ERRORS_H

#include <cstddef>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include <velrzm/qv_sdk.h>

namespace qvserver {

enum class Failure : int {
    OutOfMemory = -100,                // the process has no memory left
    Internal = -101,                   // a fault of the server itself
    BadArgument = -110,                // a null pointer, an unknown class, an index out of range ...
    BadHandle = -111,                  // a handle that is null, foreign or destroyed
    BadPath = -112,                    // an attribute path that is not well formed or cannot be used there
    BadClause = -113,                  // a clause that does not parse
    ValueTooLong = -114,               // a value of more than QV_MAX_VALUE_LENGTH characters
    NotLoaded = -115,                  // an attribute that was not subscribed or selected, or not loaded yet
    NotOpen = -116,                    // a list or a document that was not opened
    NotAvailable = -117,               // a call that this server does not serve
    TooManyRows = -118,                // a report of more rows than this server makes
    EnvironmentNotOpen = -120,         // the client environment is not open
    NotLoggedOn = -121,                // nobody is logged on
    LogonRefused = -122,               // wrong user or wrong password
    AlreadyLoggedOn = -123,            // a second logon without a logoff
    ForkedProcess = -124,              // the process was forked after the logon
    SecondThread = -125,               // another thread is in a call
    NotFound = -210,                   // no stored object has these keys
    AlreadyStored = QV_ALREADY_STORED, // an object with the same keys is stored
    ReferenceMissing = -230,           // the object refers to one that is not stored
    StillReferred = -231,              // another object refers to this one
    KeyMismatch = -232,                // the keys that were set are not those of the object
    StructureCycle = -233,             // a product structure that contains itself
    RangeEnd = -235,                   // a number that cannot rise any more
    ChangedByOther = -240,             // another user saved or deleted the object since it was opened
    MultiSaveState = -250,             // a start inside a multi-save, a commit or discard outside one
    MultiSaveLost = -251,              // the store dropped the open multi-save
    VaultState = -260,                 // a document that is checked out, or not by this user
    StoreMissing = -300,               // there is no store at that place
    StoreUnusable = -301,              // what is there is not a store of this server
    StoreVersion = -302,               // the store was made by another version
    StoreReadOnly = -303,              // the store cannot be written
    StoreBusy = -304,                  // another process kept the store for too long
    StoreFailure = -305,               // the database below failed
    StoreExists = -306,                // there is something at the place of a store that is to be made
    UserAdministration = -307, // a user that is unknown or already there, an unusable name or password
    OutcomeUnknown = -308,     // the changes may be stored, or not
};

/** A failure on its way to the caller: its kind, and a text that says what is wrong with which value. */
class ServerError : public std::runtime_error {
public:
    ServerError(Failure failure, const std::string& text) : std::runtime_error(text), failure_(failure) {}
    Failure failure() const noexcept { return failure_; }

private:
    Failure failure_;
};

/** Fails with the text that `pieces` make up. */
template <typename... Pieces>
[[noreturn]] void fail(Failure failure, const Pieces&... pieces)
{
    std::ostringstream text;
    (text << ... << pieces);
    throw ServerError(failure, text.str());
}

/** The system's text for an error number. */
inline std::string systemReason(int error)
{
    return std::error_code(error, std::generic_category()).message();
}

/** A value as messages show it: in quotes, cut when it is long. */
inline std::string inQuotes(std::string_view value)
{
    constexpr std::size_t limit = 100;
    std::string text = "'";
    text.append(value.substr(0, limit));
    return text.append(value.size() > limit ? "...'" : "'");
}

/** An attribute and its value as messages show them. */
inline std::string pathWithValue(std::string_view path, std::string_view value)
{
    return std::string(path) + '=' + inQuotes(value);
}

} // namespace qvserver

#endif
