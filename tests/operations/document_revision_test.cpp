// SPDX-License-Identifier: Apache-2.0
//
// A new revision of a document: base revision, list of versions and new revision, in one operation.
#include <array>

#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;
using harness::writeFile;

namespace {

constexpr const char* untouched = "untouched";

/** The caller's buffers for what the new revision is called. */
struct Buffers {
    std::array<char, 5000> number{};
    std::array<char, 5000> identifier{};

    Buffers()
    {
        number.fill('#');
        identifier.fill('#');
        std::string(untouched).copy(number.data(), number.size());
        std::string(untouched).copy(identifier.data(), identifier.size());
        number[std::string(untouched).size()] = '\0';
        identifier[std::string(untouched).size()] = '\0';
    }
};

class DocumentRevision : public harness::LibraryTest {
protected:
    /** The server's answers: the base revision's control number, and B as the last of two revisions. */
    static void prepare(std::optional<std::string> controlNumber)
    {
        standin::setValue("doc_revision@doc_ctrl_num", std::move(controlNumber));
        standin::setRecords({{{"doc_revision@doc_rev_num", "A"}, {"db_object_id", "4711"}},
                             {{"doc_revision@doc_rev_num", "B"}, {"db_object_id", "4712"}}});
    }
    static Outcome revise(char* ecNumber, Buffers& buffers, char** names = nullptr)
    {
        return record([&] {
            return DocumentMakeNewRevision(ecNumber, Text("D-1"), Text("a"), Text("Bracket"), Text("oid"),
                                           names, buffers.number.data(), buffers.identifier.data());
        });
    }
};

constexpr const char* controlledByTheSameChange = R"--(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "DocVersion") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0
QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_title") = 0
QV_Subscribe_Object_Attr(obj1, "doc_revision@chg_ctrl") = 0
QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_ctrl_num") = 0
QV_Open_Object(obj1) = 0
QV_Get_Object_Attr(obj1, "doc_revision@doc_ctrl_num") = 0
QV_Subscribe_Object_Attr(obj1, "doc_type") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Set_Object_Attr(obj1, "site", "A") = 0
QV_Set_Object_Attr(obj1, "doc_type", "DRW") = 0
QV_Make_New_Revision(obj1, obj2) = 0
QV_Destroy_Object(obj2) = 0
QV_Destroy_List(null) = 0
QV_Create_List(list1, "DocVersion") = 0
QV_Set_Clause(list1, "Select", "doc_revision@doc_number") = 0
QV_Set_Clause(list1, "Select", "doc_revision@doc_rev_num") = 0
QV_Set_Clause(list1, "Select", "db_object_id") = 0
QV_Set_Clause(list1, "Where", "&=(doc_revision@doc_number,'D-1B')") = 0
QV_Set_Clause(list1, "Where", "&=(doc_revision@primary_config@db_object_id,db_object_id)") = 0
QV_Set_Clause(list1, "Where", "&=(copy_count,0)") = 0
QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_number") = 0
QV_Set_Clause(list1, "OrderBy", "doc_revision@doc_rev_num_v") = 0
QV_Set_Clause(list1, "OrderBy", "doc_ver_num") = 0
QV_Open_List(list1) = 0
QV_SizeOf_List(list1, 2) = 0
QV_Read_List(list1, 1, obj3) = 0
QV_Get_Object_Attr(obj3, "doc_revision@doc_rev_num") = 0
QV_Get_Object_Attr(obj3, "db_object_id") = 0
QV_Create_Object(obj4, "DocVersion") = 0
QV_Set_Object_Attr(obj4, "db_object_id", "4712") = 0
QV_Set_Object_Attr(obj4, "doc_revision@doc_title", "") = 0
QV_Subscribe_Object_Attr(obj4, "doc_primary_fmt@user_data3") = 0
QV_Subscribe_Object_Attr(obj4, "doc_revision@chg_ctrl") = 0
QV_Subscribe_Object_Attr(obj4, "doc_revision@doc_ctrl_num") = 0
QV_Open_Object(obj4) = 0
QV_Set_Object_Attr(obj4, "doc_revision@doc_title", "Bracket 2") = 0
QV_Set_Object_Attr(obj4, "doc_primary_fmt@user_data3", "oid-7") = 0
QV_Set_Object_Attr(obj1, "doc_revision@chg_ctrl", "0") = 0
QV_Save_Object(obj1) = 0
QV_Set_Object_Attr(obj4, "doc_revision@chg_ctrl", "1") = 0
QV_Set_Object_Attr(obj4, "doc_revision@doc_ctrl_num", "ec-1") = 0
QV_Save_Object(obj4) = 0
QV_Destroy_Object(obj4) = 0
QV_Destroy_Object(obj3) = 0
)--";

