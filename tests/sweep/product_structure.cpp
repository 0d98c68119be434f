// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"
#include "tests/standin/standin.h"
#include "tests/sweep/operations.h"

using harness::Names;
using harness::Text;

namespace sweep {

namespace {

const std::vector<CallPattern> updateCount{{"QV_Set_Object_Attr", "update_count"}};
const std::vector<CallPattern> destroys{{"QV_Destroy_Object", ""}};

std::vector<Operation> billsOfMaterial()
{
    return {{"BomHeaderCreate",
             [] { return BomHeaderCreate(Text("EC-1"), Text("BR-1"), Names({"db_object_id"})); },
             [] {},
             "Object",
             {},
             destroys,
             "",
             {{"QV_Open_Object", ""}}},
            {"BomExplode",
             [] {
                 return BomExplode(Names({"item_number", "max_level"}), Names({"BR-1", "2"}),
                                   Names({"level", "comp_item_number"}));
             },
             [] {
                 standin::setRecords({{}, {}, {}});
             },
             "List",
             {{"QV_Destroy_List", "", "DestroyListOrReport"}},
             {},
             "",
             {{"QV_Destroy_Report", ""}}}};
}

std::vector<Operation> components()
{
    return {
        {"ComponentCreate",
         [] {
             return ComponentCreate(Text("EC-1"), Text("BR-1"), Text("PL-2"), Text("10"), Text("P"),
                                    Names({"db_object_id", "il_ec_number"}));
         },
         [] {}, "Object", updateCount, destroys},
        {"ComponentDelete",
         [] { return ComponentDelete(Text("4711"), Text("EC-1"), Text("BR-1"), Text("PL-2"), Text("10")); },
         [] {},
         "Object",
         {},
         destroys,
         "ComponentDelete- "},
        {"ComponentOpen",
         [] {
             auto names = harness::textList({"db_object_id", "update_count"});
             return ComponentOpen(Text("4711"), Text("EC-1"), names);
         },
         [] {},
         "Object",
         {},
         destroys}};
}

std::vector<Operation> references()
{
    return {{"ComponentReferenceSave",
             [] {
                 return ComponentReferenceSave(Text("EC-1"), Text("BR-1"), Text("PL-2"), Text("10"),
                                               Text("xref"), Names({"db_object_id", "comp_ref_xref"}));
             },
             [] {}, "Object", updateCount, destroys},
            {"ComponentReferenceDelete",
             [] { return ComponentReferenceDelete(Text("4711"), Text("EC-1")); },
             [] {},
             "Object",
             {},
             destroys,
             "ComponentReferenceDelete- "},
            {"ItemReferenceCreate",
             [] {
                 return ItemReferenceCreate(Text("EC-1"), Text("BR-1"), Text("D-1"), Text("1"), Text("oid"),
                                            Names({"db_object_id", "item_ref_xref"}));
             },
             [] {
                 harness::writeFile("QVL_RZM_DEFAULT",
                                    "ItemReferenceCreate site A\nItemReferenceCreate kind DRW\n");
             },
             "Object", updateCount, destroys},
            {"ItemReferenceDelete",
             [] { return ItemReferenceDelete(Text("4711"), Text("EC-1")); },
             [] {},
             "Object",
             {},
             destroys,
             "ItemReferenceDelete- "}};
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
