// SPDX-License-Identifier: Apache-2.0
//
// A new revision of a document: base revision, list of versions and new revision, in one operation.
#include <array>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

class DocumentRevision : public LibraryTest {
protected:
    /** A connected process, and B as the last of two revisions on the server. */
    void begin()
    {
        restart();
        connect(2);
        setRevisions();
    }
    static void setRevisions()
    {
        standin::script().records = {{{"doc_revision@doc_rev_num", "A"}, {"db_object_id", "4711"}},
                                     {{"doc_revision@doc_rev_num", "B"}, {"db_object_id", "4712"}}};
    }
    static void setControlNumber(std::optional<std::string> change)
    {
        standin::script().values["doc_revision@doc_ctrl_num"] = std::move(change);
    }
    Outcome revise(const std::string& change, const std::string& documentNumber = "d-1b")
    {
        number_ = {"untouched"};
        identifier_ = {"untouched"};
        return record([&] {
            return DocumentMakeNewRevision(Text(change), Text(documentNumber), Text("a"), Text("Bracket 2"),
                                           Text("oid-7"), Names({"db_object_id"}), number_.data(),
                                           identifier_.data());
        });
    }
    /** What the caller is told the new revision is called. */
    std::string names() const { return std::string(number_.data()) + ' ' + identifier_.data(); }

private:
    std::array<char, 5000> number_{};
    std::array<char, 5000> identifier_{};
};

