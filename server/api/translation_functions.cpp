// SPDX-License-Identifier: Apache-2.0
#include "server/api/guard.h"

using qvserver::guard;
using qvserver::requireText;
using qvserver::requireVariable;
using qvserver::Session;

extern "C" {

int QV_SizeOf_Xlat(const char* tableName, int* size)
{
    return guard([=](Session& session) {
        int& result = requireVariable(size, "table size");
        const auto name = requireText(tableName, "table name");
        result = static_cast<int>(session.translations().sizeOf(session.store(), name));
    });
}

int QV_Read_Xlat(const char* tableName, int index, const char** from, const char** to)
{
    return guard([=](Session& session) {
        const char*& fromText = requireVariable(from, "from text");
        const char*& toText = requireVariable(to, "to text");
        const auto name = requireText(tableName, "table name");
        const auto entry = session.translations().entry(session.store(), name, index);
        fromText = entry.from;
        toText = entry.to;
    });
}

} // extern "C"
