// SPDX-License-Identifier: Apache-2.0
//
// A new revision of a document: base revision, list of versions and new revision, in one operation.
#include <array>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

/** The caller's buffers for what the new revision is called. */
struct Buffers {
    std::array<char, 5000> number{"untouched"};
    std::array<char, 5000> identifier{"untouched"};

    std::string texts() const { return std::string(number.data()) + ' ' + identifier.data(); }
};

class DocumentRevision : public LibraryTest {
protected:
    /** The server's answers: the base revision's control number, and B as the last of two revisions. */
    static void prepare(std::optional<std::string> controlNumber)
    {
        standin::setValue("doc_revision@doc_ctrl_num", std::move(controlNumber));
        standin::setRecords({{{"doc_revision@doc_rev_num", "A"}, {"db_object_id", "4711"}},
                             {{"doc_revision@doc_rev_num", "B"}, {"db_object_id", "4712"}}});
    }
    /** What a test does not name is the same in all of them. */
    struct Request {
        std::string documentNumber = "d-1b";
        std::string title = "Bracket";
        std::vector<std::string> names = {};
    };
    static Outcome revise(const std::string& change, Buffers& buffers, const Request& request)
    {
        return record([&] {
            return DocumentMakeNewRevision(Text(change), Text(request.documentNumber), Text("a"),
                                           Text(request.title), Text("oid-7"), Names(request.names),
                                           buffers.number.data(), buffers.identifier.data());
        });
    }
    static Outcome revise(const std::string& change, Buffers& buffers) { return revise(change, buffers, {}); }
};

TEST_F(DocumentRevision, TheChangeMovesFromTheBaseRevisionToTheNewOne)
{
    atEachLevel([] {
        writeFile("QVL_RZM_DEFAULT",
                  "DocumentMakeNewRevision site A\nDocumentMakeNewRevision doc_type DRW\n");
        prepare("ec-1");
        Buffers buffers;
        EXPECT_EQ(revise("ec-1", buffers, {"d-1b", "Bracket 2", {"doc_type", "db_object_id"}}).story,
                  story(R"--(
DocumentMakeNewRevision:
2 @-----Start------------------------------.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=2.
2 @- Printing Input Attributes ....
2 @-    EcNumber=ec-1.
2 @-    DocumentNumber=D-1B.
2 @-    RevisionNumber=a.
2 @-    NewRevDocumentTitle=Bracket 2.
2 @-    SystemPartnerOid=oid-7.
2 @- Printing Selected Attributes ....
2 @-   doc_type-.
2 @-   db_object_id-.
log @ EcNumber=ec-1, DocumentNumber=D-1B, RevisionNumber=a, NewRevDocumentTitle=Bracket 2
log @     site = A
log @     doc_type = DRW
log @    SystemPartnerOid= oid-7
- QV_Destroy_Object(null) = 0
> QV_Create_Object(obj1, "DocVersion") = 0
2 @-  base doc: db_object_id=-. > QV_Set_Object_Attr(obj1, "db_object_id", "") = 0 as base doc: QV_Set_Object_Attr
2 @-   base doc: doc_revision@doc_number=D-1B-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0 as base doc: QV_Set_Object_Attr
2 @-   base doc: doc_revision@doc_rev_num=a-. > QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0 as base doc: QV_Set_Object_Attr
> QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_title") = 0 as base doc: QV_Subscribe_Object_Attr
> QV_Subscribe_Object_Attr(obj1, "doc_revision@chg_ctrl") = 0 as base doc: QV_Subscribe_Object_Attr
> QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_ctrl_num") = 0 as base doc: QV_Subscribe_Object_Attr
> QV_Open_Object(obj1) = 0 as base doc: QV_Open_Object
- QV_Get_Object_Attr(obj1, "doc_revision@doc_ctrl_num") = 0
2 @-     base doc: IniCtrlEcNumber=ec-1-. > QV_Subscribe_Object_Attr(obj1, "doc_type") = 0 as base doc: QV_Subscribe_Object_Attr
> QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0 as base doc: QV_Subscribe_Object_Attr
2 @-     site=A-. > QV_Set_Object_Attr(obj1, "site", "A") = 0 as base doc: QV_Set_Object_Attr
2 @-     doc_type=DRW-. > QV_Set_Object_Attr(obj1, "doc_type", "DRW") = 0 as base doc: QV_Set_Object_Attr
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
= 1 FromList=Object entries=2 LastRecNo=-1 QV_RC=0 SelectedAttribute=[doc_type, db_object_id]
)--"));
        EXPECT_EQ(buffers.texts(), "B 4712");
    });
}

TEST_F(DocumentRevision, TheBaseRevisionIsReleasedOnlyByTheChangeThatControlsIt)
{
    struct Case {
        std::optional<std::string> controlNumber;
        std::string change;
    };
    for (const Case& tested :
         {Case{"EC-1", "EC-1"}, Case{"EC-1", "ec-1"}, Case{"EC-1", "EC-2"}, Case{"EC-1", ""},
          Case{"", "EC-1"}, Case{std::nullopt, "EC-1"}, Case{"", ""}, Case{std::nullopt, ""}}) {
        const std::string control = tested.controlNumber.value_or("");
        SCOPED_TRACE("base under '" + control + "', new revision under '" + tested.change + "'");
        restart();
        connect(2);
        prepare(tested.controlNumber);
        Buffers buffers;
        const std::string release = control != "EC-1" || tested.change != "EC-1" ? "" : R"(
2 @-   base doc: doc_revision@chg_ctrl=0. > QV_Set_Object_Attr(obj1, "doc_revision@chg_ctrl", "0") = 0 as base doc: QV_Set_Object_Attr
2 @ base doc: Execute Save method. > QV_Save_Object(obj1) = 0 as base doc: QV_Save_Object)";
        const std::string flag = tested.change.empty() ? "0" : "1";
        EXPECT_EQ(revise(tested.change, buffers).storyFrom("-IniCtrlEcNumber"),
                  story(R"(
DocumentMakeNewRevision:
2 @-IniCtrlEcNumber=)" + control +
                        "- EcNumber=" + tested.change + "-." + release + R"(
2 @-   new rev doc: doc_revision@chg_ctrl=)" +
                        flag + R"(.
> QV_Set_Object_Attr(obj4, "doc_revision@chg_ctrl", ")" +
                        flag + R"(") = 0 as new rev doc: QV_Set_Object_Attr
2 @-   new rev doc: doc_revision@doc_ctrl_num=)" +
                        tested.change + R"(.
> QV_Set_Object_Attr(obj4, "doc_revision@doc_ctrl_num", ")" +
                        tested.change + R"(") = 0 as new rev doc: QV_Set_Object_Attr
2 @ new rev doc: Execute Save method. > QV_Save_Object(obj4) = 0 as new rev doc: QV_Save_Object
log @ ...Document New Revision was  updated
- QV_Destroy_Object(obj4) = 0
- QV_Destroy_Object(obj3) = 0
2 @...revision B for document D-1B was created.
= 1 FromList=Object entries=2 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
    }
}

