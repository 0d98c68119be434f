// SPDX-License-Identifier: Apache-2.0
//
// Writes docs/classes.md from the class table.
#include <iostream>
#include <sstream>
#include <string>

#include "server/base/class_table.h"
#include "server/base/text.h"

namespace {

using namespace qvserver;

std::string code(std::string_view text)
{
    return '`' + std::string(text) + '`';
}

/** What an object there and this one here have in common. */
std::string linked(const std::vector<Link>& links)
{
    return joined(links, " and ", [](const Link& link) {
        return code(link.to) + " is this one's" + (link.from == link.to ? "" : ' ' + code(link.from));
    });
}

std::string sourceOf(const Attribute& attribute)
{
    const std::string text = code(attribute.text);
    switch (attribute.source) {
    case Source::Caller:
        return "the caller";
    case Source::Default:
        return "the caller, else " + text;
    case Source::Numbered:
        return "the caller, else " + text + " and a number that no other object has";
    case Source::Counted:
        return "the caller, else one more than there are objects with the same " + text;
    case Source::Follows:
        return "the caller, else what the caller sets " + text + " to";
    case Source::OwnId:
        return "the server: the object's " + code(objectIdPath);
    case Source::Copy:
        return "the server: the value of " + text;
    case Source::RevisionSort:
        return "the server: what " + text + " sorts by";
    case Source::Server:
        return attribute.text.empty() ? "the server" : "the server, at first " + text;
    }
    return "";
}

/** What holds for the objects of a class, an item of a list for each rule. */
std::string rulesOf(const Class& described)
{
    std::ostringstream rules;
    for (const Relation& relation : described.relations) {
        rules << "- " << code(std::string(relation.name) + '@') << " leads to "
              << (relation.which == Related::Each ? "each " : "the newest ") << relation.target << " whose "
              << linked({{relation.link.from, relation.link.to}}) << ".\n";
    }
    for (const Reference& reference : described.references) {
        rules << "- Refers to the " << reference.target << " whose " << linked(reference.links)
              << (reference.needed == Needed::IfSet ? ", if that is set; " : "; ")
              << (reference.onDelete == OnDelete::Refuse ? "that one cannot be deleted meanwhile.\n"
                                                         : "when that one is deleted, this one is too.\n");
    }
    if (described.atChange) {
        rules
            << "- Is that of the change " << code(described.atChange->change)
            << ", or of none. Asked for at a change, it is the one of the change, else the one of none if an "
            << described.atChange->affected
            << " says that the change affects it; asked for at none, it is the newest.\n";
    }
    if (described.vault) {
        rules << "- Is kept in the vault as versions, numbered by " << code(described.vault->version) << "; "
              << code(described.vault->holder)
              << " is the user who has one checked out. The keys mean the newest version of a revision.\n";
    }
    if (described.companion) {
        rules << "- " << code(described.companion->path) << " set to TRUE when it is saved makes a "
              << described.companion->target << " with the same keys as well, unless there is one.\n";
    }
    if (described.flag) {
        rules << "- Shows as Y in " << code(described.flag->path) << " of the " << described.flag->target
              << " whose " << linked({described.flag->link}) << ".\n";
    }
    if (described.structureLine) {
        rules << "- Puts the item " << code(described.structureLine->child) << " into the item "
              << code(described.structureLine->parent) << "; no item may come to contain itself.\n";
    }
    return rules.str();
}

void write(const Class& described)
{
    std::cout << "\n## " << described.name << "\n\nKeys: " << joined(described.keys, ", ", code)
              << ".\n\n| Attribute | Compares as | Comes from |\n|---|---|---|\n";
    for (const Attribute& attribute : described.attributes) {
        std::cout << "| " << code(attribute.path) << " | "
                  << (attribute.kind == Kind::Number ? "number" : "text") << " | " << sourceOf(attribute)
                  << " |\n";
    }
    const std::string rules = rulesOf(described);
    std::cout << (rules.empty() ? "" : "\n") << rules;
}

} // namespace

int main()
{
    std::cout
        << "# Classes of the local server\n\n"
           "`class_document` of a build writes this page from the class table of the server.\n\n"
           "Every object has "
        << code(objectIdPath) << ", a number that no other object has, and " << code(updateCountPath)
        << ", which counts its saves. Beside the\n"
           "attributes of its class it may have others, whose paths are names of letters, digits and `_`, "
           "joined by `@`.\n";
    for (const Class& described : allClasses()) {
        write(described);
    }
}
