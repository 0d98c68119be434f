// SPDX-License-Identifier: Apache-2.0
//
// Objects as callers work with them.
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

/**
 * What an object handle stands for: the attributes that the caller set and those that were loaded, and the stored object
 * that it was opened or saved as, if it was. A call that fails leaves it as it was.
 */
class Object {
public:
    explicit Object(const Class& objectClass) : class_(&objectClass) {}

    /** Sets an attribute: what to look for when an open follows, else what to store. */
    void set(std::string_view path, std::string_view value);
    /** Has the attribute loaded by every open and save. */
    void subscribe(std::string_view path);
    /** The value that was set or loaded last; fails when there is none. */
    const std::string& get(std::string_view path) const;

    /** Finds the stored object by the attributes that are set, and loads the subscribed ones. */
    void open(Store& store);
    /** Changes the stored object if this one was opened or saved before, else creates one. */
    void save(Store& store, const std::string& user);
    /** Deletes the stored object: the opened one, else the one that the attributes identify. */
    void remove(Store& store, const std::string& user);

    // Calls of the vault, on an opened version of a document. Each one also stores what was set on this object, in
    // the version that it stands for afterwards, and loads the subscribed attributes. An object that was opened by its
    // keys stands for the newest version; a call that ends a check-out has it stand for the one that `user` holds.
    /** Stores a new document, whose first version is checked in. */
    void createAndCheckIn(Store& store);
    /** Checks the version out to `user`. */
    void checkOut(Store& store, const std::string& user);
    /** Ends the check-out and stores the next version, which this object then stands for. */
    void checkIn(Store& store, const std::string& user);
    /** Ends the check-out without another version. */
    void cancelCheckOut(Store& store, const std::string& user);
    /** Stores the next revision of the document as a copy of this one, and returns it. */
    Object makeRevision(Store& store, const std::string& user);
    /** Sets the attributes that a check-in fills in, unless they are set already. */
    void setCheckInDefaults(Store& store, const std::string& user);
    /** Does nothing but check the handle: a check-out has no attributes to fill in. */
    void setCheckOutDefaults() const;

    /** From now on everything that is stored or loaded belongs to a multi-save. */
    void multiSaveStarted() noexcept;
    /** The multi-save was discarded, in which the objects with an id above `lastId` were created. This object stands for
     * such a one no longer; one that it loaded must be opened again before it is saved. */
    void multiSaveDiscarded(std::int64_t lastId) noexcept;

private:
    /** The stored object, and how often it had been saved when it was loaded. */
    struct Stored {
        std::int64_t id;
        std::int64_t updateCount;
        bool isInMultiSave = true; // loaded since the last multi-save began, if any did
    };

    /** Runs `work(object)` on a copy of this object in one transaction, and loads the object whose id it returns, which
     * this one then stands for. */
    template <typename Work>
    void storeAndLoad(Store& store, Work work);
    std::int64_t create(Store& store) const;
    std::int64_t insert(Store& store, Values values) const;
    std::int64_t change(Store& store, const std::string& user) const;
    /** Like `change`, unless nothing was set. */
    std::int64_t storeChanges(Store& store, const std::string& user) const
    {
        return changes_.empty() ? versionId() : change(store, user);
    }
    /** Has an object that was opened by its keys stand for the version of the revision that `user` holds. */
    void turnToHeld(Store& store, const std::string& user);
    /** The id of the opened version; fails when none was opened. */
    std::int64_t versionId() const;
    /** Fails when the db_object_id that was set is not that of the opened object. */
    void checkSameId() const;
    /** The values of the stored object in the attributes of its class; fails when another user holds it, or has changed
     * or deleted it since it was loaded. */
    Values changeable(Store& store, const std::string& user) const;
    /** Loads the subscribed attributes; from then on this object stands for the stored one. */
    void load(Store& store, std::int64_t id);

    const Class* class_;
    Values attributes_; // everything that was set since the handle was created
    Values changes_;    // what was set since the last open or save
    Values loaded_;
    std::vector<std::string> subscribed_;
    std::optional<Stored> stored_;
};

} // namespace qvserver

#endif
