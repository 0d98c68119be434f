// SPDX-License-Identifier: Apache-2.0
#include "server/api/guard.h"

using qvserver::fail;
using qvserver::Failure;
using qvserver::guard;
using qvserver::requireVariable;
using qvserver::Session;

namespace {

void checkOption(int option)
{
    if (option != 0) {
        fail(Failure::BadArgument, "there is no check-in option ", option, "; the only one is 0");
    }
}

} // namespace

extern "C" {

int QV_Set_Doc_CheckIn_Defaults(QV_ObjectHandle document)
{
    return guard([=](Session& session) {
        session.object(document).setCheckInDefaults(session.store(), session.user());
    });
}

int QV_Set_Doc_CheckOut_Defaults(QV_ObjectHandle document)
{
    return guard([=](Session& session) { session.object(document).setCheckOutDefaults(); });
}

int QV_CheckIn_Doc(QV_ObjectHandle document, int option)
{
    return guard([=](Session& session) {
        checkOption(option);
        session.object(document).checkIn(session.store(), session.user());
    });
}

int QV_CheckOut_Doc(QV_ObjectHandle document)
{
    return guard(
        [=](Session& session) { session.object(document).checkOut(session.store(), session.user()); });
}

int QV_Cancel_CheckOut_Doc(QV_ObjectHandle document)
{
    return guard(
        [=](Session& session) { session.object(document).cancelCheckOut(session.store(), session.user()); });
}

int QV_Create_and_CheckIn_Doc(QV_ObjectHandle document, int option)
{
    return guard([=](Session& session) {
        checkOption(option);
        session.object(document).createAndCheckIn(session.store());
    });
}

int QV_Make_New_Revision(QV_ObjectHandle document, QV_ObjectHandle* revision)
{
    return guard([=](Session& session) {
        QV_ObjectHandle& made = requireVariable(revision, "handle of the new revision");
        made =
            session.objects().insert(session.object(document).makeRevision(session.store(), session.user()));
    });
}

} // extern "C"
