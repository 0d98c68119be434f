// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"
#include "tests/standin/standin.h"
#include "tests/sweep/operations.h"

using harness::Names;
using harness::Text;

namespace sweep {

std::vector<Operation> affectedItems()
{
    return {
        {"AffectedItemCreate",
         [] {
             return AffectedItemCreate(Text("ec-1"), Text("br-1"), Text("add"),
                                       Names({"db_object_id", "item_status"}));
         },
         [] {
             harness::writeFile("QVL_RZM_DEFAULT", "AffectedItemCreate eff_date_str today\n"
                                                   "AffectedItemCreate site A\n");
         },
         "Object",
         {{"QV_Set_Object_Attr", "update_count"}},
         {{"QV_Destroy_Object", ""}}},
        {"AffectedItemQuery",
         [] {
             return AffectedItemQuery(Text("4711"), Names({"item_number", "item_status"}));
         },
         [] {
             standin::setRecords({{}, {}});
         },
         "List",
         {},
         {{"QV_Destroy_List", ""}}},
    };
}

} // namespace sweep
