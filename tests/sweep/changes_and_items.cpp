// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include "tests/sweep/operations.h"

using namespace harness;

namespace sweep {

namespace {

constexpr const char* exitOfItems = "2 @----Exit------------entries/rc=0--------------------.\n";

std::vector<Operation> engineeringChanges()
{
    return {
        onObject("EngineeringChangeCreate",
                 [](Inputs& in) {
                     return EngineeringChangeCreate(in.text(0), in.text(1), in.text(2), in.text(3),
                                                    in.text(4));
                 })
            .takes("-----", 5)
            .usesDefaults("EngineeringChangeCreate", 60, 60)
            .endsWith("log @ ... Engineering Change was  not created\n"
                      "2 @-----Exit------------entries/rc=0--------------------.\n")
            .goingOn({{"QV_Set_Object_Attr", "update_count"},
                      {"QV_Set_Object_Attr", "initiator@person_identifier"},
                      {"QV_Set_Object_Attr", "x_sec_level_code"},
                      {"QV_Set_Object_Attr", "x_sec_cat_code"}}),
        onObject("EngineeringChangeOpen",
                 [](Inputs& in) { return EngineeringChangeOpen(in.text(0), in.text(1), in.names()); })
            .takes("--", 2)
            .takesNames(50)
            .endsWith(""),
        onObject(
            "AffectedItemCreate",
            [](Inputs& in) { return AffectedItemCreate(in.text(0), in.text(1), in.text(2), in.names()); })
            .takes("UUU", 3)
            .joiningInputs()
            .takesNames(30)
            .usesDefaults("AffectedItemCreate", 19, 19)
            .endsWith("log @ ...AffectedItem was  not created\n"
                      "2 @---Exit------------entries/rc=0--------------------.\n")
            .goingOn(updateCountIsSet),
        onList("AffectedItemQuery", [](Inputs& in) { return AffectedItemQuery(in.text(0), in.names()); })
            .takes("-", 0)
            .refusing("ecDbObjectId", 57)
            .takesNames(50),
    };
}

std::vector<Operation> masterRecords()
{
    return {
        onObject("ItemCreate",
                 [](Inputs& in) {
                     return ItemCreate(in.text(0), in.text(1), in.text(2), in.text(3), in.pair(), in.pair(),
                                       in.nameList());
                 })
            .takes("UUU-", 5)
            .takesNameList(30)
            .usesDefaults("ItemCreate", 60, 60)
            .endsWith(exitOfItems)
            .goingOn(updateCountIsSet),
        onObject("ItemSave",
                 [](Inputs& in) {
                     return ItemSave(in.text(0), in.text(1), in.text(2), in.text(3), in.pair(), in.pair(),
                                     in.nameList());
                 })
            .takes("UUU-", 5)
            .takesNameList(30)
            .usesDefaults("ItemCreate", 60, 60)
            .endsWith(exitOfItems)
            .goingOn({{"QV_Subscribe_Object_Attr", "update_count"}}),
        onObject("ItemHeaderCreate", // with a change it is AffectedItemCreate as well
                 [](Inputs& in) {
                     return ItemHeaderCreate("", in.text(0), in.text(1), in.text(2), in.text(3), in.text(4),
                                             in.text(5));
                 })
            .takes("------", 6)
            .usesDefaults("ItemHeaderCreate", 60, 60)
            .endsWith(exitOfItems)
            .goingOn(updateCountIsSet),
        onObject("ItemOpen", [](Inputs& in) { return ItemOpen(in.text(0), in.text(1), in.nameList()); })
            .takes("UU", 2)
            .takesNameList(50)
            .endsWith("log @ ...Item was  not found\n"),
        onObject(
            "ItemPUEffectivityCreate",
            [](Inputs& in) {
                return ItemPUEffectivityCreate(in.text(0), in.text(1), in.text(2), in.text(3), in.pair(),
                                               in.pair(), in.nameList());
            },
            "ItemPUEffectivityCreate-")
            .takes("UUU-", 5)
            .takesNameList(30)
            .usesDefaults("ItemPUEffectivityCreate", 60, 60)
            .endsWith(exitOfItems),
        onObject(
            "ItemAssociationOpen",
            [](Inputs& in) { return ItemAssociationOpen(in.text(0), in.text(1), in.text(2), in.names()); })
            .takes("---", 3)
            .takesNames(50)
            .endsWith(""),
        onObject(
            "ItemAssociationSave",
            [](Inputs& in) { return ItemAssociationSave(in.text(0), in.text(1), in.text(2), in.names()); })
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
                   return ItemQuery(in.text(0), in.text(1), in.text(2), in.text(3), in.text(4), in.text(5),
                                    in.text(6), Text(type), in.names());
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
    return onList(name,
                  [=](Inputs& in) {
                      List first;
                      List second;
                      List third;
                      return function(in.text(0), first, second, third);
                  })
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
