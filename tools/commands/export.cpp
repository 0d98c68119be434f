// SPDX-License-Identifier: Apache-2.0
//
// A bill of material as a parts list that import reads.
#include <map>
#include <memory>
#include <set>

#include "tools/command_line/command_line.h"
#include "tools/output/format.h"
#include "tools/output/records.h"
#include "tools/parts_list/columns.h"
#include "tools/process/failures.h"
#include "tools/process/session.h"
#include "tools/structure/structure.h"

namespace tools {

namespace {

struct ExportOptions {
    StructureRequest request;
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

/** The values of each component for the attributes `names`; the lines are the current result. */
std::map<std::string, std::vector<std::string>> itemValues(const std::vector<StructureLine>& lines,
                                                           const std::vector<std::string>& names)
{
    std::map<std::string, std::vector<std::string>> items;
    const Records components = currentRecords(itemAttributesOfLines(ofComponent, names));
    for (std::size_t line = 0; line < lines.size(); ++line) {
        items.emplace(lines[line].component, components.rows[line]);
    }
    return items;
}

void exportPartsList(const ExportOptions& options, const Settings& settings)
{
    checkAttributes(options.attributes);
    connect(settings.user, settings.passwordFile);
    const StructureRequest& request = options.request;
    std::vector<std::string> names = {"name", "item_type"};
    names.insert(names.end(), options.attributes.begin(), options.attributes.end());
    std::vector<std::string> selected = itemAttributesOfLines(ofComponent, names);
    selected.insert(selected.end(), structureAttributes.begin(), structureAttributes.end());
    if (explode(request, selected) <= 0) {
        throw Refused(request.item + " has no bill of material to export");
    }
    const std::vector<StructureLine> lines = currentStructureLines();
    std::map<std::string, std::vector<std::string>> items = itemValues(lines, names);
    items[request.item] = topItemValues(request, names);
    Records records{{"level", "item_number", "quantity"}, {}};
    records.columns.insert(records.columns.end(), names.begin(), names.end());
    for (const StructureNode& node : structureTree(request.item, lines)) {
        std::vector<std::string>& row = records.rows.emplace_back(
            std::vector{std::to_string(node.level), node.item, std::to_string(node.quantity)});
        row.insert(row.end(), items[node.item].begin(), items[node.item].end());
    }
    writeRecords(records, Shape::List, Format::Csv);
}

} // namespace

void addExport(CommandLine& line)
{
    const auto exportOptions = std::make_shared<ExportOptions>();
    CLI::App& exported = line.addCommand(
        line.app(), "export", "Write a bill of material and its items as a CSV file that import reads",
        "velrzm export A-100 --attributes mass_g,colour > parts.csv",
        [&line, exportOptions] { exportPartsList(*exportOptions, line.settings()); });
    exported.add_option("item", exportOptions->request.item, "Item as it is stored")->required();
    exported.add_option("--ec", exportOptions->request.change, "Lines of this change only")
        ->type_name("CHANGE");
    exported
        .add_option("--attributes", exportOptions->attributes,
                    "Item attributes to write as further columns, which import --attributes reads")
        ->type_name("NAME,...")
        ->delimiter(',')
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

} // namespace tools
