// SPDX-License-Identifier: Apache-2.0
//
// A parts list into the store.
#include <algorithm>
#include <fstream>
#include <memory>

#include <CLI/App.hpp>

#include "csv/csv_file.h"
#include "tools/command_line/command_line.h"
#include "tools/command_line/command_tree.h"
#include "tools/output/outcome.h"
#include "tools/output/text.h"
#include "tools/parts_list/columns.h"
#include "tools/parts_list/import.h"
#include "tools/parts_list/parts_list.h"
#include "tools/parts_list/source_text.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"
#include "tools/process/multi_save.h"
#include "tools/process/session.h"
#include "tools/process/standard_streams.h"

namespace tools {

namespace {

struct ImportOptions {
    std::string file;
    std::vector<std::string> map;
    std::string encoding = "utf-8";
    std::string delimiter = "auto";
    std::string notCountable = "refuse";
    std::string rejects;
    PartsListRules rules;
    ImportRequest request;
    bool update = false;
    bool add = false;
    bool noAffectedItems = false;
    bool dryRun = false;
    bool keepGoing = false;

    std::string shownFile() const { return file == "-" ? "standard input" : file; }
};

void readMap(ImportOptions& options)
{
    const std::vector<std::string>& known = partsListColumns();
    for (const std::string& pair : options.map) {
        const std::size_t equals = pair.find('=');
        const std::string ours = pair.substr(0, equals);
        if (equals == std::string::npos || std::find(known.begin(), known.end(), ours) == known.end()) {
            throw WrongUsage("--map " + pair + ": this is not NAME=COLUMN with one of the names " +
                             joined(known, ", "));
        }
        options.rules.columns[ours] = pair.substr(equals + 1);
    }
}

void readWords(ImportOptions& options)
{
    readMap(options);
    options.request.recordAffectedItems = !options.noAffectedItems;
    options.request.existing = options.update ? Existing::Update
                               : options.add  ? Existing::Add
                                              : Existing::Refuse;
    options.rules.notCountable = options.notCountable == "once"   ? NotCountable::Once
                                 : options.notCountable == "skip" ? NotCountable::Skip
                                                                  : NotCountable::Refuse;
}

/** A parts list, and the file that it was read from. */
struct Source {
    std::string text;
    char delimiter;
    PartsList list;
};

/** A row in a line of a message. */
std::string shortened(std::string row)
{
    constexpr std::size_t enough = 120;
    std::replace_if(
        row.begin(), row.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    return row.size() <= enough ? row : row.substr(0, enough) + " ...";
}

void writeRejects(const std::string& path, const Source& source,
                  const std::map<std::size_t, std::string>& rows)
{
    std::ofstream file(path, std::ios::binary);
    file << source.list.header << source.delimiter << csv::field("reason") << '\n';
    for (const RowComplaint& complaint : source.list.complaints) {
        file << rows.at(complaint.line) << source.delimiter << csv::field(complaint.reason) << '\n';
    }
    file.close();
    if (!file) {
        throw Refused("cannot write the refused rows to " + path);
    }
}

/** Tells of each refused row, in the order of the file. */
void complain(const ImportOptions& options, Source& source)
{
    std::vector<RowComplaint>& complaints = source.list.complaints;
    std::stable_sort(
        complaints.begin(), complaints.end(),
        [](const RowComplaint& left, const RowComplaint& right) { return left.line < right.line; });
    const auto rows = rowsOfComplaints(source.text, source.delimiter, complaints);
    for (const RowComplaint& complaint : complaints) {
        const std::string& row = rows.at(complaint.line);
        writeNote(options.shownFile() + ":" + std::to_string(complaint.line) + ": " + complaint.reason +
                  (row.empty() ? "" : "; the row: " + shortened(row)) + "\n");
    }
    if (!options.rejects.empty()) {
        writeRejects(options.rejects, source, rows);
    }
}

std::string described(const ImportCounts& counts)
{
    std::string text = counted(counts.items, "item") + " and " + counted(counts.lines, "component line") +
                       "; " + counted(counts.itemsBefore, "item") +
                       (counts.itemsBefore == 1 ? " was" : " were") + " stored before";
    const auto further = [&text](std::size_t number, const std::string& what) {
        text += number == 0 ? "" : ", " + what;
    };
    further(counts.changedItems, counted(counts.changedItems, "item") + " changed");
    further(counts.keptLines, counted(counts.keptLines, "component line") + " kept");
    further(counts.removedLines, counted(counts.removedLines, "component line") + " removed");
    return text;
}

Records asRecords(const ImportCounts& counts, bool isStored)
{
    const std::vector<std::pair<std::string, std::string>> values = {
        {"stored", isStored ? "yes" : "no"},
        {"items", std::to_string(counts.items)},
        {"items_before", std::to_string(counts.itemsBefore)},
        {"items_changed", std::to_string(counts.changedItems)},
        {"lines", std::to_string(counts.lines)},
        {"lines_kept", std::to_string(counts.keptLines)},
        {"lines_removed", std::to_string(counts.removedLines)},
    };
    Records records{{}, {{}}};
    for (const auto& [name, value] : values) {
        records.columns.push_back(name);
        records.rows.front().push_back(value);
    }
    return records;
}

void tellNotes(const ImportOptions& options, std::vector<std::string>& notes)
{
    for (const std::string& note : notes) {
        writeNote(options.shownFile() + ": " + note + "\n");
    }
    notes.clear();
}

/** Stores what `import` has planned; what the server refuses is added to the complaints. Returns whether it was stored. */
bool storeInOneMultiSave(const ImportOptions& options, const Source& source, Import& import)
{
    startMultiSave();
    import.carryOut();
    const bool isStored = !options.dryRun && (source.list.complaints.empty() || options.keepGoing);
    (isStored ? commitMultiSave : discardMultiSave)();
    return isStored;
}

[[noreturn]] void refuse(const ImportOptions& options, const Source& source, const std::string& outcome)
{
    const std::size_t refused = source.list.complaints.size();
    throw Refused(counted(refused, "row") + " of " + options.shownFile() + (refused == 1 ? " is" : " are") +
                  " refused; " + outcome);
}

void importPartsList(ImportOptions options, const Settings& settings)
{
    readWords(options);
    Source source{partsListText(options.file, options.encoding), ',', {}};
    source.delimiter = delimiterOf(source.text, options.delimiter);
    source.list = readPartsList(source.text, source.delimiter, options.rules);
    PartsList& list = source.list;
    tellNotes(options, list.notes);
    if (!list.complaints.empty() && !options.keepGoing) {
        complain(options, source);
        refuse(options, source, "nothing was stored");
    }
    connect(settings.user, settings.passwordFile);
    Import import(list, options.request);
    bool isStored = false;
    interruptibly("nothing was stored", [&] {
        import.plan();
        if (list.complaints.empty() || options.keepGoing) {
            isStored = storeInOneMultiSave(options, source, import);
        }
    });
    tellNotes(options, list.notes);
    complain(options, source);
    if (!list.complaints.empty()) {
        refuse(options, source,
               isStored ? "the rest was stored: " + described(import.counts()) : "nothing was stored");
    }
    const Records differences = import.differences();
    if (options.update && settings.format == Format::Table && !differences.rows.empty()) {
        writeRecords(differences, Shape::List, Format::Table);
    }
    writeOutcome(sentence((isStored ? "Stored " : "Would store ") + described(import.counts()) + ".",
                          asRecords(import.counts(), isStored)),
                 settings.format);
}

} // namespace

void addImport(CommandLine& line)
{
    const auto options = std::make_shared<ImportOptions>();
    CLI::App& import = line.addCommand(
        line.app(), "import",
        "Store the items and component lines of a parts list, all or nothing\n\n"
        "A row of the file is an item. Its place in the structure is either a \"level\", counted from the "
        "top, or the number "
        "of its \"parent\"; the order of rows with parents does not matter. Columns with the usual names are "
        "known, whatever "
        "their case, blanks and underscores; every run tells which column became what and which are not "
        "used. Rows that are "
        "wrong are told with line and reason, and then nothing is stored, unless --keep-going is given.\n\n"
        "Item numbers and names are stored in upper case. A quantity is stored as that many component lines, "
        "so it has to be "
        "a whole number. An assembly that has component lines already is refused unless --update or --add is "
        "given. The "
        "change is recorded as acting on every item that is stored or changed.",
        "velrzm import parts.csv --ec EC-100 --map item_number=Part,name=\"Part "
        "Name\",quantity=Qty,level=Level",
        [&line, options] { importPartsList(*options, line.settings()); });
    import
        .add_option("file", options->file, "CSV file whose first row names the columns; - for standard input")
        ->required();
    takeObjectNumber(
        *import.add_option("--ec", options->request.change, "Number of the change that introduces the items")
             ->required()
             ->type_name("CHANGE"));
    takeList(*import
                  .add_option("--map", options->map,
                              "Which column is what: " + joined(partsListColumns(), ", ") +
                                  "; a column with a usual name needs none")
                  ->type_name("NAME=COLUMN,..."));
    takeObjectNumber(
        *import
             .add_option("--top", options->rules.top, "Item that stands above all; made when it is not there")
             ->type_name("ITEM"));
    import.add_flag("--update", options->update,
                    "Make stored assemblies equal to the list, and stored items too; tells the difference");
    import.add_flag("--add", options->add, "Add the list's lines to those of stored assemblies")
        ->excludes("--update");
    import.add_flag("--create-parents", options->request.createParents, "Make parents that no row describes");
    import.add_flag("--no-affected-items", options->noAffectedItems,
                    "Do not record the items as affected by the change");
    insistOnChoices(
        *import
             .add_option("--not-countable", options->notCountable,
                         "What becomes of rows with a quantity such as 2.5 m or A/R; refused unless given")
             ->type_name("refuse|once|skip"));
    import
        .add_option(
            "--delimiter", options->delimiter,
            "What stands between the fields: auto, comma, semicolon, tab, or a character; auto unless given")
        ->type_name("CHARACTER");
    insistOnChoices(
        *import.add_option("--encoding", options->encoding, "Encoding of the file; utf-8 unless given")
             ->type_name(joined(partsListEncodings, "|")));
    import.add_option("--skip", options->rules.skippedLines, "Lines above the header to leave out")
        ->type_name("COUNT");
    import.add_flag("--attributes", options->rules.keepOtherColumns,
                    "Keep the other columns as item attributes");
    import
        .add_option("--rejects", options->rejects,
                    "Write the refused rows to a file, with the reason as a further column")
        ->type_name("FILE");
    import.add_flag("--dry-run", options->dryRun, "Only say what would be stored and refused");
    import.add_flag("--keep-going", options->keepGoing, "Store what is good although rows are refused");
}

} // namespace tools
