// SPDX-License-Identifier: Apache-2.0
//
// Environment, user, multi-save and messages.
#include "server/api/guard.h"

using qvserver::guard;
using qvserver::guardWithoutLogon;
using qvserver::messages;
using qvserver::requireText;
using qvserver::Session;

extern "C" {

int QV_Open_Env()
{
    return guardWithoutLogon([](Session& session) { session.openEnvironment(); });
}

int QV_Close_Env()
{
    return guardWithoutLogon([](Session& session) { session.closeEnvironment(); });
}

int QV_Logon(const char* user, const char* password, char* /*reserved1*/, char* /*reserved2*/)
{
    return guardWithoutLogon([=](Session& session) {
        session.logon(std::string(requireText(user, "user")), std::string(requireText(password, "password")));
    });
}

int QV_Logoff()
{
    return guard([](Session& session) { session.logoff(); });
}

int QV_Error_Size()
{
    return messages().size();
}

const char* QV_Error_MsgCode(int index)
{
    return messages().code(index);
}

const char* QV_Error_MsgTxt(int index)
{
    return messages().text(index);
}

int QV_Start_Multisave()
{
    return guard([](Session& session) { session.startMultiSave(); });
}

int QV_Commit_Multisave()
{
    return guard([](Session& session) { session.commitMultiSave(); });
}

int QV_Discard_Multisave()
{
    return guard([](Session& session) { session.discardMultiSave(); });
}

} // extern "C"
