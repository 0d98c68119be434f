// SPDX-License-Identifier: Apache-2.0
#include <velrzm/items.h>

#include <cstring>

#include "frame/list_request.h"
#include "frame/object_request.h"
#include "frame/upper_case.h"

using namespace velrzm;

int ItemOpen(char* itemNumber, char* ecNumber, VELListValVELUnicodeString& selectedNames)
{
    return objectOperation("ItemOpen", [&](Operation& op, CurrentObject& object) {
        toUpperCase(itemNumber, Letters::OfLocale);
        toUpperCase(ecNumber, Letters::OfLocale);
        op.start();
        op.trace("-    ItemNumber=", itemNumber, "-");
        op.trace("-    EcNumber=", ecNumber, "-");
        op.traceNames("- Selected Attributes are ...", "-   ", selectedNames);
        op.log("ItemNumber=", itemNumber, ", EcNumber=", ecNumber);
        object.reset();
        op.capture(selectedNames, 50);
        object.renew("ItemEngineeringData");
        object.set({
            {"db_object_id", "", "-  db_object_id="},
            {"logical_key@item_number", itemNumber, "-   logical_key@item_number=", OnFailure::Stop,
             Detail::None},
            {"logical_key@loc_id", "", "-   logical_key@loc_id="},
            {"il_ec_number", ecNumber, "-   il_ec_number=", OnFailure::Stop, Detail::None},
        });
        op.step(" Set  fields to be selected for Open");
        object.subscribe(selectedNames);
        object.open();
        op.log("...Item was ", object.count() ? "found" : "not found");
    });
}

namespace {

constexpr std::size_t valuePart = 52; // buffer size for a filter value and the end of its clause

/** Upper-cases a filter as part of adding its condition, which is skipped once the operation has stopped. */
void upperCaseFilter(const Operation& op, char* filter)
{
    if (!op.stopped()) {
        toUpperCase(filter, Letters::OfLocale);
    }
}

/** Conditions of the standard query: records as a change affects them. */
void filterByChange(const Operation& op, CurrentList& list, char* ecNumber, const char* itemStatusCode)
{
    list.where("&=(logical_key@loc_id,' ')");
    list.where("&<=(insert_by,ai_obj@design_seq_num)");
    list.where("&OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num))");
    if (given(ecNumber)) {
        upperCaseFilter(op, ecNumber);
        const bool pattern = std::strchr(ecNumber, '%') != nullptr;
        list.where({pattern ? "&LIKE(ai_obj@ec@id, '" : "&=(ai_obj@ec@id, '", ecNumber, "')", "ecNumber",
                    valuePart});
    }
    if (given(itemStatusCode)) {
        list.where({"&LIKE(ai_obj@item_status, '", itemStatusCode, "%')", "itemStatusCode", valuePart});
    }
}

/** Conditions of both kinds of query. */
void filterByItem(const Operation& op, CurrentList& list, char* itemNumber, const char* itemTypeCode,
                  char* itemName, const char* itemDescription)
{
    if (given(itemNumber)) {
        upperCaseFilter(op, itemNumber);
        if (*itemNumber == '=') {
            list.where({"&=(logical_key@item_number, '", itemNumber + 1, "')", "itemNumber", valuePart});
        } else {
            list.where({"&LIKE(logical_key@item_number, '", itemNumber, "%')", "itemNumber", valuePart});
        }
    }
    if (given(itemTypeCode)) {
        list.where({"&LIKE(item_type, '", itemTypeCode, " %')", "itemTypeCode", valuePart});
    }
    if (given(itemName)) {
        upperCaseFilter(op, itemName);
        list.where({"&LIKE(name, '", itemName, "%')", "itemName", valuePart});
    }
    if (given(itemDescription)) {
        list.where({"&LIKE(description, '", itemDescription, "%')", "itemDescription", valuePart});
    }
}

} // namespace

int ItemQuery(char* itemNumber, char* ecNumber, char* itemTypeCode, char* itemStatusCode, char* itemName,
              char* itemDescription, char* sortBy, char* queryType, char** attributeNames)
{
    const bool development = std::string_view("DEV") == orEmpty(queryType);
    const bool byChange = std::string_view("2") == orEmpty(sortBy);

    return listOperation("ItemQuery", [&](Operation& op, CurrentList& list) {
        op.trace("-----Start------abc------------------------");
        op.trace("- Printing input argument ...");
        trace(OperationLevel, "   Item Number=", itemNumber, "-");
        trace(OperationLevel, "   EC Number=", ecNumber, "-");
        trace(OperationLevel, "   Item Type Code=", itemTypeCode, "-");
        trace(OperationLevel, "   Item Status Code=", itemStatusCode, "-");
        trace(OperationLevel, "   Item Name=", itemName, "-");
        trace(OperationLevel, "   Item Description=", itemDescription, "-");
        trace(OperationLevel, "   Sort By=", sortBy, "-");
        trace(OperationLevel, "   Query Type=", queryType, "-");
        op.trace("- Printing attributes to select...");
        for (const char* const name : AttributeNames(attributeNames)) {
            trace(OperationLevel, "   -", name, "-");
        }
        list.reset();
        op.capture(attributeNames, 50);
        DestroyListOrReport();
        list.create("ItemEngineeringData");
        list.select(attributeNames);
        list.select("net_pu_flg");
        list.select("logical_key@loc_id");
        if (development) {
            list.where("&LIKE(master_item@control,'1%')");
        } else {
            if (!op.stopped()) {
                trace(OperationLevel, "adding ai_obj@xxx attributes in Select List");
            }
            for (const char* const attribute :
                 {"ai_obj@item_status", "ai_obj@ec@status", "ai_obj@ec@id", "ai_obj@ec@db_object_id",
                  "ai_obj@pln_rev_level", "ai_obj@ec@chg_control_code"}) {
                list.select(attribute);
            }
            filterByChange(op, list, ecNumber, itemStatusCode);
        }
        filterByItem(op, list, itemNumber, itemTypeCode, itemName, itemDescription);
        list.orderBy({byChange ? "ai_obj@ec@id" : "logical_key@item_number"});
        list.open(OnFailure::GoOn);
        if (QV_RC != -1) {
            list.count();
        }
        list.exit();
    });
}
