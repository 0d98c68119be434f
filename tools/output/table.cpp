// SPDX-License-Identifier: Apache-2.0
#include "tools/output/table.h"

#include <cstdlib>
#include <memory>
#include <new>

#include <libsmartcols.h>

#include "tools/output/terminal.h"

namespace tools {

namespace {

using Table = std::unique_ptr<libscols_table, decltype(&scols_unref_table)>;

Table makeTable(const Records& records, int firstColumnFlags, unsigned indentation)
{
    Table table(scols_new_table(), &scols_unref_table);
    if (table == nullptr) {
        throw std::bad_alloc();
    }
    const Terminal& shownOn = terminal();
    scols_table_set_termforce(table.get(),
                              shownOn.interactive ? SCOLS_TERMFORCE_ALWAYS : SCOLS_TERMFORCE_NEVER);
    scols_table_set_termwidth(table.get(), shownOn.width);
    scols_table_reduce_termwidth(table.get(), indentation);
    scols_table_enable_colors(table.get(), shownOn.colour ? 1 : 0);
    scols_table_enable_ascii(table.get(), shownOn.unicode ? 0 : 1);
    int flags = firstColumnFlags | SCOLS_FL_TRUNC;
    for (const std::string& name : records.columns) {
        libscols_column* const column = scols_table_new_column(table.get(), name.c_str(), 0, flags);
        if (column == nullptr) {
            throw std::bad_alloc();
        }
        scols_cell_set_color(scols_column_get_header(column), "bold");
        flags = SCOLS_FL_TRUNC;
    }
    return table;
}

libscols_line* addRow(libscols_table* table, const std::vector<std::string>& row, libscols_line* parent)
{
    libscols_line* const line = scols_table_new_line(table, parent);
    if (line == nullptr) {
        throw std::bad_alloc();
    }
    for (std::size_t column = 0; column < row.size(); ++column) {
        scols_line_set_data(line, column, row[column].c_str());
    }
    return line;
}

/** The finished table; blanks at the ends of its lines are dropped. */
std::string print(libscols_table* table, unsigned indentation)
{
    char* printed = nullptr;
    if (scols_print_table_to_string(table, &printed) != 0) {
        throw std::bad_alloc();
    }
    const std::unique_ptr<char, decltype(&std::free)> owner(printed, &std::free);
    const std::string lines(printed == nullptr ? "" : printed);
    std::string text;
    for (std::size_t begin = 0; begin < lines.size();) {
        const std::size_t end = std::min(lines.find('\n', begin), lines.size());
        const std::size_t last = lines.find_last_not_of(' ', end - 1);
        text.append(indentation, ' ');
        if (end > begin && last != std::string::npos && last >= begin) {
            text.append(lines, begin, last + 1 - begin);
        }
        text += '\n';
        begin = end + 1;
    }
    return text;
}

} // namespace

std::string tableText(const Records& records, unsigned indentation)
{
    const Table table = makeTable(records, 0, indentation);
    for (const auto& row : records.rows) {
        addRow(table.get(), row, nullptr);
    }
    return print(table.get(), indentation);
}

std::string treeText(const Records& records, const std::vector<int>& parents, unsigned indentation)
{
    const Table table = makeTable(records, SCOLS_FL_TREE, indentation);
    std::vector<libscols_line*> lines;
    for (std::size_t row = 0; row < records.rows.size(); ++row) {
        libscols_line* const parent =
            parents[row] < 0 ? nullptr : lines[static_cast<std::size_t>(parents[row])];
        lines.push_back(addRow(table.get(), records.rows[row], parent));
    }
    return print(table.get(), indentation);
}

} // namespace tools
