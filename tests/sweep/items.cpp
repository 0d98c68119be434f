// SPDX-License-Identifier: Apache-2.0
#include <velrzm/velrzm.h>

#include <cstdlib>

#include "tests/harness/files.h"
#include "tests/harness/texts.h"
#include "tests/standin/standin.h"
#include "tests/sweep/operations.h"

using harness::Names;
using harness::Text;
using harness::textList;

namespace sweep {

namespace {

/** One of the operations that take further attributes and the names to read back as lists. */
template <class Function>
int useLists(const Function& function)
{
    auto names = textList({"weight", "colour"});
    auto values = textList({"5", "red"});
    auto selected = textList({"db_object_id", "description"});
    return function(names, values, selected);
}

void prepareDefaults(const std::string& operation)
{
    harness::writeFile("QVL_RZM_DEFAULT", operation + " unit EA\n" + operation + " site A\n");
}

int query(const char* type)
{
    return ItemQuery(Text("br"), Text("ec-1"), Text("P"), Text("REL"), Text("bracket"), Text("Steel"),
                     Text("2"), Text(type), Names({"description", "weight"}));
}

void prepareRecords()
{
    standin::setRecords({{}, {}, {}});
}

std::vector<Operation> masterRecords()
{
    return {
        {"ItemCreate",
         [] {
             return useLists([](auto& names, auto& values, auto& selected) {
                 return ItemCreate(Text("ec-1"), Text("br-1"), Text("bracket"), Text("P"), names, values,
                                   selected);
             });
         },
         [] {
             prepareDefaults("ItemCreate");
             setenv("QVL_BOM_HEADER_CREATE", "YES", 1); // the fixture takes it back
         },
         "Object",
         {{"QV_Set_Object_Attr", "update_count"}},
         {{"QV_Destroy_Object", ""}}},
        {"ItemSave",
         [] {
             return useLists([](auto& names, auto& values, auto& selected) {
                 return ItemSave(Text("ec-1"), Text("br-1"), Text("bracket"), Text("P"), names, values,
                                 selected);
             });
         },
         [] { prepareDefaults("ItemCreate"); },
         "Object",
         {{"QV_Subscribe_Object_Attr", "update_count"}},
         {{"QV_Destroy_Object", ""}}},
        {"ItemHeaderCreate",
         [] { return ItemHeaderCreate("", "br-1", "bracket", "Steel", "P", "3", "C"); },
         [] { prepareDefaults("ItemHeaderCreate"); },
         "Object",
         {{"QV_Set_Object_Attr", "update_count"}},
         {{"QV_Destroy_Object", ""}}},
        {"ItemOpen",
         [] {
             return useLists([](auto& /*names*/, auto& /*values*/, auto& selected) {
                 return ItemOpen(Text("br-1"), Text("ec-1"), selected);
             });
         },
         [] {},
         "Object",
         {},
         {{"QV_Destroy_Object", ""}}},
    };
}

std::vector<Operation> queries()
{
    const std::vector<CallPattern> goesOn{{"QV_Destroy_List", "", "DestroyListOrReport"},
                                          {"QV_Open_List", ""}};
    return {
        {"ItemQuery", [] { return query("STD"); }, prepareRecords, "List", goesOn, {}},
        {"ItemQueryInDevelopment",
         [] { return query("DEV"); },
         prepareRecords,
         "List",
         goesOn,
         {},
         "ItemQuery"},
    };
}

std::vector<Operation> effectivitiesAndAssociations()
{
    return {
        {"ItemPUEffectivityCreate",
         [] {
             return useLists([](auto& names, auto& values, auto& selected) {
                 return ItemPUEffectivityCreate(Text("ec-1"), Text("br-1"), Text("p-1"), Text("5"), names,
                                                values, selected);
             });
         },
         [] { prepareDefaults("ItemPUEffectivityCreate"); },
         "Object",
         {},
         {{"QV_Destroy_Object", ""}},
         "ItemPUEffectivityCreate-"},
        {"ItemAssociationOpen",
         [] {
             return ItemAssociationOpen(Text("4711"), Text("BR-1"), Text("EC-1"),
                                        Names({"alias_xref", "alias"}));
         },
         [] {},
         "Object",
         {},
         {{"QV_Destroy_Object", ""}}},
        {"ItemAssociationSave",
         [] {
             return ItemAssociationSave(Text("EC-1"), Text("BR-1"), Text("oid"),
                                        Names({"db_object_id", "alias"}));
         },
         [] {},
         "Object",
         {{"QV_Set_Object_Attr", "update_count"}},
         {{"QV_Destroy_Object", ""}}},
    };
}

} // namespace

std::vector<Operation> items()
{
    std::vector<Operation> all;
    for (const auto& some : {masterRecords(), queries(), effectivitiesAndAssociations()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

} // namespace sweep
