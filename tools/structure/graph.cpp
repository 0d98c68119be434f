// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/graph.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <map>
#include <optional>
#include <vector>

#include "tools/output/progress.h"
#include "tools/output/text.h"
#include "tools/process/child_process.h"
#include "tools/process/failures.h"
#include "tools/process/interruption.h"
#include "tools/process/memory_file.h"
#include "tools/structure/structure_tree.h"

namespace tools {

namespace {

constexpr const char* const graphHead =
    R"(  graph [rankdir=LR, ordering=out, nodesep=0.12, ranksep=0.9, pad=0.2,
         labelloc=t, labeljust=l, fontsize=16, fontname="Helvetica,Arial,sans-serif"]
  node [shape=box, style=filled, fillcolor="#ffffff", color="#5f6b7a", height=0.3, margin="0.12,0.05",
        fontsize=11, fontname="Helvetica,Arial,sans-serif"]
  edge [color="#5f6b7a", arrowsize=0.6, fontsize=10, fontname="Helvetica,Arial,sans-serif"]
)";

/** What an item is in a structure decides how it looks. */
constexpr const char* const topLook = R"(, style="filled,bold", fillcolor="#cfe0f5")";
constexpr const char* const assemblyLook = R"(, style="filled,rounded", fillcolor="#eaf1fb")";

/** A text as it stands in a label: there, backslashes and the entities of HTML mean something. */
std::string labelText(const std::string& text)
{
    static const std::map<char, const char*> special = {
        {'"', "\\\""}, {'\\', "\\\\"}, {'&', "&amp;"}, {'\n', "\\n"}};
    std::string label;
    for (const char unit : text) {
        const auto found = special.find(unit);
        const bool isControl = static_cast<unsigned char>(unit) < ' ';
        if (found != special.end()) {
            label += found->second;
        } else {
            label += isControl ? ' ' : unit;
        }
    }
    return label;
}

std::string titleOf(const StructureItem& item)
{
    constexpr std::size_t widest = 28; // what suits a node
    const std::string& name = item.values.front();
    return labelText(item.number + (name.empty() ? "" : "\n" + wrapped(name, widest)));
}

/** The places of the items in the order in which a tree shows them first, in which they are laid out best. */
std::vector<std::size_t> orderOf(const ProductStructure& structure)
{
    std::vector<bool> isKnown(structure.items.size(), false);
    std::vector<std::size_t> order;
    for (const TreeRow& row : treeRows(structure, Repeated::Referred)) {
        if (!isKnown[row.item]) {
            isKnown[row.item] = true;
            order.push_back(row.item);
        }
    }
    return order;
}

/** Tells how long it takes; an interruption ends it. */
int waitForPicture(ChildProcess& dot)
{
    constexpr std::chrono::milliseconds step(200);
    ElapsedTime elapsed("drawing");
    std::optional<int> status = dot.waitFor(step);
    while (!status.has_value()) {
        checkInterruption();
        elapsed.show();
        status = dot.waitFor(step);
    }
    checkInterruption(); // which has ended the program as well
    return *status;
}

} // namespace

std::string structureGraph(const ProductStructure& structure)
{
    const std::vector<std::size_t> order = orderOf(structure);
    const StructureItem& top = structure.items.front();
    const std::string& name = top.values.front();
    std::string text = std::string("digraph bom {\n") + graphHead + "  label=\"Bill of material of " +
                       labelText(top.number + (name.empty() ? "" : ", " + name)) + "\"\n";
    for (const std::size_t place : order) {
        const StructureItem& item = structure.items[place];
        const char* const look = place == 0 ? topLook : item.parts.empty() ? "" : assemblyLook;
        text += "  n" + std::to_string(place) + " [label=\"" + titleOf(item) + "\"" + look + "]\n";
    }
    for (const std::size_t place : order) {
        for (const StructurePart& part : structure.items[place].parts) {
            text += "  n" + std::to_string(place) + " -> n" + std::to_string(part.item) + " [label=\"" +
                    std::to_string(part.quantity) + "\"]\n";
        }
    }
    return text + "}\n";
}

void requireDrawable(const ProductStructure& structure)
{
    constexpr std::size_t most = 500;
    if (structure.items.size() > most) {
        throw Refused("a picture of " + counted(structure.items.size(), "item") +
                      " takes a long time to draw; limit the levels with --level, or draw more than " +
                      std::to_string(most) + " items with --force");
    }
}

std::string drawnGraph(const std::string& graph)
{
    const MemoryFile input(graph);
    const MemoryFile picture;
    ChildProcess dot({"dot", "-Tsvg"}, input.descriptor(), picture.descriptor());
    if (dot.startError() == ENOENT) {
        throw Refused(
            "the program \"dot\" draws pictures, and it is not installed; install Graphviz (on Debian: "
            "apt install graphviz), or take --format dot and draw that elsewhere");
    }
    if (dot.startError() != 0) {
        throw Refused(std::string("\"dot\" could not be started: ") + std::strerror(dot.startError()));
    }
    const int status = waitForPicture(dot);
    if (status != 0) {
        throw Refused("\"dot\" drew no picture: it ended with status " + std::to_string(status));
    }
    return picture.text();
}

} // namespace tools
