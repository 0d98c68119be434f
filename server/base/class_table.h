// SPDX-License-Identifier: Apache-2.0
//
// The classes of the server as data. Tables, indexes, look-ups, defaults, checks of references and what the server
// does by itself when an object is saved or deleted all follow from it.
#ifndef VELRZM_SERVER_BASE_CLASS_TABLE_H
#define VELRZM_SERVER_BASE_CLASS_TABLE_H

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvserver {

/** The classes that code outside the table knows by name. */
namespace classes {
constexpr std::string_view item = "ItemEngineeringData";
constexpr std::string_view component = "Component";
constexpr std::string_view document = "DocVersion";
constexpr std::string_view productOption = "ProductOption";
constexpr std::string_view productPackage = "ProductOptionPkg";
constexpr std::string_view translationEntry = "TranslationEntry";
} // namespace classes

/** Values of attributes by path. */
using Values = std::map<std::string, std::string, std::less<>>;

/** The value of `path`; "" when there is none, which is the same as never set. */
inline std::string_view valueOf(const Values& values, std::string_view path)
{
    const auto found = values.find(path);
    return found == values.end() ? std::string_view() : std::string_view(found->second);
}

/** The attributes that every object has beside those of its class; both are numbers that the server sets. */
constexpr std::string_view objectIdPath = "db_object_id";
constexpr std::string_view updateCountPath = "update_count";

/** How values of an attribute compare and sort. */
enum class Kind { Text, Number };

/** Where the value of an attribute comes from. */
enum class Source {
    Caller,   // from whoever saves the object
    Default,  // from the caller, else `text` when the object is new
    Numbered, // from the caller, else `text` with a number that no other object has
    Counted,  // from the caller, else one more than there are objects with its value of the attribute `text`
    Follows,  // from the caller, else what the caller sets of the attribute `text`
    // What callers set in the following is not stored.
    OwnId,        // the object's own id
    Copy,         // the value of the attribute `text`
    RevisionSort, // what the revision number in the attribute `text` sorts by
    Server,       // a rule of the server, else `text` when the object is new
};

struct Attribute {
    std::string_view path;
    Kind kind = Kind::Text;
    Source source = Source::Caller;
    std::string_view text = {};
};

/** Attributes of one class that hold the same values as attributes of another. */
struct Link {
    std::string_view from;
    std::string_view to;
};

/** Which of the related objects a relation leads to. */
enum class Related { Each, Newest };

/** The first name of a path like "ai_obj@item_status", which leads from an object to related ones. */
struct Relation {
    std::string_view name;
    std::string_view target;
    Link link;
    Related which;
};

/** What becomes of the referring object when the one that it refers to is deleted. */
enum class OnDelete { Refuse, DeleteToo };

/** Whether a reference may be left empty. */
enum class Needed { Always, IfSet };

/** An object of the class `target` with the linked values must exist. */
struct Reference {
    std::string_view target;
    std::vector<Link> links;
    Needed needed = Needed::Always;
    OnDelete onDelete = OnDelete::Refuse;
};

/** Objects that the vault keeps as versions. Their keys are a document and its revision. */
struct Vault {
    /** The number of a version within its revision; the keys alone mean the newest version. */
    std::string_view version;
    /** What the revisions of a document sort by. */
    std::string_view revisionSort;
    /** The user who has the version checked out, "" when it is checked in. */
    std::string_view holder;
};

/**
 * Each object is that of an engineering change or of none. Asked for at a change, an object is that of the change, else
 * the one of no change if the change affects it; asked for at no change, it is the newest.
 */
struct AtChange {
    /** The key that names the change. */
    std::string_view change;
    /** The class of the objects that say what a change affects, and what they have in common with this one. */
    std::string_view affected;
    std::vector<Link> links;
};

/** Who saves an object with "TRUE" in the attribute `path`, which is not stored, has an object of the class `target`
 * with the same keys created as well, unless there is one. */
struct Companion {
    std::string_view path;
    std::string_view target;
};

/** The linked objects of the class `target` show in `flag`, as Y or N, whether there is an object of this class. */
struct Flag {
    std::string_view target;
    Link link;
    std::string_view path;
};

/** Each object is a line of a product structure: the item `child` is part of the item `parent`. */
struct StructureLine {
    std::string_view parent;
    std::string_view child;
};

/** A kind of objects: what identifies one, its attributes, what it refers to, what the server does with it. */
struct Class {
    std::string_view name;
    /** What identifies an object; the first one is never empty, unless the server numbers the object. */
    std::vector<std::string_view> keys;
    /** All attributes with a column of their own, the keys included. Any other path can be stored as well. */
    std::vector<Attribute> attributes;
    std::vector<Relation> relations = {};
    std::vector<Reference> references = {};
    std::optional<Vault> vault = {};
    std::optional<AtChange> atChange = {};
    std::optional<Companion> companion = {};
    std::optional<Flag> flag = {};
    std::optional<StructureLine> structureLine = {};

    const Attribute* attribute(std::string_view path) const noexcept;
    const Relation* relation(std::string_view name) const noexcept;
};

/** All classes. */
const std::vector<Class>& allClasses() noexcept;

/** The class of that name; fails when there is none. */
const Class& classNamed(std::string_view name);

/** Fails unless `path` is well formed. */
void checkPath(std::string_view path);

} // namespace qvserver

#endif