/** Whatever fails: the buffers are written once the record of the new revision was read, and not before. */
TEST_F(DocumentRevision, TheBuffersAreWrittenAsSoonAsTheRevisionIsFound)
{
    connect(-1);
    prepare("EC-1");
    Buffers whole;
    ASSERT_EQ(revise("EC-1", whole).result, 1);
    const std::vector<standin::Call> clean = standin::calls();
    std::size_t found = 0;
    while (clean.at(found).function != "QV_Read_List") {
        ++found;
    }
    for (std::size_t number = 1; number <= clean.size(); ++number) {
        const standin::Call& failed = clean[number - 1];
        SCOPED_TRACE("with call " + std::to_string(number) + " failing: " + failed.line());
        restart();
        connect(-1);
        prepare("EC-1");
        standin::answerCall(number, -7);
        Buffers buffers;
        const int result = revise("EC-1", buffers).result;
        // Calls that stop nothing: destroys, reads of values, and those whose failure is only reported.
        if (failed.function == "QV_Get_Object_Attr" && number > found) {
            EXPECT_EQ(buffers.texts(), failed.hasText("doc_revision@doc_rev_num") ? " 4712" : "B ");
        } else {
            EXPECT_EQ(buffers.texts(), result == 1 || number > found + 1 ? "B 4712" : "untouched untouched");
        }
    }
}

