// SPDX-License-Identifier: Apache-2.0
#include <limits>

#include "server/api/guard.h"

using qvserver::destroy;
using qvserver::fail;
using qvserver::Failure;
using qvserver::guard;
using qvserver::List;
using qvserver::requireText;
using qvserver::requireVariable;
using qvserver::Session;

extern "C" {

int QV_Create_List(QV_ListHandle* list, const char* className)
{
    return guard([=](Session& session) {
        QV_ListHandle& created = requireVariable(list, "list handle");
        created = session.lists().insert(List(qvserver::classNamed(requireText(className, "class name"))));
    });
}

int QV_Destroy_List(QV_ListHandle* list)
{
    return guard([=](Session& session) { destroy(session.lists(), list); });
}

int QV_Set_Clause(QV_ListHandle list, const char* kind, const char* text)
{
    return guard([=](Session& session) {
        session.lists().at(list).addClause(requireText(kind, "clause kind"),
                                           requireText(text, "clause text"));
    });
}

int QV_Open_List(QV_ListHandle list)
{
    return guard([=](Session& session) { session.lists().at(list).open(session.store()); });
}

int QV_SizeOf_List(QV_ListHandle list, int* size)
{
    return guard([=](Session& session) {
        int& result = requireVariable(size, "list size");
        const std::size_t rows = session.lists().at(list).rows()->size();
        if (rows > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
            fail(Failure::BadArgument, "the list has ", rows,
                 " records, more than an int can hold; add a Where clause");
        }
        result = static_cast<int>(rows);
    });
}

int QV_Read_List(QV_ListHandle list, int index, QV_ObjectHandle* record)
{
    return guard([=](Session& session) {
        QV_ObjectHandle& result = requireVariable(record, "record handle");
        result = session.objects().insert(session.lists().at(list).record(index));
    });
}

} // extern "C"
