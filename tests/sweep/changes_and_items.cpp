// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include <array>

#include "tests/sweep/operations.h"

using namespace harness;

namespace sweep {

namespace {

constexpr const char* exitOfItems = "2 @----Exit------------entries/rc=0--------------------.\n";

std::vector<Operation> engineeringChanges()
{
    return {
        onObject("EngineeringChangeCreate", use(EngineeringChangeCreate))
            .takes("c----", 5)
            .usesDefaults("EngineeringChangeCreate", 60, 60)
            .endsWith("log @ ... Engineering Change was  not created\n"
                      "2 @-----Exit------------entries/rc=0--------------------.\n")
            .goingOn({{"QV_Set_Object_Attr", "update_count"},
                      {"QV_Set_Object_Attr", "initiator@person_identifier"},
                      {"QV_Set_Object_Attr", "x_sec_level_code"},
                      {"QV_Set_Object_Attr", "x_sec_cat_code"}}),
        onObject("EngineeringChangeOpen", use(EngineeringChangeOpen))
            .takes("--", 2)
            .takesNames(50)
            .endsWith(""),
        onObject("AffectedItemCreate", use(AffectedItemCreate))
            .takes("AAA", 3)
            .joiningInputs()
            .takesNames(30)
            .usesDefaults("AffectedItemCreate", 19, 19)
            .endsWith("log @ ...AffectedItem was  not created\n"
                      "2 @---Exit------------entries/rc=0--------------------.\n")
            .goingOn(updateCountIsSet),
        onList("AffectedItemQuery", use(AffectedItemQuery))
            .takes("-", 0)
            .refusing("ecDbObjectId", 57)
            .takesNames(50),
    };
}

std::vector<Operation> masterRecords()
{
    return {
        onObject("ItemCreate", use(ItemCreate))
            .takes("UUU-", 5)
            .takesNameList(30)
            .usesDefaults("ItemCreate", 60, 60)
            .endsWith(exitOfItems)
            .goingOn(updateCountIsSet),
        onObject("ItemSave", use(ItemSave))
            .takes("UUU-", 5)
            .takesNameList(30)
            .usesDefaults("ItemCreate", 60, 60)
            .endsWith(exitOfItems)
            .goingOn({{"QV_Subscribe_Object_Attr", "update_count"}}),
        onObject("ItemHeaderCreate", // with a change it is AffectedItemCreate as well
                 use(+[](const VELUnicodeString& number, const VELUnicodeString& name,
                         const VELUnicodeString& description, const VELUnicodeString& type,
                         const VELUnicodeString& level, const VELUnicodeString& category) {
                     return ItemHeaderCreate({}, number, name, description, type, level, category);
                 }))
            .takes("cc----", 6)
            .usesDefaults("ItemHeaderCreate", 60, 60)
            .endsWith(exitOfItems)
            .goingOn(updateCountIsSet),
        onObject("ItemOpen", use(ItemOpen))
            .takes("UU", 2)
            .takesNameList(50)
            .endsWith("log @ ...Item was  not found\n"),
        onObject("ItemPUEffectivityCreate", use(ItemPUEffectivityCreate), "ItemPUEffectivityCreate-")
            .takes("UUU-", 5)
            .takesNameList(30)
            .usesDefaults("ItemPUEffectivityCreate", 60, 60)
            .endsWith(exitOfItems),
        onObject("ItemAssociationOpen", use(ItemAssociationOpen)).takes("---", 3).takesNames(50).endsWith(""),
        onObject("ItemAssociationSave", use(ItemAssociationSave))
            .takes("---", 3)
            .takesNames(30)
            .goingOn(updateCountIsSet),
    };
}

/** Of the filters those that have a use are turned to upper case: `change` says whether that of the change is. */
Operation itemQuery(const std::string& name, const char* type, char change)
{
    return onList(
               name,
               [=](Inputs& in) {
                   std::array<char*, 7> filters{};
                   for (char*& filter : filters) {
                       filter = in.text();
                   }
                   return ItemQuery(filters[0], filters[1], filters[2], filters[3], filters[4], filters[5],
                                    filters[6], Text(type), in.names());
               },
               "ItemQuery")
        .takes(std::string("U") + change + "--U--", 0)
        .takesNames(50)
        .notChecking({})
        .goingOn({{"QV_Destroy_List", "", "DestroyListOrReport"}, {"QV_Open_List"}});
}

template <class Function>
Operation configurationQuery(const std::string& name, const Function& function)
{
    return onList(name, use(function))
        .takes("-", 0)
        .refusing("productNumber", 65)
        .elsewhere({{"QV_Destroy_Object"}, {"QV_Read_List"}, {"QV_Get_Object_Attr"}}); // go through GetValue
}

} // namespace

std::vector<Operation> changesAndItems()
{
    std::vector<Operation> all{itemQuery("ItemQuery", "STD", 'U'),
                               itemQuery("ItemQueryInDevelopment", "DEV", '-'),
                               configurationQuery("ProductOptionQuery", ProductOptionQuery),
                               configurationQuery("ProductPackageQuery", ProductPackageQuery)};
    for (const auto& some : {engineeringChanges(), masterRecords()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

} // namespace sweep