constexpr const char* traceOfIt = R"(
2 DocumentMakeNewRevision-----Start------------------------------.
2 DocumentMakeNewRevision- Calling DefaultRead for DocumentMakeNewRevision.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- site=A.
5 DefaultRead- doc_type=DRW.
2 DefaultRead-----Exit----NbOfDefault=2--------.
2 DocumentMakeNewRevision- rc(DefaultRead)=2.
2 DocumentMakeNewRevision- Printing Input Attributes ....
2 DocumentMakeNewRevision-    EcNumber=ec-1.
2 DocumentMakeNewRevision-    DocumentNumber=D-1B.
2 DocumentMakeNewRevision-    RevisionNumber=a.
2 DocumentMakeNewRevision-    NewRevDocumentTitle=Bracket 2.
2 DocumentMakeNewRevision-    SystemPartnerOid=oid-7.
2 DocumentMakeNewRevision- Printing Selected Attributes ....
2 DocumentMakeNewRevision-   doc_type-.
2 DocumentMakeNewRevision-   db_object_id-.
5 DocumentMakeNewRevision QV_Create_Object DocVersion : QV_RC=0.
2 DocumentMakeNewRevision-  base doc: db_object_id=-.
5 DocumentMakeNewRevision base doc: QV_Set_Object_Attr db_object_id : QV_RC=0.
2 DocumentMakeNewRevision-   base doc: doc_revision@doc_number=D-1B-.
5 DocumentMakeNewRevision base doc: QV_Set_Object_Attr doc_revision@doc_number D-1B: QV_RC=0.
2 DocumentMakeNewRevision-   base doc: doc_revision@doc_rev_num=a-.
5 DocumentMakeNewRevision base doc: QV_Set_Object_Attr doc_revision@doc_rev_num a: QV_RC=0.
5 DocumentMakeNewRevision base doc: QV_Subscribe_Object_Attr doc_revision@doc_title : QV_RC=0.
5 DocumentMakeNewRevision base doc: QV_Subscribe_Object_Attr doc_revision@chg_ctrl : QV_RC=0.
5 DocumentMakeNewRevision base doc: QV_Subscribe_Object_Attr doc_revision@doc_ctrl_num : QV_RC=0.
5 DocumentMakeNewRevision base doc: QV_Open_Object  : QV_RC=0.
2 DocumentMakeNewRevision-     base doc: IniCtrlEcNumber=ec-1-.
5 DocumentMakeNewRevision base doc: QV_Subscribe_Object_Attr doc_type : QV_RC=0.
5 DocumentMakeNewRevision base doc: QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
2 DocumentMakeNewRevision-     site=A-.
5 DocumentMakeNewRevision base doc: QV_Set_Object_Attr site A: QV_RC=0.
2 DocumentMakeNewRevision-     doc_type=DRW-.
5 DocumentMakeNewRevision base doc: QV_Set_Object_Attr doc_type DRW: QV_RC=0.
5 DocumentMakeNewRevision base doc: QV_MakeNewRevision_Doc  : QV_RC=0.
5 DocumentMakeNewRevision QV_Create_List DocVersion : QV_RC=0.
2 DocumentMakeNewRevision AppendSelect - doc_revision@doc_number.
5 DocumentMakeNewRevision AppendSelect- QV_Set_Clause-Select doc_revision@doc_number : QV_RC=0.
2 DocumentMakeNewRevision AppendSelect - doc_revision@doc_rev_num.
5 DocumentMakeNewRevision AppendSelect- QV_Set_Clause-Select doc_revision@doc_rev_num : QV_RC=0.
2 DocumentMakeNewRevision AppendSelect - db_object_id.
5 DocumentMakeNewRevision AppendSelect- QV_Set_Clause-Select db_object_id : QV_RC=0.
2 DocumentMakeNewRevision AppendWhere - &=(doc_revision@doc_number,'D-1B').
5 DocumentMakeNewRevision AppendWhere- QV_Set_Clause-Where &=(doc_revision@doc_number,'D-1B') : QV_RC=0.
2 DocumentMakeNewRevision AppendWhere - &=(doc_revision@primary_config@db_object_id,db_object_id).
5 DocumentMakeNewRevision AppendWhere- QV_Set_Clause-Where &=(doc_revision@primary_config@db_object_id,db_object_id) : QV_RC=0.
2 DocumentMakeNewRevision AppendWhere - &=(copy_count,0).
5 DocumentMakeNewRevision AppendWhere- QV_Set_Clause-Where &=(copy_count,0) : QV_RC=0.
5 DocumentMakeNewRevision QV_Set_Clause-OrderBy doc_revision@doc_number : QV_RC=0.
5 DocumentMakeNewRevision QV_Set_Clause-OrderBy doc_revision@doc_rev_num_v : QV_RC=0.
5 DocumentMakeNewRevision QV_Set_Clause-OrderBy doc_ver_num : QV_RC=0.
5 DocumentMakeNewRevision QV_Open_List  : QV_RC=0.
5 DocumentMakeNewRevision new rev doc: QV_Create_Object DocVersion : QV_RC=0.
5 DocumentMakeNewRevision new rev doc: QV_Set_Object_Attr db_object_id 4712: QV_RC=0.
5 DocumentMakeNewRevision new rev doc: QV_Set_Object_Attr doc_revision@doc_title : QV_RC=0.
5 DocumentMakeNewRevision new rev doc: QV_Subscribe_Object_Attr doc_primary_fmt@user_data3 : QV_RC=0.
5 DocumentMakeNewRevision new rev doc: QV_Subscribe_Object_Attr doc_revision@chg_ctrl : QV_RC=0.
5 DocumentMakeNewRevision new rev doc: QV_Subscribe_Object_Attr doc_revision@doc_ctrl_num : QV_RC=0.
5 DocumentMakeNewRevision new rev doc: QV_Open_Object  : QV_RC=0.
5 DocumentMakeNewRevision new rev doc: QV_Set_Object_Attr doc_revision@doc_title Bracket 2: QV_RC=0.
5 DocumentMakeNewRevision new rev doc: QV_Set_Object_Attr doc_primary_fmt@user_data3 oid-7: QV_RC=0.
2 DocumentMakeNewRevision-IniCtrlEcNumber=ec-1- EcNumber=ec-1-.
2 DocumentMakeNewRevision-   base doc: doc_revision@chg_ctrl=0.
5 DocumentMakeNewRevision base doc: QV_Set_Object_Attr doc_revision@chg_ctrl 0: QV_RC=0.
2 DocumentMakeNewRevision base doc: Execute Save method.
5 DocumentMakeNewRevision base doc: QV_Save_Object  : QV_RC=0.
2 DocumentMakeNewRevision-   new rev doc: doc_revision@chg_ctrl=1.
5 DocumentMakeNewRevision new rev doc: QV_Set_Object_Attr doc_revision@chg_ctrl 1: QV_RC=0.
2 DocumentMakeNewRevision-   new rev doc: doc_revision@doc_ctrl_num=ec-1.
5 DocumentMakeNewRevision new rev doc: QV_Set_Object_Attr doc_revision@doc_ctrl_num ec-1: QV_RC=0.
2 DocumentMakeNewRevision new rev doc: Execute Save method.
5 DocumentMakeNewRevision new rev doc: QV_Save_Object  : QV_RC=0.
2 DocumentMakeNewRevision...revision B for document D-1B was created.
)";

