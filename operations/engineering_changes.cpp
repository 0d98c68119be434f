// SPDX-License-Identifier: Apache-2.0
#include <velrzm/engineering_changes.h>

#include <cstdlib>

#include "frame/list_request.h"
#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

int EngineeringChangeCreate(const VELUnicodeString& ecNumber, const VELUnicodeString& ecName,
                            const VELUnicodeString& securityLevel, const VELUnicodeString& securityCategory,
                            const VELUnicodeString& initiator)
{
    return objectOperation("EngineeringChangeCreate", [&](Operation& op, CurrentObject& object) {
        op.start();
        const char* const person = given(initiator) ? initiator.CastToCharPtr() : std::getenv("USER");
        const Defaults defaults = op.readDefaults();
        const std::string number = upperCased(ecNumber, Letters::OfLocale);
        op.trace("- Printing Input Attributes ...");
        op.trace("-    EcNumber=", ecNumber, "- EcName=", ecName, "-");
        op.trace("-    SecurityLevel=", securityLevel, "- SecurityCategory=", securityCategory, "-");
        op.log("EcNumber=", number, "EcName=", ecName);
        op.log("SecurityLevel=", securityLevel, "SecurityCategory=", securityCategory);
        if (defaults.found() > 0) {
            op.trace("-     ... and eventually, some Default Attributes ...");
        }
        for (const Pair pair : defaults.all()) {
            op.trace("-     ", pair.name, "=", pair.value, "-");
            op.log("   ", pair.name, "=", pair.value);
        }
        object.reset();
        object.renew("EngineeringChange");
        op.step(" Set Required Fields for Save");
        object.setDefaults("-     ", defaults.all());
        object.set({
            {"id", number.c_str(), "-   id="},
            {"desc", ecName, "-   desc="},
            {"update_count", "0", "-   update_count=", OnFailure::GoOn},
            {"initiator@person_identifier", person, "-   initiator@person_identifier=", OnFailure::GoOn},
        });
        if (given(securityLevel)) {
            object.set({{"x_sec_level_code", securityLevel, "-   x_sec_level_code=", OnFailure::GoOn}});
        }
        if (given(securityCategory)) {
            object.set({{"x_sec_cat_code", securityCategory, "-   x_sec_cat_code=", OnFailure::GoOn}});
        }
        op.step("- Set fields to be selected for cl_save");
        object.subscribe("db_object_id");
        op.step("- Execute Save method");
        object.save();
        op.log("... Engineering Change was ", object.count() ? "created" : "not created");
        object.exit();
    });
}

int EngineeringChangeOpen(char* dbObjectId, char* ecNumber, char** attributeNames)
{
    return objectOperation("EngineeringChangeOpen", [&](Operation& op, CurrentObject& object) {
        op.start();
        op.trace("-    DbObjectId=", dbObjectId, "-");
        op.trace("-    EcNumber=", ecNumber, "-");
        op.traceNames("- Selected Attributes are ...", "-   ", attributeNames);
        object.reset();
        op.capture(attributeNames, 50);
        object.renew("EngineeringChange");
        object.set({
            {"db_object_id", dbObjectId, "-  db_object_id="},
            {"id", ecNumber, "-   id="},
        });
        object.subscribe(attributeNames);
        object.open();
        object.count();
    });
}

int AffectedItemCreate(char* ecNumber, char* itemNumber, char* action, char** attributeNames)
{
    return objectOperation("AffectedItemCreate", [&](Operation& op, CurrentObject& object) {
        op.trace("---Start------------------------------");
        const Defaults read = op.readDefaults();
        const Pairs defaults = op.usual(read);
        toUpperCase(itemNumber, Letters::Ascii);
        toUpperCase(ecNumber, Letters::Ascii);
        toUpperCase(action, Letters::Ascii);
        op.trace("- Printing Input Attributes ...");
        op.trace("-      EC Number=", ecNumber, "-");
        op.trace("-      Item Number=", itemNumber, "-");
        op.trace("-      Action=", action, "-");
        op.tracePairs("-      ... plus AffectedItem default attributes ...", "-      ", defaults);
        op.traceNames("- Printing Selected Attributes ...", "-      ", attributeNames);
        op.logInputs({"ItemNumber=", itemNumber, ", EcNumber=", ecNumber, ", Action=", action});
        op.logPairs("   ", defaults);
        object.reset();
        op.capture(attributeNames, 30);
        object.renew("AffectedItem");
        op.step("- Set required fields for cl_save");
        object.set({
            {"ec@id", ecNumber, "-      ec@id="},
            {"item_number", itemNumber, "-      item_number="},
            {"change_action@curr_key", given(action) ? action : "CHG", "-      change_action@curr_key="},
            {"update_count", "", "-    update_count=", OnFailure::GoOn},
        });
        const bool release = std::string_view("REL") == orEmpty(action);
        for (const Pair pair : defaults) {
            op.step("-      ", pair.name, "=", pair.value, "-");
            if (release && std::string_view("eff_date_str") == pair.name) {
                op.step("- Skipping ", pair.name, "=", pair.value, " because Action=REL");
            } else {
                object.set(pair.name, pair.value);
            }
        }
        op.step("- Set fields to be selected for cl_save");
        object.subscribe(attributeNames);
        op.step("- Execute Save method");
        object.save();
        op.log("...AffectedItem was ", object.count() ? "created" : "not created");
        object.exit("---Exit------------entries/rc=");
    });
}

int AffectedItemQuery(char* ecDbObjectId, char** attributeNames)
{
    return listOperation("AffectedItemQuery", [&](Operation& op, CurrentList& list) {
        op.start();
        op.trace("\tEcDbObjectId=", ecDbObjectId);
        op.traceNames(" Printing Selected Attributes ...", "   ", attributeNames);
        list.reset();
        op.capture(attributeNames, 50);
        if (!given(ecDbObjectId)) {
            op.traceAt(ConnectionLevel, "****** ERROR ****** EC db_object_id is not valuated...");
            QV_RC = -1;
            op.stop();
        }
        list.renew("AffectedItem");
        list.select(attributeNames);
        list.where({"&=(ec@db_object_id,'", ecDbObjectId, "')", "ecDbObjectId"});
        list.orderBy({"pln_rev_level", "item_key@item_number"});
        list.open();
        list.count();
        list.exit();
    });
}
