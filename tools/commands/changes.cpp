// SPDX-License-Identifier: Apache-2.0
//
// Engineering changes and the items that they affect.
#include <velrzm/engineering_changes.h>
#include <velrzm/result.h>

#include "tools/commands/operation_command.h"

namespace tools {

namespace {

using Need = Parameter::Need;

constexpr Parameter changeNumber = {"change", "Number of the engineering change", Need::Required,
                                    Parameter::Takes::ObjectNumber};
constexpr Parameter changeOrId = {"change", "Number of the engineering change", Need::Optional,
                                  Parameter::Takes::ObjectNumber};

Outcome listAffectedItems(Call& call)
{
    std::string identifier = call.text("--id");
    if (identifier.empty()) { // the operation wants the change's identifier; people know its number
        std::string none;
        TextArray identifierOnly({"db_object_id"});
        call.nothing(EngineeringChangeOpen(none.data(), call.text("change"), identifierOnly.data()));
        identifier = currentValue(0, "db_object_id");
    }
    return call.list(AffectedItemQuery(identifier.data(), call.selectedArray()));
}

} // namespace

CommandGroup changeCommands()
{
    using namespace parameters;
    return {"ec",
            "Create and show engineering changes\n\n"
            "An engineering change is what items, documents and component lines are stored under.",
            {{"create",
              "Store a new engineering change",
              "velrzm ec create EC-100 --name \"Stronger bracket\"",
              {changeNumber,
               {"--name", "What the change is about"},
               securityLevel,
               securityCategory,
               {"--initiator NAME", "Who asks for the change; by default the user"}},
              {},
              [](Call& call) {
                  const int result = EngineeringChangeCreate(
                      call.text("change"), call.text("--name"), call.text("--security-level"),
                      call.text("--security-category"), call.text("--initiator"));
                  call.nothing(result);
                  return Outcome{currentRecords({"db_object_id"})};
              }},
             {"open",
              "Show a stored engineering change",
              "velrzm ec open EC-100 --select desc,status",
              {changeOrId, {"--id ID", "Database identifier, instead of the number"}},
              {"EngineeringChange",
               {"id", "desc", "status", "chg_control_code", "initiator@person_identifier", "update_count",
                "db_object_id"}},
              [](Call& call) {
                  return call.object(
                      EngineeringChangeOpen(call.text("--id"), call.text("change"), call.selectedArray()));
              }}}};
}

CommandGroup affectedItemCommands()
{
    return {"affected",
            "Record and list the items that an engineering change affects\n\n"
            "An affected item says what a change does to an item: the change action, such as CHG or REL.",
            {{"create",
              "Record that an engineering change acts on an item",
              "velrzm affected create EC-100 A-100 --action REL",
              {changeNumber, parameters::item, {"--action CODE", "Change action; CHG when it is not given"}},
              {"AffectedItem",
               {"ec@id", "item_number", "change_action@curr_key", "item_status", "pln_rev_level",
                "db_object_id"}},
              [](Call& call) {
                  return call.object(AffectedItemCreate(call.text("change"), call.text("item"),
                                                        call.text("--action"), call.selectedArray()));
              }},
             {"list",
              "List the items that an engineering change affects",
              "velrzm affected list EC-100",
              {changeOrId, {"--id ID", "Database identifier of the change, instead of its number"}},
              {"AffectedItem",
               {"item_number", "change_action@curr_key", "item_status", "pln_rev_level", "db_object_id"}},
              listAffectedItems}}};
}

} // namespace tools