TEST_F(DocumentRevision, TheChangeMovesFromTheBaseRevisionToTheNewOne)
{
    atEachLevel([this] {
        writeFile("QVL_RZM_DEFAULT", "DocumentMakeNewRevision site A\n");
        setRevisions();
        setControlNumber("ec-1");
        EXPECT_EQ(revise("ec-1").story, story(R"--(
DocumentMakeNewRevision:
2 @-----Start------------------------------.
defaults 1
2 @- Printing Input Attributes ....
2 @-    EcNumber=ec-1.
2 @-    DocumentNumber=D-1B.
2 @-    RevisionNumber=a.
2 @-    NewRevDocumentTitle=Bracket 2.
2 @-    SystemPartnerOid=oid-7.
2 @- Printing Selected Attributes ....
2 @-   db_object_id-.
log @ EcNumber=ec-1, DocumentNumber=D-1B, RevisionNumber=a, NewRevDocumentTitle=Bracket 2
log @     site = A
log @    SystemPartnerOid= oid-7
new DocVersion
2 @-  base doc: db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0 as base doc: QV_Set_Object_Attr
2 @-   base doc: doc_revision@doc_number=D-1B-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0 as base doc: QV_Set_Object_Attr
2 @-   base doc: doc_revision@doc_rev_num=a-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0 as base doc: QV_Set_Object_Attr
> QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_title") = 0 as base doc: QV_Subscribe_Object_Attr
> QV_Subscribe_Object_Attr(obj1, "doc_revision@chg_ctrl") = 0 as base doc: QV_Subscribe_Object_Attr
> QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_ctrl_num") = 0 as base doc: QV_Subscribe_Object_Attr
> QV_Open_Object(obj1) = 0 as base doc: QV_Open_Object
- QV_Get_Object_Attr(obj1, "doc_revision@doc_ctrl_num") = 0
2 @-     base doc: IniCtrlEcNumber=ec-1-. > QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0 as base doc: QV_Subscribe_Object_Attr
2 @-     site=A-. > QV_Set_Object_Attr(obj1, "site", "A") = 0 as base doc: QV_Set_Object_Attr
- QV_Make_New_Revision(obj1, obj2) = 0
> QV_Destroy_Object(obj2) = 0 as base doc: QV_MakeNewRevision_Doc
log @ ...Document New Revision was  created
- QV_Destroy_List(null) = 0
> QV_Create_List(list1, "DocVersion") = 0
2 @ AppendSelect - doc_revision@doc_number. > QV_Set_Clause(list1, "Select", "doc_revision@doc_number") = 0
2 @ AppendSelect - doc_revision@doc_rev_num. > QV_Set_Clause(list1, "Select", "doc_revision@doc_rev_num") = 0
2 @ AppendSelect - db_object_id. > QV_Set_Clause(list1, "Select", "db_object_id") = 0
2 @ AppendWhere - &=(doc_revision@doc_number,'D-1B'). > QV_Set_Clause(list1, "Where", "&=(doc_revision@doc_number,'D-1B')") = 0
2 @ AppendWhere - &=(doc_revision@primary_config@db_object_id,db_object_id). > QV_Set_Clause(list1, "Where", "&=(doc_revision@primary_config@db_object_id,db_object_id)") = 0
2 @ AppendWhere - &=(copy_count,0). > QV_Set_Clause(list1, "Where", "&=(copy_count,0)") = 0
> QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_number") = 0
> QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_rev_num_v") = 0
> QV_Set_Clause(list1, "OrderBy", "doc_ver_num") = 0
> QV_Open_List(list1) = 0
- QV_SizeOf_List(list1, 2) = 0
- QV_Read_List(list1, 1, obj3) = 0
- QV_Get_Object_Attr(obj3, "doc_revision@doc_rev_num") = 0
- QV_Get_Object_Attr(obj3, "db_object_id") = 0
log @ ... new Revision Number= B  new DbObjectId= 4712
> QV_Create_Object(obj4, "DocVersion") = 0 as new rev doc: QV_Create_Object
> QV_Set_Object_Attr(obj4, "db_object_id", "4712") = 0 as new rev doc: QV_Set_Object_Attr
> QV_Set_Object_Attr(obj4, "doc_revision@doc_title", "") = 0 as new rev doc: QV_Set_Object_Attr
> QV_Subscribe_Object_Attr(obj4, "doc_primary_fmt@user_data3") = 0 as new rev doc: QV_Subscribe_Object_Attr
> QV_Subscribe_Object_Attr(obj4, "doc_revision@chg_ctrl") = 0 as new rev doc: QV_Subscribe_Object_Attr
> QV_Subscribe_Object_Attr(obj4, "doc_revision@doc_ctrl_num") = 0 as new rev doc: QV_Subscribe_Object_Attr
> QV_Open_Object(obj4) = 0 as new rev doc: QV_Open_Object
> QV_Set_Object_Attr(obj4, "doc_revision@doc_title", "Bracket 2") = 0 as new rev doc: QV_Set_Object_Attr
> QV_Set_Object_Attr(obj4, "doc_primary_fmt@user_data3", "oid-7") = 0 as new rev doc: QV_Set_Object_Attr
2 @-IniCtrlEcNumber=ec-1- EcNumber=ec-1-.
2 @-   base doc: doc_revision@chg_ctrl=0. > QV_Set_Object_Attr(obj1, "doc_revision@chg_ctrl", "0") = 0 as base doc: QV_Set_Object_Attr
2 @ base doc: Execute Save method. > QV_Save_Object(obj1) = 0 as base doc: QV_Save_Object
2 @-   new rev doc: doc_revision@chg_ctrl=1. > QV_Set_Object_Attr(obj4, "doc_revision@chg_ctrl", "1") = 0 as new rev doc: QV_Set_Object_Attr
2 @-   new rev doc: doc_revision@doc_ctrl_num=ec-1. > QV_Set_Object_Attr(obj4, "doc_revision@doc_ctrl_num", "ec-1") = 0 as new rev doc: QV_Set_Object_Attr
2 @ new rev doc: Execute Save method. > QV_Save_Object(obj4) = 0 as new rev doc: QV_Save_Object
log @ ...Document New Revision was  updated
- QV_Destroy_Object(obj4) = 0
- QV_Destroy_Object(obj3) = 0
2 @...revision B for document D-1B was created.
= 1 FromList=Object entries=2 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id]
)--"));
        EXPECT_EQ(names(), "B 4712");
    });
}