constexpr const char* logOfIt = R"(
DocumentMakeNewRevision EcNumber=ec-1, DocumentNumber=D-1B, RevisionNumber=a, NewRevDocumentTitle=Bracket 2
DocumentMakeNewRevision     site = A
DocumentMakeNewRevision     doc_type = DRW
DocumentMakeNewRevision    SystemPartnerOid= oid-7
DocumentMakeNewRevision- rc(QV_Create_Object::DocVersion) = 0
DocumentMakeNewRevision- rc(base doc: QV_Set_Object_Attr::db_object_id) = 0
DocumentMakeNewRevision- rc(base doc: QV_Set_Object_Attr::doc_revision@doc_number=D-1B) = 0
DocumentMakeNewRevision- rc(base doc: QV_Set_Object_Attr::doc_revision@doc_rev_num=a) = 0
DocumentMakeNewRevision- rc(base doc: QV_Subscribe_Object_Attr::doc_revision@doc_title) = 0
DocumentMakeNewRevision- rc(base doc: QV_Subscribe_Object_Attr::doc_revision@chg_ctrl) = 0
DocumentMakeNewRevision- rc(base doc: QV_Subscribe_Object_Attr::doc_revision@doc_ctrl_num) = 0
DocumentMakeNewRevision- rc(base doc: QV_Open_Object) = 0
DocumentMakeNewRevision- rc(base doc: QV_Subscribe_Object_Attr::doc_type) = 0
DocumentMakeNewRevision- rc(base doc: QV_Subscribe_Object_Attr::db_object_id) = 0
DocumentMakeNewRevision- rc(base doc: QV_Set_Object_Attr::site=A) = 0
DocumentMakeNewRevision- rc(base doc: QV_Set_Object_Attr::doc_type=DRW) = 0
DocumentMakeNewRevision- rc(base doc: QV_MakeNewRevision_Doc) = 0
DocumentMakeNewRevision ...Document New Revision was  created
DocumentMakeNewRevision- rc(QV_Create_List::DocVersion) = 0
DocumentMakeNewRevision- rc(AppendSelect- QV_Set_Clause-Select::doc_revision@doc_number) = 0
DocumentMakeNewRevision- rc(AppendSelect- QV_Set_Clause-Select::doc_revision@doc_rev_num) = 0
DocumentMakeNewRevision- rc(AppendSelect- QV_Set_Clause-Select::db_object_id) = 0
DocumentMakeNewRevision- rc(AppendWhere- QV_Set_Clause-Where::&=(doc_revision@doc_number,'D-1B')) = 0
DocumentMakeNewRevision- rc(AppendWhere- QV_Set_Clause-Where::&=(doc_revision@primary_config@db_object_id,db_object_id)) = 0
DocumentMakeNewRevision- rc(AppendWhere- QV_Set_Clause-Where::&=(copy_count,0)) = 0
DocumentMakeNewRevision- rc(QV_Set_Clause-OrderBy::doc_revision@doc_number) = 0
DocumentMakeNewRevision- rc(QV_Set_Clause-OrderBy::doc_revision@doc_rev_num_v) = 0
DocumentMakeNewRevision- rc(QV_Set_Clause-OrderBy::doc_ver_num) = 0
DocumentMakeNewRevision- rc(QV_Open_List) = 0
DocumentMakeNewRevision ... new Revision Number= B  new DbObjectId= 4712
DocumentMakeNewRevision- rc(new rev doc: QV_Create_Object::DocVersion) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Set_Object_Attr::db_object_id=4712) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Set_Object_Attr::doc_revision@doc_title) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Subscribe_Object_Attr::doc_primary_fmt@user_data3) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Subscribe_Object_Attr::doc_revision@chg_ctrl) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Subscribe_Object_Attr::doc_revision@doc_ctrl_num) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Open_Object) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Set_Object_Attr::doc_revision@doc_title=Bracket 2) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Set_Object_Attr::doc_primary_fmt@user_data3=oid-7) = 0
DocumentMakeNewRevision- rc(base doc: QV_Set_Object_Attr::doc_revision@chg_ctrl=0) = 0
DocumentMakeNewRevision- rc(base doc: QV_Save_Object) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Set_Object_Attr::doc_revision@chg_ctrl=1) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Set_Object_Attr::doc_revision@doc_ctrl_num=ec-1) = 0
DocumentMakeNewRevision- rc(new rev doc: QV_Save_Object) = 0
DocumentMakeNewRevision ...Document New Revision was  updated
)";

