// SPDX-License-Identifier: Apache-2.0
//
// The client interface of the Quorvanemaster server: the 38 functions that VELRZM calls.
//
// VELRZM only calls these functions; it does not define them. The server's own client library does, or libqvlocal,
// or the program itself: whoever defines the names first when the program is loaded serves the calls.
//
// Conventions of the whole interface:
//  1. Every function except the three message functions returns a 32-bit code: negative is a failure, zero and
//     positive are success. After a failure the messages of that call are kept for the message functions.
//  2. Names and values are NUL-terminated byte texts, numbers included. Texts handed back belong to the server;
//     they stay valid until the object, list or table that they came from is changed, destroyed or read again.
//  3. A handle is made by a create, read or generate function, which fills the caller's handle variable, and is
//     released by the destroy function of its kind, which leaves the variable null.
//  4. The interface is used from one thread at a time, and not in a process that was forked after the logon.
#ifndef VELRZM_QV_SDK_H
#define VELRZM_QV_SDK_H

/** An object of the server, or the request that describes one. */
using QV_ObjectHandle = struct QV_Object*;
/** A list of objects: a query and, once opened, its records. */
using QV_ListHandle = struct QV_List*;
/** A report definition; running it gives a list. */
using QV_ReportHandle = struct QV_Report*;

/** The longest value of an attribute in characters, without the terminator. */
constexpr int QV_MAX_VALUE_LENGTH = 4000;
/** The code of QV_Save_Object when an object with the same keys is already stored. */
constexpr int QV_ALREADY_STORED = -220;

extern "C" {

// ---- Environment and user ----

/** Opens the client environment of this process. */
int QV_Open_Env();
/** Closes the client environment. */
int QV_Close_Env();
/**
 * Logs `user` on with `password`. `reserved1` and `reserved2` are empty, writable texts with room for one character and
 * its terminator.
 */
int QV_Logon(const char* user, const char* password, char* reserved1, char* reserved2);
/** Logs the user off. */
int QV_Logoff();

// ---- Messages of the last failed call ----

/** The number of messages of the last failed call; zero or less means none. */
int QV_Error_Size();
/** The code of message `index`, counted from 0. */
const char* QV_Error_MsgCode(int index);
/** The text of message `index`, counted from 0. */
const char* QV_Error_MsgTxt(int index);

// ---- Objects ----

/** Makes a new, empty object of `className` in `*object`. */
int QV_Create_Object(QV_ObjectHandle* object, const char* className);
/** Releases `*object` and leaves it null; a null handle is accepted. */
int QV_Destroy_Object(QV_ObjectHandle* object);
/** Sets the attribute `path` of the object to `value`: a key or a field for a later open, save or delete. */
int QV_Set_Object_Attr(QV_ObjectHandle object, const char* path, const char* value);
/** Asks that the next open, save or document call fetch the value of the attribute `path`. */
int QV_Subscribe_Object_Attr(QV_ObjectHandle object, const char* path);
/** Finds the object whose keys were set and loads the subscribed attributes. */
int QV_Open_Object(QV_ObjectHandle object);
/**
 * Stores the object, as a new one or as a change of the one that was opened, and loads the subscribed
 * attributes.
 */
int QV_Save_Object(QV_ObjectHandle object);
/** Deletes the object that the attributes identify. */
int QV_Delete_Object(QV_ObjectHandle object);
/** Points `*value` at the text of the attribute `path`, which was set, or was subscribed and has been fetched. */
int QV_Get_Object_Attr(QV_ObjectHandle object, const char* path, const char** value);

// ---- Lists ----

/** Makes a new list of objects of `className` in `*list`. */
int QV_Create_List(QV_ListHandle* list, const char* className);
/** Releases `*list` and leaves it null; a null handle is accepted. */
int QV_Destroy_List(QV_ListHandle* list);
/** Adds a clause; `kind` is "Select", "Where" or "OrderBy". */
int QV_Set_Clause(QV_ListHandle list, const char* kind, const char* text);
/** Runs the query; the list then keeps its records until it is destroyed. */
int QV_Open_List(QV_ListHandle list);
/** Stores the number of records in `*size`. */
int QV_SizeOf_List(QV_ListHandle list, int* size);
/** Makes an object of record `index`, counted from 0, in `*record`; it carries the selected attributes. */
int QV_Read_List(QV_ListHandle list, int index, QV_ObjectHandle* record);

// ---- Reports ----

/** Makes a new report of `className` named `reportName` in `*report`. */
int QV_Create_Report(QV_ReportHandle* report, const char* className, const char* reportName);
/** Releases `*report` and leaves it null; a null handle is accepted. */
int QV_Destroy_Report(QV_ReportHandle* report);
/** Sets the report parameter `name` to `value`. */
int QV_Set_Report_Attr(QV_ReportHandle report, const char* name, const char* value);
/** Makes the attribute `path` a column of the rows. */
int QV_Subscribe_Report_Attr(QV_ReportHandle report, const char* path);
/** Runs the report and delivers its rows as a list in `*list`. */
int QV_Generate_Report(QV_ReportHandle report, QV_ListHandle* list);

// ---- Documents ----

/** Fills the check-in defaults of an opened document version. */
int QV_Set_Doc_CheckIn_Defaults(QV_ObjectHandle document);
/** Fills the check-out defaults of an opened document version. */
int QV_Set_Doc_CheckOut_Defaults(QV_ObjectHandle document);
/** Checks the document version in; `option` is 0. */
int QV_CheckIn_Doc(QV_ObjectHandle document, int option);
/** Checks the document version out to the user. */
int QV_CheckOut_Doc(QV_ObjectHandle document);
/** Cancels the user's check-out. */
int QV_Cancel_CheckOut_Doc(QV_ObjectHandle document);
/** Stores a new document and checks its first version in; `option` is 0. */
int QV_Create_and_CheckIn_Doc(QV_ObjectHandle document, int option);
/** Makes the next revision of the document and hands back its handle in `*revision`. */
int QV_Make_New_Revision(QV_ObjectHandle document, QV_ObjectHandle* revision);

// ---- Multi-save and translation tables ----

/** Starts collecting saves. */
int QV_Start_Multisave();
/** Stores the collected saves. */
int QV_Commit_Multisave();
/** Drops the collected saves. */
int QV_Discard_Multisave();
/** Stores the number of entries of the translation table in `*size`. */
int QV_SizeOf_Xlat(const char* tableName, int* size);
/** Points `*from` and `*to` at the two texts of entry `index`, counted from 0. */
int QV_Read_Xlat(const char* tableName, int index, const char** from, const char** to);

} // extern "C"

#endif
