// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <sstream>

#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::countLines;
using harness::errorBlock;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;
using harness::textList;

namespace {

/** The texts of a query; what a test does not name is empty. */
struct Query {
    std::string itemNumber;
    std::string ecNumber;
    std::string type;
    std::string status;
    std::string name;
    std::string description;
    std::string sortBy;
    std::string queryType;
};

class ItemOpenQuery : public harness::LibraryTest {
protected:
    static Outcome open(const std::string& item, const std::string& change,
                        VELListValVELUnicodeString selected = {})
    {
        return record([&] { return ItemOpen(Text(item), Text(change), selected); });
    }
    static Outcome query(const Query& texts, const std::vector<std::string>& names = {})
    {
        return record([&] {
            return ItemQuery(Text(texts.itemNumber), Text(texts.ecNumber), Text(texts.type),
                             Text(texts.status), Text(texts.name), Text(texts.description),
                             Text(texts.sortBy), Text(texts.queryType), Names(names));
        });
    }
    /** The texts of the clauses of a kind, one in a line. */
    static std::string clauses(const Outcome& outcome, const std::string& kind)
    {
        const std::string head = "QV_Set_Clause(list1, \"" + kind + "\", \"";
        const std::string tail = "\") = 0";
        std::istringstream calls(outcome.calls);
        std::string found;
        for (std::string line; std::getline(calls, line);) {
            if (line.compare(0, head.size(), head) == 0) {
                found += line.substr(head.size(), line.size() - head.size() - tail.size()) + '\n';
            }
        }
        return found;
    }
    /** The Where clauses of a query in a process of its own. */
    std::string whereClauses(const Query& texts)
    {
        restart();
        connect();
        return clauses(query(texts), "Where");
    }
    static Query withFilter(std::string Query::*filter, const std::string& value)
    {
        Query texts;
        texts.*filter = value;
        return texts;
    }
};

constexpr const char* standardClauses =
    "&=(logical_key@loc_id,' ')\n"
    "&<=(insert_by,ai_obj@design_seq_num)\n"
    "&OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num))\n";

TEST_F(ItemOpenQuery, AnItemIsOpened)
{
    atEachLevel([](int level) {
        Text item("br-100a");
        Text change("ec-1b");
        auto selected = textList({"name", "status"});
        const Outcome outcome = record([&] { return ItemOpen(item, change, selected); });
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(item.str() + change.str(), "BR-100AEC-1B");
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(NbSelectedAttribute, 3);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "ItemEngineeringData") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100A") = 0
QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
QV_Set_Object_Attr(obj1, "il_ec_number", "EC-1B") = 0
QV_Subscribe_Object_Attr(obj1, "name") = 0
QV_Subscribe_Object_Attr(obj1, "status") = 0
QV_Open_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ItemOpen-----Start------------------------------.
2 ItemOpen-    ItemNumber=BR-100A-.
2 ItemOpen-    EcNumber=EC-1B-.
2 ItemOpen- Selected Attributes are ....
2 ItemOpen-   name-.
2 ItemOpen-   status-.
5 ItemOpen QV_Create_Object ItemEngineeringData : QV_RC=0.
2 ItemOpen-  db_object_id=-.
5 ItemOpen QV_Set_Object_Attr db_object_id : QV_RC=0.
2 ItemOpen-   logical_key@item_number=BR-100A-.
5 ItemOpen QV_Set_Object_Attr logical_key@item_number : QV_RC=0.
2 ItemOpen-   logical_key@loc_id=-.
5 ItemOpen QV_Set_Object_Attr logical_key@loc_id : QV_RC=0.
2 ItemOpen-   il_ec_number=EC-1B-.
5 ItemOpen QV_Set_Object_Attr il_ec_number : QV_RC=0.
2 ItemOpen Set  fields to be selected for Open.
5 ItemOpen QV_Subscribe_Object_Attr name : QV_RC=0.
5 ItemOpen QV_Subscribe_Object_Attr status : QV_RC=0.
5 ItemOpen QV_Open_Object  : QV_RC=0.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
ItemOpen ItemNumber= BR-100A , EcNumber= EC-1B
ItemOpen- rc(QV_Create_Object::ItemEngineeringData) = 0
ItemOpen- rc(QV_Set_Object_Attr::db_object_id) = 0
ItemOpen- rc(QV_Set_Object_Attr::logical_key@item_number) = 0
ItemOpen- rc(QV_Set_Object_Attr::logical_key@loc_id) = 0
ItemOpen- rc(QV_Set_Object_Attr::il_ec_number) = 0
ItemOpen- rc(QV_Subscribe_Object_Attr::name) = 0
ItemOpen- rc(QV_Subscribe_Object_Attr::status) = 0
ItemOpen- rc(QV_Open_Object) = 0
ItemOpen ...Item was  found
)"));
    });
}

