// SPDX-License-Identifier: Apache-2.0
//
// The 38 functions of the server interface, each recorded and answered by the script.
#include "tests/standin/call_recorder.h"

using standin::CallRecorder;
using standin::state;

namespace {

/** A call whose only argument is a handle. */
template <class Pointer>
int callOn(const char* function, Pointer handle)
{
    return CallRecorder(function).uses(handle).code();
}

int callWithoutArguments(const char* function)
{
    return CallRecorder(function).code();
}

/** Message `index` of the last call; an empty one, and a violation, when there is none. */
standin::Message messageAt(const char* function, int index)
{
    const auto& messages = state().messages;
    if (index < 0 || index >= static_cast<int>(messages.size())) {
        state().violation(std::string(function) + ": no message " + std::to_string(index));
        return {"", ""};
    }
    return messages[static_cast<std::size_t>(index)];
}

} // namespace

int QV_Open_Env()
{
    return callWithoutArguments("QV_Open_Env");
}
int QV_Close_Env()
{
    return callWithoutArguments("QV_Close_Env");
}
int QV_Logoff()
{
    return callWithoutArguments("QV_Logoff");
}

int QV_Logon(const char* user, const char* password, char* reserved1, char* reserved2)
{
    const int code =
        CallRecorder("QV_Logon").text(user).text(password).text(reserved1).text(reserved2).code();
    // Both are writable texts of one character; a write finds out a literal.
    for (char* const reserved : {reserved1, reserved2}) {
        if (reserved != nullptr) {
            *reserved = '\0';
        }
    }
    return code;
}

int QV_Error_Size()
{
    if (!state().lastCallFailed) {
        state().violation("QV_Error_Size: the last call did not fail");
    }
    return state().errorSize.value_or(static_cast<int>(state().messages.size()));
}

const char* QV_Error_MsgCode(int index)
{
    return state().handOut(messageAt("QV_Error_MsgCode", index).code);
}
const char* QV_Error_MsgTxt(int index)
{
    return state().handOut(messageAt("QV_Error_MsgTxt", index).text);
}

int QV_Create_Object(QV_ObjectHandle* object, const char* className)
{
    return CallRecorder("QV_Create_Object").fills(object).text(className).code();
}

int QV_Destroy_Object(QV_ObjectHandle* object)
{
    return CallRecorder("QV_Destroy_Object").destroys(object).code();
}

int QV_Set_Object_Attr(QV_ObjectHandle object, const char* path, const char* value)
{
    return CallRecorder("QV_Set_Object_Attr").uses(object).text(path).text(value).code();
}

int QV_Subscribe_Object_Attr(QV_ObjectHandle object, const char* path)
{
    return CallRecorder("QV_Subscribe_Object_Attr").uses(object).text(path).code();
}

int QV_Open_Object(QV_ObjectHandle object)
{
    return callOn("QV_Open_Object", object);
}
int QV_Save_Object(QV_ObjectHandle object)
{
    return callOn("QV_Save_Object", object);
}
int QV_Delete_Object(QV_ObjectHandle object)
{
    return callOn("QV_Delete_Object", object);
}

int QV_Get_Object_Attr(QV_ObjectHandle object, const char* path, const char** value)
{
    CallRecorder call("QV_Get_Object_Attr");
    call.uses(object).text(path);
    if (call.succeeds() && path != nullptr) {
        const bool isOfRecord = object != nullptr && object->record.count(path) > 0;
        const standin::Record& source = isOfRecord ? object->record : state().values;
        const auto found = source.find(path);
        *value = state().handOut(found == source.end() ? std::string() : found->second);
    }
    return call.code();
}

int QV_Create_List(QV_ListHandle* list, const char* className)
{
    return CallRecorder("QV_Create_List").fills(list).text(className).code();
}

int QV_Destroy_List(QV_ListHandle* list)
{
    return CallRecorder("QV_Destroy_List").destroys(list).code();
}

int QV_Set_Clause(QV_ListHandle list, const char* kind, const char* text)
{
    return CallRecorder("QV_Set_Clause").uses(list).text(kind).text(text).code();
}

int QV_Open_List(QV_ListHandle list)
{
    return callOn("QV_Open_List", list);
}

