// SPDX-License-Identifier: Apache-2.0
#include "tools/output/table.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "tools/output/terminal.h"
#include "tools/process/visible_text.h"

namespace tools {

namespace {

/** What becomes of a column for which there is not enough room. */
enum class Fit { Whole, Cut, Wrap };

struct ColumnKind {
    std::string_view name;
    Fit fit;
};

/** The columns that may give way. All others are numbers, codes and the like. */
constexpr std::array columnKinds = {
    ColumnKind{"name", Fit::Cut},      ColumnKind{"desc", Fit::Cut},     ColumnKind{"description", Fit::Cut},
    ColumnKind{"doc_title", Fit::Cut}, ColumnKind{"inputs", Fit::Wrap},  ColumnKind{"message", Fit::Wrap},
    ColumnKind{"messages", Fit::Wrap}, ColumnKind{"problem", Fit::Wrap}, ColumnKind{"state", Fit::Wrap},
    ColumnKind{"value", Fit::Wrap},
};

Fit fitOf(std::string_view column)
{
    const std::string_view attribute = column.substr(column.rfind('@') + 1); // of a path, its last name
    const auto* const found = std::find_if(columnKinds.begin(), columnKinds.end(),
                                           [=](const ColumnKind& kind) { return kind.name == attribute; });
    return found == columnKinds.end() ? Fit::Whole : found->fit;
}

class Table {
public:
    Table(const Records& records, std::size_t indentation)
        : header_(records.columns), rows_(records.rows), indentation_(indentation)
    {
        for (std::vector<std::string>& row : rows_) {
            std::transform(row.begin(), row.end(), row.begin(), visibleLine);
        }
    }

    /** Draws the branches of a tree before the first value of each row. */
    void drawBranches(const std::vector<int>& levels)
    {
        const bool isDrawn = terminal().unicode;
        std::vector<bool> goesOn; // for each level whether a row of it follows below
        for (std::size_t row = rows_.size(); row-- > 0;) {
            const auto level = static_cast<std::size_t>(levels[row]);
            const bool isLast = level >= goesOn.size() || !goesOn[level];
            goesOn.resize(level + 1, false);
            std::string branches;
            for (std::size_t above = 1; above < level; ++above) {
                branches += !goesOn[above] ? "  " : isDrawn ? "│ " : "| ";
            }
            if (level > 0) {
                branches += isDrawn ? (isLast ? "└─" : "├─") : (isLast ? "`-" : "|-");
            }
            rows_[row].front().insert(0, branches);
            goesOn[level] = true;
        }
    }

    std::string text()
    {
        measure();
        if (terminal().interactive) {
            makeFit();
        }
        std::string text;
        append(text, header_, Style::Bold);
        for (const std::vector<std::string>& row : rows_) {
            append(text, row, Style::Plain);
        }
        return text;
    }

private:
    void measure()
    {
        widths_.assign(header_.size(), 0);
        const auto widen = [this](const std::vector<std::string>& row) {
            for (std::size_t column = 0; column < row.size(); ++column) {
                widths_[column] = std::max(widths_[column], shownWidth(row[column]));
            }
        };
        widen(header_);
        std::for_each(rows_.begin(), rows_.end(), widen);
    }

    void makeFit()
    {
        constexpr std::size_t leastCut = 12;
        constexpr std::size_t leastWrapped = 24;
        shrink(Fit::Cut, leastCut);
        shrink(Fit::Wrap, leastWrapped);
    }

    /** How much wider than the terminal the table is. */
    std::size_t excess() const
    {
        std::size_t width = indentation_ + widths_.size() - 1;
        for (const std::size_t column : widths_) {
            width += column;
        }
        return width - std::min<std::size_t>(width, terminal().width);
    }

    /** Takes room from the widest columns of a kind, down to `least`. */
    void shrink(Fit fit, std::size_t least)
    {
        for (std::size_t missing = excess(); missing > 0; missing = excess()) {
            std::size_t widest = widths_.size();
            std::size_t next = least; // the width of the second widest
            for (std::size_t column = 0; column < widths_.size(); ++column) {
                if (fitOf(header_[column]) != fit) {
                    continue;
                }
                if (widest == widths_.size() || widths_[column] > widths_[widest]) {
                    next = widest == widths_.size() ? next : std::max(next, widths_[widest]);
                    widest = column;
                } else {
                    next = std::max(next, widths_[column]);
                }
            }
            if (widest == widths_.size() || widths_[widest] <= least) {
                return;
            }
            const std::size_t spare = std::max<std::size_t>(widths_[widest] - next, 1);
            widths_[widest] -= std::min(missing, spare);
        }
    }

    /** The lines that a value takes in its column. */
    std::vector<std::string> linesOf(const std::string& value, std::size_t column) const
    {
        if (shownWidth(value) <= widths_[column]) {
            return {value};
        }
        if (fitOf(header_[column]) == Fit::Wrap) {
            return brokenLines(value, widths_[column]);
        }
        return {cut(value, widths_[column])};
    }

    void append(std::string& text, const std::vector<std::string>& row, Style style) const
    {
        std::vector<std::vector<std::string>> cells;
        std::size_t height = 1;
        for (std::size_t column = 0; column < row.size(); ++column) {
            cells.push_back(linesOf(row[column], column));
            height = std::max(height, cells.back().size());
        }
        for (std::size_t line = 0; line < height; ++line) {
            appendLine(text, cells, line, style);
        }
    }

    /** A line without blanks at its end. */
    void appendLine(std::string& text, const std::vector<std::vector<std::string>>& cells, std::size_t line,
                    Style style) const
    {
        text.append(indentation_, ' ');
        std::size_t blanks = 0; // before the next value
        for (std::size_t column = 0; column < cells.size(); ++column) {
            const std::string value = line < cells[column].size() ? cells[column][line] : "";
            if (!value.empty()) {
                text.append(blanks, ' ').append(styled(style, value));
                blanks = 0;
            }
            blanks += widths_[column] - shownWidth(value) + 1;
        }
        text += '\n';
    }

    std::vector<std::string> header_;
    std::vector<std::vector<std::string>> rows_;
    std::vector<std::size_t> widths_; // of the columns
    std::size_t indentation_;
};

} // namespace

std::string tableText(const Records& records, std::size_t indentation)
{
    return records.rows.empty() ? "" : Table(records, indentation).text();
}

std::string treeText(const Records& records, const std::vector<int>& levels, std::size_t indentation)
{
    Table table(records, indentation);
    table.drawBranches(levels);
    return table.text();
}

} // namespace tools