TEST_F(ItemOpenQuery, AnItemThatIsNotFoundIsToldInTheLog)
{
    connect(2);
    standin::answer("QV_Open_Object", -7, {{"Q100", "No such item"}});
    const Outcome outcome = open("BR-1", "");
    EXPECT_EQ(outcome.result, 0);
    EXPECT_NE(QV_ObjPtr, nullptr);
    EXPECT_EQ(outcome.output.substr(outcome.output.find("ItemOpen Set")), lines(R"(
ItemOpen Set  fields to be selected for Open.
****** No such item .
)"));
    EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.find("ItemOpen- rc(QV_Open")), lines(R"(
ItemOpen- rc(QV_Open_Object) = -7
Q100 - No such item
ItemOpen ...Item was  not found
)"));
    EXPECT_EQ(outcome.errorLog, errorBlock("ItemOpen", "No such item "));
}

TEST_F(ItemOpenQuery, ItemsAreListedAsChangesAffectThem)
{
    atEachLevel([](int level) {
        makeListResult({{}, {}});
        standin::setRecords({{}, {}, {}});
        const Query texts{"br-1", "ec-1", "P", "Rel", "Bracket", "Flat", "2", "STD"};
        const Outcome outcome = query(texts, {"name", "weight"});
        EXPECT_EQ(outcome.result, 3);
        EXPECT_EQ(entries, 3);
        EXPECT_STREQ(FromList, "List");
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(NbSelectedAttribute, 2);
        EXPECT_EQ(outcome.calls, lines(R"--(
QV_Destroy_List(list1) = 0
QV_Create_List(list2, "ItemEngineeringData") = 0
QV_Set_Clause(list2, "Select", "name") = 0
QV_Set_Clause(list2, "Select", "weight") = 0
QV_Set_Clause(list2, "Select", "net_pu_flg") = 0
QV_Set_Clause(list2, "Select", "logical_key@loc_id") = 0
QV_Set_Clause(list2, "Select", "ai_obj@item_status") = 0
QV_Set_Clause(list2, "Select", "ai_obj@ec@status") = 0
QV_Set_Clause(list2, "Select", "ai_obj@ec@id") = 0
QV_Set_Clause(list2, "Select", "ai_obj@ec@db_object_id") = 0
QV_Set_Clause(list2, "Select", "ai_obj@pln_rev_level") = 0
QV_Set_Clause(list2, "Select", "ai_obj@ec@chg_control_code") = 0
QV_Set_Clause(list2, "Where", "&=(logical_key@loc_id,' ')") = 0
QV_Set_Clause(list2, "Where", "&<=(insert_by,ai_obj@design_seq_num)") = 0
QV_Set_Clause(list2, "Where", "&OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num))") = 0
QV_Set_Clause(list2, "Where", "&=(ai_obj@ec@id, 'EC-1')") = 0
QV_Set_Clause(list2, "Where", "&LIKE(ai_obj@item_status, 'Rel%')") = 0
QV_Set_Clause(list2, "Where", "&LIKE(logical_key@item_number, 'BR-1%')") = 0
QV_Set_Clause(list2, "Where", "&LIKE(item_type, 'P %')") = 0
QV_Set_Clause(list2, "Where", "&LIKE(name, 'BRACKET%')") = 0
QV_Set_Clause(list2, "Where", "&LIKE(description, 'Flat%')") = 0
QV_Set_Clause(list2, "OrderBy", "ai_obj@ec@id") = 0
QV_Open_List(list2) = 0
QV_SizeOf_List(list2, 3) = 0
)--"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 ItemQuery-----Start------abc------------------------.
2 ItemQuery- Printing input argument ....
2    Item Number=br-1-.
2    EC Number=ec-1-.
2    Item Type Code=P-.
2    Item Status Code=Rel-.
2    Item Name=Bracket-.
2    Item Description=Flat-.
2    Sort By=2-.
2    Query Type=STD-.
2 ItemQuery- Printing attributes to select....
2    -name-.
2    -weight-.
2 DestroyListOrReport-----Start-------.
5 DestroyListOrReport QV_Destroy_List  : QV_RC=0.
2 DestroyListOrReport-----Exit--------.
5 ItemQuery QV_Create_List ItemEngineeringData : QV_RC=0.
2 ItemQuery AppendSelect - name.
5 ItemQuery AppendSelect- QV_Set_Clause-Select name : QV_RC=0.
2 ItemQuery AppendSelect - weight.
5 ItemQuery AppendSelect- QV_Set_Clause-Select weight : QV_RC=0.
2 ItemQuery AppendSelect - net_pu_flg.
5 ItemQuery AppendSelect- QV_Set_Clause-Select net_pu_flg : QV_RC=0.
2 ItemQuery AppendSelect - logical_key@loc_id.
5 ItemQuery AppendSelect- QV_Set_Clause-Select logical_key@loc_id : QV_RC=0.
2 adding ai_obj@xxx attributes in Select List.
2 ItemQuery AppendSelect - ai_obj@item_status.
5 ItemQuery AppendSelect- QV_Set_Clause-Select ai_obj@item_status : QV_RC=0.
2 ItemQuery AppendSelect - ai_obj@ec@status.
5 ItemQuery AppendSelect- QV_Set_Clause-Select ai_obj@ec@status : QV_RC=0.
2 ItemQuery AppendSelect - ai_obj@ec@id.
5 ItemQuery AppendSelect- QV_Set_Clause-Select ai_obj@ec@id : QV_RC=0.
2 ItemQuery AppendSelect - ai_obj@ec@db_object_id.
5 ItemQuery AppendSelect- QV_Set_Clause-Select ai_obj@ec@db_object_id : QV_RC=0.
2 ItemQuery AppendSelect - ai_obj@pln_rev_level.
5 ItemQuery AppendSelect- QV_Set_Clause-Select ai_obj@pln_rev_level : QV_RC=0.
2 ItemQuery AppendSelect - ai_obj@ec@chg_control_code.
5 ItemQuery AppendSelect- QV_Set_Clause-Select ai_obj@ec@chg_control_code : QV_RC=0.
2 ItemQuery AppendWhere - &=(logical_key@loc_id,' ').
5 ItemQuery AppendWhere- QV_Set_Clause-Where &=(logical_key@loc_id,' ') : QV_RC=0.
2 ItemQuery AppendWhere - &<=(insert_by,ai_obj@design_seq_num).
5 ItemQuery AppendWhere- QV_Set_Clause-Where &<=(insert_by,ai_obj@design_seq_num) : QV_RC=0.
2 ItemQuery AppendWhere - &OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num)).
5 ItemQuery AppendWhere- QV_Set_Clause-Where &OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num)) : QV_RC=0.
2 ItemQuery AppendWhere - &=(ai_obj@ec@id, 'EC-1').
5 ItemQuery AppendWhere- QV_Set_Clause-Where &=(ai_obj@ec@id, 'EC-1') : QV_RC=0.
2 ItemQuery AppendWhere - &LIKE(ai_obj@item_status, 'Rel%').
5 ItemQuery AppendWhere- QV_Set_Clause-Where &LIKE(ai_obj@item_status, 'Rel%') : QV_RC=0.
2 ItemQuery AppendWhere - &LIKE(logical_key@item_number, 'BR-1%').
5 ItemQuery AppendWhere- QV_Set_Clause-Where &LIKE(logical_key@item_number, 'BR-1%') : QV_RC=0.
2 ItemQuery AppendWhere - &LIKE(item_type, 'P %').
5 ItemQuery AppendWhere- QV_Set_Clause-Where &LIKE(item_type, 'P %') : QV_RC=0.
2 ItemQuery AppendWhere - &LIKE(name, 'BRACKET%').
5 ItemQuery AppendWhere- QV_Set_Clause-Where &LIKE(name, 'BRACKET%') : QV_RC=0.
2 ItemQuery AppendWhere - &LIKE(description, 'Flat%').
5 ItemQuery AppendWhere- QV_Set_Clause-Where &LIKE(description, 'Flat%') : QV_RC=0.
5 ItemQuery QV_Set_Clause-OrderBy ai_obj@ec@id : QV_RC=0.
5 ItemQuery QV_Open_List  : QV_RC=0.
5 ItemQuery QV_SizeOf_List nb_of_entries 3: QV_RC=0.
2 ItemQuery-----Exit------Nb of entries=3------------.
)"));
        EXPECT_EQ(countLines(outcome.accessLog), 24);
        EXPECT_EQ(countLines(outcome.accessLog, "ItemQuery- rc("), 23) << "no line of its own";
        EXPECT_EQ(outcome.accessLog.substr(0, outcome.accessLog.find("ItemQuery- rc(AppendSelect")), lines(R"(
DestroyListOrReport- rc(QV_Destroy_List) = 0
ItemQuery- rc(QV_Create_List::ItemEngineeringData) = 0
)"));
        EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.find("ItemQuery- rc(QV_Set_Clause")), lines(R"(
ItemQuery- rc(QV_Set_Clause-OrderBy::ai_obj@ec@id) = 0
ItemQuery- rc(QV_Open_List) = 0
ItemQuery- rc(QV_SizeOf_List::nb_of_entries=3) = 0
)"));
        EXPECT_EQ(countLines(outcome.accessLog,
                             "ItemQuery- rc(AppendWhere- QV_Set_Clause-Where::&LIKE(item_type, 'P %')) = 0"),
                  1);
    });
}