TEST_F(DocumentRevision, WithoutARecordTheWorkEndsQuietly)
{
    connect(2);
    const auto reviseWith = [this](const std::function<void()>& script) {
        restart();
        connect(2);
        prepare("EC-1");
        script();
        Buffers buffers;
        const Outcome outcome = revise("EC-1", buffers);
        EXPECT_EQ(buffers.texts(), "untouched untouched");
        return outcome.storyFrom("QV_SizeOf_List");
    };
    EXPECT_EQ(reviseWith([] { standin::setRecords({}); }), story(R"(
- QV_SizeOf_List(list1, 0) = 0
DocumentMakeNewRevision:
2 @...new revision for document D-1B was not created.
= 0 FromList=Object entries=0 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
    // The size stays what it was before the count.
    EXPECT_EQ(reviseWith([] {
                  standin::answer("QV_SizeOf_List", -7, {{"E1", "no size"}});
              }),
              story(R"(
- QV_SizeOf_List(list1, -1) = -7
DocumentMakeNewRevision:
2 @...new revision for document D-1B was not created.
= 0 FromList=Object entries=-1 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[]
)"));
    EXPECT_EQ(reviseWith([] {
                  standin::answer("QV_Read_List", -7, {{"E1", "no record"}});
              }),
              story(R"(
- QV_SizeOf_List(list1, 2) = 0
- QV_Read_List(list1, 1, null) = -7
DocumentMakeNewRevision:
2 @...new revision for document D-1B was not created.
= 0 FromList=Object entries=2 LastRecNo=-1 QV_RC=0 SelectedAttribute=[]
)"));
}

TEST_F(DocumentRevision, AHandleIsGivenBackEvenWhereTheCallThatHandedItOverFailed)
{
    connect();
    prepare("EC-1");
    standin::handOver("QV_Make_New_Revision", standin::HandOver::Always);
    standin::answer("QV_Make_New_Revision", -7, {{"E1", "checked out by jdoe"}});
    Buffers buffers;
    EXPECT_EQ(revise("EC-1", buffers).storyFrom("QV_Make_New_Revision"), story(R"(
- QV_Make_New_Revision(obj1, obj2) = -7
- QV_Destroy_Object(obj2) = 0
DocumentMakeNewRevision:
log @- rc(base doc: QV_MakeNewRevision_Doc) = -7
! E1 - checked out by jdoe
= 0 FromList=Object entries=-1 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[]
)"));
}

TEST_F(DocumentRevision, TheReadingOfTheRecordIsJudgedByItsHandleAlone)
{
    connect();
    prepare("");
    standin::handOver("QV_Read_List", standin::HandOver::Always);
    standin::answer("QV_Read_List", -7, {{"E1", "not told"}});
    Buffers buffers;
    const Outcome outcome = revise("", buffers);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(buffers.texts(), "B 4712");
    EXPECT_EQ(outcome.output, "");
}

TEST_F(DocumentRevision, TheNewRevisionsHandleIsGivenBackEvenWhereItsCreationFailed)
{
    connect();
    prepare("");
    Buffers buffers;
    revise("", buffers);
    std::size_t creation = standin::calls().size();
    while (standin::calls().at(creation - 1).function != "QV_Create_Object") {
        --creation;
    }
    restart();
    connect();
    prepare("");
    standin::handOver("QV_Create_Object", standin::HandOver::Always);
    standin::answerCall(creation, -7, {{"E1", "refused"}});
    EXPECT_EQ(revise("", buffers).storyFrom("QV_Create_Object(obj4"), story(R"(
DocumentMakeNewRevision:
> QV_Create_Object(obj4, "DocVersion") = -7 as new rev doc: QV_Create_Object
! E1 - refused
- QV_Destroy_Object(obj4) = 0
- QV_Destroy_Object(obj3) = 0
= 0 FromList=Object entries=2 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[]
)"));
}

TEST_F(DocumentRevision, ADocumentNumberThatDoesNotFitTheClauseIsRefusedBeforeARevisionIsMade)
{
    connect();
    prepare("");
    Buffers buffers;
    const std::string longest(49, 'D');
    const Outcome whole = revise("", buffers, {longest});
    EXPECT_EQ(whole.result, 1);
    EXPECT_EQ(countLines(whole.calls, "&=(doc_revision@doc_number,'" + longest + "')"), 1);
    EXPECT_EQ(revise("", buffers, {longest + 'D'}).storyFrom("SystemPartnerOid"), story(R"(
DocumentMakeNewRevision:
log @    SystemPartnerOid= oid-7
log @- rc(AppendWhere- QV_Set_Clause-Where) = -1
! -1 - documentNumber has 50 characters; at most 49 fit the clause &=(doc_revision@doc_number,'...')
= 0 FromList=Object entries=-1 LastRecNo=-1 QV_RC=-1 SelectedAttribute=[]
)"));
    EXPECT_EQ(revise("", buffers, {std::string(10000, 'D')}).result, 0);
}

TEST_F(DocumentRevision, AMissingDocumentNumberIsAnEmptyOne)
{
    connect();
    prepare("");
    std::array<char, 10> number{};
    const Outcome outcome = record([&] {
        return DocumentMakeNewRevision(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, number.data(),
                                       nullptr);
    });
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(countLines(outcome.calls, "\"&=(doc_revision@doc_number,'')\""), 1);
    EXPECT_STREQ(number.data(), "B");
}

TEST_F(DocumentRevision, ValuesOfTheLargestSizeComeBackWhole)
{
    connect();
    const std::string number(QV_MAX_VALUE_LENGTH, 'n');
    const std::string identifier(QV_MAX_VALUE_LENGTH, 'i');
    standin::setRecords({{{"doc_revision@doc_rev_num", number}, {"db_object_id", identifier}}});
    Buffers buffers;
    EXPECT_EQ(revise("", buffers).result, 1);
    EXPECT_EQ(buffers.texts(), number + ' ' + identifier);
}

} // namespace
