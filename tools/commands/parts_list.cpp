// SPDX-License-Identifier: Apache-2.0
//
// Parts lists: from a file into the store, and back.
#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <set>

#include <velrzm/items.h>
#include <velrzm/logging.h>
#include <velrzm/multi_save.h>
#include <velrzm/qv_sdk.h>
#include <velrzm/result.h>

#include "csv/csv_file.h"
#include "tools/command_line/command_line.h"
#include "tools/output/progress.h"
#include "tools/process/attribute_names.h"
#include "tools/process/failures.h"
#include "tools/process/output_capture.h"
#include "tools/process/session.h"
#include "tools/process/standard_streams.h"
#include "tools/structure/parts_list.h"
#include "tools/structure/structure.h"

namespace tools {

namespace {

struct ImportOptions {
    std::string file;
    std::string change;
    std::vector<std::string> map;
    std::string delimiter = ",";
    PartsListRules rules;
    bool dryRun = false;
    bool keepGoing = false;
};

/** Whether an item is stored. */
bool isStored(const std::string& item)
{
    std::string filter = "=" + item;
    std::string inDevelopment = "DEV";
    std::string empty;
    TextArray name({"name"});
    ItemQuery(filter.data(), empty.data(), empty.data(), empty.data(), empty.data(), empty.data(),
              empty.data(), inDevelopment.data(), name.data());
    return entries > 0;
}

/** Stores the rows of a parts list inside a multi-save. */
class Import {
public:
    explicit Import(const std::string& change) : builder_(change) {}

    void store(PartsList& list)
    {
        Progress progress("rows");
        std::size_t done = 0;
        for (const PartsListRow& row : list.rows) {
            try {
                store(row);
            } catch (const Refused& error) {
                list.complaints.push_back({row.line, error.what()});
            }
            progress.show(++done, list.rows.size());
        }
    }

    const StructureBuilder& builder() const { return builder_; }
    std::size_t found() const { return found_; }

private:
    void store(const PartsListRow& row)
    {
        provide(row.item);
        if (row.parent.empty() || row.isRepeated) {
            return;
        }
        if (headers_.insert(row.parent).second) {
            provide({row.parent, row.parent, "", {}, {}}); // the top item, if no row describes it
            builder_.createHeader(row.parent);
        }
        builder_.addComponent(row.parent, row.item.number, row.quantity);
    }

    /** Sees to it that an item is stored. */
    void provide(const NewItem& item)
    {
        if (!items_.insert(item.number).second) {
            return;
        }
        if (!isStored(item.number)) {
            builder_.createItem(item);
        } else {
            ++found_;
        }
    }

    StructureBuilder builder_;
    std::set<std::string> items_;
    std::set<std::string> headers_;
    std::size_t found_ = 0; // items that were stored before
};

void readMap(ImportOptions& options)
{
    const std::vector<std::string>& known = partsListColumns();
    for (const std::string& pair : options.map) {
        const std::size_t equals = pair.find('=');
        const std::string ours = pair.substr(0, equals);
        if (equals == std::string::npos || std::find(known.begin(), known.end(), ours) == known.end()) {
            std::string text = "--map " + pair + ": this is not NAME=COLUMN with one of the names";
            for (const std::string& name : known) {
                text.append(" ").append(name);
            }
            throw WrongUsage(text);
        }
        options.rules.columns[ours] = pair.substr(equals + 1);
    }
    if (options.delimiter.size() != 1) {
        throw WrongUsage("--delimiter takes one character");
    }
}

std::vector<csv::Record> recordsOf(const ImportOptions& options)
{
    try {
        return csv::readFile(options.file, options.delimiter.front());
    } catch (const csv::Error& error) {
        throw Refused(error.what());
    }
}

void complainAbout(const std::string& file, const std::vector<RowComplaint>& complaints)
{
    for (const RowComplaint& complaint : complaints) {
        writeNote(file + ":" + std::to_string(complaint.line) + ": " + complaint.reason + "\n");
    }
}

void importPartsList(ImportOptions options, const Settings& settings)
{
    readMap(options);
    PartsList list = readPartsList(recordsOf(options), options.rules);
    if (!list.complaints.empty() && !options.keepGoing) {
        complainAbout(options.file, list.complaints);
        throw Refused(std::to_string(list.complaints.size()) + " rows of " + options.file +
                      " are wrong; nothing was stored");
    }
    connect(settings.user, settings.passwordFile);
    unsetenv(
        "QV_MULTI_SAVE"); // NOLINT(concurrency-mt-unsafe): one thread; all or nothing is what import promises
    Import import(options.change);
    {
        OutputCapture messages; // the reasons are told with the rows
        if (MultiSaveStart() != 1) {
            throw Refused("the server does not start a multi-save");
        }
        import.store(list);
        if (QVL_Traces_Level <= 0) {
            messages.take();
        }
    }
    complainAbout(options.file, list.complaints);
    const bool isStored = !options.dryRun && (list.complaints.empty() || options.keepGoing);
    if ((isStored ? MultiSaveCommit() : MultiSaveDiscard()) != 1) {
        throw Refused("the server did not end the multi-save; nothing was stored");
    }
    const std::string count = std::to_string(import.builder().items()) + " items and " +
                              std::to_string(import.builder().lines()) + " component lines; " +
                              std::to_string(import.found()) + " items were stored before";
    if (!list.complaints.empty()) {
        throw Refused(std::to_string(list.complaints.size()) + " rows of " + options.file +
                      " were refused; " +
                      (isStored ? "the rest was stored: " + count : "nothing was stored"));
    }
    writeResult((isStored ? "Stored " : "Would store ") + count + ".\n");
}

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

void addPartsListCommands(CommandLine& line)
{
    const auto options = std::make_shared<ImportOptions>();
    CLI::App& import =
        line.addCommand(line.app(), "import",
                        "Store the items and component lines of a parts list, all or nothing\n\n"
                        "A row of the file is an item. Its place in the structure is either a \"level\", "
                        "counted from the top, or the number of its \"parent\". Rows that are wrong are "
                        "told with their lines, and then nothing is stored, unless --keep-going is given.",
                        "velrzm import parts.csv --ec EC-100 --map item_number=Part,name=\"Part "
                        "Name\",quantity=Qty,level=Level",
                        [&line, options] { importPartsList(*options, line.settings()); });
    import.add_option("file", options->file, "CSV file whose first row names the columns")->required();
    import.add_option("--ec", options->change, "Number of the change that introduces the items")
        ->required()
        ->type_name("CHANGE");
    import
        .add_option("--map", options->map,
                    "Which column is what: level, parent, item_number, name, item_type or quantity; a "
                    "column that has such a name itself needs none")
        ->type_name("NAME=COLUMN,...")
        ->delimiter(',')
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    import.add_option("--top", options->rules.top, "Item that stands above all; made when it is not there")
        ->type_name("ITEM");
    import
        .add_option("--delimiter", options->delimiter, "What stands between the fields; a comma unless given")
        ->type_name("CHARACTER");
    import.add_flag("--attributes", options->rules.keepOtherColumns,
                    "Keep the other columns as item attributes");
    import.add_flag("--dry-run", options->dryRun, "Only say what would be stored and refused");
    import.add_flag("--keep-going", options->keepGoing, "Store what is good although rows are refused");

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
