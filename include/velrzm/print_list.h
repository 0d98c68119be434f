// SPDX-License-Identifier: Apache-2.0
//
// Print lists: text files in which objects of the server are printed, one block of attribute lines for each.
//
//     if (QV_PrintList::Open("parts.txt") > 0)
//         for (int i = 0; i < QV_PrintList::Size() && QV_PrintList::Next(); ++i)
//             use(QV_PrintList::GetValue("id"));
//     QV_PrintList::Close();
#ifndef VELRZM_PRINT_LIST_H
#define VELRZM_PRINT_LIST_H

#include <cstdio>

#include <velrzm/export.h>
#include <velrzm/vel_types.h>

/** Reads one print list at a time; all its state is process-wide. */
class VELRZM_API QV_PrintList {
public:
    /**
     * Opens a print list and reads its head; an open one must be closed first.
     *
     * @return the number of objects that the file names in its second line; 0 when it cannot be opened or
     * names none.
     */
    static int Open(const VELUnicodeString& fileName);
    /**
     * Reads the next object; one without values when there is none. Returns 1, or 0 when no print list is
     * open or memory runs out.
     */
    static int Next();
    /** The value of attribute `name` of the current object; "" when it has none. */
    static VELUnicodeString GetValue(const VELUnicodeString& name);
    /** The number of objects, as Open returned it. */
    static int Size();
    /** 1 while a print list is open, else 0. */
    static int Exists();
    /** Closes the print list. Returns 1, or 0 when none was open. */
    static int Close();
};

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the names that programs know

/** The file last given to Open. */
VELRZM_API extern VELUnicodeString _PrintListFileName;
/** The open print list; null when none is. */
VELRZM_API extern std::FILE* _PrintListFile;
/** The number of objects that the file names. */
VELRZM_API extern int _Size;
/** How often Next has been called since Open. */
VELRZM_API extern int _Current;
/** 1 while a print list is open, else 0. */
VELRZM_API extern int _Exists;
/** The attribute names, taken from the first object. */
VELRZM_API extern VELListValVELUnicodeString _AttrNames;
/** The values of the current object, at the positions of the names. */
VELRZM_API extern VELListValVELUnicodeString _AttrValues;
/** The line read last, or a piece of it. */
VELRZM_API extern char buf[256];
/** How much of `buf` is used, 2 at least: a line is read in pieces of one character less. */
VELRZM_API extern int bufsize;
/** The words of the line that the reader looked at last. */
VELRZM_API extern char* token;
VELRZM_API extern char* token_attr;
VELRZM_API extern char* token_value;
/** For the use of programs; the library neither reads nor writes it. */
VELRZM_API extern int QV_Print;

// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

#endif
