// SPDX-License-Identifier: Apache-2.0
//
// A parts list on its way into the store: what is there already, what is to change, and the changes.
#ifndef VELRZM_TOOLS_PARTS_LIST_IMPORT_H
#define VELRZM_TOOLS_PARTS_LIST_IMPORT_H

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/output/records.h"
#include "tools/parts_list/parts_list.h"
#include "tools/structure/builder.h"

namespace tools {

/** What becomes of assemblies that have lines already, and of stored items that differ. */
enum class Existing { Refuse, Add, Update };

struct ImportRequest {
    std::string change; // in upper case
    Existing existing = Existing::Refuse;
    bool createParents = false;      // also those that no row describes
    bool recordAffectedItems = true; // that the change acts on what is stored
};

/** What was stored, or would be. */
struct ImportCounts {
    std::size_t items = 0;
    std::size_t changedItems = 0;
    std::size_t itemsBefore = 0; // stored before
    std::size_t lines = 0;
    std::size_t removedLines = 0;
    std::size_t keptLines = 0;
};

/** The import of one list; the program must be connected. What cannot be stored is added to the list's complaints, what a
 * reader should know to its notes. */
class Import {
public:
    Import(PartsList& list, ImportRequest request);

    /** Compares the list with the store, which it asks for many items at once. Throws Refused when there is no such change. */
    void plan();
    /** Stores what is planned, inside a multi-save that the caller has begun. */
    void carryOut();

    const ImportCounts& counts() const { return counts_; }
    /** The component lines that an update adds and removes, as `bom compare` shows them. */
    Records differences() const;

private:
    struct StoredItem {
        std::string change;
        std::string name;
        std::string type;
        std::vector<std::string> attributes; // in the order of attributeNames_
    };
    struct StoredLine {
        std::string component;
        std::string sequence;
        std::string change;
        std::string identifier;
    };
    /** What is to become of an item and of the lines below it. */
    struct Plan {
        bool isStored = false;
        bool isChanged = false;
        bool isAffected = false; // by the change, before this import
        bool hasHeader = false;
        StoredItem stored;
        std::vector<PartsListLine> added;
        std::vector<StoredLine> removed;
        int lastSequence = 0;
    };

    void checkChange() const;
    void readItems();
    void readStructure();
    void readAffectedItems();
    void planItem(std::size_t place);
    void planLines(std::size_t place, const std::vector<StoredLine>& stored);
    void update(std::size_t place, std::vector<StoredLine> stored);
    void complainOfUnknownParent(std::size_t place);
    /** The row that speaks of the item, or the first one below it. */
    std::size_t lineOf(std::size_t place) const;
    void storeItem(std::size_t place);
    void storeLines(std::size_t place);
    std::vector<std::string> numbers() const;
    template <typename Step>
    void attempt(std::size_t line, Step step);

    PartsList& list_;
    ImportRequest request_;
    StructureBuilder builder_;
    ImportCounts counts_;
    std::map<std::string, std::size_t> places_; // of the items, by number
    std::vector<std::string> attributeNames_;   // that the list gives to items
    std::vector<Plan> plans_;                   // in the order of the list's items
    std::size_t unknownParents_ = 0;
};

} // namespace tools

#endif
