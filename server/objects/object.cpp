// SPDX-License-Identifier: Apache-2.0
#include "server/objects/object.h"

#include <algorithm>
#include <limits>

#include "server/base/errors.h"
#include "server/objects/filling.h"
#include "server/objects/identification.h"
#include "server/objects/references.h"
#include "server/objects/rules.h"
#include "server/objects/vault.h"
#include "server/structure/cycles.h"

namespace qvserver {

namespace {

[[noreturn]] void failAlreadyStored(const Class& objectClass, const Values& values)
{
    fail(Failure::AlreadyStored, "the ", objectClass.name, " with ", keysOf(objectClass, values),
         " is already stored; open it to change it");
}

} // namespace

void Object::set(std::string_view path, std::string_view value)
{
    checkPath(path);
    if (value.size() > QV_MAX_VALUE_LENGTH) {
        fail(Failure::ValueTooLong, "the value ", inQuotes(value), " of ", path, " has ", value.size(),
             " characters; at most ", QV_MAX_VALUE_LENGTH, " can be stored");
    }
    const auto separator = path.find('@');
    const Relation* relation =
        separator == std::string_view::npos ? nullptr : class_->relation(path.substr(0, separator));
    if (relation != nullptr && class_->attribute(path) == nullptr) {
        fail(Failure::BadPath, path, " is an attribute of the related ", relation->target,
             "; set it on that object");
    }
    attributes_.insert_or_assign(std::string(path), std::string(value));
    changes_.insert_or_assign(std::string(path), std::string(value));
}

void Object::subscribe(std::string_view path)
{
    checkPath(path);
    if (std::find(subscribed_.begin(), subscribed_.end(), path) == subscribed_.end()) {
        subscribed_.emplace_back(path);
    }
}

const std::string& Object::get(std::string_view path) const
{
    for (const Values* values : {&changes_, &loaded_}) {
        if (const auto found = values->find(path); found != values->end()) {
            return found->second;
        }
    }
    fail(Failure::NotLoaded, "the attribute ", inQuotes(path), " of this ", class_->name,
         " was not loaded; subscribe to it before the open or save");
}

void Object::open(Store& store)
{
    Transaction transaction(store, Access::Read);
    load(store, objectToOpen(store, *class_, attributes_));
    transaction.commit();
}

template <typename Work>
void Object::storeAndLoad(Store& store, Work work)
{
    Object next = *this; // replaces this one when everything is stored
    Transaction transaction(store, Access::Write);
    next.load(store, work(next));
    transaction.commit();
    *this = std::move(next);
}

void Object::save(Store& store, const std::string& user)
{
    storeAndLoad(store, [&](const Object& object) {
        return object.stored_ ? object.change(store, user) : object.create(store);
    });
}

std::int64_t Object::create(Store& store) const
{
    if (const auto id = valueOf(attributes_, objectIdPath); !withoutTrailingBlanks(id).empty()) {
        fail(Failure::BadArgument, pathWithValue(objectIdPath, id), " is set on a new ", class_->name,
             "; open the object to change it, or leave the id empty to create a new one");
    }
    return insert(store, storable(*class_, attributes_));
}

std::int64_t Object::insert(Store& store, Values values) const
{
    const std::int64_t id = store.nextNumber();
    fillFromStore(store, *class_, values);
    if (withoutTrailingBlanks(valueOf(values, class_->keys.front())).empty()) {
        fail(Failure::BadArgument, "the ", class_->name, " needs a value of ", class_->keys.front());
    }
    fillNew(*class_, id, values);
    checkReferences(store, *class_, values);
    if (!store.insert(*class_, id, values)) {
        failAlreadyStored(*class_, values);
    }
    checkNoCycle(store, *class_, values);
    refreshFlags(store, *class_, values);
    createCompanion(store, *class_, attributes_, values);
    return id;
}

Values Object::changeable(Store& store, const std::string& user) const
{
    Query query = {class_, {std::string(updateCountPath)}, {isObject(stored_->id)}};
    for (const Attribute& attribute : class_->attributes) {
        query.select.emplace_back(attribute.path);
    }
    const auto rows = store.select(query);
    if (rows->empty()) {
        failDeleted(*class_, stored_->id);
    }
    Values values;
    for (std::size_t column = 1; column < query.select.size(); ++column) {
        values.emplace(query.select[column], rows->value(0, column));
    }
    checkNotHeldByOther(*class_, values, user);
    if (integerAt(*rows, 0, 0) != stored_->updateCount) {
        fail(Failure::ChangedByOther, "the ", class_->name, " with db_object_id '", stored_->id,
             "' is not as it was when it was opened: another user saved it, or a multi-save was discarded; "
             "nothing was stored, open it again and repeat the change");
    }
    return values;
}

void Object::checkSameId() const
{
    const auto id = withoutTrailingBlanks(valueOf(changes_, objectIdPath));
    if (!id.empty() && id != std::to_string(stored_->id)) {
        fail(Failure::BadArgument, pathWithValue(objectIdPath, id), " is set on the opened ", class_->name,
             " with db_object_id '", stored_->id, "'; open the other one to change it");
    }
}

std::int64_t Object::change(Store& store, const std::string& user) const
{
    checkSameId();
    const Values before = changeable(store, user);
    if (stored_->updateCount == std::numeric_limits<std::int64_t>::max()) {
        fail(Failure::RangeEnd, "the ", class_->name, " with db_object_id '", stored_->id, "' was saved ",
             stored_->updateCount, " times, which is as often as can be counted");
    }
    Values changed = storable(*class_, changes_);
    Values after = changed;
    after.insert(before.begin(), before.end()); // keeps what is changed
    fillDerived(*class_, after, changed);
    checkReferences(store, *class_, after);
    if (!store.update(*class_, stored_->id, changed, Count::Save)) {
        failAlreadyStored(*class_, after);
    }
    checkNotReferred(store, *class_, before);
    checkNoCycle(store, *class_, after);
    refreshFlags(store, *class_, before);
    refreshFlags(store, *class_, after);
    createCompanion(store, *class_, changes_, after);
    return stored_->id;
}

void Object::remove(Store& store, const std::string& user)
{
    Transaction transaction(store, Access::Write);
    Object removed = *this;
    Values wanted = stored_ ? changes_ : attributes_;
    if (stored_) {
        wanted.insert_or_assign(std::string(objectIdPath), std::to_string(stored_->id));
    }
    const std::int64_t id = objectToDelete(store, *class_, wanted);
    if (!stored_) {
        removed.load(store, id);
    }
    const Values values = removed.changeable(store, user);
    store.remove(*class_, id);
    deleteParts(store, *class_, values);
    refreshFlags(store, *class_, values);
    transaction.commit();
    stored_.reset();
    loaded_.clear();
}

void Object::load(Store& store, std::int64_t id)
{
    Query query = {class_, {std::string(updateCountPath)}, {isObject(id)}};
    query.select.insert(query.select.end(), subscribed_.begin(), subscribed_.end());
    query.newestFirst = true;
    query.relatedMayMiss = true;
    query.limit = 1;
    const auto rows = selectStored(store, query);
    Values loaded;
    for (std::size_t column = 1; column < query.select.size(); ++column) {
        loaded.insert_or_assign(query.select[column], rows->value(0, column));
    }
    stored_ = Stored{id, integerAt(*rows, 0, 0)};
    loaded_ = std::move(loaded);
    changes_.clear();
}

std::int64_t Object::versionId() const
{
    checkVaulted(*class_);
    if (!stored_) {
        fail(Failure::NotOpen, "the ", class_->name, " was not opened; open it before this call");
    }
    return stored_->id;
}

void Object::createAndCheckIn(Store& store)
{
    checkVaulted(*class_);
    if (stored_) {
        fail(Failure::AlreadyStored, "the ", class_->name, " is stored already, with db_object_id '",
             stored_->id, "'; check it out and in to make another version, or create a new object");
    }
    storeAndLoad(store, [&](const Object& object) { return object.create(store); });
}

void Object::checkOut(Store& store, const std::string& user)
{
    storeAndLoad(store, [&](const Object& version) {
        checkOutVersion(store, *class_, version.versionId(), user);
        return version.storeChanges(store, user);
    });
}

void Object::turnToHeld(Store& store, const std::string& user)
{
    const std::int64_t opened = versionId();
    if (!withoutTrailingBlanks(valueOf(attributes_, objectIdPath)).empty()) {
        return;
    }
    if (const std::int64_t held = versionHeldBy(store, *class_, opened, user); held != opened) {
        Values changes = std::move(changes_);
        load(store, held);
        changes_ = std::move(changes);
    }
}

void Object::checkIn(Store& store, const std::string& user)
{
    storeAndLoad(store, [&](Object& version) {
        version.turnToHeld(store, user);
        endCheckOut(store, *class_, version.versionId(), user);
        if (!version.changes_.empty()) {
            version.checkSameId();
            version.changeable(store, user);
        }
        return insert(store,
                      nextVersion(store, *class_, version.versionId(), storable(*class_, version.changes_)));
    });
    if (const auto id = attributes_.find(objectIdPath); id != attributes_.end() && !id->second.empty()) {
        id->second = std::to_string(stored_->id); // it was that of the version before
    }
}

void Object::cancelCheckOut(Store& store, const std::string& user)
{
    storeAndLoad(store, [&](Object& version) {
        version.turnToHeld(store, user);
        endCheckOut(store, *class_, version.versionId(), user);
        return version.storeChanges(store, user);
    });
}

Object Object::makeRevision(Store& store, const std::string& user)
{
    Object revision(*class_);
    revision.subscribed_ = subscribed_;
    storeAndLoad(store, [&](const Object& version) {
        checkNotHeld(store, *class_, version.versionId());
        const std::int64_t base = version.storeChanges(store, user);
        revision.load(store, insert(store, nextRevision(store, *class_, base)));
        return base;
    });
    return revision;
}

void Object::setCheckInDefaults(Store& store, const std::string& user)
{
    Transaction transaction(store, Access::Read);
    turnToHeld(store, user);
    for (const auto& [path, value] : checkInDefaults(store, *class_, versionId())) {
        if (changes_.find(path) == changes_.end()) {
            set(path, value);
        }
    }
    transaction.commit();
}

void Object::setCheckOutDefaults() const
{
    static_cast<void>(versionId());
}

void Object::multiSaveStarted() noexcept
{
    if (stored_) {
        stored_->isInMultiSave = false;
    }
}

void Object::multiSaveDiscarded(std::int64_t lastId) noexcept
{
    if (!stored_ || !stored_->isInMultiSave) {
        return;
    }
    if (stored_->id > lastId) {
        stored_.reset();
        loaded_.clear();
    } else {
        stored_->updateCount = 0; // less than that of any stored object
    }
}

} // namespace qvserver
