// SPDX-License-Identifier: Apache-2.0
//
// The rows of a list, kept apart from the store.
#ifndef VELRZM_PLATFORM_SERVER_ROWS_H
#define VELRZM_PLATFORM_SERVER_ROWS_H

#include <cstddef>
#include <cstdint>
#include <map>
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

/** Rows with all texts in one buffer, eight bytes for the place of each. */
class Rows final : public RowSet {
public:
    explicit Rows(const std::vector<std::string>& columns) : width_(columns.size())
    {
        for (std::size_t column = 0; column < width_; ++column) {
            columns_.emplace(columns[column], column);
        }
    }

    /** Begins a row; its values follow with `append`, one for each column. */
    void beginRow() { ++size_; }
    void append(std::string_view value)
    {
        places_.push_back(texts_.size());
        texts_.append(value).push_back('\0');
    }
    /** Gives back what memory was taken ahead; no row may follow. */
    void finish()
    {
        places_.shrink_to_fit();
        texts_.shrink_to_fit();
    }

    std::size_t size() const noexcept override { return size_; }
    bool empty() const noexcept { return size_ == 0; }
    std::size_t width() const noexcept { return width_; }

    std::optional<std::size_t> column(std::string_view path) const override
    {
        const auto found = columns_.find(path);
        return found == columns_.end() ? std::nullopt : std::optional(found->second);
    }
    const char* value(std::size_t row, std::size_t column) const noexcept override
    {
        return texts_.data() + places_[row * width_ + column];
    }

private:
    std::map<std::string, std::size_t, std::less<>> columns_;
    std::size_t width_;
    std::size_t size_ = 0;
    std::vector<std::uint64_t> places_;
    std::string texts_;
};

} // namespace qvserver

#endif
