// SPDX-License-Identifier: Apache-2.0
#include <velrzm/items.h>

#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

int ItemPUEffectivityCreate(char* ecNumber, char* itemNumber, char* productId, char* cutInUnit,
                            VELListValVELUnicodeString& inputNames, VELListValVELUnicodeString& inputValues,
                            VELListValVELUnicodeString& selectedNames)
{
    return objectOperation("ItemPUEffectivityCreate-", [&](Operation& op, CurrentObject& object) {
        const Pairs further(inputNames, inputValues);
        op.start();
        const Defaults defaults = op.readDefaults("ItemPUEffectivityCreate", "");
        toUpperCase(itemNumber, Letters::OfLocale);
        toUpperCase(ecNumber, Letters::OfLocale);
        toUpperCase(productId, Letters::OfLocale);
        op.trace(" Printing Input Attributes ...");
        op.trace("\tEcNumber=", ecNumber);
        op.trace("\tItemNumber=", itemNumber);
        op.trace("\tProductId=", productId);
        op.trace("\tCutInUnit=", cutInUnit);
        op.tracePairs("     ... plus some other Input Attributes ...", "   ", further);
        op.tracePairs("     ... and eventually, some Default Attributes ...", "     ", defaults.all());
        op.traceNames(" Printing Selected Attributes ...", "   ", selectedNames);
        object.reset();
        op.capture(selectedNames, 30);
        object.renew("ItemProductUnitEffectivity");
        op.step(" Set Required Fields for Save");
        object.setDefaults("     ", defaults.all());
        object.setGiven("     ", further);
        object.set({
            {"update_count", "", "   update_count="},
            {"loc_id", "", "   loc_id="},
            {"item_number", itemNumber, "   item_number="},
            {"ecid", ecNumber, "   ecid="},
            {"prod_id", productId, "   prod_id="},
            {"cut_in_unit", cutInUnit, "   cut_in_unit="},
        });
        op.step(" Set  fields to be selected for Save");
        object.subscribe(selectedNames);
        op.step(" Execute Save method");
        object.save();
        object.count();
        object.exit("----Exit------------entries/rc=");
    });
}
