// SPDX-License-Identifier: Apache-2.0
//
// Print lists: text files in which objects of the server are printed, one block of attribute lines for each:
//
//     any first line
//     Number of_objects: 1 found              the third word is the number of objects
//     QV_Object[ItemEngineeringData]          any line with "QV_Object["; lines before it are skipped
//     -----                                   one line that is skipped
//        attribute [id] = [BR-100]            attributes: words 2 and 4 are name and value, in brackets
//        attribute [desc] = [Bracket]
//                                             a line without "] = [" ends the block and is skipped
//
// Words are separated by blanks, and a name or a value has one word. All objects print the same attributes in the same
// order. Lines may end as on Windows; what is longer than 255 characters is read in pieces.
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
     * Opens a print list and reads its first two lines. Close an open one before; this does not do it.
     *
     * @return the number of objects that the second line names; 0 when it names none or the file cannot be opened
     * (see Exists).
     */
    static int Open(const VELUnicodeString& fileName);
    /**
     * Reads the next object. After the last one the current object has no values, and this still returns 1.
     *
     * @return 1; 0 when no print list is open or memory runs out.
     */
    static int Next();
    /** The value of the attribute `name`, compared exactly, of the current object; "" when it has none. */
    static VELUnicodeString GetValue(const VELUnicodeString& name);
    /** The number of objects, as Open returned it. */
    static int Size();
    /** 1 while a print list is open, else 0; also after an Open that failed. */
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
/** How often Next has read since Open. */
VELRZM_API extern int _Current;
/** What Exists returns. */
VELRZM_API extern int _Exists;
/** The attribute names, taken from the first object. */
VELRZM_API extern VELListValVELUnicodeString _AttrNames;
/** The values of the current object, at the positions of the names. */
VELRZM_API extern VELListValVELUnicodeString _AttrValues;
/** The line read last, or a piece of it. */
VELRZM_API extern char buf[256];
/** How much of `buf` is used, from 2 to 256: a line is read in pieces of one character less. */
VELRZM_API extern int bufsize;
/** Words of the line split last, in `buf`: the one before, the bracketed name and the bracketed value; or null. */
VELRZM_API extern char* token;
VELRZM_API extern char* token_attr;
VELRZM_API extern char* token_value;
/** For the use of programs; the library neither reads nor writes it. */
VELRZM_API extern int QV_Print;

// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

#endif
