// SPDX-License-Identifier: Apache-2.0
//
// Component lines of bills of material, and the references of components and items.
#include <velrzm/product_structure.h>

#include "tools/commands/operation_command.h"

namespace tools {

namespace {

using Need = Parameter::Need;

constexpr Parameter parent = {"parent", "Number of the parent item", Need::Required,
                              Parameter::Takes::ObjectNumber};
constexpr Parameter component = {"component", "Number of the component item", Need::Required,
                                 Parameter::Takes::ObjectNumber};
constexpr Parameter sequence = {"sequence", "Number of the line on the parent", Need::Required,
                                Parameter::Takes::WholeNumber};
constexpr Parameter storedIdentifier = {"identifier", "Database identifier", Need::Required};

const ShownAttributes lineAttributes = {"Component",
                                        {"logical_key@item_number", "logical_key@comp_item_number",
                                         "logical_key@comp_seq_nm", "il_ec_number", "db_object_id"}};

} // namespace

CommandGroup componentCommands()
{
    using parameters::change;
    return {"component",
            "Create, show and delete component lines of bills of material\n\n"
            "A component line says that a component item occurs once in a parent item. Where it occurs "
            "several times, it has as many lines, which differ in their sequence number. A line that would "
            "make an item contain itself is refused.",
            {{"create",
              "Store a component line",
              "velrzm component create A-100 B-200 10 --ec EC-100",
              {parent, component, sequence, change, {"--type CODE", "Type of the component"}},
              lineAttributes,
              [](Call& call) {
                  return call.object(ComponentCreate(call.text("--ec"), call.text("parent"),
                                                     call.text("component"), call.text("sequence"),
                                                     call.text("--type"), call.selectedArray()));
              }},
             {"delete",
              "Delete a component line",
              "velrzm component delete A-100 B-200 10 --ec EC-100",
              {parent, component, sequence, change, {"--id ID", "Database identifier of the line"}},
              {},
              [](Call& call) {
                  return call.nothing(ComponentDelete(call.text("--id"), call.text("--ec"),
                                                      call.text("parent"), call.text("component"),
                                                      call.text("sequence")));
              }},
             {"open",
              "Show a component line",
              "velrzm component open 42 --ec EC-100",
              {storedIdentifier, change},
              lineAttributes,
              [](Call& call) {
                  return call.object(
                      ComponentOpen(call.text("identifier"), call.text("--ec"), call.selectedList()));
              }}}};
}

CommandGroup componentReferenceCommands()
{
    using parameters::change;
    return {"component-ref",
            "Store and delete cross-references of component lines\n\n"
            "A cross-reference is the identifier that another system, such as a CAD application, has for a "
            "component line. A line has at most one.",
            {{"save",
              "Store the cross-reference of a component line",
              "velrzm component-ref save A-100 B-200 10 4711 --ec EC-100",
              {parent, component, sequence, {"reference", "The cross-reference", Need::Required}, change},
              {"ComponentReference",
               {"logical_key@item_number", "logical_key@comp_item_number", "logical_key@comp_seq_nm",
                "comp_ref_xref", "db_object_id"}},
              [](Call& call) {
                  const int result = ComponentReferenceSave(call.text("--ec"), call.text("parent"),
                                                            call.text("component"), call.text("sequence"),
                                                            call.text("reference"), call.selectedArray());
                  return call.object(result);
              }},
             {"delete",
              "Delete the cross-reference of a component line",
              "velrzm component-ref delete 43 --ec EC-100",
              {storedIdentifier, change},
              {},
              [](Call& call) {
                  return call.nothing(ComponentReferenceDelete(call.text("identifier"), call.text("--ec")));
              }}}};
}

CommandGroup itemReferenceCommands()
{
    using namespace parameters;
    return {
        "item-ref",
        "Link documents to items, and remove the links\n\n"
        "The \"db_object_id\" that is shown when a link is made is the identifier by which it is deleted.",
        {{"create",
          "Link a document to an item",
          "velrzm item-ref create A-100 DOC-7 1 4711 --ec EC-100",
          {item,
           parameters::document,
           {"revision", "Revision of the document", Need::Required},
           {"reference", "Identifier of the document in the calling system", Need::Required},
           change},
          {"ItemReference",
           {"logical_key@item_number", "logical_key@reference_id", "reference_level", "item_ref_xref",
            "db_object_id"}},
          [](Call& call) {
              return call.object(ItemReferenceCreate(call.text("--ec"), call.text("item"),
                                                     call.text("document"), call.text("revision"),
                                                     call.text("reference"), call.selectedArray()));
          }},
         {"delete",
          "Remove the link between a document and an item",
          "velrzm item-ref delete 44 --ec EC-100",
          {storedIdentifier, change},
          {},
          [](Call& call) {
              return call.nothing(ItemReferenceDelete(call.text("identifier"), call.text("--ec")));
          }}}};
}

} // namespace tools
