// SPDX-License-Identifier: Apache-2.0
//
// The 38 functions of the server interface, each recorded and answered by the script.
#include "tests/standin/call_recorder.h"

using standin::CallRecorder;
using standin::script;
using standin::state;

namespace {

template <class... Arguments>
int call(const char* function, Arguments... arguments)
{
    CallRecorder call(function);
    (call.add(arguments), ...);
    return call.code();
}

template <class Kind>
int destroy(const char* function, Kind** variable)
{
    CallRecorder call(function);
    call.destroy(variable);
    return call.code();
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
    return call("QV_Open_Env");
}
int QV_Close_Env()
{
    return call("QV_Close_Env");
}
int QV_Logoff()
{
    return call("QV_Logoff");
}

int QV_Logon(const char* user, const char* password, char* reserved1, char* reserved2)
{
    const int code = call("QV_Logon", user, password, reserved1, reserved2);
    // Each has room for one character and its end, apart from the other's.
    for (char* const reserved : {reserved1, reserved2}) {
        if (reserved != nullptr) {
            reserved[0] = 'r';
            reserved[1] = '\0';
        }
    }
    if (reserved1 != nullptr && std::string(reserved1) != "r") {
        state().violation("QV_Logon: no room for a character and its end");
    }
    return code;
}

int QV_Error_Size()
{
    if (!state().lastCallFailed) {
        state().violation("QV_Error_Size: the last call did not fail");
    }
    return script().errorSize.value_or(static_cast<int>(state().messages.size()));
}

const char* QV_Error_MsgCode(int index)
{
    const standin::AmpleMemory ample;
    return state().handOut(messageAt("QV_Error_MsgCode", index).code);
}
const char* QV_Error_MsgTxt(int index)
{
    const standin::AmpleMemory ample;
    return state().handOut(messageAt("QV_Error_MsgTxt", index).text);
}

int QV_Create_Object(QV_ObjectHandle* object, const char* className)
{
    return call("QV_Create_Object", object, className);
}

int QV_Destroy_Object(QV_ObjectHandle* object)
{
    return destroy("QV_Destroy_Object", object);
}

int QV_Set_Object_Attr(QV_ObjectHandle object, const char* path, const char* value)
{
    return call("QV_Set_Object_Attr", object, path, value);
}

int QV_Subscribe_Object_Attr(QV_ObjectHandle object, const char* path)
{
    return call("QV_Subscribe_Object_Attr", object, path);
}

int QV_Open_Object(QV_ObjectHandle object)
{
    return call("QV_Open_Object", object);
}
int QV_Save_Object(QV_ObjectHandle object)
{
    return call("QV_Save_Object", object);
}
int QV_Delete_Object(QV_ObjectHandle object)
{
    return call("QV_Delete_Object", object);
}

int QV_Get_Object_Attr(QV_ObjectHandle object, const char* path, const char** value)
{
    CallRecorder call("QV_Get_Object_Attr");
    call.add(object);
    call.add(path);
    if (call.succeeds() && path != nullptr) {
        const bool isOfRecord = object != nullptr && object->record.count(path) > 0;
        const standin::Record& source = isOfRecord ? object->record : script().values;
        const auto found = source.find(path);
        *value = state().handOut(found == source.end() ? std::string() : found->second);
    }
    return call.code();
}

int QV_Create_List(QV_ListHandle* list, const char* className)
{
    return call("QV_Create_List", list, className);
}

int QV_Destroy_List(QV_ListHandle* list)
{
    return destroy("QV_Destroy_List", list);
}

int QV_Set_Clause(QV_ListHandle list, const char* kind, const char* text)
{
    return call("QV_Set_Clause", list, kind, text);
}

int QV_Open_List(QV_ListHandle list)
{
    return call("QV_Open_List", list);
}

int QV_SizeOf_List(QV_ListHandle list, int* size)
{
    CallRecorder call("QV_SizeOf_List");
    call.add(list);
    if (call.succeeds()) {
        *size = static_cast<int>(script().records.size());
    }
    call.add(*size);
    return call.code();
}

int QV_Read_List(QV_ListHandle list, int index, QV_ObjectHandle* record)
{
    CallRecorder call("QV_Read_List");
    call.add(list);
    call.add(index);
    const auto& records = script().records;
    const bool isThere = index >= 0 && index < static_cast<int>(records.size());
    if (!isThere) {
        call.refuse("no record " + std::to_string(index));
    }
    call.add(record);
    if (*record != nullptr && isThere) {
        (*record)->record = records[static_cast<std::size_t>(index)];
    }
    return call.code();
}

int QV_Create_Report(QV_ReportHandle* report, const char* className, const char* reportName)
{
    return call("QV_Create_Report", report, className, reportName);
}

int QV_Destroy_Report(QV_ReportHandle* report)
{
    return destroy("QV_Destroy_Report", report);
}

int QV_Set_Report_Attr(QV_ReportHandle report, const char* name, const char* value)
{
    return call("QV_Set_Report_Attr", report, name, value);
}

int QV_Subscribe_Report_Attr(QV_ReportHandle report, const char* path)
{
    return call("QV_Subscribe_Report_Attr", report, path);
}

int QV_Generate_Report(QV_ReportHandle report, QV_ListHandle* list)
{
    return call("QV_Generate_Report", report, list);
}

int QV_Set_Doc_CheckIn_Defaults(QV_ObjectHandle document)
{
    return call("QV_Set_Doc_CheckIn_Defaults", document);
}
int QV_Set_Doc_CheckOut_Defaults(QV_ObjectHandle document)
{
    return call("QV_Set_Doc_CheckOut_Defaults", document);
}
int QV_CheckIn_Doc(QV_ObjectHandle document, int option)
{
    return call("QV_CheckIn_Doc", document, option);
}
int QV_CheckOut_Doc(QV_ObjectHandle document)
{
    return call("QV_CheckOut_Doc", document);
}
int QV_Cancel_CheckOut_Doc(QV_ObjectHandle document)
{
    return call("QV_Cancel_CheckOut_Doc", document);
}
int QV_Create_and_CheckIn_Doc(QV_ObjectHandle document, int option)
{
    return call("QV_Create_and_CheckIn_Doc", document, option);
}
int QV_Make_New_Revision(QV_ObjectHandle document, QV_ObjectHandle* revision)
{
    return call("QV_Make_New_Revision", document, revision);
}

int QV_Start_Multisave()
{
    return call("QV_Start_Multisave");
}
int QV_Commit_Multisave()
{
    return call("QV_Commit_Multisave");
}
int QV_Discard_Multisave()
{
    return call("QV_Discard_Multisave");
}

int QV_SizeOf_Xlat(const char* tableName, int* size)
{
    CallRecorder call("QV_SizeOf_Xlat");
    call.add(tableName);
    if (call.succeeds() && tableName != nullptr) {
        *size = static_cast<int>(script().translations[tableName].size());
    }
    call.add(*size);
    return call.code();
}

int QV_Read_Xlat(const char* tableName, int index, const char** from, const char** to)
{
    CallRecorder call("QV_Read_Xlat");
    call.add(tableName);
    call.add(index);
    const auto& entries = script().translations[tableName == nullptr ? "" : tableName];
    if (index < 0 || index >= static_cast<int>(entries.size())) {
        call.refuse("no entry " + std::to_string(index));
    } else if (call.succeeds()) {
        const auto& entry = entries[static_cast<std::size_t>(index)];
        *from = state().handOut(entry.first);
        *to = state().handOut(entry.second);
    }
    return call.code();
}
