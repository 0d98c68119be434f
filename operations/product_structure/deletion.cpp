// SPDX-License-Identifier: Apache-2.0
#include "operations/product_structure/deletion.h"

namespace velrzm {

int deleteRecord(const Deletion& deletion, const char* dbObjectId, const char* ecNumber,
                 std::initializer_list<FurtherKey> furtherKeys)
{
    return objectOperation(deletion.prefix, [&](Operation& op, CurrentObject& object) {
        op.trace("-----start------");
        op.trace(" \tDbObjectId=", dbObjectId, "-");
        op.trace("\tEcNumber=", ecNumber);
        for (const FurtherKey& key : furtherKeys) {
            if (key.input != nullptr) {
                op.trace(key.input, key.setting.value);
            }
        }
        object.reset();
        NbSelectedAttribute = 0;
        object.renew(deletion.className);
        op.step(" set required fields for cl_delete-");
        object.set({
            {"db_object_id", dbObjectId, "    db_object_id="},
            {"il_ec_number", ecNumber, "    il_ec_number="},
        });
        for (const FurtherKey& key : furtherKeys) {
            object.set(key.setting);
        }
        if (deletion.executing != nullptr) {
            op.step(deletion.executing);
        }
        object.remove();
        object.count();
        object.exit("----Exit------------rc=");
    });
}

} // namespace velrzm
