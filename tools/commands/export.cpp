// SPDX-License-Identifier: Apache-2.0
//
// A bill of material as a parts list that import reads.
#include <memory>
#include <set>

#include <CLI/App.hpp>

#include "tools/command_line/command_line.h"
#include "tools/command_line/command_tree.h"
#include "tools/commands/attribute_check.h"
#include "tools/output/format.h"
#include "tools/output/records.h"
#include "tools/parts_list/columns.h"
#include "tools/process/failures.h"
#include "tools/process/session.h"
#include "tools/structure/product_structure.h"
#include "tools/structure/structure_tree.h"

namespace tools {

namespace {

struct ExportOptions {
    std::string item;
    std::string change;
    std::vector<std::string> attributes;
};

/** Refuses columns that import would not read as the attributes that they are written from. */
void checkAttributes(const std::vector<std::string>& attributes)
{
    std::set<std::string> columns(partsListColumns().begin(), partsListColumns().end());
    for (const std::string& attribute : attributes) {
        if (!columns.insert(attribute).second) {
            throw WrongUsage("--attributes " + attribute + ": there is such a column already");
        }
        if (attributeOfColumn(attribute) != attribute) {
            throw WrongUsage("--attributes " + attribute +
                             ": import would read this column as the attribute " +
                             attributeOfColumn(attribute));
        }
    }
}

void exportPartsList(const ExportOptions& options, const Settings& settings)
{
    checkAttributes(options.attributes);
    connect(settings.user, settings.passwordFile);
    std::vector<std::string> names = {"name", "item_type"};
    names.insert(names.end(), options.attributes.begin(), options.attributes.end());
    const ProductStructure structure =
        readStructure({options.item, options.change, 0}, Direction::Down, names);
    if (structure.items.front().parts.empty()) {
        throw NothingFound(options.item + " has no bill of material to export");
    }
    Records records{{"level", "item_number", "quantity"}, {}};
    records.columns.insert(records.columns.end(), names.begin(), names.end());
    for (const TreeRow& row : treeRows(structure, Repeated::Referred)) {
        const StructureItem& item = structure.items[row.item];
        std::vector<std::string>& fields = records.rows.emplace_back(
            std::vector{std::to_string(row.level), item.number, std::to_string(row.quantity)});
        fields.insert(fields.end(), item.values.begin(), item.values.end());
    }
    writeRecords(records, Shape::List, Format::Csv);
    warnOfUnknownAttributes("ItemEngineeringData", options.attributes, records);
}

} // namespace

void addExport(CommandLine& line)
{
    const auto options = std::make_shared<ExportOptions>();
    CLI::App& command = line.addCommand(
        line.app(), "export",
        "Write a bill of material and its items as a CSV file that import reads\n\n"
        "What stands below an item that occurs several times is written once, where the item occurs first.",
        "velrzm export A-100 --attributes mass_g,colour > parts.csv",
        [&line, options] { exportPartsList(*options, line.settings()); });
    haveOneForm(command, "csv");
    takeObjectNumber(*command.add_option("item", options->item, "Item number")->required());
    takeObjectNumber(
        *command.add_option("--ec", options->change, "Lines of this change only")->type_name("CHANGE"));
    takeList(*command
                  .add_option("--attributes", options->attributes,
                              "Item attributes to write as further columns, which import --attributes reads")
                  ->type_name("NAME,..."));
}

} // namespace tools
