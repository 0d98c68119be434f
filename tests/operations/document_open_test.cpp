// SPDX-License-Identifier: Apache-2.0
//
// The opening of a document revision and the list that ends with the latest one.
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class DocumentOpening : public LibraryTest {
protected:
    static Outcome open(const std::string& documentNumber, const std::string& revision,
                        std::initializer_list<const char*> names = {})
    {
        auto list = textList(names);
        return record([&] { return DocumentOpen(Text(documentNumber), Text(revision), list); });
    }
    static Outcome list(const char* documentNumber)
    {
        return record([=] { return DocumentGetLastRevision(documentNumber); });
    }
};

TEST_F(DocumentOpening, ARevisionIsOpenedByItsNumbers)
{
    atEachLevel([] {
        std::string("kept").copy(SelectedAttribute[0], 5);
        // A list is captured from slot 1 on, so that its positions are the attribute numbers.
        EXPECT_EQ(open("d-1b", "a", {"db_object_id", "doc_revision@doc_title"}).story, story(R"(
DocumentOpen:
2 @-----Start------------------------------.
2 @- Printing Input Attributes ....
2 @-    DocumentNumber=D-1B.
2 @-    RevisionNumber=a.
2 @- Printing Selected Attributes ....
2 @-   db_object_id-.
2 @-   doc_revision@doc_title-.
log @ DocumentNumber=D-1B, RevisionNumber=a
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "DocVersion") = 0
2 @-  db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
2 @-   doc_revision@doc_number=D-1B-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0
2 @-   doc_revision@doc_rev_num=a-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0
> QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
> QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_title") = 0
> QV_Open_Object(obj1) = 0
log @ ...Document was  found
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[kept, db_object_id, doc_revision@doc_title]
)"));
    });
}

using LastRevision = DocumentOpening;

TEST_F(LastRevision, TheVersionsAreListedWithTheLatestLast)
{
    atEachLevel([] {
        standin::setRecords({{}, {}, {}, {{"doc_revision@doc_rev_num", "B"}}});
        NbSelectedAttribute = 7;
        EXPECT_EQ(list("d-1b").story, story(R"--(
DocumentGetLastRevision:
2 @-----Start------------------------------.
2 @\tDocNumber=d-1b.
- QV_Destroy_List(null) = 0
> QV_Create_List(list1, "DocVersion") = 0
2 @ AppendSelect - doc_revision@doc_number. > QV_Set_Clause(list1, "Select", "doc_revision@doc_number") = 0
2 @ AppendSelect - doc_revision@doc_rev_num. > QV_Set_Clause(list1, "Select", "doc_revision@doc_rev_num") = 0
2 @ AppendWhere - &=(doc_revision@doc_number,'d-1b'). > QV_Set_Clause(list1, "Where", "&=(doc_revision@doc_number,'d-1b')") = 0
2 @ AppendWhere - &=(doc_revision@primary_config@db_object_id,db_object_id). > QV_Set_Clause(list1, "Where", "&=(doc_revision@primary_config@db_object_id,db_object_id)") = 0
2 @ AppendWhere - &=(copy_count,0). > QV_Set_Clause(list1, "Where", "&=(copy_count,0)") = 0
> QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_number") = 0
> QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_rev_num_v") = 0
> QV_Set_Clause(list1, "OrderBy", "doc_ver_num") = 0
> QV_Open_List(list1) = 0
> QV_SizeOf_List(list1, 4) = 0 as QV_SizeOf_List "nb_of_entries" "4"
2 @-----Exit------Nb of entries=4------------.
= 4 FromList=List entries=4 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)--"));
    });
}

TEST_F(LastRevision, AnUnknownDocumentGivesAnEmptyListAndNoError)
{
    connect();
    const Outcome outcome = list("D-9");
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(QV_RC, 0);
    EXPECT_EQ(outcome.output + outcome.errorLog, "");
}

TEST_F(LastRevision, AMissingDocumentNumberIsRefusedAndLeavesTheCurrentResult)
{
    atEachLevel([] {
        open("D-1", "1", {"db_object_id"});
        EXPECT_EQ(list("").story, story(R"(
DocumentGetLastRevision:
2 @-----Start------------------------------.
2 @\tDocNumber=.
0 @****** ERROR ******  Document Number is not valuated....
2 @-----Exit------Nb of entries=0------------.
= 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=-1 SelectedAttribute=[, db_object_id]
)"));
    });
}

} // namespace