TEST_F(ItemOpenQuery, ItemsInDevelopmentAreListedWithoutTheirChanges)
{
    connect(2);
    standin::setRecords({{}});
    const Outcome outcome = query({"br", "ec-1", "P", "Rel", "a", "b", "", "DEV"}, {"name"});
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.calls, lines(R"--(
QV_Create_List(list1, "ItemEngineeringData") = 0
QV_Set_Clause(list1, "Select", "name") = 0
QV_Set_Clause(list1, "Select", "net_pu_flg") = 0
QV_Set_Clause(list1, "Select", "logical_key@loc_id") = 0
QV_Set_Clause(list1, "Where", "&LIKE(master_item@control,'1%')") = 0
QV_Set_Clause(list1, "Where", "&LIKE(logical_key@item_number, 'BR%')") = 0
QV_Set_Clause(list1, "Where", "&LIKE(item_type, 'P %')") = 0
QV_Set_Clause(list1, "Where", "&LIKE(name, 'A%')") = 0
QV_Set_Clause(list1, "Where", "&LIKE(description, 'b%')") = 0
QV_Set_Clause(list1, "OrderBy", "logical_key@item_number") = 0
QV_Open_List(list1) = 0
QV_SizeOf_List(list1, 1) = 0
)--"));
    EXPECT_EQ(countLines(outcome.output, "ai_obj"), 0);
}

