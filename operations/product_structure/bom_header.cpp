// SPDX-License-Identifier: Apache-2.0
#include <velrzm/product_structure.h>

#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

int BomHeaderCreate(char* ecNumber, char* itemNumber, char** attributeNames)
{
    return objectOperation("BomHeaderCreate", [&](Operation& op, CurrentObject& object) {
        op.start();
        const Defaults read = op.readDefaults();
        const Pairs defaults = op.usual(read);
        toUpperCase(itemNumber, Letters::Ascii);
        toUpperCase(ecNumber, Letters::Ascii);
        op.trace("-   EC Number=", ecNumber, "-");
        op.trace("-   Item Number=", itemNumber, "-");
        op.tracePairs("-     ... plus default attributes ...", "-     ", defaults);
        op.traceNames("- Printing Selected Attributes ...", "-     ", attributeNames);
        op.log("- ItemNumber=", itemNumber, ", EcNumber=", ecNumber);
        op.logPairs("- ", defaults);
        object.reset();
        op.capture(attributeNames, 30);
        object.renew("BomHeader");
        op.step("- Set Required Fields for cl_open");
        object.set({
            {"logical_key@item_number", itemNumber, "-   logical_key@item_number="},
            {"il_ec_number", ecNumber, "-   il_ec_number="},
            {"logical_key@loc_id", "", "-   logical_key@loc_id="},
        });
        op.step("- Set  the Subscribes for the cl_open");
        op.step("-   db_object_id");
        object.subscribe("db_object_id");
        op.step("- Open BomHeader Object");
        object.open(OnFailure::GoOn);
        if (QV_RC < 0) { // there is none yet: the same object becomes the new header
            op.step("- Set Required Fields for cl_save");
            object.set({"update_count", "", "-   update_count=", OnFailure::GoOn});
            object.setDefaults("-     ", defaults);
            op.step("- Set  the Subscribes for the Save");
            object.subscribe(attributeNames);
            op.step("- Execute Save method");
            object.save();
        }
        object.count();
        object.exit();
    });
}
