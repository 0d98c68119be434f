// SPDX-License-Identifier: Apache-2.0
#include "server/api/guard.h"

using qvserver::destroy;
using qvserver::guard;
using qvserver::Object;
using qvserver::Record;
using qvserver::requireText;
using qvserver::requireVariable;
using qvserver::Session;

extern "C" {

int QV_Create_Object(QV_ObjectHandle* object, const char* className)
{
    return guard([=](Session& session) {
        QV_ObjectHandle& created = requireVariable(object, "object handle");
        created =
            session.objects().insert(Object(qvserver::classNamed(requireText(className, "class name"))));
    });
}

int QV_Destroy_Object(QV_ObjectHandle* object)
{
    return guard([=](Session& session) { destroy(session.objects(), object); });
}

int QV_Set_Object_Attr(QV_ObjectHandle object, const char* path, const char* value)
{
    return guard([=](Session& session) {
        session.object(object).set(requireText(path, "attribute path"),
                                   requireText(value, "attribute value"));
    });
}

int QV_Subscribe_Object_Attr(QV_ObjectHandle object, const char* path)
{
    return guard(
        [=](Session& session) { session.object(object).subscribe(requireText(path, "attribute path")); });
}

int QV_Open_Object(QV_ObjectHandle object)
{
    return guard([=](Session& session) { session.object(object).open(session.store()); });
}

int QV_Save_Object(QV_ObjectHandle object)
{
    return guard([=](Session& session) { session.object(object).save(session.store(), session.user()); });
}

int QV_Delete_Object(QV_ObjectHandle object)
{
    return guard([=](Session& session) { session.object(object).remove(session.store(), session.user()); });
}

int QV_Get_Object_Attr(QV_ObjectHandle object, const char* path, const char** value)
{
    return guard([=](Session& session) {
        const char*& text = requireVariable(value, "attribute value");
        text = ""; // callers may look at it whatever the code
        const auto& state = session.objects().at(object);
        const std::string_view wanted = requireText(path, "attribute path");
        const auto* const record = std::get_if<Record>(&state);
        text = record != nullptr ? record->get(wanted) : std::get<Object>(state).get(wanted).c_str();
    });
}

} // extern "C"