TEST_F(DocumentRevision, TheChangeMovesFromTheBaseRevisionToTheNewOne)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT",
                  "DocumentMakeNewRevision site A\nDocumentMakeNewRevision doc_type DRW\n");
        prepare("ec-1");
        Buffers buffers;
        Text ecNumber("ec-1");
        Text documentNumber("d-1b");
        const Outcome outcome = record([&] {
            return DocumentMakeNewRevision(ecNumber, documentNumber, Text("a"), Text("Bracket 2"),
                                           Text("oid-7"), Names({"doc_type", "db_object_id"}),
                                           buffers.number.data(), buffers.identifier.data());
        });
        EXPECT_EQ(outcome.result, 1);
        EXPECT_STREQ(buffers.number.data(), "B");
        EXPECT_STREQ(buffers.identifier.data(), "4712");
        EXPECT_EQ(ecNumber.str(), "ec-1");
        EXPECT_EQ(documentNumber.str(), "D-1B");
        EXPECT_EQ(entries, 2);
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(NbSelectedAttribute, 2);
        EXPECT_STREQ(SelectedAttribute[0], "doc_type");
        EXPECT_STREQ(SelectedAttribute[1], "db_object_id");
        EXPECT_EQ(outcome.calls, lines(controlledByTheSameChange));
        EXPECT_EQ(outcome.output, atLevel(level, traceOfIt));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead -  site <=> A
