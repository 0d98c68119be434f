// SPDX-License-Identifier: Apache-2.0
//
// Store, logon, defaults, and at the end the logs.
#include <fstream>

#include <velrzm/connection.h>
#include <velrzm/qvlocal.h>

#include "tools/demo/story.h"
#include "tools/demo/workspace.h"

namespace tools::demo {

void makeStore(Narrator& tell)
{
    tell.step("Make a store and its first user", "qvlocal::initializeStore");
    const std::string location = qvlocal::currentStore();
    qvlocal::initializeStore(location, user, rightPassword);
    tell.good(location + ", user " + user);
}

void logOn(Narrator& tell)
{
    tell.step("Log on with a wrong password: refused and reported", "QvConnect");
    tell.bad(returned("QvConnect", tell.call([] { return QvConnect(user, "analytical engine"); })));

    tell.step("Log on with the right one", "QvConnect");
    const int connected = tell.call([] { return QvConnect(user, rightPassword); });
    require(connected == 1, "the logon");
    tell.good(returned("QvConnect", connected));
}

void writeDefaults(Narrator& tell)
{
    constexpr const char* defaults = "# operation               attribute          value\n"
                                     "EngineeringChangeCreate   reason_code        NEW-PRODUCT\n"
                                     "EngineeringChangeCreate   site               CAMBRIDGE\n"
                                     "ItemCreate                unit_of_measure    EACH\n"
                                     "AffectedItemCreate        eff_date_str       2026-01-01\n";
    tell.step("Write the site's defaults for new objects", std::string("the file ") + defaultsFile);
    std::ofstream(defaultsFile) << defaults;
    tell.quote(defaults);
}

void logOff(Narrator& tell)
{
    tell.step("Log off, which closes the logs", "QvExit");
    tell.good(returned("QvExit", tell.call([] { return QvExit(); })));
}

void showLogs(Narrator& tell)
{
    tell.step("Read the three logs", "");
    tell.file(accessLogFile, 14, 6);
    tell.line("");
    tell.file(errorLogFile, 20, 0);
    tell.line("");
    tell.file(lastErrorFile, 5, 0);
}

} // namespace tools::demo
