// SPDX-License-Identifier: Apache-2.0
//
// A parts list as a file of rows, and the items and assemblies that it describes.
#ifndef VELRZM_TOOLS_PARTS_LIST_PARTS_LIST_H
#define VELRZM_TOOLS_PARTS_LIST_PARTS_LIST_H

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tools {

/** What becomes of rows whose quantity is a measure or no number. */
enum class NotCountable { Refuse, Once, Skip };

/** How the rows are to be read. */
struct PartsListRules {
    std::map<std::string, std::string> columns; // what we call it: what the file calls it
    std::string top;                            // the item that stands above all; empty for none
    std::size_t skippedLines = 0;               // above the header, beside those that are found to be a title
    bool keepOtherColumns = false;              // as attributes of the item
    NotCountable notCountable = NotCountable::Refuse;
};

/** An item that rows describe. Of several rows the first value that is not empty counts; others must agree. */
struct PartsListItem {
    std::string number; // in upper case, as it is stored
    std::string name;
    std::string type;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::size_t line = 0; // of its first row; 0 when it is only named as a parent or as the top
    bool isTop = false;
};

/** So many of an item, given by its place in the list, in an assembly. */
struct PartsListLine {
    std::size_t item;
    int quantity;
    std::size_t line;
};

/** Why a row is refused. */
struct RowComplaint {
    std::size_t line;
    std::string reason;
};

struct PartsList {
    std::vector<PartsListItem> items;
    std::vector<std::vector<PartsListLine>> lines; // what stands below each item, in the order of the rows
    std::vector<RowComplaint> complaints;
    std::vector<std::string> notes; // what a reader should know about how the file was understood
    std::string header;             // as it stands in the file
};

/** Reads `text`, of which the first row that is no title names the columns. Throws WrongUsage when the rules do not fit the
 * columns, Refused when there is no header. */
PartsList readPartsList(const std::string& text, char delimiter, const PartsListRules& rules);

/** The rows that begin in the lines of the complaints, as they stand in `text`. */
std::map<std::size_t, std::string> rowsOfComplaints(const std::string& text, char delimiter,
                                                    const std::vector<RowComplaint>& complaints);

} // namespace tools

#endif
