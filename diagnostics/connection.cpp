// SPDX-License-Identifier: Apache-2.0
#include <velrzm/connection.h>

#include <array>

#include "diagnostics/guard.h"
#include "diagnostics/log_files.h"
#include "diagnostics/return_codes.h"

int EnvOpened = 0;
int UserLoggedOn = 0;

using namespace velrzm;

namespace {

bool openEnvironment()
{
    trace(ConnectionLevel, version);
    trace(ConnectionLevel, "QvConnect --- Connecting to Quorvanemaster: trying ....");
    QV_RC = QV_Open_Env();
    if (mustStop("QvConnect", {"QV_Open_Env"}, OnFailure::Stop)) {
        return false;
    }
    EnvOpened = 1;
    return true;
}

void logOn(const char* user, const char* password)
{
    constexpr const char* stars = "QvConnect --- ************************************"; // 36

    trace(ConnectionLevel, "QvConnect --- Loging as user ", user, ": trying ....");
    std::array<char, 2> third{}; // the server may write a character and its terminator to each
    std::array<char, 2> fourth{};
    QV_RC = QV_Logon(orEmpty(user), orEmpty(password), third.data(), fourth.data());
    mustStop("QvConnect", {"QV_Logon"}, OnFailure::GoOn);
    UserLoggedOn = QV_RC >= 0 ? 1 : 0;
    trace(LogonLevel, stars);
    trace(LogonLevel, "QvConnect --- *** QvConnect- RC(QV_Logon)=", QV_RC);
    trace(LogonLevel, stars);
    trace(ConnectionLevel, UserLoggedOn != 0
                               ? "QvConnect --- ... done!"
                               : "QvConnect --- *** ERROR *** Unable to logon to Quorvanemaster");
}

/** Logs the user off. Returns whether that worked, so that the environment may be closed. */
bool logOff()
{
    DestroyListOrReport();
    QV_RC = QV_Logoff();
    if (mustStop("QvExit", {"QV_Logoff"}, OnFailure::Stop)) {
        return false;
    }
    UserLoggedOn = 0;
    return true;
}

void closeEnvironment()
{
    QV_RC = QV_Close_Env();
    if (!mustStop("QvExit", {"QV_Close_Env"}, OnFailure::Stop)) {
        EnvOpened = 0;
    }
}

void disconnect()
{
    const bool loggedOff = UserLoggedOn == 0 || logOff();
    if (loggedOff && EnvOpened != 0) {
        closeEnvironment();
    }
}

} // namespace

int QvConnect(const char* user, const char* password)
{
    const auto loggedOn = [] { return UserLoggedOn; };
    return guarded(
        "QvConnect",
        [=] {
            openLogs();
            writeLastError({version});
            if (EnvOpened == 0 && !openEnvironment()) {
                return loggedOn();
            }
            if (UserLoggedOn == 0) {
                logOn(user, password);
            }
            return loggedOn();
        },
        loggedOn);
}

int QvExit()
{
    guarded("QvExit", disconnect, [] {});
    closeLogs();
    return 1;
}

char* RZMCodeLevel()
{
    static std::array<char, version.size() + 1> text{};
    copyToFit(text.data(), text.size(), version);
    return text.data();
}
