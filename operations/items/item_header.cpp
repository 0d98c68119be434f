// SPDX-License-Identifier: Apache-2.0
#include <velrzm/items.h>

#include <array>

#include <velrzm/engineering_changes.h>

#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

namespace {

/**
 * Makes the item an affected item of the change. The result of that replaces `QV_RC`, so the item counts as created even
 * if this fails.
 */
void release(const Operation& op, std::string ecNumber, std::string itemNumber)
{
    op.trace(" Calling AffectedItemCreate for Item ", itemNumber, " at EC ", ecNumber);
    std::array<char, 4> action{"REL"};
    std::array<char, 13> identifier{"db_object_id"};
    std::array<char*, 2> selected{identifier.data(), nullptr};
    QV_RC = AffectedItemCreate(ecNumber.data(), itemNumber.data(), action.data(), selected.data());
    op.trace(" rc(AffectedItemCreate)=", QV_RC);
}

} // namespace

int ItemHeaderCreate(const VELUnicodeString& ecNumber, const VELUnicodeString& itemNumber,
                     const VELUnicodeString& itemName, const VELUnicodeString& itemDescription,
                     const VELUnicodeString& itemType, const VELUnicodeString& securityLevel,
                     const VELUnicodeString& securityCategory)
{
    return objectOperation("ItemHeaderCreate", [&](Operation& op, CurrentObject& object) {
        op.start();
        const Defaults defaults = op.readDefaults();
        const std::string change = upperCased(ecNumber, Letters::OfLocale);
        const std::string number = upperCased(itemNumber, Letters::OfLocale);
        const std::string name = upperCased(itemName, Letters::OfLocale);
        op.trace("- Printing Input Attributes ...");
        op.trace("\tEcNumber=", change);
        op.trace("\tItemNumber=", number);
        op.trace("\tItemName=", name);
        op.trace("\tItemDesc=", itemDescription);
        op.trace("\tItemType=", itemType);
        op.trace("\tSecurityLevel=", securityLevel);
        op.trace("\tSecurityCategory=", securityCategory);
        op.tracePairs("-     ... and eventually, some Default Attributes ...", "-     ", defaults.all());
        object.reset();
        object.renew("ItemEngineeringData");
        op.step(" Set Required Fields for Save");
        object.setDefaults("-     ", defaults.all());
        object.set({"il_ec_number", "", "   il_ec_number="});
        op.step("   logical_key@item_number=", itemNumber, "-"); // as given, not as stored
        object.set("logical_key@item_number", number.c_str());
        object.set({
            {"name", name.c_str(), "   name="},
            {"description", itemDescription, "   description="},
            {"item_type", itemType, "   item_type="},
            {"x_sec_level_code", securityLevel, "   x_sec_level_code="},
            {"x_sec_cat_code", securityCategory, "   x_sec_cat_code="},
            {"update_count", "0", "-   update_count=", OnFailure::GoOn},
        });
        op.step(" Set  fields to be selected for Save");
        object.subscribe("db_object_id");
        op.step(" Execute Save method");
        object.save();
        if (!op.stopped() && !change.empty()) {
            release(op, change, number);
        }
        object.count();
        object.exit("----Exit------------entries/rc=");
    });
}
