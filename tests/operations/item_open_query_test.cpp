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
    static int use(const Query& texts, const std::vector<std::string>& names = {})
    {
        return ItemQuery(Text(texts.itemNumber), Text(texts.ecNumber), Text(texts.type), Text(texts.status),
                         Text(texts.name), Text(texts.description), Text(texts.sortBy), Text(texts.queryType),
                         Names(names));
    }
    /** A query with one filter, in a process of its own that finds one item. */
    Outcome queryBy(std::string Query::*filter, const std::string& value)
    {
        restart();
        connect();
        standin::script().records = {{}};
        Query texts;
        texts.*filter = value;
        return record([&] { return use(texts); });
    }
    /** The texts of the clauses of a kind, one in a line. */
    static std::string clauses(const Outcome& query, const std::string& kind)
    {
        const std::string head = "QV_Set_Clause(list1, \"" + kind + "\", \"";
        const std::string tail = "\") = 0";
        std::istringstream calls(query.calls);
        std::string found;
        for (std::string line; std::getline(calls, line);) {
            if (line.compare(0, head.size(), head) == 0) {
                found += line.substr(head.size(), line.size() - head.size() - tail.size()) + '\n';
            }
        }
        return found;
    }
};

constexpr const char* standardClauses =
    "&=(logical_key@loc_id,' ')\n"
    "&<=(insert_by,ai_obj@design_seq_num)\n"
    "&OR(&=(extract_by, 2147483647), &>(extract_by,ai_obj@design_seq_num))\n";

TEST_F(ItemOpenQuery, AnItemIsOpened)
{
    storiesOf([] {
        auto selected = textList({"name", "status"});
        return ItemOpen(Text("br-100a"), Text("ec-1b"), selected);
    }).tell(R"(
ItemOpen:
2 @-----Start------------------------------.
2 @-    ItemNumber=BR-100A-.
2 @-    EcNumber=EC-1B-.
2 @- Selected Attributes are ....
2 @-   name-.
2 @-   status-.
log @ ItemNumber= BR-100A , EcNumber= EC-1B
new ItemEngineeringData
2 @-  db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @-   logical_key@item_number=BR-100A-. > QV_Set_Object_Attr(obj1, "logical_key@item_number", "BR-100A") = 0 as QV_Set_Object_Attr "logical_key@item_number"
2 @-   logical_key@loc_id=-. > QV_Set_Object_Attr(obj1, "logical_key@loc_id", "") = 0
2 @-   il_ec_number=EC-1B-. > QV_Set_Object_Attr(obj1, "il_ec_number", "EC-1B") = 0 as QV_Set_Object_Attr "il_ec_number"
2 @ Set  fields to be selected for Open. > QV_Subscribe_Object_Attr(obj1, "name") = 0
> QV_Subscribe_Object_Attr(obj1, "status") = 0
> QV_Open_Object(obj1) = 0
log @ ...Item was  found
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[, name, status]
)");
}

