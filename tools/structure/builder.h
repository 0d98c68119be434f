// SPDX-License-Identifier: Apache-2.0
//
// Stores items and component lines of a structure through the library.
#ifndef VELRZM_TOOLS_STRUCTURE_BUILDER_H
#define VELRZM_TOOLS_STRUCTURE_BUILDER_H

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tools {

/** An item to store. */
struct NewItem {
    std::string number;
    std::string name;
    std::string type;
    std::vector<std::string> attributeNames;  // further attributes,
    std::vector<std::string> attributeValues; // and their values
};

/** A stored component line. */
struct ComponentKey {
    std::string parent;
    std::string component;
    std::string sequence;
    std::string change;
    std::string identifier;
};

/** Stores under one change. Every function throws Failure when the server refuses. */
class StructureBuilder {
public:
    explicit StructureBuilder(std::string change) : change_(std::move(change)) {}

    /** With its bill-of-material header when it is an assembly. */
    void createItem(const NewItem& item, bool isAssembly = false);
    /** Saves name, type and attributes of the item's record at `change`. */
    void changeItem(const NewItem& item, const std::string& change);
    /** Records that the change acts on an item: "REL" releases it, "CHG" changes it. */
    void recordAffectedItem(const std::string& item, const std::string& action);
    void createHeader(const std::string& item);
    /** Stores `quantity` lines, one for each occurrence, numbered in tens after those that this object stored
     * on the same parent before. */
    void addComponent(const std::string& parent, const std::string& component, int quantity);

    /** Numbers the next lines of `parent` after the sequence number `last`. */
    void continueAfter(const std::string& parent, int last) { lastSequence_[parent] = last; }
    void removeComponent(const ComponentKey& line);

    std::size_t items() const { return items_; }
    std::size_t lines() const { return lines_; }

private:
    std::string change_;
    std::map<std::string, int> lastSequence_; // by parent
    std::size_t items_ = 0;
    std::size_t lines_ = 0;
};

} // namespace tools

#endif