TEST_F(DocumentRevision, TheBaseRevisionIsReleasedOnlyByTheChangeThatControlsIt)
{
    struct Case {
        std::optional<std::string> controlNumber;
        std::string change;
        bool released;
    };
    for (const Case& tested :
         {Case{"EC-1", "EC-1", true}, Case{"EC-1", "ec-1", false}, Case{"EC-1", "EC-2", false},
          Case{"EC-1", "", false}, Case{"", "EC-1", false}, Case{std::nullopt, "", false}}) {
        const std::string control = tested.controlNumber.value_or("");
        SCOPED_TRACE("base under '" + control + "', new revision under '" + tested.change + "'");
        begin();
        setControlNumber(tested.controlNumber);
        const Outcome outcome = revise(tested.change);
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(
            countLines(outcome.output, "-IniCtrlEcNumber=" + control + "- EcNumber=" + tested.change + "-."),
            1);
        EXPECT_EQ(countLines(outcome.calls, R"(obj1, "doc_revision@chg_ctrl", "0")"),
                  tested.released ? 1 : 0);
        EXPECT_EQ(countLines(outcome.calls, "QV_Save_Object"), tested.released ? 2 : 1);
        const std::string controlled = tested.change.empty() ? "0" : "1";
        EXPECT_EQ(countLines(outcome.calls, R"(obj4, "doc_revision@chg_ctrl", ")" + controlled + '"'), 1);
        EXPECT_EQ(countLines(outcome.output, "-   new rev doc: doc_revision@chg_ctrl=" + controlled + '.'),
                  1);
        EXPECT_EQ(countLines(outcome.calls, R"(obj4, "doc_revision@doc_ctrl_num", ")" + tested.change + '"'),
                  1);
    }
}

/** Whatever fails: the buffers are written once the record of the new revision was read, and not before. */
TEST_F(DocumentRevision, TheBuffersAreWrittenAsSoonAsTheRevisionIsFound)
{
    begin();
    setControlNumber("EC-1");
    ASSERT_EQ(revise("EC-1").result, 1);
    const std::vector<standin::Call> clean(standin::calls().begin(), standin::calls().end());
    bool found = false;
    for (std::size_t number = 1; number <= clean.size(); ++number) {
        const standin::Call& failed = clean[number - 1];
        SCOPED_TRACE("with call " + std::to_string(number) + " failing: " + failed.line());
        begin();
        setControlNumber("EC-1");
        standin::answerCall(number, -7);
        const int result = revise("EC-1").result;
        // Calls that stop nothing: destroys, reads of values, and those whose failure is only reported.
        if (found && failed.function == "QV_Get_Object_Attr") {
            EXPECT_EQ(names(), failed.hasText("doc_revision@doc_rev_num") ? " 4712" : "B ");
        } else {
            EXPECT_EQ(names(), result == 1 || found ? "B 4712" : "untouched untouched");
        }
        found = found || failed.function == "QV_Read_List";
    }
}

TEST_F(DocumentRevision, WithoutARecordTheWorkEndsQuietly)
{
    begin();
    standin::script().records = {};
    EXPECT_EQ(revise("").storyFrom("QV_SizeOf_List"), story(R"(
- QV_SizeOf_List(list1, 0) = 0
DocumentMakeNewRevision:
2 @...new revision for document D-1B was not created.
= 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=0 SelectedAttribute=[db_object_id]
)"));
    // The size stays what it was before the count.
    begin();
    standin::answer("QV_SizeOf_List", -7, {{"E1", "no size"}});
    EXPECT_EQ(revise("").storyFrom("QV_SizeOf_List"), story(R"(
- QV_SizeOf_List(list1, -1) = -7
DocumentMakeNewRevision:
2 @...new revision for document D-1B was not created.
= 0 FromList=Object entries=-1 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[db_object_id]
)"));
    begin();
    standin::answer("QV_Read_List", -7, {{"E1", "no record"}});
    EXPECT_EQ(revise("").storyFrom("QV_Read_List"), story(R"(
- QV_Read_List(list1, 1, null) = -7
DocumentMakeNewRevision:
2 @...new revision for document D-1B was not created.
= 0 FromList=Object entries=2 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[db_object_id]
)"));
    EXPECT_EQ(names(), "untouched untouched");
}

TEST_F(DocumentRevision, AHandleIsGivenBackEvenWhereTheCallThatHandedItOverFailed)
{
    begin();
    standin::script().handOvers["QV_Make_New_Revision"] = standin::HandOver::Always;
    standin::answer("QV_Make_New_Revision", -7, {{"E1", "checked out by jdoe"}});
    EXPECT_EQ(revise("").storyFrom("QV_Make_New_Revision"), story(R"(
- QV_Make_New_Revision(obj1, obj2) = -7
- QV_Destroy_Object(obj2) = 0
DocumentMakeNewRevision:
log @- rc(base doc: QV_MakeNewRevision_Doc) = -7
! E1 - checked out by jdoe
2 @...new revision for document D-1B was not created.
= 0 FromList=Object entries=-1 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[db_object_id]
)"));
    begin();
    standin::script().handOvers["QV_Create_Object"] = standin::HandOver::Always;
    standin::answerCall(30, -7, {{"E1", "refused"}}); // the creation of the new revision
    EXPECT_EQ(revise("").storyFrom("QV_Create_Object(obj4"), story(R"(
DocumentMakeNewRevision:
> QV_Create_Object(obj4, "DocVersion") = -7 as new rev doc: QV_Create_Object
! E1 - refused
- QV_Destroy_Object(obj4) = 0
- QV_Destroy_Object(obj3) = 0
2 @...new revision for document D-1B was not created.
= 0 FromList=Object entries=2 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[db_object_id]
)"));
}

TEST_F(DocumentRevision, TheReadingOfTheRecordIsJudgedByItsHandleAlone)
{
    begin();
    standin::script().handOvers["QV_Read_List"] = standin::HandOver::Always;
    standin::answer("QV_Read_List", -7, {{"E1", "not told"}});
    const Outcome outcome = revise("");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(names(), "B 4712");
    EXPECT_EQ(outcome.errorLog, "");
}

TEST_F(DocumentRevision, ADocumentNumberThatDoesNotFitTheClauseIsRefusedBeforeARevisionIsMade)
{
    begin();
    const std::string longest(49, 'D');
    EXPECT_EQ(countLines(revise("", longest).calls, "&=(doc_revision@doc_number,'" + longest + "')"), 1);
    EXPECT_EQ(revise("", longest + 'D').storyFrom("SystemPartnerOid= "), story(R"(
DocumentMakeNewRevision:
log @    SystemPartnerOid= oid-7
log @- rc(AppendWhere- QV_Set_Clause-Where) = -1
! -1 - documentNumber has 50 characters; at most 49 fit the clause &=(doc_revision@doc_number,'...')
2 @...new revision for document )" + longest + R"(D was not created.
= 0 FromList=Object entries=-1 LastRecNo=-1 QV_RC=-1 SelectedAttribute=[db_object_id]
)"));
}

TEST_F(DocumentRevision, MissingTextsAreEmptyAndValuesOfTheLargestSizeComeBackWhole)
{
    connect();
    const std::string value(QV_MAX_VALUE_LENGTH, 'n');
    standin::script().records = {{{"doc_revision@doc_rev_num", value}, {"db_object_id", value}}};
    revise("");
    EXPECT_EQ(names(), value + ' ' + value);
    std::array<char, QV_MAX_VALUE_LENGTH + 1> number{};
    const Outcome outcome = record([&] {
        return DocumentMakeNewRevision(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, number.data(),
                                       nullptr);
    });
    EXPECT_EQ(countLines(outcome.calls, "\"&=(doc_revision@doc_number,'')\""), 1);
    EXPECT_EQ(number.data(), value);
}

} // namespace
