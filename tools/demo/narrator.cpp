// SPDX-License-Identifier: Apache-2.0
#include "tools/demo/narrator.h"

#include <algorithm>
#include <fstream>

#include "tools/output/results.h"
#include "tools/output/table.h"
#include "tools/output/terminal.h"
#include "tools/output/text.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"
#include "tools/process/visible_text.h"
#include "tools/structure/structure_tree.h"

namespace tools::demo {

namespace {

constexpr unsigned indentation = 5; // of what belongs to a step

void write(const std::string& text)
{
    checkInterruption();
    writeStyledResult(text);
}

std::vector<std::string> linesOf(std::istream& stream)
{
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

} // namespace

void Narrator::title(std::string_view text, std::string_view explanation) const
{
    write("\n" + styled(Style::Bold, text) + "\n" + visible(explanation) + "\n");
}

void Narrator::step(std::string_view what, std::string_view functions)
{
    constexpr std::size_t numberWidth = 2;
    constexpr std::size_t textWidth = 56;
    const std::string number = std::to_string(++step_);
    const std::string blanks(number.size() < numberWidth ? numberWidth - number.size() : 0, ' ');
    write("\n" + blanks + styled(Style::Bold, number + "  " + padded(what, textWidth)) + "  " +
          styled(Style::Dim, functions) + "\n");
}

void Narrator::outcome(std::string_view text, bool good) const
{
    const std::string_view sign = !terminal().unicode ? (good ? "ok " : "no ") : good ? "\u2713 " : "\u2717 ";
    write(std::string(indentation, ' ') + styled(good ? Style::Good : Style::Bad, sign) + visibleLine(text) +
          "\n");
}

void Narrator::line(std::string_view text) const
{
    write(std::string(indentation, ' ') + visibleLine(text) + "\n");
}

void Narrator::table(const Records& records) const
{
    write(tableText(records, indentation));
}

void Narrator::tree(const ProductStructure& structure) const
{
    write(drawnTree(structure, Repeated::Referred, indentation));
}

void Narrator::quote(std::string_view text) const
{
    const std::string bar = std::string(indentation, ' ') + (terminal().unicode ? "\u2502 " : "| ");
    std::string quoted;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        quoted += styled(Style::Dim, bar + visible(line)) + "\n";
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    write(quoted);
}

void Narrator::file(const char* path, std::size_t firstLines, std::size_t lastLines) const
{
    std::ifstream stream(path);
    const std::vector<std::string> lines = linesOf(stream);
    write(std::string(indentation, ' ') + styled(Style::Bold, path) + ", " + counted(lines.size(), "line") +
          "\n");
    std::string shown;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i < firstLines || i + lastLines >= lines.size()) {
            shown += lines[i] + "\n";
        } else if (i == firstLines) {
            shown += "... " + std::to_string(lines.size() - firstLines - lastLines) + " more lines ...\n";
        }
    }
    quote(shown);
}

} // namespace tools::demo
