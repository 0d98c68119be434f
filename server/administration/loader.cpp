// SPDX-License-Identifier: Apache-2.0
#include "server/administration/loader.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <utility>

#include "csv/csv_file.h"
#include "server/base/errors.h"

namespace qvserver {

namespace {

std::vector<csv::Record> recordsOf(const std::string& path)
{
    try {
        return csv::readFile(path);
    } catch (const csv::Error& error) {
        fail(Failure::BadArgument, error.what(), "; nothing was loaded");
    }
}

/** Turns the records of a file into the values of objects; refuses records that are wrong. */
class Reader {
public:
    Reader(const LoadFormat& format, const std::string& path)
        : format_(format), class_(classNamed(format.className)), path_(path)
    {}

    std::vector<Values> read()
    {
        const std::vector<csv::Record> records = recordsOf(path_);
        if (records.empty()) {
            refuse(1, "the file is empty; its first line must be ", header());
        }
        takeHeader(records.front());
        std::vector<Values> rows;
        for (auto record = records.begin() + 1; record != records.end(); ++record) {
            rows.push_back(valuesOf(*record));
        }
        return rows;
    }

private:
    std::string header() const
    {
        return joined(format_.columns, ",", [](const LoadColumn& column) { return column.name; });
    }

    /** Reads the names of the columns, which may be in any order. */
    void takeHeader(const csv::Record& record)
    {
        for (const std::string& field : record.fields) {
            const auto column =
                std::find_if(format_.columns.begin(), format_.columns.end(),
                             [&field](const LoadColumn& known) { return known.name == field; });
            if (column != format_.columns.end()) {
                columns_.push_back(&*column);
            }
        }
        const std::set<const LoadColumn*> distinct(columns_.begin(), columns_.end());
        if (distinct.size() != format_.columns.size() || record.fields.size() != format_.columns.size()) {
            refuse(record.line, "the first line must name the columns ", header(), ", but is ",
                   inQuotes(joined(record.fields, ",")));
        }
    }

    Values valuesOf(const csv::Record& record)
    {
        if (record.fields.size() != columns_.size()) {
            refuse(record.line, "the row has ", record.fields.size(), " fields instead of ", columns_.size(),
                   ", ", header());
        }
        Values values;
        for (std::size_t place = 0; place < columns_.size(); ++place) {
            checkField(record.line, *columns_[place], record.fields[place]);
            values.emplace(columns_[place]->path, record.fields[place]);
        }
        checkUnique(record.line, values);
        return values;
    }

    void checkField(std::size_t line, const LoadColumn& column, const std::string& value) const
    {
        if (!column.mayBeEmpty && withoutTrailingBlanks(value).empty()) {
            refuse(line, "the column ", column.name, " is empty");
        }
        if (value.size() > QV_MAX_VALUE_LENGTH) {
            refuse(line, "the column ", column.name, " has ", value.size(), " characters; at most ",
                   QV_MAX_VALUE_LENGTH, " can be stored");
        }
        if (value.find('\0') != std::string::npos) {
            refuse(line, "the column ", column.name,
                   " contains a NUL character; save the file as UTF-8 text");
        }
    }

    void checkUnique(std::size_t line, const Values& values)
    {
        std::vector<std::string> keys;
        for (const std::string_view key : class_.keys) {
            keys.emplace_back(withoutTrailingBlanks(valueOf(values, key)));
        }
        const auto [first, isNew] = lineOfKeys_.emplace(std::move(keys), line);
        if (!isNew) {
            refuse(line, inQuotes(joined(first->first, ",")), " is already in line ", first->second);
        }
    }

    template <typename... Pieces>
    [[noreturn]] void refuse(std::size_t line, const Pieces&... pieces) const
    {
        fail(Failure::BadArgument, path_, ':', line, ": ", pieces..., "; nothing was loaded");
    }

    const LoadFormat& format_;
    const Class& class_;
    const std::string& path_;
    std::vector<const LoadColumn*> columns_; // in the file's order
    std::map<std::vector<std::string>, std::size_t> lineOfKeys_;
};

/** Removes the objects that have that value of `path`. */
void removeAll(Store& store, const Class& objectClass, std::string_view path, std::string_view value)
{
    for (const std::int64_t id : idsOf(store, {&objectClass, {}, {equals(path, value)}})) {
        store.remove(objectClass, id);
    }
}

} // namespace

const LoadFormat& productOptions()
{
    static const LoadFormat format = {
        classes::productOption, {{"product", "product"}, {"feature", "feature"}, {"variant", "variant"}}};
    return format;
}

const LoadFormat& productPackages()
{
    static const LoadFormat format = {classes::productPackage,
                                      {{"product", "product"}, {"package_id", "package_id"}}};
    return format;
}

const LoadFormat& translationTables()
{
    static const LoadFormat format = {classes::translationEntry,
                                      {{"table", "table_name"}, {"from", "from"}, {"to", "to", true}}};
    return format;
}

std::size_t load(Store& store, const LoadFormat& format, const std::string& path)
{
    const std::vector<Values> rows = Reader(format, path).read();
    const Class& objectClass = classNamed(format.className);
    const std::string_view ownerPath = format.columns.front().path;
    std::set<std::string_view> owners;
    for (const Values& row : rows) {
        owners.insert(withoutTrailingBlanks(valueOf(row, ownerPath)));
    }
    Transaction transaction(store, Access::Write);
    for (const std::string_view owner : owners) {
        removeAll(store, objectClass, ownerPath, owner);
    }
    for (const Values& row : rows) {
        if (!store.insert(objectClass, store.nextNumber(), row)) {
            fail(Failure::AlreadyStored, "the store already has a row of ", path);
        }
    }
    transaction.commit();
    return rows.size();
}

} // namespace qvserver
