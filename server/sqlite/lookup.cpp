// SPDX-License-Identifier: Apache-2.0
#include "server/sqlite/lookup.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace qvserver {

namespace {

/** With fewer questions the pages of the index that were met stay at hand in any order. */
constexpr std::size_t manyQuestions = 1000;
/** Reading the attribute of so many objects costs about as much as looking for one value. */
constexpr std::size_t objectsOfAQuestion = 8;
/** So that few values share the bit of a stored one, and all bits stay in the cache of the processor. */
constexpr std::size_t bitsOfAnObject = 8;

Query withIdFor(Query query, std::string_view path)
{
    query.ordered = false;
    query.select.emplace_back(objectIdPath);
    query.where.push_back(equals(path, ""));
    return query;
}

} // namespace

SqliteLookup::SqliteLookup(SqliteDatabase& database, Query query, std::string_view path)
    : database_(database), path_(path), table_(sqlName(query.objectClass->name)),
      sql_(sqlOf(withIdFor(std::move(query), path))), statement_(database.use(sql_))
{}

void SqliteLookup::expect(std::size_t values)
{
    if (!stored_.empty() || values < manyQuestions) {
        return;
    }
    if (!mostObjects_) {
        // The largest id, which is there at once, instead of a count, which is not.
        auto last = database_.use("SELECT MAX(db_object_id) FROM " + table_);
        last->step();
        mostObjects_ = static_cast<std::size_t>(last->integer(0));
    }
    if (*mostObjects_ <= objectsOfAQuestion * values) {
        readStored(*mostObjects_);
    }
}

void SqliteLookup::find(Rows& rows, const Answer& answer)
{
    if (questions_.size() >= manyQuestions) {
        std::sort(questions_.begin(), questions_.end(),
                  [](const Question& left, const Question& right) { return left.head < right.head; });
    }
    for (const Question& question : questions_) {
        if (&question != &questions_.back()) {
            __builtin_prefetch((&question + 1)->value.data());
        }
        const std::size_t firstRow = rows.size();
        findOne(question.value, rows);
        if (!ids_.empty()) {
            answer(question.key, firstRow, ids_);
        }
    }
    questions_.clear();
}

/** The first characters of a text as numbers that are in the order of the texts. */
SqliteLookup::Head SqliteLookup::headOf(std::string_view text) noexcept
{
    Head head = {};
    std::size_t index = 0;
    for (std::uint64_t& part : head) {
        for (std::size_t end = index + sizeof part; index < end; ++index) {
            part = part << 8U | (index < text.size() ? static_cast<unsigned char>(text[index]) : 0U);
        }
    }
    return head;
}

void SqliteLookup::readStored(std::size_t mostObjects)
{
    stored_.resize(bitsOfAnObject * mostObjects + 1);
    auto value = database_.use("SELECT DISTINCT " + sqlName(path_) + " FROM " + table_);
    while (value->step()) {
        stored_[hashOf(value->text(0)) % stored_.size()] = true;
    }
}

void SqliteLookup::findOne(std::string_view value, Rows& rows)
{
    ids_.clear();
    statement_->rewind();
    statement_->bind(static_cast<int>(sql_.parameters.size()), value);
    while (statement_->step()) {
        statement_->appendTo(rows);
        ids_.push_back(statement_->integer(static_cast<int>(rows.width())));
    }
}

} // namespace qvserver