TEST_F(ItemOpenQuery, EachFilterGivesItsClause)
{
    EXPECT_EQ(whereClauses({}), standardClauses);
    EXPECT_EQ(whereClauses(withFilter(&Query::queryType, "dev")), standardClauses);
    EXPECT_EQ(whereClauses(withFilter(&Query::queryType, "DEV")), "&LIKE(master_item@control,'1%')\n");
    struct Case {
        std::string Query::*filter;
        const char* value;
        const char* clause;
    };
    for (const Case& tested :
         std::initializer_list<Case>{{&Query::itemNumber, "a100", "&LIKE(logical_key@item_number, 'A100%')"},
                                     {&Query::itemNumber, "=a100", "&=(logical_key@item_number, 'A100')"},
                                     {&Query::itemNumber, "a=1", "&LIKE(logical_key@item_number, 'A=1%')"},
                                     {&Query::itemNumber, "=", "&=(logical_key@item_number, '')"},
                                     {&Query::itemNumber, "o'b", "&LIKE(logical_key@item_number, 'O'B%')"},
                                     {&Query::ecNumber, "ec%", "&LIKE(ai_obj@ec@id, 'EC%')"},
                                     {&Query::ecNumber, "%d", "&LIKE(ai_obj@ec@id, '%D')"},
                                     {&Query::ecNumber, "=ec1", "&=(ai_obj@ec@id, '=EC1')"},
                                     {&Query::type, "p", "&LIKE(item_type, 'p %')"},
                                     {&Query::status, "r%s", "&LIKE(ai_obj@item_status, 'r%s%')"},
                                     {&Query::name, "flat ", "&LIKE(name, 'FLAT %')"},
                                     {&Query::description, "=Flat", "&LIKE(description, '=Flat%')"}}) {
        EXPECT_EQ(whereClauses(withFilter(tested.filter, tested.value)),
                  std::string(standardClauses) + tested.clause + '\n');
    }
}