DefaultRead -  doc_type <=> DRW
)")) + lines(logOfIt));
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_F(DocumentRevision, TheBaseRevisionIsReleasedOnlyByTheChangeThatControlsIt)
{
    struct Case {
        std::optional<std::string> controlNumber;
        std::optional<std::string> ecNumber;
        bool releasesBase;
    };
    for (const Case& tested :
         {Case{"EC-1", "EC-1", true}, Case{"EC-1", "ec-1", false}, Case{"EC-1", "EC-2", false},
          Case{"EC-1", "", false}, Case{"EC-1", std::nullopt, false}, Case{"", "EC-1", false},
          Case{std::nullopt, "EC-1", false}, Case{"", "", false}, Case{std::nullopt, std::nullopt, false}}) {
        const std::string change = tested.ecNumber.value_or("");
        const std::string control = tested.controlNumber.value_or("");
        SCOPED_TRACE("base under '" + control + "', new revision under '" + change + "'");
        restart();
        connect(2);
        prepare(tested.controlNumber);
        Buffers buffers;
        Text ecNumber(change);
        const Outcome outcome = revise(tested.ecNumber ? static_cast<char*>(ecNumber) : nullptr, buffers);
        EXPECT_EQ(outcome.result, 1);
        std::string expected;
        if (tested.releasesBase) {
            expected =
                "QV_Set_Object_Attr(obj1, \"doc_revision@chg_ctrl\", \"0\") = 0\nQV_Save_Object(obj1) = 0\n";
        }
        const std::string flag = change.empty() ? "0" : "1";
        expected += "QV_Set_Object_Attr(obj4, \"doc_revision@chg_ctrl\", \"" + flag + "\") = 0\n" +
                    "QV_Set_Object_Attr(obj4, \"doc_revision@doc_ctrl_num\", \"" + change + "\") = 0\n" +
                    "QV_Save_Object(obj4) = 0\nQV_Destroy_Object(obj4) = 0\nQV_Destroy_Object(obj3) = 0\n";
        const std::string before = "\"doc_primary_fmt@user_data3\", \"oid\") = 0\n";
        EXPECT_EQ(outcome.calls.substr(outcome.calls.find(before) + before.size()), expected);
        EXPECT_EQ(outcome.output.substr(outcome.output.find("DocumentMakeNewRevision-IniCtrl")),
                  "DocumentMakeNewRevision-IniCtrlEcNumber=" + control + "- EcNumber=" + change + "-.\n" +
                      (tested.releasesBase ? "DocumentMakeNewRevision-   base doc: doc_revision@chg_ctrl=0.\n"
                                             "DocumentMakeNewRevision base doc: Execute Save method.\n"
                                           : "") +
                      "DocumentMakeNewRevision-   new rev doc: doc_revision@chg_ctrl=" + flag + ".\n" +
                      "DocumentMakeNewRevision-   new rev doc: doc_revision@doc_ctrl_num=" + change + ".\n" +
                      "DocumentMakeNewRevision new rev doc: Execute Save method.\n"
                      "DocumentMakeNewRevision...revision B for document D-1 was created.\n");
        EXPECT_EQ(outcome.accessLog.substr(0, outcome.accessLog.find('\n')),
                  "DocumentMakeNewRevision EcNumber=" + change +
                      ", DocumentNumber=D-1, RevisionNumber=a, NewRevDocumentTitle=Bracket");
    }
}

