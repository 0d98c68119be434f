// SPDX-License-Identifier: Apache-2.0
//
// Which column of a parts list means what.
#ifndef VELRZM_TOOLS_PARTS_LIST_COLUMNS_H
#define VELRZM_TOOLS_PARTS_LIST_COLUMNS_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tools {

/** What a column can mean, as --map and exported lists call it. */
const std::vector<std::string>& partsListColumns();

/** The item attribute that a column with another name is kept in. */
std::string attributeOfColumn(std::string column);

/** The columns of a header. Names match without regard to case, blanks and underscores. */
class Columns {
public:
    /** `mapped` says which column means what; the usual names of the others are known. Throws WrongUsage when two columns have
     * one name, a mapped column does not exist, or none is the item number. */
    Columns(std::vector<std::string> header, const std::map<std::string, std::string>& mapped);

    /** Whether a header's names are usual or mapped ones. */
    static bool isKnown(const std::vector<std::string>& header,
                        const std::map<std::string, std::string>& mapped);

    std::size_t size() const { return header_.size(); }
    bool has(const std::string& meaning) const { return places_.count(meaning) > 0; }
    /** The field of a row; empty when there is no such column. */
    std::string field(const std::vector<std::string>& row, const std::string& meaning) const;
    /** The same with the blanks around it. */
    const std::string& rawField(const std::vector<std::string>& row, const std::string& meaning) const
    {
        return row[places_.at(meaning)];
    }
    /** How the file calls a column. */
    const std::string& name(const std::string& meaning) const { return header_[places_.at(meaning)]; }
    const std::string& name(std::size_t place) const { return header_[place]; }
    /** The places of the columns that mean nothing known. */
    const std::vector<std::size_t>& others() const { return others_; }
    /** "Part" is item_number, ..., in a sentence; `others` says what becomes of the other columns. */
    std::string description(bool othersAreKept) const;

private:
    std::vector<std::string> header_;
    std::map<std::string, std::size_t> places_;
    std::vector<std::size_t> others_;
};

/** `text` without blanks, tabs and line ends around it. */
std::string trimmed(const std::string& text);

} // namespace tools

#endif