TEST_F(ItemOpenQuery, OnlyTwoSortsByChange)
{
    for (const char* const sortBy : {"2", "", "1", "02", "2 "}) {
        restart();
        connect();
        EXPECT_EQ(clauses(query(withFilter(&Query::sortBy, sortBy)), "OrderBy"),
                  std::string(sortBy) == "2" ? "ai_obj@ec@id\n" : "logical_key@item_number\n");
    }
}

TEST_F(ItemOpenQuery, TheCallersTextsAreTurnedToUpperCaseWhereTheyAreUsed)
{
    connect();
    std::array<Text, 8> texts{Text("br"),   Text("ec"),   Text("type"), Text("status"),
                              Text("name"), Text("text"), Text(""),     Text("")};
    const auto use = [&] {
        return record([&] {
            return ItemQuery(texts[0], texts[1], texts[2], texts[3], texts[4], texts[5], texts[6], texts[7],
                             nullptr);
        });
    };
    texts[7] = Text("DEV");
    use();
    EXPECT_EQ(texts[0].str() + texts[1].str() + texts[4].str(), "BRecNAME");
    texts[7] = Text("std");
    use();
    EXPECT_EQ(texts[1].str(), "EC");
    EXPECT_EQ(texts[2].str() + texts[3].str() + texts[5].str() + texts[7].str(), "typestatustextstd");
}

TEST_F(ItemOpenQuery, AnOpenThatAnswersMinusOneIsNotCounted)
{
    for (const int code : {-1, -2, -220}) {
        restart();
        connect(2);
        standin::setRecords({{}, {}});
        standin::answer("QV_Open_List", code, {{"Q1", "Nothing found"}});
        const Outcome outcome = query({});
        const bool counted = code != -1;
        EXPECT_EQ(outcome.result, counted ? 2 : 0);
        EXPECT_EQ(entries, outcome.result);
        EXPECT_EQ(QV_RC, counted ? 0 : -1);
        EXPECT_EQ(countLines(outcome.calls, "QV_SizeOf_List"), counted ? 1 : 0);
        EXPECT_EQ(countLines(outcome.output, "****** Nothing found ."), 1);
        EXPECT_EQ(countLines(outcome.output, "ItemQuery-----Exit------Nb of entries=" +
                                                 std::to_string(outcome.result) + "------------."),
                  1);
        EXPECT_EQ(outcome.errorLog, errorBlock("ItemQuery", "Nothing found "));
    }
}