TEST_F(DocumentRevision, AFailureKeepsWhatWasDoneBeforeItAndEndsInTheTrace)
{
    connect(2);
    prepare("EC-1");
    standin::answer("QV_Save_Object", -7, {{"E1", "locked"}});
    Buffers buffers;
    const Outcome outcome = revise(Text("EC-1"), buffers);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(entries, 2);
    EXPECT_EQ(QV_RC, -7);
    const std::string end = lines(R"(
DocumentMakeNewRevision base doc: Execute Save method.
****** locked .
DocumentMakeNewRevision...new revision for document D-1 was not created.
)");
    EXPECT_EQ(outcome.output.substr(outcome.output.size() - end.size()), end);
    EXPECT_EQ(harness::countLines(outcome.accessLog, "...Document New Revision was  created"), 1);
    EXPECT_EQ(harness::countLines(outcome.accessLog, "...Document New Revision was  updated"), 0);
}

/** Whatever fails: the buffers are written once the record of the new revision was read, and not before. */
TEST_F(DocumentRevision, TheBuffersAreWrittenAsSoonAsTheRevisionIsFound)
{
    connect(-1);
    prepare("EC-1");
    Buffers whole;
    ASSERT_EQ(revise(Text("EC-1"), whole).result, 1);
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
        const int result = revise(Text("EC-1"), buffers).result;
        // Calls that stop nothing: destroys, reads of values, and those whose failure is only reported.
        const bool reachesTheRecord = result == 1 || number > found + 1;
        const bool isValueOfRecord = failed.function == "QV_Get_Object_Attr" && number > found;
        if (!isValueOfRecord) {
            EXPECT_STREQ(buffers.number.data(), reachesTheRecord ? "B" : untouched);
            EXPECT_STREQ(buffers.identifier.data(), reachesTheRecord ? "4712" : untouched);
        } else {
            const bool isNumber = failed.hasText("doc_revision@doc_rev_num");
            EXPECT_STREQ(buffers.number.data(), isNumber ? "" : "B");
            EXPECT_STREQ(buffers.identifier.data(), isNumber ? "4712" : "");
        }
    }
}

