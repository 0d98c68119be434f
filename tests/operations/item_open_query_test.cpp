// SPDX-License-Identifier: Apache-2.0
#include <sstream>

#include "tests/harness/library_test.h"

using namespace harness;

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

class ItemOpenQuery : public LibraryTest {
protected:
    static Outcome open(VELListValVELUnicodeString selected = {})
    {
        return record([&] { return ItemOpen(Text("br-100a"), Text("ec-1b"), selected); });
    }
    static Outcome query(const Query& texts, const std::vector<std::string>& names = {})
    {
        return record([&] {
            return ItemQuery(Text(texts.itemNumber), Text(texts.ecNumber), Text(texts.type),
                             Text(texts.status), Text(texts.name), Text(texts.description),
                             Text(texts.sortBy), Text(texts.queryType), Names(names));
        });
    }
    /** The texts of the clauses of a kind in a query in a process of its own, one in a line. */
    std::string clauses(const Query& texts, const std::string& kind)
    {
        restart();
        connect();
        const std::string head = "QV_Set_Clause(list1, \"" + kind + "\", \"";
        const std::string tail = "\") = 0";
        std::istringstream calls(query(texts).calls);
        std::string found;
        for (std::string line; std::getline(calls, line);) {
            if (line.compare(0, head.size(), head) == 0) {
                found += line.substr(head.size(), line.size() - head.size() - tail.size()) + '\n';
            }
        }
        return found;
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
    atEachLevel([] {
        EXPECT_EQ(open(textList({"name", "status"})).story, story(R"(
ItemOpen:
2 @-----Start------------------------------.
2 @-    ItemNumber=BR-100A-.
2 @-    EcNumber=EC-1B-.
2 @- Selected Attributes are ....
2 @-   name-.
2 @-   status-.
log @ ItemNumber= BR-100A , EcNumber= EC-1B
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "ItemEngineeringData") = 0
2 @-  db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @-   logical_key@item_number=BR-100A-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100A") = 0 as QV_Set_Object_Attr "logical_key@item_number"
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   il_ec_number=EC-1B-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-1B") = 0 as QV_Set_Object_Attr "il_ec_number"
2 @ Set  fields to be selected for Open. > QV_Subscribe_Object_Attr(obj1, "name") = 0
> QV_Subscribe_Object_Attr(obj1, "status") = 0
> QV_Open_Object(obj1) = 0
log @ ...Item was  found
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, name, status]
)"));
    });
}

TEST_F(ItemOpenQuery, ItemsAreListedAsChangesAffectThem)
{
    atEachLevel([] {
        makeListResult({{}, {}});
        standin::setRecords({{}, {}, {}});
        const Query texts{"br-1", "ec-1", "P", "Rel", "Bracket", "Flat", "2", "STD"};
        EXPECT_EQ(query(texts, {"name", "weight"}).story, story(R"--(
ItemQuery:
2 @-----Start------abc------------------------.
2 @- Printing input argument ....
2    Item Number=br-1-.
2    EC Number=ec-1-.
2    Item Type Code=P-.
2    Item Status Code=Rel-.
2    Item Name=Bracket-.
2    Item Description=Flat-.
2    Sort By=2-.
2    Query Type=STD-.
2 @- Printing attributes to select....
2    -name-.
2    -weight-.
DestroyListOrReport:
2 @-----Start-------. > QV_Destroy_List(list1) = 0
2 @-----Exit--------.
ItemQuery:
> QV_Create_List(list2, "ItemEngineeringData") = 0
2 @ AppendSelect - name. > QV_Set_Clause(list2, "Select", "name") = 0
2 @ AppendSelect - weight. > QV_Set_Clause(list2, "Select", "weight") = 0
2 @ AppendSelect - net_pu_flg. > QV_Set_Clause(list2, "Select", "net_pu_flg") = 0
2 @ AppendSelect - logical_key@loc_id. > QV_Set_Clause(list2, "Select", "logical_key@loc_id") = 0
2 adding ai_obj@xxx attributes in Select List.
2 @ AppendSelect - ai_obj@item_status. > QV_Set_Clause(list2, "Select", "ai_obj@item_status") = 0
2 @ AppendSelect - ai_obj@ec@status. > QV_Set_Clause(list2, "Select", "ai_obj@ec@status") = 0
2 @ AppendSelect - ai_obj@ec@id. > QV_Set_Clause(list2, "Select", "ai_obj@ec@id") = 0
2 @ AppendSelect - ai_obj@ec@db_object_id. > QV_Set_Clause(list2, "Select", "ai_obj@ec@db_object_id") = 0
2 @ AppendSelect - ai_obj@pln_rev_level. > QV_Set_Clause(list2, "Select", "ai_obj@pln_rev_level") = 0
2 @ AppendSelect - ai_obj@ec@chg_control_code. > QV_Set_Clause(list2, "Select", "ai_obj@ec@chg_control_code") = 0
2 @ AppendWhere - &=(logical_key@loc_id,' '). > QV_Set_Clause(list2, "Where", "&=(logical_key@loc_id,' ')") = 0
2 @ AppendWhere - &<=(insert_by,ai_obj@design_seq_num). > QV_Set_Clause(list2, "Where", "&<=(insert_by,ai_obj@design_seq_num)") = 0
2 @ AppendWhere - &OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num)). > QV_Set_Clause(list2, "Where", "&OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num))") = 0
2 @ AppendWhere - &=(ai_obj@ec@id, 'EC-1'). > QV_Set_Clause(list2, "Where", "&=(ai_obj@ec@id, 'EC-1')") = 0
2 @ AppendWhere - &LIKE(ai_obj@item_status, 'Rel%'). > QV_Set_Clause(list2, "Where", "&LIKE(ai_obj@item_status, 'Rel%')") = 0
2 @ AppendWhere - &LIKE(logical_key@item_number, 'BR-1%'). > QV_Set_Clause(list2, "Where", "&LIKE(logical_key@item_number, 'BR-1%')") = 0
2 @ AppendWhere - &LIKE(item_type, 'P %'). > QV_Set_Clause(list2, "Where", "&LIKE(item_type, 'P %')") = 0
2 @ AppendWhere - &LIKE(name, 'BRACKET%'). > QV_Set_Clause(list2, "Where", "&LIKE(name, 'BRACKET%')") = 0
2 @ AppendWhere - &LIKE(description, 'Flat%'). > QV_Set_Clause(list2, "Where", "&LIKE(description, 'Flat%')") = 0
> QV_Set_Clause(list2, "OrderBy", "ai_obj@ec@id") = 0
> QV_Open_List(list2) = 0
> QV_SizeOf_List(list2, 3) = 0 as QV_SizeOf_List "nb_of_entries" "3"
2 @-----Exit------Nb of entries=3------------.
= 3 FromList=List entries=3 LastRecNo=-1 QV_RC=0 SelectedAttribute=[name, weight]
)--"));
    });
}

