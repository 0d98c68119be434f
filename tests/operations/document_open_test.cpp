// SPDX-License-Identifier: Apache-2.0
//
// The opening of a document revision and the list that ends with the latest one.
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::errorBlock;
using harness::lines;
using harness::Outcome;
using harness::Text;
using harness::textList;

namespace {

class DocumentOpening : public harness::LibraryTest {
protected:
    static Outcome open(char* documentNumber, char* revision, std::initializer_list<const char*> names)
    {
        auto list = textList(names);
        return record([&] { return DocumentOpen(documentNumber, revision, list); });
    }
};

TEST_F(DocumentOpening, ARevisionIsOpenedByItsNumbers)
{
    atEachLevel([](int level) {
        std::string("kept").copy(SelectedAttribute[0], 5);
        Text documentNumber("d-1b");
        const Outcome outcome = open(documentNumber, Text("a"), {"db_object_id", "doc_revision@doc_title"});
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(entries, 1);
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(documentNumber.str(), "D-1B");
        // A list is captured from slot 1 on, so that its positions are the attribute numbers.
        EXPECT_EQ(NbSelectedAttribute, 3);
        EXPECT_STREQ(SelectedAttribute[0], "kept");
        EXPECT_STREQ(SelectedAttribute[1], "db_object_id");
        EXPECT_STREQ(SelectedAttribute[2], "doc_revision@doc_title");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "DocVersion") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_title") = 0
QV_Open_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 DocumentOpen-----Start------------------------------.
2 DocumentOpen- Printing Input Attributes ....
2 DocumentOpen-    DocumentNumber=D-1B.
2 DocumentOpen-    RevisionNumber=a.
2 DocumentOpen- Printing Selected Attributes ....
2 DocumentOpen-   db_object_id-.
2 DocumentOpen-   doc_revision@doc_title-.
5 DocumentOpen QV_Create_Object DocVersion : QV_RC=0.
2 DocumentOpen-  db_object_id=-.
5 DocumentOpen QV_Set_Object_Attr db_object_id : QV_RC=0.
2 DocumentOpen-   doc_revision@doc_number=D-1B-.
5 DocumentOpen QV_Set_Object_Attr doc_revision@doc_number D-1B: QV_RC=0.
2 DocumentOpen-   doc_revision@doc_rev_num=a-.
5 DocumentOpen QV_Set_Object_Attr doc_revision@doc_rev_num a: QV_RC=0.
5 DocumentOpen QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 DocumentOpen QV_Subscribe_Object_Attr doc_revision@doc_title : QV_RC=0.
5 DocumentOpen QV_Open_Object  : QV_RC=0.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
DocumentOpen DocumentNumber=D-1B, RevisionNumber=a
DocumentOpen- rc(QV_Create_Object::DocVersion) = 0
DocumentOpen- rc(QV_Set_Object_Attr::db_object_id) = 0
DocumentOpen- rc(QV_Set_Object_Attr::doc_revision@doc_number=D-1B) = 0
DocumentOpen- rc(QV_Set_Object_Attr::doc_revision@doc_rev_num=a) = 0
DocumentOpen- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
DocumentOpen- rc(QV_Subscribe_Object_Attr::doc_revision@doc_title) = 0
DocumentOpen- rc(QV_Open_Object) = 0
DocumentOpen ...Document was  found
)"));
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_F(DocumentOpening, ADocumentThatIsNotThereIsTold)
{
    connect(0);
    standin::answer("QV_Open_Object", -7, {{"Q100", "No such document"}});
    const Outcome outcome = open(Text("D-1"), Text("1"), {});
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(NbSelectedAttribute, 1);
    EXPECT_EQ(outcome.output, "****** No such document .\n");
    EXPECT_EQ(outcome.errorLog, errorBlock("DocumentOpen", "No such document "));
    const std::string logEnd = "Q100 - No such document\nDocumentOpen ...Document was  not found\n";
    EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.size() - logEnd.size()), logEnd);
}