TEST_F(DocumentRevision, WithoutARecordTheWorkEndsQuietly)
{
    const auto expectEnd = [](const Outcome& outcome, const Buffers& buffers, const std::string& lastCall) {
        EXPECT_EQ(outcome.result, 0);
        EXPECT_STREQ(buffers.number.data(), untouched);
        EXPECT_STREQ(buffers.identifier.data(), untouched);
        EXPECT_EQ(outcome.errorLog, "");
        const std::string end = "DocumentMakeNewRevision...new revision for document D-1 was not created.\n";
        EXPECT_EQ(outcome.output.substr(outcome.output.size() - end.size()), end);
        EXPECT_EQ(harness::countLines(outcome.output, "******"), 0);
        EXPECT_EQ(outcome.calls.substr(outcome.calls.find("QV_SizeOf_List")), lastCall);
    };
    const auto reviseWith = [](const std::function<void()>& script, Buffers& buffers) {
        prepare("EC-1");
        script();
        return revise(Text("EC-1"), buffers);
    };
    connect(2);
    Buffers empty;
    expectEnd(reviseWith([] { standin::setRecords({}); }, empty), empty, "QV_SizeOf_List(list1, 0) = 0\n");
    EXPECT_EQ(entries, 0);
    restart();
    connect(2);
    Buffers uncounted; // the size stays what it was before the count
    expectEnd(reviseWith(
                  [] {
                      standin::answer("QV_SizeOf_List", -7, {{"E1", "no size"}});
                  },
                  uncounted),
              uncounted, "QV_SizeOf_List(list1, -1) = -7\n");
    EXPECT_EQ(entries, -1);
    restart();
    connect(2);
    Buffers unread;
    expectEnd(reviseWith(
                  [] {
                      standin::answer("QV_Read_List", -7, {{"E1", "no record"}});
                  },
                  unread),
              unread, "QV_SizeOf_List(list1, 2) = 0\nQV_Read_List(list1, 1, null) = -7\n");
    EXPECT_EQ(entries, 2);
}

TEST_F(DocumentRevision, AHandleIsGivenBackEvenWhereTheCallThatHandedItOverFailed)
{
    connect();
    prepare("EC-1");
    standin::handOver("QV_Make_New_Revision", standin::HandOver::Always);
    standin::answer("QV_Make_New_Revision", -7, {{"E1", "checked out by jdoe"}});
    Buffers buffers;
    const Outcome outcome = revise(Text("EC-1"), buffers);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(entries, -1);
    EXPECT_EQ(outcome.calls.substr(outcome.calls.find("QV_Make_New_Revision")),
              "QV_Make_New_Revision(obj1, obj2) = -7\nQV_Destroy_Object(obj2) = 0\n");
    EXPECT_EQ(outcome.output, "****** checked out by jdoe .\n");
    EXPECT_EQ(harness::countLines(outcome.accessLog,
                                  "DocumentMakeNewRevision- rc(base doc: QV_MakeNewRevision_Doc) = -7"),
              1);
    EXPECT_EQ(harness::countLines(outcome.accessLog, "...Document New Revision was "), 0);
}

TEST_F(DocumentRevision, TheReadingOfTheRecordIsJudgedByItsHandleAlone)
{
    connect();
    prepare("");
    standin::handOver("QV_Read_List", standin::HandOver::Always);
    standin::answer("QV_Read_List", -7, {{"E1", "not told"}});
    Buffers buffers;
    const Outcome outcome = revise(Text(""), buffers);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_STREQ(buffers.number.data(), "B");
    EXPECT_EQ(outcome.output, "");
}

