// SPDX-License-Identifier: Apache-2.0
#include "tools/site_files/defaults_uses.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace tools {

const std::vector<DefaultsUse>& defaultsUses()
{
    using Limit = DefaultsUse::Limit;
    using Effect = DefaultsUse::Effect;
    static const std::vector<DefaultsUse> uses = {
        {"EngineeringChangeCreate",
         "EngineeringChangeCreate",
         Limit::None,
         Effect::SetOnObject,
         "EngineeringChange",
         {"id", "desc", "update_count", "initiator@person_identifier"}},
        {"AffectedItemCreate", "AffectedItemCreate", Limit::First19, Effect::SetOnObject, "AffectedItem"},
        {"ItemCreate",
         "ItemCreate",
         Limit::None,
         Effect::SetOnObject,
         "ItemEngineeringData",
         {"logical_key@item_number", "logical_key@loc_id", "il_ec_number", "name", "design_loc_id",
          "update_count"}},
        {"ItemSave", "ItemCreate", Limit::None, Effect::SetOnObject, "ItemEngineeringData", {"name"}},
        {"ItemHeaderCreate",
         "ItemHeaderCreate",
         Limit::None,
         Effect::SetOnObject,
         "ItemEngineeringData",
         {"il_ec_number", "logical_key@item_number", "name", "description", "item_type", "x_sec_level_code",
          "x_sec_cat_code", "update_count"}},
        {"ItemPUEffectivityCreate",
         "ItemPUEffectivityCreate",
         Limit::None,
         Effect::SetOnObject,
         "ItemProductUnitEffectivity",
         {"update_count", "loc_id", "item_number", "ecid", "prod_id", "cut_in_unit"}},
        {"DocumentCreateCheckIn", "DocumentCreateCheckIn", Limit::First19, Effect::SetOnObject, "DocVersion"},
        {"DocumentCheckOut", "DocumentCheckOut", Limit::First19, Effect::SetOnObject, "DocVersion"},
        {"DocumentCheckIn", "DocumentCheckIn", Limit::First19, Effect::SetOnObject, "DocVersion"},
        {"DocumentCancelCheckOut", "DocumentCancelCheckOut", Limit::First19, Effect::SetOnObject,
         "DocVersion"},
        {"DocumentMakeNewRevision", "DocumentMakeNewRevision", Limit::First19, Effect::SetOnObject,
         "DocVersion"},
        {"DocumentMakeECControlled", "DocumentMakeECControlled", Limit::First19, Effect::OnlyLogged,
         "DocVersion"},
        {"BomHeaderCreate", "BomHeaderCreate", Limit::First19, Effect::SetOnObject, "BomHeader"},
        {"ItemReferenceCreate", "ItemReferenceCreate", Limit::First19, Effect::SetOnObject, "ItemReference"},
        {"XlatRead", "XlatRead", Limit::None, Effect::NamesTable, ""},
    };
    return uses;
}

std::vector<DefaultsUse> usesOfEntries(const std::string& name)
{
    std::vector<DefaultsUse> found;
    std::copy_if(defaultsUses().begin(), defaultsUses().end(), std::back_inserter(found),
                 [&name](const DefaultsUse& use) { return use.entries == name; });
    return found;
}

std::string operationsWithDefaults()
{
    std::set<std::string> names; // two operations may use the same entries
    for (const DefaultsUse& use : defaultsUses()) {
        names.insert(use.entries);
    }
    std::string all;
    for (const std::string& name : names) {
        all.append(all.empty() ? "" : ", ").append(name);
    }
    return all;
}

} // namespace tools
