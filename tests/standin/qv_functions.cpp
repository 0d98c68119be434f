// SPDX-License-Identifier: Apache-2.0
//
// The 38 functions of the server interface, each recorded and answered by the script.
#include "tests/standin/call_recorder.h"

using standin::CallRecorder;
using standin::Destroyed;
using standin::state;

namespace {

template <class... Arguments>
int call(const char* function, Arguments... arguments)
{
    CallRecorder call(function);
    (call.add(arguments), ...);
    return call.code();
}

template <class Subject>
int sizeOf(const char* function, Subject subject, std::size_t count, int* size)
{
    CallRecorder call(function);
    call.add(subject);
    *size = call.succeeds() ? static_cast<int>(count) : *size;
    call.add(*size);
    return call.code();
}

/** A part of message `index` of the last call; an empty text, and a violation, when there is none. */
const char* message(int index, std::optional<std::string> standin::Message::*part)
{
    const standin::AmpleMemory ample;
    const auto& messages = state().messages;
    if (index >= 0 && index < static_cast<int>(messages.size())) {
        return state().handOut(messages[static_cast<std::size_t>(index)].*part);
    }
    state().violation("no message " + std::to_string(index));
    return "";
}

} // namespace

// What is recorded and nothing else.
// clang-format off
int QV_Open_Env() { return call(__func__); }
int QV_Close_Env() { return call(__func__); }
int QV_Logoff() { return call(__func__); }
int QV_Create_Object(QV_ObjectHandle* object, const char* className)
{ return call(__func__, object, className); }
int QV_Destroy_Object(QV_ObjectHandle* object) { return call(__func__, Destroyed{object}); }
int QV_Set_Object_Attr(QV_ObjectHandle object, const char* path, const char* value)
{ return call(__func__, object, path, value); }
int QV_Subscribe_Object_Attr(QV_ObjectHandle object, const char* path)
{ return call(__func__, object, path); }
int QV_Open_Object(QV_ObjectHandle object) { return call(__func__, object); }
int QV_Save_Object(QV_ObjectHandle object) { return call(__func__, object); }
int QV_Delete_Object(QV_ObjectHandle object) { return call(__func__, object); }
int QV_Create_List(QV_ListHandle* list, const char* className) { return call(__func__, list, className); }
int QV_Destroy_List(QV_ListHandle* list) { return call(__func__, Destroyed{list}); }
int QV_Set_Clause(QV_ListHandle list, const char* kind, const char* text)
{ return call(__func__, list, kind, text); }
int QV_Open_List(QV_ListHandle list) { return call(__func__, list); }
int QV_Create_Report(QV_ReportHandle* report, const char* className, const char* reportName)
{ return call(__func__, report, className, reportName); }
int QV_Destroy_Report(QV_ReportHandle* report) { return call(__func__, Destroyed{report}); }
int QV_Set_Report_Attr(QV_ReportHandle report, const char* name, const char* value)
{ return call(__func__, report, name, value); }
int QV_Subscribe_Report_Attr(QV_ReportHandle report, const char* path)
{ return call(__func__, report, path); }
int QV_Generate_Report(QV_ReportHandle report, QV_ListHandle* list) { return call(__func__, report, list); }
int QV_Set_Doc_CheckIn_Defaults(QV_ObjectHandle document) { return call(__func__, document); }
int QV_Set_Doc_CheckOut_Defaults(QV_ObjectHandle document) { return call(__func__, document); }
int QV_CheckIn_Doc(QV_ObjectHandle document, int option) { return call(__func__, document, option); }
int QV_CheckOut_Doc(QV_ObjectHandle document) { return call(__func__, document); }
int QV_Cancel_CheckOut_Doc(QV_ObjectHandle document) { return call(__func__, document); }
int QV_Create_and_CheckIn_Doc(QV_ObjectHandle document, int option)
{ return call(__func__, document, option); }
int QV_Make_New_Revision(QV_ObjectHandle document, QV_ObjectHandle* revision)
{ return call(__func__, document, revision); }
int QV_Start_Multisave() { return call(__func__); }
int QV_Commit_Multisave() { return call(__func__); }
int QV_Discard_Multisave() { return call(__func__); }
// clang-format on

int QV_Logon(const char* user, const char* password, char* reserved1, char* reserved2)
{
    const int code = call(__func__, user, password, reserved1, reserved2);
    reserved1[0] = reserved2[0] = 'r'; // each has room for a character and its end, apart from the other's
    reserved1[1] = reserved2[1] = '\0';
    if (std::string(reserved1) != "r") {
        state().violation("QV_Logon: no room for a character and its end");
    }
    return code;
}

int QV_Error_Size()
{
    if (!state().hasFailed) {
        state().violation("QV_Error_Size: the last call did not fail");
    }
    return state().errorSize.value_or(static_cast<int>(state().messages.size()));
}

const char* QV_Error_MsgCode(int index)
{
    return message(index, &standin::Message::code);
}

const char* QV_Error_MsgTxt(int index)
{
    return message(index, &standin::Message::text);
}

int QV_Get_Object_Attr(QV_ObjectHandle object, const char* path, const char** value)
{
    CallRecorder call(__func__);
    call.add(object);
    call.add(path);
    if (call.succeeds()) {
        const bool isOfRecord = object != nullptr && object->record.count(path) > 0;
        const standin::Record& source = isOfRecord ? object->record : state().values;
        const auto found = source.find(path);
        *value = state().handOut(found == source.end() ? std::string() : found->second);
    }
    return call.code();
}

int QV_SizeOf_List(QV_ListHandle list, int* size)
{
    return sizeOf(__func__, list, state().records.size(), size);
}

int QV_Read_List(QV_ListHandle list, int index, QV_ObjectHandle* record)
{
    CallRecorder call(__func__);
    call.add(list);
    call.add(index);
    const standin::Record* const found = call.elementAt(state().records, index);
    call.add(record);
    if (*record != nullptr && found != nullptr) {
        (*record)->record = *found;
    }
    return call.code();
}

int QV_SizeOf_Xlat(const char* tableName, int* size)
{
    return sizeOf(__func__, tableName, state().translations[tableName].size(), size);
}

int QV_Read_Xlat(const char* tableName, int index, const char** from, const char** to)
{
    CallRecorder call(__func__);
    call.add(tableName);
    call.add(index);
    const auto* const entry = call.elementAt(state().translations[tableName], index);
    if (entry != nullptr && call.succeeds()) {
        *from = state().handOut(entry->first);
        *to = state().handOut(entry->second);
    }
    return call.code();
}
