// SPDX-License-Identifier: Apache-2.0
//
// Views of what callers pass to operations: the names of attributes to read back, and pairs of names and
// values.
#ifndef VELRZM_FRAME_NAMES_H
#define VELRZM_FRAME_NAMES_H

#include <algorithm>

#include <velrzm/vel_types.h>

#include "diagnostics/text.h"

namespace velrzm {

/** Walks anything that has `operator[](int)`, so that a view can stand in a range-based for. */
template <class View>
class IndexIterator {
public:
    IndexIterator(const View& view, int index) noexcept : view_(&view), index_(index) {}
    auto operator*() const { return (*view_)[index_]; }
    IndexIterator& operator++() noexcept
    {
        ++index_;
        return *this;
    }
    bool operator!=(const IndexIterator& other) const noexcept { return index_ != other.index_; }

private:
    const View* view_;
    int index_;
};

/** The names of attributes to read back, as an array closed by a null pointer or as a list. */
class AttributeNames {
public:
    // NOLINTBEGIN(google-explicit-constructor): an operation hands on what its caller passed
    AttributeNames(const char* const* array) noexcept : array_(array)
    {
        while (array_ != nullptr && array_[size_] != nullptr) {
            ++size_;
        }
    }
    AttributeNames(const VELListValVELUnicodeString& list) noexcept : list_(&list), size_(list.Size()) {}
    // NOLINTEND(google-explicit-constructor)

    /** Whether the names came as a list, whose positions count from 1. */
    bool isList() const noexcept { return list_ != nullptr; }
    int size() const noexcept { return size_; }
    const char* operator[](int index) const
    {
        return isList() ? (*list_)[index + 1].CastToCharPtr() : array_[index];
    }
    IndexIterator<AttributeNames> begin() const noexcept { return {*this, 0}; }
    IndexIterator<AttributeNames> end() const noexcept { return {*this, size_}; }

private:
    const char* const* array_ = nullptr;
    const VELListValVELUnicodeString* list_ = nullptr;
    int size_ = 0;
};

/** An attribute and its value; the value is null where none was given. */
struct Pair {
    const char* name;
    const char* value;
};

/** Names and values that stand at the same positions of two lists or of two arrays. */
class Pairs {
public:
    /** At most `limit` pairs of two lists; a value that the shorter list lacks is null. */
    Pairs(const VELListValVELUnicodeString& names, const VELListValVELUnicodeString& values, int limit)
        : names_(names), valueList_(&values), size_(std::min(names_.size(), limit))
    {}
    Pairs(const VELListValVELUnicodeString& names, const VELListValVELUnicodeString& values)
        : Pairs(names, values, names.Size())
    {}
    /** The pairs of two arrays; a null pointer closes the names, and there are as many values. */
    Pairs(const char* const* names, const char* const* values) noexcept
        : names_(names), valueArray_(values), size_(names_.size())
    {}

    int size() const noexcept { return size_; }
    Pair operator[](int index) const { return {names_[index], valueOf(index)}; }
    IndexIterator<Pairs> begin() const noexcept { return {*this, 0}; }
    IndexIterator<Pairs> end() const noexcept { return {*this, size_}; }

private:
    const char* valueOf(int index) const
    {
        if (valueList_ == nullptr) {
            return valueArray_ == nullptr ? nullptr : valueArray_[index];
        }
        const bool missing = index >= valueList_->Size() || (*valueList_)[index + 1].IsNull();
        return missing ? nullptr : (*valueList_)[index + 1].CastToCharPtr();
    }

    AttributeNames names_;
    const VELListValVELUnicodeString* valueList_ = nullptr;
    const char* const* valueArray_ = nullptr;
    int size_;
};

} // namespace velrzm

#endif
