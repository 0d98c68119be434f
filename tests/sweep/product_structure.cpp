// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include <array>

#include "tests/sweep/operations.h"

namespace sweep {

namespace {

constexpr const char* exitOfDeletion = "2 @----Exit------------rc=0--------------------.\n";

std::vector<Operation> billsOfMaterial()
{
    return {
        // There is a header: the names are not asked for, and the defaults not set.
        onObject("BomHeaderCreate", use(BomHeaderCreate))
            .takes("AA", 2)
            .usesDefaults("BomHeaderCreate", 19, 0)
            .elsewhere({{"QV_Open_Object"}}),
        onList("BomExplode",
               [](Inputs& in) {
                   static harness::Names parameters({"item_number", "max_level"});
                   std::array<char*, 3> values{in.text(), in.text(), nullptr};
                   return BomExplode(parameters, values.data(), in.names());
               })
            .takes("--", 2)
            .takesNames(50)
            .endsWith("2 @-----Exit-----------entries/rc=0-------.\n")
            .notChecking({})
            .goingOn({{"QV_Destroy_List", "", "DestroyListOrReport"}})
            .elsewhere({{"QV_Destroy_Report"}}),
    };
}

std::vector<Operation> components()
{
    return {
        onObject("ComponentCreate", use(ComponentCreate))
            .takes("-----", 5)
            .takesNames(30)
            .goingOn(updateCountIsSet),
        onObject("ComponentDelete", use(ComponentDelete), "ComponentDelete- ")
            .takes("-----", 5)
            .endsWith(exitOfDeletion),
        onObject("ComponentOpen", use(ComponentOpen))
            .takes("-U", 2)
            .takesNameList(50)
            .endsWith("log @ ...Component was  not found\n"),
    };
}

std::vector<Operation> references()
{
    return {
        onObject("ComponentReferenceSave", use(ComponentReferenceSave))
            .takes("-----", 5)
            .takesNames(30)
            .endsWith("2 @-----Exit------entries/rc=0------.\n")
            .goingOn(updateCountIsSet),
        onObject("ComponentReferenceDelete", use(ComponentReferenceDelete), "ComponentReferenceDelete- ")
            .takes("--", 2)
            .endsWith(exitOfDeletion),
        onObject("ItemReferenceCreate", use(ItemReferenceCreate))
            .takes("AAA--", 5)
            .takesNames(30)
            .usesDefaults("ItemReferenceCreate", 19, 19)
            .goingOn(updateCountIsSet),
        onObject("ItemReferenceDelete", use(ItemReferenceDelete), "ItemReferenceDelete- ")
            .takes("--", 2)
            .endsWith(exitOfDeletion),
    };
}

} // namespace

std::vector<Operation> productStructure()
{
    std::vector<Operation> all;
    for (const auto& some : {billsOfMaterial(), components(), references()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

} // namespace sweep
