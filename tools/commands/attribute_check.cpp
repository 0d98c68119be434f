// SPDX-License-Identifier: Apache-2.0
#include "tools/commands/attribute_check.h"

#include <algorithm>

#include <velrzm/qvlocal.h>

#include "tools/output/text.h"
#include "tools/process/failures.h"
#include "tools/process/local_server.h"
#include "tools/process/standard_streams.h"

namespace tools {

namespace {

/** Empty where nobody can tell: there may be no store yet. */
std::vector<qvlocal::AttributeName> knownAttributes(const std::string& className)
{
    if (!localServerServes() || storeIsInMemory()) {
        return {};
    }
    try {
        return qvlocal::attributeNames(qvlocal::currentStore(), className);
    } catch (const qvlocal::StoreError&) {
        return {};
    }
}

std::vector<std::string> pathsOf(const std::vector<qvlocal::AttributeName>& attributes)
{
    std::vector<std::string> paths;
    paths.reserve(attributes.size());
    for (const qvlocal::AttributeName& attribute : attributes) {
        paths.push_back(attribute.path);
    }
    return paths;
}

bool contains(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

void warnOfName(const std::string& className, const std::string& name, const std::vector<std::string>& near)
{
    writeNote("velrzm: no " + className + " has a value of " + quoted(name) + didYouMean(near) + "\n");
}

/** Whether all records, of which there are some, have an empty value in the column. */
bool isEmptyColumn(const Records& records, const std::string& name)
{
    const auto column =
        std::find(records.columns.begin(), records.columns.end(), name) - records.columns.begin();
    return !records.rows.empty() && std::all_of(records.rows.begin(), records.rows.end(),
                                                [column](const std::vector<std::string>& row) {
                                                    return row[static_cast<std::size_t>(column)].empty();
                                                });
}

} // namespace

std::vector<std::string> attributesOf(const std::string& className)
{
    std::vector<std::string> names;
    for (const qvlocal::AttributeName& attribute : knownAttributes(className)) {
        if (!attribute.isRelated) {
            names.push_back(attribute.path);
        }
    }
    if (names.empty()) {
        throw Refused("only a store of the local server in a file tells which attributes it has; name them "
                      "with --select");
    }
    return names;
}

void warnOfUnknownAttributes(const std::string& className, const std::vector<std::string>& names,
                             const Records& records)
{
    std::vector<std::string> suspects;
    std::copy_if(names.begin(), names.end(), std::back_inserter(suspects),
                 [&records](const std::string& name) { return isEmptyColumn(records, name); });
    if (suspects.empty()) {
        return;
    }
    const std::vector<std::string> known = pathsOf(knownAttributes(className));
    for (const std::string& name : suspects) {
        if (!known.empty() && !contains(known, name)) {
            warnOfName(className, name, nearest(name, known));
        }
    }
}

void warnOfMisspeltAttributes(const std::string& className, const std::vector<std::string>& names)
{
    const std::vector<std::string> known = pathsOf(knownAttributes(className));
    for (const std::string& name : names) {
        const std::vector<std::string> near = nearest(name, known);
        if (!contains(known, name) && !near.empty()) {
            warnOfName(className, name, near);
        }
    }
}

} // namespace tools
