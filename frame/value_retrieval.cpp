// SPDX-License-Identifier: Apache-2.0
//
// Reading values of the current result. A record of a list is loaded on first access and kept in QV_ObjPtr
// until another one is asked for.
#include <velrzm/result.h>

#include <limits>

#include <velrzm/vel_types.h>

#include "diagnostics/access_log.h"
#include "diagnostics/guard.h"
#include "diagnostics/return_codes.h"
#include "diagnostics/trace.h"
#include "diagnostics/warning.h"

using namespace velrzm;

namespace {

constexpr const char* blanks = "     ";
constexpr const char* separator = "     -----------------";
constexpr const char* noRecord = "****** ERROR ****** Invalid QV_ObjPtr handle ******";
constexpr int slots = sizeof SelectedAttribute / sizeof SelectedAttribute[0];
/** The size of a buffer whose size the caller does not give. */
constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

/** A buffer of the caller. */
struct Buffer {
    char* text;
    std::size_t size;

    void clear() const noexcept { copyToFit(text, size, ""); }
    void fill(const char* prefix, const char* name, const char* content) const
    {
        if (text != nullptr && !copyToFit(text, size, content)) {
            warn(prefix, std::string("the text of ") + name + " is cut to the " + std::to_string(size) +
                             " bytes of the buffer; it has " + std::to_string(std::strlen(content)) +
                             " characters");
        }
    }
};

class ProfilingStep {
public:
    explicit ProfilingStep(const char* name) noexcept : name_(name) { VELRZMProfiling::StepIn(name_); }
    ProfilingStep(const ProfilingStep&) = delete;
    ProfilingStep& operator=(const ProfilingStep&) = delete;
    ~ProfilingStep() { VELRZMProfiling::StepOut(name_); }

private:
    const char* name_;
};

bool resultIs(std::string_view kind) noexcept
{
    return entries >= 0 && kind == FromList;
}

bool inRange(int number, int end) noexcept
{
    return number >= 0 && number < end;
}

/** Makes QV_ObjPtr the object of the record; returns whether there is one. */
bool loadRecord(const char* prefix, int recNo)
{
    if (recNo != LastRecNo) {
        if (QV_ObjPtr != nullptr) {
            QV_RC = QV_Destroy_Object(&QV_ObjPtr);
            mustStop(prefix, {"QV_Destroy_Object"}, OnFailure::Stop);
        }
        QV_RC = QV_Read_List(QV_ListPtr, recNo, &QV_ObjPtr);
        mustStop(prefix, {"QV_Read_List"}, OnFailure::Stop);
    }
    if (QV_ObjPtr != nullptr) {
        return true;
    }
    trace(ConnectionLevel, prefix, "- ", noRecord);
    accessLog(prefix, noRecord);
    return false;
}

/** The value that the server hands back, whatever its code; empty when it hands back none. */
const char* readAttribute(const char* name)
{
    const char* value = nullptr;
    QV_Get_Object_Attr(QV_ObjPtr, name, &value);
    return orEmpty(value);
}

void logValue(bool firstOfRecord, const char* name, const char* value)
{
    if (firstOfRecord) {
        accessLog(blanks, separator);
    }
    accessLog(blanks, blanks, name, "=", value);
}

int getValue(int recNo, const char* name, const Buffer& value)
{
    constexpr const char* prefix = "GetValue";

    const ProfilingStep profiled(prefix);
    trace(ValueLevel, prefix, "- LastRecNo=", LastRecNo, "- RecNo=", recNo, "- Name=", name, "- out of ",
          entries, " entries");
    trace(ValueLevel, prefix, "-name=", name, "-");
    value.clear();
    const char* text = "";
    if (resultIs("List")) {
        if (!inRange(recNo, entries) || !loadRecord(prefix, recNo)) {
            return 0;
        }
        text = readAttribute(name);
    } else if (resultIs("Object")) {
        if (!inRange(recNo, entries)) {
            return 0;
        }
        text = readAttribute(name);
    }
    value.fill(prefix, name, text);
    logValue(recNo != LastRecNo, name, text);
    LastRecNo = recNo;
    trace(ValueLevel, prefix, "- Value=", text, "-");
    return 1;
}

int getAttributeValue(int recNo, int attNo, const Buffer& name, const Buffer& value)
{
    constexpr const char* prefix = "GetAttributeValue";

    trace(ValueLevel, prefix, "- LastRecNo=", LastRecNo, "- RecNo=", recNo, "- AttNo=", attNo, "-");
    name.clear();
    value.clear();
    const char* selected = "";
    const char* text = "";
    const bool fromList = resultIs("List");
    if (fromList || resultIs("Object")) {
        if (!inRange(recNo, entries) || !inRange(attNo, std::min(NbSelectedAttribute, slots))) {
            return 0;
        }
        if (fromList && !loadRecord(prefix, recNo)) {
            return 0;
        }
        selected = SelectedAttribute[attNo];
        text = readAttribute(selected);
        if (fromList) {
            LastRecNo = recNo;
        }
    }
    name.fill(prefix, selected, selected);
    value.fill(prefix, selected, text);
    logValue(attNo <= LastAttNo, selected, text);
    LastAttNo = attNo;
    trace(ValueLevel, prefix, "- Name=", selected, "- Value=", text, "-");
    return 1;
}

/** The reading was broken off, so it is not known any more which record QV_ObjPtr holds. */
int nothingRead(std::initializer_list<Buffer> buffers) noexcept
{
    for (const Buffer& buffer : buffers) {
        buffer.clear();
    }
    LastRecNo = -1;
    return 0;
}

} // namespace

int GetValue(int recNo, const char* name, char* value)
{
    return GetValue(recNo, name, value, unlimited);
}

int GetValue(int recNo, const char* name, char* value, std::size_t valueSize)
{
    const Buffer buffer{value, valueSize};
    return guarded(
        "GetValue", [&] { return getValue(recNo, orEmpty(name), buffer); },
        [&] { return nothingRead({buffer}); });
}

int GetAttributeValue(int recNo, int attNo, char* name, char* value)
{
    return GetAttributeValue(recNo, attNo, name, unlimited, value, unlimited);
}

int GetAttributeValue(int recNo, int attNo, char* name, std::size_t nameSize, char* value,
                      std::size_t valueSize)
{
    const Buffer nameBuffer{name, nameSize};
    const Buffer valueBuffer{value, valueSize};
    return guarded(
        "GetAttributeValue", [&] { return getAttributeValue(recNo, attNo, nameBuffer, valueBuffer); },
        [&] {
            return nothingRead({nameBuffer, valueBuffer});
        });
}

void SizeOfAttributeValue(int* nbEntries, int* nbAttributes)
{
    if (nbEntries != nullptr) {
        *nbEntries = entries;
    }
    if (nbAttributes != nullptr) {
        *nbAttributes = NbSelectedAttribute;
    }
}
