// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"
#include "tests/sweep/operations.h"

namespace sweep {

std::vector<Operation> engineeringChanges()
{
    return {
        {"EngineeringChangeCreate",
         [] { return EngineeringChangeCreate("ec-1", "Stronger bracket", "3", "C", "jdoe"); },
         [] {
             harness::writeFile("QVL_RZM_DEFAULT",
                                "EngineeringChangeCreate priority high\nEngineeringChangeCreate site A\n");
         },
         "Object",
         {{"QV_Set_Object_Attr", "update_count"},
          {"QV_Set_Object_Attr", "initiator@person_identifier"},
          {"QV_Set_Object_Attr", "x_sec_level_code"},
          {"QV_Set_Object_Attr", "x_sec_cat_code"}},
         {{"QV_Destroy_Object", ""}}},
        {"EngineeringChangeOpen",
         [] {
             harness::Names names({"id", "desc", "status"});
             return EngineeringChangeOpen(harness::Text("4711"), harness::Text("EC-1"), names);
         },
         [] {},
         "Object",
         {},
         {{"QV_Destroy_Object", ""}}},
    };
}

} // namespace sweep