TEST_F(ItemOpenQuery, ItemsInDevelopmentAreListedWithoutTheirChanges)
{
    const Query inDevelopment{"br", "ec-1", "P", "Rel", "a", "b", "", "DEV"};
    EXPECT_EQ(clauses(inDevelopment, "Select"), "net_pu_flg\nlogical_key@loc_id\n");
    EXPECT_EQ(clauses(inDevelopment, "Where"), lines(R"(
&LIKE(master_item@control,'1%')
&LIKE(logical_key@item_number, 'BR%')
&LIKE(item_type, 'P %')
&LIKE(name, 'A%')
&LIKE(description, 'b%')
)"));
    EXPECT_EQ(clauses(inDevelopment, "OrderBy"), "logical_key@item_number\n");
    restart();
    connect(2);
    EXPECT_EQ(countLines(query(inDevelopment).output, "ai_obj"), 0);
}

TEST_F(ItemOpenQuery, EachFilterGivesItsClause)
{
    EXPECT_EQ(clauses({}, "Where"), standardClauses);
    EXPECT_EQ(clauses(withFilter(&Query::queryType, "dev"), "Where"), standardClauses);
    EXPECT_EQ(clauses(withFilter(&Query::queryType, "DEV"), "Where"), "&LIKE(master_item@control,'1%')\n");
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
        EXPECT_EQ(clauses(withFilter(tested.filter, tested.value), "Where"),
                  std::string(standardClauses) + tested.clause + '\n');
    }
}

TEST_F(ItemOpenQuery, OnlyTwoSortsByChange)
{
    for (const char* const sortBy : {"2", "", "1", "02", "2 "}) {
        EXPECT_EQ(clauses(withFilter(&Query::sortBy, sortBy), "OrderBy"),
                  std::string(sortBy) == "2" ? "ai_obj@ec@id\n" : "logical_key@item_number\n");
    }
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
    }
}

TEST_F(ItemOpenQuery, AQueryThatHasStoppedLeavesTheTextsItDidNotUse)
{
    connect(-1);
    standin::answer("QV_Create_List", -7, {{"Q1", "No class"}});
    Text number("br");
    Text change("ec");
    Text name("a");
    Text none("");
    record([&] { return ItemQuery(number, change, none, none, name, none, none, none, nullptr); });
    EXPECT_EQ(number.str() + change.str() + name.str(), "breca");
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
            const Outcome outcome =
                query(withFilter(tested.filter, tested.begin + std::string(more + excess, 'x')));
            EXPECT_EQ(outcome.result, 0);
            EXPECT_EQ(entries, 0);
            EXPECT_EQ(QV_RC, -1);
            EXPECT_EQ(countLines(outcome.calls, tested.clause), 0);
            EXPECT_EQ(countLines(outcome.calls, "QV_Open_List"), 0);
            const std::string told = std::string(tested.argument) + " has " +
                                     std::to_string(tested.limit + excess) + " characters; at most " +
                                     std::to_string(tested.limit) + " fit";
            EXPECT_EQ(outcome.output.substr(0, 7 + told.size()), "****** " + told);
            EXPECT_EQ(countLines(outcome.output), 1);
            EXPECT_EQ(countLines(outcome.errorLog, "Function ItemQuery generated"), 1);
            EXPECT_EQ(countLines(outcome.errorLog, told), 1);
            EXPECT_EQ(countLines(outcome.accessLog, told), 1);
            EXPECT_EQ(countLines(lastError(), told), 1);
        }
    }
}

} // namespace
