// SPDX-License-Identifier: Apache-2.0
#include "frame/list_request.h"

namespace velrzm {
namespace {

constexpr std::size_t clauseBuffer = 80;

} // namespace

void ListRequest::create(const char* className)
{
    operation_.call({"QV_Create_List", className}, [&] { return QV_Create_List(&QV_ListPtr, className); });
}

void ListRequest::renew(const char* className)
{
    if (!operation_.stopped()) {
        QV_RC = QV_Destroy_List(&QV_ListPtr);
        create(className);
    }
}

void ListRequest::setClause(const char* kind, const char* function, const char* text)
{
    operation_.call({function, text}, [&] { return QV_Set_Clause(QV_ListPtr, kind, text); });
}

void ListRequest::select(const char* attribute)
{
    operation_.step(" AppendSelect - ", attribute);
    setClause("Select", "AppendSelect- QV_Set_Clause-Select", attribute);
}

void ListRequest::select(const AttributeNames& attributes)
{
    for (const char* const attribute : attributes) {
        select(attribute);
    }
}

void ListRequest::where(const char* clause)
{
    operation_.step(" AppendWhere - ", clause);
    setClause("Where", "AppendWhere- QV_Set_Clause-Where", clause);
}

void ListRequest::where(const Clause& clause)
{
    requireFit(clause);
    if (!operation_.stopped()) {
        where(BoundedText<clauseBuffer>{clause.head, clause.value, clause.tail}.text());
    }
}

void ListRequest::requireFit(const Clause& clause)
{
    const std::size_t length = std::strlen(orEmpty(clause.value));
    const std::size_t room = std::min(clauseBuffer - std::strlen(clause.head), clause.valuePart);
    const std::size_t limit = room - std::strlen(clause.tail) - 1;
    if (length > limit) {
        operation_.refuse({"AppendWhere- QV_Set_Clause-Where"},
                          std::string(clause.argument) + " has " + std::to_string(length) +
                              " characters; at most " + std::to_string(limit) + " fit the clause " +
                              clause.head + "..." + clause.tail);
    }
}

void ListRequest::orderBy(std::initializer_list<const char*> attributes)
{
    for (const char* const attribute : attributes) {
        setClause("OrderBy", "QV_Set_Clause-OrderBy", attribute);
    }
}

void ListRequest::open(OnFailure onFailure)
{
    operation_.call({"QV_Open_List"}, onFailure, [] { return QV_Open_List(QV_ListPtr); });
}

void ListRequest::count()
{
    if (!operation_.stopped()) {
        QV_RC = QV_SizeOf_List(QV_ListPtr, &entries);
        operation_.check({"QV_SizeOf_List", "nb_of_entries", BoundedText<16>{entries}.text()});
    }
}

void CurrentList::reset() noexcept
{
    LastRecNo = -1;
    entries = 0;
    copyToFit(FromList, sizeof FromList, "List");
}

void CurrentList::exit() const
{
    operation().trace("-----Exit------Nb of entries=", entries, "------------");
}

} // namespace velrzm
