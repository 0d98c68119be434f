// SPDX-License-Identifier: Apache-2.0
//
// The rows of a list, kept apart from the store.
#ifndef VELRZM_SERVER_STORE_ROWS_H
#define VELRZM_SERVER_STORE_ROWS_H

#include <algorithm>
#include <cstddef>
#include <deque>
#include <map>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qvserver {

/** Rows that can be read, however they are kept. */
class RowSet {
public:
    RowSet() = default;
    RowSet(const RowSet&) = delete;
    RowSet& operator=(const RowSet&) = delete;
    virtual ~RowSet() = default;

    virtual std::size_t size() const noexcept = 0;
    /** The place of the column `path`; none when it is not among the columns. */
    virtual std::optional<std::size_t> column(std::string_view path) const = 0;
    /** The value, ended by a NUL; valid as long as the rows. */
    virtual const char* value(std::size_t row, std::size_t column) const noexcept = 0;
};

/** Rows of texts. Nothing is copied or moved while they grow, and little memory is taken ahead. */
class Rows final : public RowSet {
public:
    /** The values of a row, one for each column. */
    using Row = const char* const*;

    explicit Rows(const std::vector<std::string>& columns) : width_(columns.size())
    {
        for (std::size_t column = 0; column < width_; ++column) {
            columns_.emplace(columns[column], column);
        }
    }

    /** Begins a row; its values follow with `append`, one for each column. */
    void beginRow()
    {
        next_ = static_cast<const char**>(memory_.allocate(width_ * sizeof *next_, alignof(const char*)));
        rows_.push_back(next_);
    }
    void append(std::string_view value)
    {
        auto* const text = static_cast<char*>(memory_.allocate(value.size() + 1, alignof(char)));
        *std::copy(value.begin(), value.end(), text) = '\0';
        *next_++ = text;
    }

    std::size_t size() const noexcept override { return rows_.size(); }
    bool empty() const noexcept { return rows_.empty(); }
    std::size_t width() const noexcept { return width_; }

    std::optional<std::size_t> column(std::string_view path) const override
    {
        const auto found = columns_.find(path);
        return found == columns_.end() ? std::nullopt : std::optional(found->second);
    }
    Row row(std::size_t row) const noexcept { return rows_[row]; }
    const char* value(std::size_t row, std::size_t column) const noexcept override
    {
        return rows_[row][column];
    }

private:
    std::pmr::monotonic_buffer_resource memory_; // of the rows, each with its texts behind it
    std::map<std::string, std::size_t, std::less<>> columns_;
    std::size_t width_;
    std::pmr::deque<Row> rows_{&memory_};
    const char** next_ = nullptr; // of the values of the last row
};

} // namespace qvserver

#endif