TEST_F(ItemOpenQuery, ItemsAreListedAsChangesAffectThem)
{
    const auto list = [] {
        return use({"br-1", "ec-1", "P", "Rel", "Bracket", "Flat", "2", "STD"}, {"name", "weight"});
    };
    atEachLevel([&] {
        makeListResult({{}, {}, {}});
        EXPECT_EQ(record(list).story, story(R"--(
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
    connect(2);
    const Outcome outcome = record([] { return use({"br", "ec-1", "P", "Rel", "a", "b", "", "DEV"}); });
    EXPECT_EQ(clauses(outcome, "Select"), "net_pu_flg\nlogical_key@loc_id\n");
    EXPECT_EQ(clauses(outcome, "Where"), lines(R"(
&LIKE(master_item@control,'1%')
&LIKE(logical_key@item_number, 'BR%')
&LIKE(item_type, 'P %')
&LIKE(name, 'A%')
&LIKE(description, 'b%')
)"));
    EXPECT_EQ(clauses(outcome, "OrderBy"), "logical_key@item_number\n");
    EXPECT_EQ(countLines(outcome.output, "ai_obj"), 0);
}

TEST_F(ItemOpenQuery, EachFilterGivesItsClause)
{
    struct Case {
        std::string Query::*filter;
        const char* value;
        const char* clause;
    };
    for (const Case& tested : std::initializer_list<Case>{
             {&Query::queryType, "dev", ""},
             {&Query::itemNumber, "a100", "&LIKE(logical_key@item_number, 'A100%')\n"},
             {&Query::itemNumber, "=a100", "&=(logical_key@item_number, 'A100')\n"},
             {&Query::itemNumber, "a=1", "&LIKE(logical_key@item_number, 'A=1%')\n"},
             {&Query::itemNumber, "=", "&=(logical_key@item_number, '')\n"},
             {&Query::itemNumber, "o'b", "&LIKE(logical_key@item_number, 'O'B%')\n"},
             {&Query::ecNumber, "ec%", "&LIKE(ai_obj@ec@id, 'EC%')\n"},
             {&Query::ecNumber, "%d", "&LIKE(ai_obj@ec@id, '%D')\n"},
             {&Query::ecNumber, "=ec1", "&=(ai_obj@ec@id, '=EC1')\n"},
             {&Query::type, "p", "&LIKE(item_type, 'p %')\n"},
             {&Query::status, "r%s", "&LIKE(ai_obj@item_status, 'r%s%')\n"},
             {&Query::name, "flat ", "&LIKE(name, 'FLAT %')\n"},
             {&Query::description, "=Flat", "&LIKE(description, '=Flat%')\n"}}) {
        EXPECT_EQ(clauses(queryBy(tested.filter, tested.value), "Where"),
                  std::string(standardClauses) + tested.clause);
    }
    for (const char* const sortBy : {"2", "", "1", "02", "2 "}) {
        EXPECT_EQ(clauses(queryBy(&Query::sortBy, sortBy), "OrderBy"),
                  std::string(sortBy) == "2" ? "ai_obj@ec@id\n" : "logical_key@item_number\n");
    }
}

TEST_F(ItemOpenQuery, AFilterThatDoesNotFitItsClauseIsRefused)
{
    struct Case {
        std::string Query::*filter;
        std::string argument;
        std::string begin;
        std::size_t limit; // a value part of 51 characters, a clause of 79
    };
    for (const Case& tested : std::initializer_list<Case>{{&Query::itemNumber, "itemNumber", "", 44},
                                                          {&Query::itemNumber, "itemNumber", "=", 48},
                                                          {&Query::ecNumber, "ecNumber", "", 49},
                                                          {&Query::ecNumber, "ecNumber", "%", 48},
                                                          {&Query::type, "itemTypeCode", "", 47},
                                                          {&Query::status, "itemStatusCode", "", 48},
                                                          {&Query::name, "itemName", "", 48},
                                                          {&Query::description, "itemDescription", "", 48}}) {
        const std::string longest(tested.limit, 'X');
        SCOPED_TRACE(tested.argument + ' ' + tested.begin);
        const Outcome whole = queryBy(tested.filter, tested.begin + longest);
        EXPECT_EQ(whole.result, 1);
        EXPECT_EQ(countLines(clauses(whole, "Where"), longest), 1);
        const Outcome refused = queryBy(tested.filter, tested.begin + longest + 'X');
        EXPECT_EQ(refused.result, 0);
        EXPECT_EQ(QV_RC, -1);
        EXPECT_EQ(countLines(refused.calls, longest) + countLines(refused.calls, "QV_Open_List"), 0);
        const std::size_t most =
            tested.limit + (tested.begin == "%" ? 1 : 0); // what is no sign of the query's
        const std::string told = tested.argument + " has " + std::to_string(most + 1) +
                                 " characters; at most " + std::to_string(most) + " fit";
        EXPECT_EQ(refused.output.substr(0, 7 + told.size()), "****** " + told);
        EXPECT_EQ(countLines(refused.errorLog, "Function ItemQuery generated"), 1);
    }
    EXPECT_EQ(queryBy(&Query::name, std::string(10000, 'x')).result, 0);
}

TEST_F(ItemOpenQuery, AnOpenThatAnswersMinusOneIsNotCounted)
{
    for (const int code : {-1, -2}) {
        restart();
        connect(2);
        standin::script().records = {{}, {}};
        standin::answer("QV_Open_List", code, {{"Q1", "Nothing found"}});
        EXPECT_EQ(record([] { return use({}); }).storyFrom("call QV_Open_List"), story(R"(
ItemQuery:
> QV_Open_List(list1) = )" + std::to_string(code) + "\n! Q1 - Nothing found" +
                                                                                       (code == -1 ? R"(
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=List entries=0 LastRecNo=-1 QV_RC=-1 SelectedAttribute=[]
)"
                                                                                                   : R"(
> QV_SizeOf_List(list1, 2) = 0 as QV_SizeOf_List "nb_of_entries" "2"
2 @-----Exit------Nb of entries=2------------.
= 2 FromList=List entries=2 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)")));
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

} // namespace