TEST_F(DocumentRevision, TheNewRevisionsHandleIsGivenBackEvenWhereItsCreationFailed)
{
    connect();
    prepare("");
    Buffers buffers;
    revise(Text(""), buffers);
    std::size_t creation = standin::calls().size();
    while (standin::calls().at(creation - 1).function != "QV_Create_Object") {
        --creation;
    }
    restart();
    connect();
    prepare("");
    standin::handOver("QV_Create_Object", standin::HandOver::Always);
    standin::answerCall(creation, -7);
    const Outcome failed = revise(Text(""), buffers);
    EXPECT_EQ(failed.result, 0);
    EXPECT_EQ(failed.calls.substr(failed.calls.rfind("QV_Create_Object")), lines(R"(
QV_Create_Object(obj4, "DocVersion") = -7
QV_Destroy_Object(obj4) = 0
QV_Destroy_Object(obj3) = 0
)"));
}

TEST_F(DocumentRevision, ADocumentNumberThatDoesNotFitTheClauseIsRefusedBeforeARevisionIsMade)
{
    const auto reviseDocument = [](const std::string& number) {
        Buffers buffers;
        return record([&] {
            return DocumentMakeNewRevision(Text(""), Text(number), Text("a"), Text("t"), Text("o"), nullptr,
                                           buffers.number.data(), buffers.identifier.data());
        });
    };
    connect();
    prepare("");
    EXPECT_EQ(reviseDocument(std::string(49, 'D')).result, 1);
    EXPECT_EQ(harness::countLines(standin::transcript(),
                                  "&=(doc_revision@doc_number,'" + std::string(49, 'D') + "')"),
              1);
    const Outcome refused = reviseDocument(std::string(50, 'D'));
    EXPECT_EQ(refused.result, 0);
    EXPECT_EQ(QV_RC, -1);
    EXPECT_EQ(harness::countLines(refused.calls, "QV_Make_New_Revision"), 0);
    EXPECT_EQ(harness::countLines(refused.calls, "QV_Set_Clause"), 0);
    for (const std::string& told : {refused.output, refused.accessLog, refused.errorLog, lastError()}) {
        EXPECT_EQ(harness::countLines(told, "documentNumber has 50 characters; at most 49"), 1);
    }
}

TEST_F(DocumentRevision, TheLogLineOfTheInputsIsCutTo255Characters)
{
    connect();
    prepare("");
    Buffers buffers;
    const std::string title(300, 't');
    const Outcome outcome = record([&] {
        return DocumentMakeNewRevision(Text("EC"), Text("D"), Text("a"), Text(title), Text("o"), nullptr,
                                       buffers.number.data(), buffers.identifier.data());
    });
    EXPECT_EQ(outcome.result, 1);
    // The labels and the three short inputs take 69 characters.
    EXPECT_EQ(
        outcome.accessLog.substr(0, outcome.accessLog.find('\n')),
        "DocumentMakeNewRevision EcNumber=EC, DocumentNumber=D, RevisionNumber=a, NewRevDocumentTitle=" +
            title.substr(0, 255 - 69));
    EXPECT_EQ(harness::countLines(outcome.calls, '"' + title + '"'), 1);
}

TEST_F(DocumentRevision, ValuesOfTheLargestSizeComeBackWhole)
{
    connect();
    const std::string number(QV_MAX_VALUE_LENGTH, 'n');
    const std::string identifier(QV_MAX_VALUE_LENGTH, 'i');
    standin::setRecords({{{"doc_revision@doc_rev_num", number}, {"db_object_id", identifier}}});
    Buffers buffers;
    EXPECT_EQ(revise(Text(""), buffers).result, 1);
    EXPECT_EQ(buffers.number.data(), number);
    EXPECT_EQ(buffers.identifier.data(), identifier);
}

} // namespace
