// SPDX-License-Identifier: Apache-2.0
#include "server/objects/references.h"

#include <algorithm>

#include "server/base/errors.h"

namespace qvserver {

namespace {

/** Objects whose attributes `wanted` have the values that `source` has in `values`. */
Query linked(const Class& objectClass, const Reference& reference, std::string_view Link::*wanted,
             std::string_view Link::*source, const Values& values)
{
    Query query = {&objectClass};
    for (const Link& link : reference.links) {
        query.where.push_back(equals(link.*wanted, valueOf(values, link.*source)));
    }
    return query;
}

Query targetsOf(const Reference& reference, std::string_view Link::*source, const Values& values)
{
    return linked(classNamed(reference.target), reference, &Link::to, source, values);
}

std::string describe(const Reference& reference, std::string_view Link::*source, const Values& values)
{
    return joined(reference.links, ", ", [&](const Link& link) {
        return pathWithValue(link.*source, valueOf(values, link.*source));
    });
}

/** Calls `visit(referring class, reference)` for every reference to `target` that the class table knows. */
template <typename Visit>
void forEachReferenceTo(const Class& target, Visit visit)
{
    for (const Class& referring : allClasses()) {
        for (const Reference& reference : referring.references) {
            if (reference.target == target.name) {
                visit(referring, reference);
            }
        }
    }
}

} // namespace

void checkReferences(Store& store, const Class& objectClass, const Values& values)
{
    for (const Reference& reference : objectClass.references) {
        const bool refers =
            std::any_of(reference.links.begin(), reference.links.end(), [&](const Link& link) {
                return !withoutTrailingBlanks(valueOf(values, link.from)).empty();
            });
        if ((refers || reference.needed == Needed::Always) &&
            !exists(store, targetsOf(reference, &Link::from, values))) {
            fail(Failure::ReferenceMissing, "the ", objectClass.name, " refers to ", reference.target, " ",
                 describe(reference, &Link::from, values), ", which is not stored; create it first");
        }
    }
}

void checkNotReferred(Store& store, const Class& objectClass, const Values& oldValues)
{
    forEachReferenceTo(objectClass, [&](const Class& referring, const Reference& reference) {
        if (!exists(store, targetsOf(reference, &Link::to, oldValues)) &&
            exists(store, linked(referring, reference, &Link::from, &Link::to, oldValues))) {
            fail(Failure::StillReferred, "the ", objectClass.name, " with ",
                 describe(reference, &Link::to, oldValues), " is still referred to by the ", referring.name,
                 "; delete it first");
        }
    });
}

void deleteParts(Store& store, const Class& objectClass, const Values& oldValues)
{
    forEachReferenceTo(objectClass, [&](const Class& referring, const Reference& reference) {
        if (reference.onDelete == OnDelete::DeleteToo) {
            const Query parts = linked(referring, reference, &Link::from, &Link::to, oldValues);
            for (const std::int64_t id : idsOf(store, parts)) {
                store.remove(referring, id);
            }
        }
    });
    checkNotReferred(store, objectClass, oldValues);
}

} // namespace qvserver