TEST_F(ItemOpenQuery, AStopSkipsTheTraceLinesOfTheStepsLeftOut)
{
    connect(2);
    standin::answer("QV_Create_List", -1, {{"Q1", "No class"}});
    const Outcome outcome = query(withFilter(&Query::itemNumber, "br"), {"name"});
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(QV_RC, -1);
    EXPECT_EQ(outcome.output.substr(outcome.output.find("******")), lines(R"(
****** No class .
ItemQuery-----Exit------Nb of entries=0------------.
)"));
}

TEST_F(ItemOpenQuery, AFilterThatDoesNotFitItsClauseIsRefused)
{
    struct Case {
        std::string Query::*filter;
        const char* argument;
        const char* begin;
        std::size_t limit; // a value part of 51 characters, a clause of 79
        const char* clause;
    };
    for (const Case& tested : std::initializer_list<Case>{
             {&Query::itemNumber, "itemNumber", "", 44, "&LIKE(logical_key@item_number, '"},
             {&Query::itemNumber, "itemNumber", "=", 48, "&=(logical_key@item_number, '"},
             {&Query::ecNumber, "ecNumber", "", 49, "&=(ai_obj@ec@id, '"},
             {&Query::ecNumber, "ecNumber", "%", 49, "&LIKE(ai_obj@ec@id, '"},
             {&Query::type, "itemTypeCode", "", 47, "&LIKE(item_type, '"},
             {&Query::status, "itemStatusCode", "", 48, "&LIKE(ai_obj@item_status, '"},
             {&Query::name, "itemName", "", 48, "&LIKE(name, '"},
             {&Query::description, "itemDescription", "", 48, "&LIKE(description, '"}}) {
        SCOPED_TRACE(std::string(tested.clause) + tested.begin);
        const bool equals = *tested.begin == '=';
        const std::size_t more = tested.limit - (*tested.begin == '%' ? 1 : 0);
        restart();
        connect();
        standin::setRecords({{}});
        const std::string fitting = tested.begin + std::string(more, 'X');
        const Outcome whole = query(withFilter(tested.filter, fitting));
        EXPECT_EQ(whole.result, 1);
        EXPECT_EQ(countLines(whole.calls, tested.clause + fitting.substr(equals ? 1 : 0)), 1);

        for (const std::size_t excess : {std::size_t(1), 10000 - tested.limit}) {
            restart();
            connect();
            standin::setRecords({{}});
            const std::string length = std::to_string(tested.limit + excess);
            const Outcome outcome =
                query(withFilter(tested.filter, tested.begin + std::string(more + excess, 'x')));
            EXPECT_EQ(outcome.result, 0);
            EXPECT_EQ(entries, 0);
            EXPECT_EQ(QV_RC, -1);
            EXPECT_EQ(countLines(outcome.calls, tested.clause), 0);
            EXPECT_EQ(countLines(outcome.calls, "QV_Open_List"), 0);
            EXPECT_EQ(outcome.output.substr(0, 7), "****** ");
            EXPECT_EQ(countLines(outcome.output), 1);
            EXPECT_EQ(countLines(outcome.errorLog, "Function ItemQuery generated"), 1);
            for (const std::string& told :
                 {std::string(tested.argument), length, std::to_string(tested.limit)}) {
                EXPECT_EQ(countLines(outcome.output, told), 1) << outcome.output;
                EXPECT_EQ(countLines(outcome.errorLog, told), 1);
                EXPECT_GE(countLines(outcome.accessLog, told), 1);
                EXPECT_EQ(countLines(lastError(), told), 1);
            }
        }
    }
}

} // namespace
