// SPDX-License-Identifier: Apache-2.0
#include "tools/structure/component_query.h"

#include <velrzm/qv_sdk.h>

#include "tools/process/failures.h"

namespace tools {

namespace {

constexpr const char* parentPath = "logical_key@item_number";
constexpr const char* sequencePath = "logical_key@comp_seq_nm";

void check(int code, const char* what)
{
    if (code < 0) {
        const char* const text = QV_Error_Size() > 0 ? QV_Error_MsgTxt(0) : "";
        throw Refused(std::string(what) + " was refused by the server with the code " + std::to_string(code) +
                      ": " + text);
    }
}

/** A list of component lines. */
class ComponentList {
public:
    ComponentList() { check(QV_Create_List(&list_, "Component"), "the search"); }
    ~ComponentList() { QV_Destroy_List(&list_); }
    ComponentList(const ComponentList&) = delete;
    ComponentList& operator=(const ComponentList&) = delete;

    void clause(const char* kind, const std::string& text)
    {
        check(QV_Set_Clause(list_, kind, text.c_str()), text.c_str());
    }
    int open()
    {
        int size = 0;
        check(QV_Open_List(list_), "the search");
        check(QV_SizeOf_List(list_, &size), "the search");
        return size;
    }
    QV_ListHandle handle() const { return list_; }

private:
    QV_ListHandle list_ = nullptr;
};

/** A record of a list. */
class Record {
public:
    Record(const ComponentList& list, int index)
    {
        check(QV_Read_List(list.handle(), index, &record_), "reading a component line");
    }
    ~Record() { QV_Destroy_Object(&record_); }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    std::string value(const char* path) const
    {
        const char* text = nullptr;
        check(QV_Get_Object_Attr(record_, path, &text), path);
        return text == nullptr ? "" : text;
    }

private:
    QV_ObjectHandle record_ = nullptr;
};

std::string equals(const char* path, const std::string& value)
{
    if (value.find('\'') != std::string::npos) {
        throw Refused("the server cannot search for " + value + ": a text in a clause holds no quote");
    }
    return std::string("&=(").append(path).append(",'").append(value).append("')");
}

} // namespace

std::vector<ComponentLine> linesThatUse(const std::string& component, const std::string& change)
{
    ComponentList list;
    list.clause("Select", parentPath);
    list.clause("Select", sequencePath);
    list.clause("Where", equals("logical_key@comp_item_number", component));
    if (!change.empty()) {
        list.clause("Where", equals("il_ec_number", change));
    }
    list.clause("OrderBy", parentPath);
    list.clause("OrderBy", sequencePath);
    const int size = list.open();
    std::vector<ComponentLine> lines;
    for (int index = 0; index < size; ++index) {
        const Record record(list, index);
        lines.push_back({record.value(parentPath), record.value(sequencePath)});
    }
    return lines;
}

} // namespace tools
