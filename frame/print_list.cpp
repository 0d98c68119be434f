// SPDX-License-Identifier: Apache-2.0
#include <velrzm/print_list.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "diagnostics/guard.h"

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the names that programs know
VELUnicodeString _PrintListFileName;
std::FILE* _PrintListFile = nullptr;
int _Size = 0;
int _Current = 0;
int _Exists = 0;
VELListValVELUnicodeString _AttrNames;
VELListValVELUnicodeString _AttrValues;
char buf[256] = "";
int bufsize = sizeof buf;
char* token = nullptr;
char* token_attr = nullptr;
char* token_value = nullptr;
int QV_Print = 0;
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

namespace {

/** Reads the next line, or the next piece of a long one, into `buf`; false at the end of the file. */
bool readLine()
{
    return std::fgets(buf, std::clamp<int>(bufsize, 2, sizeof buf), _PrintListFile) != nullptr;
}

bool lineContains(const char* text)
{
    return std::strstr(buf, text) != nullptr;
}

/**
 * The next word of the line in `buf`, from its beginning when `first`; null when there is none. The end of
 * the line, with or without a carriage return, ends a word too.
 */
char* nextWord(bool first = false)
{
    return std::strtok(first ? buf : nullptr, " \r\n");
}

/** What stands between the brackets of a field; "" for a missing field or "[]". */
VELUnicodeString insideBrackets(char* field)
{
    const char* const inside = field == nullptr ? nullptr : std::strtok(field, "[]");
    return inside == nullptr ? "" : inside;
}

/** Splits "<word> [name] = [value]" in `buf`; every object has the names, and those of the first are kept. */
void readAttribute()
{
    token = nextWord(true);
    token_attr = nextWord();
    token = nextWord();
    token_value = nextWord();
    if (_Current == 0) {
        _AttrNames.Append(insideBrackets(token_attr));
    }
    _AttrValues.Append(insideBrackets(token_value));
}

int openFile(const VELUnicodeString& fileName)
{
    _PrintListFileName = fileName;
    _PrintListFile = std::fopen(fileName, "r");
    _Exists = 0;
    if (_PrintListFile == nullptr) {
        return 0;
    }
    _Current = 0;
    _Size = 0;
    _AttrNames.RemoveAll();
    _AttrValues.RemoveAll();
    readLine();
    if (readLine()) {
        token = nextWord(true);
        token = nextWord();
        token = nextWord();
        _Size =
            token == nullptr ? 0 : std::atoi(token); // NOLINT(cert-err34-c): what is not a number means none
    }
    _Exists = 1;
    return _Size;
}

int readObject()
{
    if (_PrintListFile == nullptr) {
        return 0;
    }
    _AttrValues.RemoveAll();
    while (readLine() && !lineContains("QV_Object[")) {
    }
    readLine();
    while (readLine() && lineContains("] = [")) {
        readAttribute();
    }
    ++_Current;
    return 1;
}

/** An object that was read only in part counts as not read. */
int withoutObject()
{
    _AttrValues.RemoveAll();
    if (_Current == 0) {
        _AttrNames.RemoveAll();
    }
    return 0;
}

VELUnicodeString valueOf(const VELUnicodeString& name)
{
    const int position = _AttrNames.Locate(name);
    return position == 0 || position > _AttrValues.Size() ? "" : _AttrValues[position];
}

} // namespace

int QV_PrintList::Open(const VELUnicodeString& fileName)
{
    return velrzm::guarded(
        "QV_PrintList::Open", [&] { return openFile(fileName); }, [] { return 0; });
}

int QV_PrintList::Next()
{
    return velrzm::guarded("QV_PrintList::Next", readObject, withoutObject);
}

VELUnicodeString QV_PrintList::GetValue(const VELUnicodeString& name)
{
    return velrzm::guarded(
        "QV_PrintList::GetValue", [&] { return valueOf(name); }, [] { return VELUnicodeString(); });
}

int QV_PrintList::Size()
{
    return _Size;
}

int QV_PrintList::Exists()
{
    return _Exists;
}

int QV_PrintList::Close()
{
    if (_PrintListFile == nullptr) {
        return 0;
    }
    std::fclose(_PrintListFile);
    _PrintListFile = nullptr;
    _Current = 0;
    _Size = 0;
    _Exists = 0;
    _AttrNames.RemoveAll();
    _AttrValues.RemoveAll();
    return 1;
}