int QV_SizeOf_List(QV_ListHandle list, int* size)
{
    CallRecorder call("QV_SizeOf_List");
    call.uses(list);
    if (call.succeeds()) {
        *size = static_cast<int>(state().records.size());
    }
    return call.number(*size).code();
}

int QV_Read_List(QV_ListHandle list, int index, QV_ObjectHandle* record)
{
    CallRecorder call("QV_Read_List");
    call.uses(list).number(index);
    const auto& records = state().records;
    const bool isThere = index >= 0 && index < static_cast<int>(records.size());
    if (!isThere) {
        call.refuse("no record " + std::to_string(index));
    }
    call.fills(record);
    if (*record != nullptr && isThere) {
        (*record)->record = records[static_cast<std::size_t>(index)];
    }
    return call.code();
}

int QV_Create_Report(QV_ReportHandle* report, const char* className, const char* reportName)
{
    return CallRecorder("QV_Create_Report").fills(report).text(className).text(reportName).code();
}

int QV_Destroy_Report(QV_ReportHandle* report)
{
    return CallRecorder("QV_Destroy_Report").destroys(report).code();
}

int QV_Set_Report_Attr(QV_ReportHandle report, const char* name, const char* value)
{
    return CallRecorder("QV_Set_Report_Attr").uses(report).text(name).text(value).code();
}

int QV_Subscribe_Report_Attr(QV_ReportHandle report, const char* path)
{
    return CallRecorder("QV_Subscribe_Report_Attr").uses(report).text(path).code();
}

int QV_Generate_Report(QV_ReportHandle report, QV_ListHandle* list)
{
    return CallRecorder("QV_Generate_Report").uses(report).fills(list).code();
}

int QV_Set_Doc_CheckIn_Defaults(QV_ObjectHandle document)
{
    return callOn("QV_Set_Doc_CheckIn_Defaults", document);
}
int QV_Set_Doc_CheckOut_Defaults(QV_ObjectHandle document)
{
    return callOn("QV_Set_Doc_CheckOut_Defaults", document);
}
int QV_CheckIn_Doc(QV_ObjectHandle document, int option)
{
    return CallRecorder("QV_CheckIn_Doc").uses(document).number(option).code();
}
int QV_CheckOut_Doc(QV_ObjectHandle document)
{
    return callOn("QV_CheckOut_Doc", document);
}
int QV_Cancel_CheckOut_Doc(QV_ObjectHandle document)
{
    return callOn("QV_Cancel_CheckOut_Doc", document);
}
int QV_Create_and_CheckIn_Doc(QV_ObjectHandle document, int option)
{
    return CallRecorder("QV_Create_and_CheckIn_Doc").uses(document).number(option).code();
}
int QV_Make_New_Revision(QV_ObjectHandle document, QV_ObjectHandle* revision)
{
    return CallRecorder("QV_Make_New_Revision").uses(document).fills(revision).code();
}

int QV_Start_Multisave()
{
    return callWithoutArguments("QV_Start_Multisave");
}
int QV_Commit_Multisave()
{
    return callWithoutArguments("QV_Commit_Multisave");
}
int QV_Discard_Multisave()
{
    return callWithoutArguments("QV_Discard_Multisave");
}

int QV_SizeOf_Xlat(const char* tableName, int* size)
{
    CallRecorder call("QV_SizeOf_Xlat");
    call.text(tableName);
    if (call.succeeds() && tableName != nullptr) {
        *size = static_cast<int>(state().translations[tableName].size());
    }
    return call.number(*size).code();
}

int QV_Read_Xlat(const char* tableName, int index, const char** from, const char** to)
{
    CallRecorder call("QV_Read_Xlat");
    call.text(tableName).number(index);
    const auto& entries = state().translations[tableName == nullptr ? "" : tableName];
    if (index < 0 || index >= static_cast<int>(entries.size())) {
        call.refuse("no entry " + std::to_string(index));
    } else if (call.succeeds()) {
        const auto& entry = entries[static_cast<std::size_t>(index)];
        *from = state().handOut(entry.first);
        *to = state().handOut(entry.second);
    }
    return call.code();
}