TEST_F(DocumentOpening, TheLogLineOfTheInputsIsCutTo255Characters)
{
    connect();
    const std::string documentNumber(222, 'D');
    const Outcome outcome = open(Text(documentNumber), Text("ab"), {});
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.accessLog.substr(0, outcome.accessLog.find('\n')),
              "DocumentOpen DocumentNumber=" + documentNumber + ", RevisionNumber=a");
    EXPECT_EQ(harness::countLines(outcome.calls, "\"ab\""), 1);
}

using LastRevision = DocumentOpening;

TEST_F(LastRevision, TheVersionsAreListedWithTheLatestLast)
{
    atEachLevel([](int level) {
        standin::setRecords({{}, {}, {}, {{"doc_revision@doc_rev_num", "B"}}});
        NbSelectedAttribute = 7;
        const Outcome outcome = record([] { return DocumentGetLastRevision("d-1b"); });
        EXPECT_EQ(outcome.result, 4);
        EXPECT_EQ(entries, 4);
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_STREQ(FromList, "List");
        EXPECT_EQ(NbSelectedAttribute, 0);
        EXPECT_EQ(outcome.calls, lines(R"--(
QV_Destroy_List(null) = 0
QV_Create_List(list1, "DocVersion") = 0
QV_Set_Clause(list1, "Select", "doc_revision@doc_number") = 0
QV_Set_Clause(list1, "Select", "doc_revision@doc_rev_num") = 0
QV_Set_Clause(list1, "Where", "&=(doc_revision@doc_number,'d-1b')") = 0
QV_Set_Clause(list1, "Where", "&=(doc_revision@primary_config@db_object_id,db_object_id)") = 0
QV_Set_Clause(list1, "Where", "&=(copy_count,0)") = 0
QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_number") = 0
QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_rev_num_v") = 0
QV_Set_Clause(list1, "OrderBy", "doc_ver_num") = 0
QV_Open_List(list1) = 0
QV_SizeOf_List(list1, 4) = 0
)--"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 DocumentGetLastRevision-----Start------------------------------.
2 DocumentGetLastRevision\tDocNumber=d-1b.
5 DocumentGetLastRevision QV_Create_List DocVersion : QV_RC=0.
2 DocumentGetLastRevision AppendSelect - doc_revision@doc_number.
5 DocumentGetLastRevision AppendSelect- QV_Set_Clause-Select doc_revision@doc_number : QV_RC=0.
2 DocumentGetLastRevision AppendSelect - doc_revision@doc_rev_num.
5 DocumentGetLastRevision AppendSelect- QV_Set_Clause-Select doc_revision@doc_rev_num : QV_RC=0.
2 DocumentGetLastRevision AppendWhere - &=(doc_revision@doc_number,'d-1b').
5 DocumentGetLastRevision AppendWhere- QV_Set_Clause-Where &=(doc_revision@doc_number,'d-1b') : QV_RC=0.
2 DocumentGetLastRevision AppendWhere - &=(doc_revision@primary_config@db_object_id,db_object_id).
5 DocumentGetLastRevision AppendWhere- QV_Set_Clause-Where &=(doc_revision@primary_config@db_object_id,db_object_id) : QV_RC=0.
2 DocumentGetLastRevision AppendWhere - &=(copy_count,0).
5 DocumentGetLastRevision AppendWhere- QV_Set_Clause-Where &=(copy_count,0) : QV_RC=0.
5 DocumentGetLastRevision QV_Set_Clause-OrderBy doc_revision@doc_number : QV_RC=0.
5 DocumentGetLastRevision QV_Set_Clause-OrderBy doc_revision@doc_rev_num_v : QV_RC=0.
5 DocumentGetLastRevision QV_Set_Clause-OrderBy doc_ver_num : QV_RC=0.
5 DocumentGetLastRevision QV_Open_List  : QV_RC=0.
5 DocumentGetLastRevision QV_SizeOf_List nb_of_entries 4: QV_RC=0.
2 DocumentGetLastRevision-----Exit------Nb of entries=4------------.
)"));
        EXPECT_EQ(outcome.accessLog, lines(R"(
DocumentGetLastRevision- rc(QV_Create_List::DocVersion) = 0
DocumentGetLastRevision- rc(AppendSelect- QV_Set_Clause-Select::doc_revision@doc_number) = 0
DocumentGetLastRevision- rc(AppendSelect- QV_Set_Clause-Select::doc_revision@doc_rev_num) = 0
DocumentGetLastRevision- rc(AppendWhere- QV_Set_Clause-Where::&=(doc_revision@doc_number,'d-1b')) = 0
DocumentGetLastRevision- rc(AppendWhere- QV_Set_Clause-Where::&=(doc_revision@primary_config@db_object_id,db_object_id)) = 0
DocumentGetLastRevision- rc(AppendWhere- QV_Set_Clause-Where::&=(copy_count,0)) = 0
DocumentGetLastRevision- rc(QV_Set_Clause-OrderBy::doc_revision@doc_number) = 0
DocumentGetLastRevision- rc(QV_Set_Clause-OrderBy::doc_revision@doc_rev_num_v) = 0
DocumentGetLastRevision- rc(QV_Set_Clause-OrderBy::doc_ver_num) = 0
DocumentGetLastRevision- rc(QV_Open_List) = 0
DocumentGetLastRevision- rc(QV_SizeOf_List::nb_of_entries=4) = 0
)"));
    });
}

TEST_F(LastRevision, AnUnknownDocumentGivesAnEmptyListAndNoError)
{
    connect();
    const Outcome outcome = record([] { return DocumentGetLastRevision("D-9"); });
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(QV_RC, 0);
    EXPECT_EQ(outcome.output + outcome.errorLog, "");
}

TEST_F(LastRevision, AMissingDocumentNumberIsRefusedAndLeavesTheCurrentResult)
{
    atEachLevel([](int level) {
        for (const char* const missing : {"", static_cast<const char*>(nullptr)}) {
            open(Text("D-1"), Text("1"), {"db_object_id"});
            const Outcome outcome = record([=] { return DocumentGetLastRevision(missing); });
            EXPECT_EQ(outcome.result, 0);
            EXPECT_EQ(entries, 0);
            EXPECT_EQ(QV_RC, -1);
            EXPECT_STREQ(FromList, "Object");
            EXPECT_EQ(NbSelectedAttribute, 2);
            EXPECT_EQ(outcome.calls + outcome.accessLog + outcome.errorLog, "");
            EXPECT_EQ(outcome.output, atLevel(level, R"(
2 DocumentGetLastRevision-----Start------------------------------.
2 DocumentGetLastRevision\tDocNumber=.
0 DocumentGetLastRevision****** ERROR ******  Document Number is not valuated....
2 DocumentGetLastRevision-----Exit------Nb of entries=0------------.
)"));
        }
    });
}

TEST_F(LastRevision, ADocumentNumberThatDoesNotFitTheClauseIsRefused)
{
    connect();
    standin::setRecords({{}});
    const std::string longest(49, 'D');
    EXPECT_EQ(record([&] { return DocumentGetLastRevision(longest.c_str()); }).result, 1);
    EXPECT_EQ(harness::countLines(standin::transcript(), "'" + longest + "'"), 1);
    const Outcome refused = record([&] { return DocumentGetLastRevision((longest + 'D').c_str()); });
    EXPECT_EQ(refused.result, 0);
    EXPECT_EQ(entries, 0);
    EXPECT_EQ(QV_RC, -1);
    EXPECT_EQ(harness::countLines(refused.calls, "QV_Open_List"), 0);
    for (const std::string& told : {refused.output, refused.accessLog, refused.errorLog, lastError()}) {
        EXPECT_EQ(harness::countLines(told, "documentNumber has 50 characters; at most 49"), 1);
    }
}

} // namespace
