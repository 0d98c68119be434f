// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/graph.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <map>
#include <set>
#include <utility>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tools/process/failures.h"
#include "tools/process/memory_file.h"

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

/** Breaks a text at blanks into lines of a width that suits a node. */
std::string wrapped(std::string text)
{
    constexpr std::size_t width = 28;
    std::size_t begin = 0;
    for (std::size_t blank = text.find(' '); blank != std::string::npos; blank = text.find(' ', blank + 1)) {
        const std::size_t next = std::min(text.find(' ', blank + 1), text.size());
        if (next - begin > width) {
            text[blank] = '\n';
            begin = blank + 1;
        }
    }
    return text;
}

std::string titled(const std::string& item, const std::string& name)
{
    return labelText(item + (name.empty() ? "" : "\n" + wrapped(name)));
}

/** The nodes of a structure with those of the same item taken together. */
class Graph {
public:
    explicit Graph(const std::vector<StructureNode>& nodes)
    {
        for (const StructureNode& node : nodes) {
            if (places_.emplace(node.item, items_.size()).second) {
                items_.push_back(&node);
            }
            if (node.parent >= 0) {
                const std::string& parent = nodes[static_cast<std::size_t>(node.parent)].item;
                add({places_.at(parent), places_.at(node.item), node.quantity});
            }
        }
    }

    std::string text() const
    {
        const StructureNode& top = *items_.front();
        std::string text = std::string("digraph bom {\n") + graphHead + "  label=\"Bill of material of " +
                           labelText(top.item + (top.name.empty() ? "" : ", " + top.name)) + "\"\n";
        for (std::size_t place = 0; place < items_.size(); ++place) {
            text += "  n" + std::to_string(place) + " [label=\"" +
                    titled(items_[place]->item, items_[place]->name) + "\"" + look(place) + "]\n";
        }
        for (const Edge& edge : edges_) {
            text += "  n" + std::to_string(edge.parent) + " -> n" + std::to_string(edge.component) +
                    " [label=\"" + std::to_string(edge.quantity) + "\"]\n";
        }
        return text + "}\n";
    }

private:
    struct Edge {
        std::size_t parent;
        std::size_t component;
        int quantity;
    };

    /** An assembly that occurs again brings the same edges along again. */
    void add(const Edge& edge)
    {
        if (ends_.emplace(edge.parent, edge.component).second) {
            edges_.push_back(edge);
            assemblies_.insert(edge.parent);
        }
    }

    const char* look(std::size_t place) const
    {
        return place == 0 ? topLook : assemblies_.count(place) > 0 ? assemblyLook : "";
    }

    std::vector<const StructureNode*> items_;   // the first node of each
    std::map<std::string, std::size_t> places_; // of the items in items_
    std::set<std::size_t> assemblies_;
    std::vector<Edge> edges_;                            // those of a parent in the order of its lines
    std::set<std::pair<std::size_t, std::size_t>> ends_; // of the edges
};

/** Runs a program between two files; its exit status, or an error of the system as a negative number. */
int runProgram(std::string program, std::string argument, const MemoryFile& input, const MemoryFile& output)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input.descriptor(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.descriptor(), STDOUT_FILENO);
    std::array<char*, 3> arguments = {program.data(), argument.data(), nullptr};
    pid_t process = -1;
    const int failed = posix_spawnp(&process, program.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) {
        return -failed;
    }
    int status = 0;
    while (waitpid(process, &status, 0) == -1 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace

std::string structureGraph(const std::vector<StructureNode>& nodes)
{
    return Graph(nodes).text();
}

std::string drawnGraph(const std::string& graph)
{
    const MemoryFile input(graph);
    const MemoryFile picture;
    const int status = runProgram("dot", "-Tsvg", input, picture);
    if (status == -ENOENT) {
        throw Refused(
            "the program \"dot\" draws pictures, and it is not installed; install Graphviz (on Debian: "
            "apt install graphviz), or take --format dot and draw that elsewhere");
    }
    if (status != 0) {
        throw Refused(
            std::string("\"dot\" drew no picture: ") +
            (status < 0 ? std::strerror(-status) : "it ended with status " + std::to_string(status)));
    }
    return picture.text();
}

} // namespace tools
