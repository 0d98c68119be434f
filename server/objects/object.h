// SPDX-License-Identifier: Apache-2.0
//
// What stands behind an object handle: the attributes that were set, the stored object that it was opened as,
// the attributes that were loaded.
#ifndef VELRZM_SERVER_OBJECTS_OBJECT_H
#define VELRZM_SERVER_OBJECTS_OBJECT_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server/base/class_table.h"
#include "server/store/store.h"

namespace qvserver {

class Object {
public:
    explicit Object(const Class& objectClass) : class_(&objectClass) {}

    /** Sets an attribute: before an open what to look for, after it what to change, without one what to
     * create. */
    void set(std::string_view path, std::string_view value);
    /** Asks that opens and saves load the attribute. */
    void subscribe(std::string_view path);
    /** The value that was set last or loaded; fails when there is neither. */
    const std::string& get(std::string_view path) const;

    void open(Store& store);
    /** Changes the stored object if this one was opened or saved, else creates one. */
    void save(Store& store);
    void remove(Store& store);

    // What the vault does with an opened version of a document. Each call stores what was set on this object
    // as well, in the version that it stands for afterwards, and loads what is subscribed.
    /** Stores a new document, whose first version is checked in. */
    void createAndCheckIn(Store& store);
    void checkOut(Store& store, const std::string& user);
    /** Stores the next version, for which this object then stands. */
    void checkIn(Store& store, const std::string& user);
    void cancelCheckOut(Store& store, const std::string& user);
    /** Stores the next revision of the document, a copy of this one, and gives it. */
    Object makeRevision(Store& store);
    /** Sets what a check-in would change unless it is set already. */
    void setCheckInDefaults(Store& store);
    void setCheckOutDefaults() const;

private:
    /** The stored object, and how often it had been saved when it was last seen. */
    struct Stored {
        std::int64_t id;
        std::int64_t updateCount;
    };

    /** Does `work` in one transaction, then stands for the object whose id that gives. */
    template <typename Work>
    void become(Store& store, Work work);
    std::int64_t create(Store& store) const;
    std::int64_t insert(Store& store, Values values) const;
    std::int64_t change(Store& store) const;
    /** As `change`, if there is any. */
    std::int64_t storeChanges(Store& store) const { return changes_.empty() ? versionId() : change(store); }
    /** The id of the opened version; fails when this is none. */
    std::int64_t versionId() const;
    /** Fails when another object than the opened one is meant. */
    void checkSameId() const;
    /** The declared values of the stored object; fails when another user changed or deleted it meanwhile. */
    Values unchangedSince(Store& store) const;
    /** Loads what is subscribed and takes note of the object's state. */
    void load(Store& store, std::int64_t id);

    const Class* class_;
    Values given_;   // everything set since the handle was made
    Values changes_; // what was set since the last open or save
    Values loaded_;
    std::vector<std::string> subscribed_;
    std::optional<Stored> stored_;
};

} // namespace qvserver

#endif
