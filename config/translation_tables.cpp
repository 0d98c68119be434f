// SPDX-License-Identifier: Apache-2.0
#include <velrzm/translation_tables.h>

#include "frame/operation.h"

using namespace velrzm;

namespace {

/** The two lists of the caller. */
struct Translations {
    VELListValVELUnicodeString& from;
    VELListValVELUnicodeString& to;

    /** Empties both; the result is the number of entries. */
    int clear() const
    {
        from.RemoveAll();
        to.RemoveAll();
        return 0;
    }
};

void readEntry(Operation& op, const char* tableName, int index, const Translations& out)
{
    const char* from = nullptr;
    const char* to = nullptr;
    op.call({"QV_ReadXlat", tableName}, OnFailure::GoOn,
            [&] { return QV_Read_Xlat(tableName, index, &from, &to); });
    if (QV_RC < 0) { // two empty texts, so that positions in the lists stay those in the table
        from = nullptr;
        to = nullptr;
    }
    op.traceAt(ValueLevel, "- ", index, "-", from, "<=>", to, "<");
    out.from.Append(orEmpty(from));
    out.to.Append(orEmpty(to));
}

/** Reads the server's table; the result is the number of its entries. */
int readTable(Operation& op, const char* tableName, const Translations& out)
{
    int size = 0;
    op.call({"QV_SizeOf_Xlat", tableName}, OnFailure::GoOn, [&] { return QV_SizeOf_Xlat(tableName, &size); });
    op.traceAt(CallLevel, "- XlatSize=", size, "-");
    for (int index = 0; index < size; ++index) {
        readEntry(op, tableName, index, out);
    }
    return size;
}

int finish(const Operation& op, int size, const Translations& out)
{
    for (int k = 1; k <= out.from.Size(); ++k) {
        op.traceAt(CallLevel, "- ", out.from[k], "=", out.to[k]);
        op.log(out.from[k], "<=>", out.to[k]);
    }
    op.trace("-----Exit------------XlatSize=", size, "--------------------");
    return size;
}

int readMapped(const VELUnicodeString& what, const Translations& out)
{
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const VELUnicodeString name = what; // the caller may have it in one of the lists
    Operation op("XlatRead");
    op.trace("-----Start---- What=", name);
    out.clear();
    const Defaults defaults = op.readDefaults();
    for (const Pair pair : defaults.all()) {
        op.traceAt(CallLevel, "- ", pair.name, "=", pair.value);
    }
    int size = 0;
    if (const char* const tableName = defaults.valueOf(name)) {
        op.traceAt(CallLevel, "-     XlatName=", tableName);
        op.log(name, tableName);
        size = readTable(op, tableName, out);
    } else {
        op.traceAt(ConnectionLevel, "-     What=", name);
        op.traceAt(ConnectionLevel, "-     XlatName=", "UNDEFINED");
        op.log(name, "UNDEFINED");
        QV_RC = 0;
    }
    return finish(op, size, out);
}

int readNamed(const VELUnicodeString& tableName, const Translations& out)
{
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const VELUnicodeString name = tableName; // the caller may have it in one of the lists
    Operation op("XlatRead2");
    op.trace("-----Start---- XlatName=", name);
    out.clear();
    op.log(name);
    const int size = readTable(op, name, out);
    return finish(op, size, out);
}

} // namespace

int XlatRead(const VELUnicodeString& what, VELListValVELUnicodeString& from, VELListValVELUnicodeString& to)
{
    const Translations out{from, to};
    return guarded(
        "XlatRead", [&] { return readMapped(what, out); }, [&] { return out.clear(); });
}

int XlatRead2(const VELUnicodeString& tableName, VELListValVELUnicodeString& from,
              VELListValVELUnicodeString& to)
{
    const Translations out{from, to};
    return guarded(
        "XlatRead2", [&] { return readNamed(tableName, out); }, [&] { return out.clear(); });
}
