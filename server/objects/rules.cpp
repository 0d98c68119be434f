// SPDX-License-Identifier: Apache-2.0
#include "server/objects/rules.h"

#include <algorithm>
#include <string>

namespace qvserver {

namespace {

/** A number that no other object of the class has: the text of the attribute and a counter of six digits or more. */
std::string unusedNumber(Store& store, const Class& objectClass, const Attribute& attribute)
{
    constexpr std::size_t digits = 6;
    std::string number;
    do {
        const std::string counter = std::to_string(store.nextNumber());
        number = attribute.text;
        number.append(digits - std::min(digits, counter.size()), '0').append(counter);
    } while (exists(store, {&objectClass, {}, {equals(attribute.path, number)}}));
    return number;
}

std::string countOfAlike(Store& store, const Class& objectClass, std::string_view path,
                         std::string_view value)
{
    return std::to_string(idsOf(store, {&objectClass, {}, {equals(path, value)}}).size() + 1);
}

/** Sets the flag of the objects with that value, which is linked with `flagging` objects, as they are stored now. */
void refreshFlag(Store& store, const Class& flagging, std::string_view value)
{
    const Flag& flag = *flagging.flag;
    const std::string path(flag.path);
    const Class& flagged = classNamed(flag.target);
    const std::string text = exists(store, {&flagging, {}, {equals(flag.link.from, value)}}) ? "Y" : "N";
    const auto rows =
        store.select({&flagged, {std::string(objectIdPath), path}, {equals(flag.link.to, value)}});
    for (std::size_t row = 0; row < rows->size(); ++row) {
        if (rows->value(row, 1) != text) {
            store.update(flagged, integerAt(*rows, row, 0), {{path, text}}, Count::Nothing);
        }
    }
}

} // namespace

void fillFromStore(Store& store, const Class& objectClass, Values& values)
{
    for (const Attribute& attribute : objectClass.attributes) {
        if (!withoutTrailingBlanks(valueOf(values, attribute.path)).empty()) {
            continue;
        }
        const std::string path(attribute.path);
        if (attribute.source == Source::Numbered) {
            values[path] = unusedNumber(store, objectClass, attribute);
        } else if (attribute.source == Source::Counted) {
            values[path] = countOfAlike(store, objectClass, attribute.text, valueOf(values, attribute.text));
        }
    }
}

void refreshFlags(Store& store, const Class& objectClass, const Values& values)
{
    if (objectClass.flag) {
        refreshFlag(store, objectClass, valueOf(values, objectClass.flag->link.from));
    }
    for (const Class& other : allClasses()) {
        if (other.flag && other.flag->target == objectClass.name) {
            refreshFlag(store, other, valueOf(values, other.flag->link.to));
        }
    }
}

void createCompanion(Store& store, const Class& objectClass, const Values& set, const Values& values)
{
    if (!objectClass.companion || !sameText(valueOf(set, objectClass.companion->path), "TRUE")) {
        return;
    }
    const Class& target = classNamed(objectClass.companion->target);
    Query stored = {&target};
    Values keys;
    for (const std::string_view key : target.keys) {
        stored.where.push_back(equals(key, valueOf(values, key)));
        keys.emplace(key, valueOf(values, key));
    }
    if (!exists(store, stored)) {
        store.insert(target, store.nextNumber(), keys);
    }
}

} // namespace qvserver
