// SPDX-License-Identifier: Apache-2.0
#include "server/objects/filling.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "server/base/text.h"
#include "server/objects/revision_number.h"

namespace qvserver {

namespace {

/** Whether callers alone choose the value of an attribute, but for a number or for what it follows. */
bool isInheritable(Source source)
{
    return source == Source::Caller || source == Source::Numbered || source == Source::Follows;
}

/** Whether what callers set of an attribute is kept. */
bool isCallers(Source source)
{
    return isInheritable(source) || source == Source::Default || source == Source::Counted;
}

template <typename Accept>
Values selected(const Values& values, Accept accept)
{
    Values chosen;
    std::copy_if(values.begin(), values.end(), std::inserter(chosen, chosen.end()),
                 [&](const auto& entry) { return accept(entry.first); });
    return chosen;
}

} // namespace

Values storable(const Class& objectClass, const Values& set)
{
    Values values = selected(set, [&](std::string_view path) {
        const Attribute* attribute = objectClass.attribute(path);
        const bool isPlain = path != objectIdPath && path != updateCountPath &&
                             (!objectClass.companion || path != objectClass.companion->path);
        return attribute == nullptr ? isPlain : isCallers(attribute->source);
    });
    for (const Attribute& attribute : objectClass.attributes) {
        const auto leader = values.find(attribute.text);
        if (attribute.source == Source::Follows && leader != values.end()) {
            values.try_emplace(std::string(attribute.path), leader->second);
        }
    }
    return values;
}

Values inheritable(const Class& objectClass, const Values& values)
{
    return selected(values, [&](std::string_view path) {
        const Attribute* attribute = objectClass.attribute(path);
        return attribute == nullptr || isInheritable(attribute->source);
    });
}

void fillDerived(const Class& objectClass, const Values& all, Values& changed)
{
    for (const Attribute& attribute : objectClass.attributes) {
        if (attribute.source == Source::Copy) {
            changed.insert_or_assign(std::string(attribute.path), std::string(valueOf(all, attribute.text)));
        } else if (attribute.source == Source::RevisionSort) {
            changed.insert_or_assign(std::string(attribute.path),
                                     revisionSortValue(valueOf(all, attribute.text)));
        }
    }
}

void fillNew(const Class& objectClass, std::int64_t id, Values& values)
{
    for (const Attribute& attribute : objectClass.attributes) {
        const std::string path(attribute.path);
        const bool hasText = attribute.source == Source::Default || attribute.source == Source::Server;
        if (hasText && withoutTrailingBlanks(valueOf(values, path)).empty()) {
            values[path] = attribute.text;
        } else if (attribute.source == Source::OwnId) {
            values[path] = std::to_string(id);
        }
    }
    fillDerived(objectClass, values, values);
}

} // namespace qvserver
