// SPDX-License-Identifier: Apache-2.0
#include "tools/process/server_list.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <velrzm/errors.h>
#include <velrzm/qv_sdk.h>
#include <velrzm/result.h>

#include "tools/process/interruption.h"
#include "tools/process/library_output.h"

namespace tools {

namespace {

/** The check after a call of the server, with the reports that the library makes after its own calls. */
void check(int code, std::string function, std::string detail = {}, std::string value = {})
{
    std::string prefix = "velrzm";
    QV_RC = code;
    if (Process_QV_RC(prefix.data(), function.data(), detail.data(), value.data(), 1) != 0) {
        throwServerFailure("the search");
    }
}

/** A list of the server that goes when this object goes. */
class OpenList {
public:
    explicit OpenList(const ServerList& list)
    {
        check(QV_Create_List(&handle_, list.className), "QV_Create_List", list.className);
        clauses("Select", list.select);
        clauses("Where", list.where);
        clauses("OrderBy", list.orderBy);
        check(QV_Open_List(handle_), "QV_Open_List");
        check(QV_SizeOf_List(handle_, &size_), "QV_SizeOf_List");
    }
    ~OpenList() { QV_Destroy_List(&handle_); }
    OpenList(const OpenList&) = delete;
    OpenList& operator=(const OpenList&) = delete;

    int size() const { return size_; }
    QV_ListHandle handle() const { return handle_; }

private:
    void clauses(const char* kind, const std::vector<std::string>& texts)
    {
        for (const std::string& text : texts) {
            check(QV_Set_Clause(handle_, kind, text.c_str()), "QV_Set_Clause", kind, text);
        }
    }

    QV_ListHandle handle_ = nullptr;
    int size_ = 0;
};

/** A record of a list. */
class Record {
public:
    Record(const OpenList& list, int index)
    {
        check(QV_Read_List(list.handle(), index, &handle_), "QV_Read_List");
    }
    ~Record() { QV_Destroy_Object(&handle_); }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    std::string value(const std::string& path) const
    {
        const char* text = nullptr;
        check(QV_Get_Object_Attr(handle_, path.c_str(), &text), "QV_Get_Object_Attr", path);
        return text == nullptr ? "" : text;
    }

private:
    QV_ObjectHandle handle_ = nullptr;
};

using Values = std::vector<std::string>::const_iterator;

/** An apostrophe would end the text of the clause: a pattern has a place for any sign instead. */
std::string clauseOf(const std::string& path, std::string value)
{
    const bool isPattern = value.find('\'') != std::string::npos;
    std::replace(value.begin(), value.end(), '\'', '_');
    return (isPattern ? "&LIKE(" : "&=(") + path + ",'" + value + "')";
}

/** An OR has two sides, so many values make a tree; a balanced one stays flat. */
std::string clauseOf(const std::string& path, Values first, Values last)
{
    if (last - first == 1) {
        return clauseOf(path, *first);
    }
    const auto middle = first + (last - first) / 2;
    return "&OR(" + clauseOf(path, first, middle) + "," + clauseOf(path, middle, last) + ")";
}

} // namespace

std::vector<std::vector<std::string>> rowsOf(const ServerList& list)
{
    const OpenList open(list);
    std::vector<std::vector<std::string>> rows(static_cast<std::size_t>(open.size()));
    for (int index = 0; index < open.size(); ++index) {
        checkInterruption();
        const Record record(open, index);
        std::vector<std::string>& row = rows[static_cast<std::size_t>(index)];
        std::transform(list.select.begin(), list.select.end(), std::back_inserter(row),
                       [&record](const std::string& path) { return record.value(path); });
    }
    return rows;
}

std::string isOneOf(const std::string& path, const std::vector<std::string>& values)
{
    return clauseOf(path, values.begin(), values.end());
}

std::vector<std::vector<std::string>> rowsOfAny(ServerList list, const std::string& path,
                                                const std::vector<std::string>& values)
{
    constexpr std::size_t portion = 64;
    std::vector<std::vector<std::string>> rows;
    list.where.emplace_back();
    for (std::size_t done = 0; done < values.size(); done += portion) {
        const auto first = values.begin() + static_cast<std::ptrdiff_t>(done);
        list.where.back() = clauseOf(
            path, first, first + static_cast<std::ptrdiff_t>(std::min(portion, values.size() - done)));
        std::vector<std::vector<std::string>> more = rowsOf(list);
        std::move(more.begin(), more.end(), std::back_inserter(rows));
    }
    return rows;
}

} // namespace tools
