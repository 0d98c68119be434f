// SPDX-License-Identifier: Apache-2.0
//
// The creation of documents and their change control.
#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::errorBlock;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;
using harness::writeFile;

namespace {

class Documents : public harness::LibraryTest {
protected:
    static void expectObjectResult(int count)
    {
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(entries, count);
    }
    static void expectSelection(const std::vector<std::string>& names)
    {
        ASSERT_EQ(NbSelectedAttribute, static_cast<int>(names.size()));
        for (std::size_t slot = 0; slot < names.size(); ++slot) {
            EXPECT_EQ(SelectedAttribute[slot], names[slot]);
        }
    }
};

using DocumentCreation = Documents;

TEST_F(DocumentCreation, AControlledDocumentIsCreatedWithDefaultsSetLast)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT", "DocumentCreateCheckIn doc_type DRW\nDocumentCheckIn no no\n");
        writeFile("My_QVL_RZM_DEFAULT", "DocumentCreateCheckIn doc_ver_num A\n");
        Text ecNumber("ec-12a");
        Text title("Bracket, 2nd sheet");
        Text oid("oid-7");
        Names names({"doc_revision@doc_number", "db_object_id"});
        const Outcome outcome = record([&] { return DocumentCreateCheckIn(ecNumber, title, oid, names); });
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1);
        expectSelection(names.all());
        EXPECT_EQ(ecNumber.str(), "EC-12A");
        EXPECT_EQ(title.str(), "BRACKET, 2ND SHEET");
        EXPECT_EQ(oid.str(), "oid-7");
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "DocVersion") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_title", "BRACKET, 2ND SHEET") = 0
QV_Set_Object_Attr(obj1, "ckin_userdata3", "oid-7") = 0
QV_Set_Object_Attr(obj1, "doc_revision@chg_ctrl", "1") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_ctrl_num", "EC-12A") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "1") = 0
QV_Set_Object_Attr(obj1, "doc_ver_num", "") = 0
QV_Set_Object_Attr(obj1, "doc_revision@external_doc", "") = 0
QV_Set_Object_Attr(obj1, "doc_type", "DRW") = 0
QV_Set_Object_Attr(obj1, "doc_ver_num", "A") = 0
QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_number") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Create_and_CheckIn_Doc(obj1, 0) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 DocumentCreateCheckIn-----Start------------------------------.
2 DocumentCreateCheckIn- Calling DefaultRead for DocumentCreateCheckIn.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
2 DefaultRead- Reading defaults from ./My_QVL_RZM_DEFAULT.
5 DefaultRead- doc_type=DRW.
5 DefaultRead- doc_ver_num=A.
2 DefaultRead-----Exit----NbOfDefault=2--------.
2 DocumentCreateCheckIn- rc(DefaultRead)=2.
2 DocumentCreateCheckIn Printing Input Attributes ....
2 DocumentCreateCheckIn\tEc Number=EC-12A.
2 DocumentCreateCheckIn\tDocumentTitle=BRACKET, 2ND SHEET.
2 DocumentCreateCheckIn\tSystemPartnerOid=oid-7.
2 DocumentCreateCheckIn-     ... plus default attributes ....
2 DocumentCreateCheckIn-     doc_type=DRW-.
2 DocumentCreateCheckIn-     doc_ver_num=A-.
2 DocumentCreateCheckIn Printing Selected Attributes ....
2 DocumentCreateCheckIn   doc_revision@doc_number-.
2 DocumentCreateCheckIn   db_object_id-.
5 DocumentCreateCheckIn QV_Create_Object DocVersion : QV_RC=0.
2 DocumentCreateCheckIn- Set Required Fields for cl_create_and_ckin.
2 DocumentCreateCheckIn-   doc_revision@doc_titleBRACKET, 2ND SHEET.
5 DocumentCreateCheckIn QV_Set_Object_Attr doc_revision@doc_title BRACKET, 2ND SHEET: QV_RC=0.
2 DocumentCreateCheckIn-   ckin_userdata3=oid-7.
5 DocumentCreateCheckIn QV_Set_Object_Attr ckin_userdata3 oid-7: QV_RC=0.
2 DocumentCreateCheckIn-   doc_revision@chg_ctrl=1.
5 DocumentCreateCheckIn QV_Set_Object_Attr doc_revision@chg_ctrl 1: QV_RC=0.
2 DocumentCreateCheckIn-   doc_revision@doc_ctrl_num=EC-12A.
5 DocumentCreateCheckIn QV_Set_Object_Attr doc_revision@doc_ctrl_num EC-12A: QV_RC=0.
2 DocumentCreateCheckIn-   doc_revision@doc_number=-.
5 DocumentCreateCheckIn QV_Set_Object_Attr doc_revision@doc_number : QV_RC=0.
2 DocumentCreateCheckIn-   doc_revision@doc_rev_num=1-.
5 DocumentCreateCheckIn QV_Set_Object_Attr doc_revision@doc_rev_num 1: QV_RC=0.
2 DocumentCreateCheckIn-   doc_ver_num=-.
5 DocumentCreateCheckIn QV_Set_Object_Attr doc_ver_num : QV_RC=0.
2 DocumentCreateCheckIn-   doc_revision@external_doc=-.
5 DocumentCreateCheckIn QV_Set_Object_Attr doc_revision@external_doc : QV_RC=0.
2 DocumentCreateCheckIn-     doc_type=DRW-.
5 DocumentCreateCheckIn QV_Set_Object_Attr doc_type DRW: QV_RC=0.
2 DocumentCreateCheckIn-     doc_ver_num=A-.
5 DocumentCreateCheckIn QV_Set_Object_Attr doc_ver_num A: QV_RC=0.
2 DocumentCreateCheckIn- Set  fields to be selected for cl_create_and_ckin.
5 DocumentCreateCheckIn QV_Subscribe_Object_Attr doc_revision@doc_number : QV_RC=0.
5 DocumentCreateCheckIn QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
2 DocumentCreateCheckIn- Execute cl_create_and_ckin method; CLAYR_makeCall, cl_create_and_ckin.
5 DocumentCreateCheckIn QV_Create_and_CheckIn_Doc  : QV_RC=0.
2 DocumentCreateCheckIn-----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead - Reading defaults from  ./My_QVL_RZM_DEFAULT
DefaultRead -  doc_type <=> DRW
DefaultRead -  doc_ver_num <=> A
)")) + lines(R"(
DocumentCreateCheckIn    EcNumber= EC-12A , DocumentTitle= BRACKET, 2ND SHEET
DocumentCreateCheckIn    SystemPartnerOid= oid-7
DocumentCreateCheckIn     doc_type = DRW
DocumentCreateCheckIn     doc_ver_num = A
DocumentCreateCheckIn- rc(QV_Create_Object::DocVersion) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::doc_revision@doc_title=BRACKET, 2ND SHEET) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::ckin_userdata3=oid-7) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::doc_revision@chg_ctrl=1) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::doc_revision@doc_ctrl_num=EC-12A) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::doc_revision@doc_number) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::doc_revision@doc_rev_num=1) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::doc_ver_num) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::doc_revision@external_doc) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::doc_type=DRW) = 0
DocumentCreateCheckIn- rc(QV_Set_Object_Attr::doc_ver_num=A) = 0
DocumentCreateCheckIn- rc(QV_Subscribe_Object_Attr::doc_revision@doc_number) = 0
DocumentCreateCheckIn- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
DocumentCreateCheckIn- rc(QV_Create_and_CheckIn_Doc) = 0
DocumentCreateCheckIn ...Document was  created
)"));
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_F(DocumentCreation, WithoutAChangeTheDocumentIsNotControlled)
{
    Text empty("");
    // A null change number is written as an empty text.
    for (char* const none : {static_cast<char*>(empty), static_cast<char*>(nullptr)}) {
        restart();
        connect(2);
        const Outcome outcome =
            record([&] { return DocumentCreateCheckIn(none, Text("Title"), Text("oid"), Names({})); });
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(NbSelectedAttribute, 0);
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "DocVersion") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_title", "TITLE") = 0
QV_Set_Object_Attr(obj1, "ckin_userdata3", "oid") = 0
QV_Set_Object_Attr(obj1, "doc_revision@chg_ctrl", "0") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "1") = 0
QV_Set_Object_Attr(obj1, "doc_ver_num", "") = 0
QV_Set_Object_Attr(obj1, "doc_revision@external_doc", "") = 0
QV_Create_and_CheckIn_Doc(obj1, 0) = 0
)"));
        EXPECT_EQ(outcome.output, lines(R"(
DocumentCreateCheckIn-----Start------------------------------.
DocumentCreateCheckIn- Calling DefaultRead for DocumentCreateCheckIn.
DefaultRead-----Start------------------------------.
DefaultRead-----Exit----NbOfDefault=0--------.
DocumentCreateCheckIn- rc(DefaultRead)=0.
DocumentCreateCheckIn Printing Input Attributes ....
DocumentCreateCheckIn\tEc Number=.
DocumentCreateCheckIn\tDocumentTitle=TITLE.
DocumentCreateCheckIn\tSystemPartnerOid=oid.
DocumentCreateCheckIn Printing Selected Attributes ....
DocumentCreateCheckIn- Set Required Fields for cl_create_and_ckin.
DocumentCreateCheckIn-   doc_revision@doc_titleTITLE.
DocumentCreateCheckIn-   ckin_userdata3=oid.
DocumentCreateCheckIn-   doc_revision@chg_ctrl=0.
DocumentCreateCheckIn-   doc_revision@doc_number=-.
DocumentCreateCheckIn-   doc_revision@doc_rev_num=1-.
DocumentCreateCheckIn-   doc_ver_num=-.
DocumentCreateCheckIn-   doc_revision@external_doc=-.
DocumentCreateCheckIn- Set  fields to be selected for cl_create_and_ckin.
DocumentCreateCheckIn- Execute cl_create_and_ckin method; CLAYR_makeCall, cl_create_and_ckin.
DocumentCreateCheckIn-----Exit------------entries/rc=1--------------------.
)"));
        EXPECT_EQ(outcome.accessLog.substr(0, outcome.accessLog.find("DocumentCreateCheckIn- rc(")), lines(R"(
DocumentCreateCheckIn    EcNumber=  , DocumentTitle= TITLE
DocumentCreateCheckIn    SystemPartnerOid= oid
)"));
    }
}

TEST_F(DocumentCreation, ADocumentThatTheServerRefusesIsNotCreated)
{
    connect(2);
    standin::answer("QV_Create_Object", -7, {{"E1", "No class"}});
    const Outcome outcome =
        record([] { return DocumentCreateCheckIn(Text(""), Text("T"), Text("oid"), Names({"id"})); });
    EXPECT_EQ(outcome.result, 0);
    expectObjectResult(0);
    const std::string end = lines(R"(
DocumentCreateCheckIn   id-.
****** No class .
DocumentCreateCheckIn-----Exit------------entries/rc=0--------------------.
)");
    EXPECT_EQ(outcome.output.substr(outcome.output.size() - end.size()), end);
    const std::string logEnd = lines(R"(
DocumentCreateCheckIn- rc(QV_Create_Object::DocVersion) = -7
E1 - No class
DocumentCreateCheckIn ...Document was  not created
)");
    EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.size() - logEnd.size()), logEnd);
    EXPECT_EQ(outcome.errorLog, errorBlock("DocumentCreateCheckIn", "No class "));
}

class DocumentChangeControl : public Documents {
protected:
    static Outcome control(char* ecNumber, char* documentNumber, const char* title, char** names)
    {
        return record(
            [&] { return DocumentMakeECControlled(ecNumber, documentNumber, Text("a"), title, names); });
    }
};

TEST_F(DocumentChangeControl, ARevisionIsPutUnderTheControlOfAChange)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT", "DocumentMakeECControlled site A\n");
        Text ecNumber("ec-12a");
        Text documentNumber("d-1b");
        Names names({"db_object_id", "doc_revision@doc_title"});
        const Outcome outcome = control(ecNumber, documentNumber, "Bracket", names);
        EXPECT_EQ(outcome.result, 1);
        expectObjectResult(1);
        expectSelection(names.all());
        EXPECT_EQ(ecNumber.str(), "EC-12A");
        EXPECT_EQ(documentNumber.str(), "D-1B");
        // Neither the title nor the defaults are set.
        EXPECT_EQ(outcome.calls, lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "DocVersion") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0
QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_title") = 0
QV_Subscribe_Object_Attr(obj1, "doc_revision@chg_ctrl") = 0
QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_ctrl_num") = 0
QV_Open_Object(obj1) = 0
QV_Set_Object_Attr(obj1, "doc_revision@chg_ctrl", "1") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_ctrl_num", "EC-12A") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Subscribe_Object_Attr(obj1, "doc_revision@doc_title") = 0
QV_Save_Object(obj1) = 0
)"));
        EXPECT_EQ(outcome.output, atLevel(level, R"(
2 DocumentMakeECControlled-----Start------------------------------.
2 DocumentMakeECControlled- Calling DefaultRead for DocumentMakeECControlled.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- site=A.
2 DefaultRead-----Exit----NbOfDefault=1--------.
2 DocumentMakeECControlled- rc(DefaultRead)=1.
2 DocumentMakeECControlled- Printing Input Attributes ....
2 DocumentMakeECControlled-    EcNumber=EC-12A.
2 DocumentMakeECControlled-    DocumentNumber=D-1B.
2 DocumentMakeECControlled-    RevisionNumber=a.
2 DocumentMakeECControlled-    DocumentTitle=Bracket.
2 DocumentMakeECControlled- Printing Selected Attributes ....
2 DocumentMakeECControlled-   db_object_id-.
2 DocumentMakeECControlled-   doc_revision@doc_title-.
5 DocumentMakeECControlled QV_Create_Object DocVersion : QV_RC=0.
2 DocumentMakeECControlled-  db_object_id=-.
5 DocumentMakeECControlled QV_Set_Object_Attr db_object_id : QV_RC=0.
2 DocumentMakeECControlled-  doc_revision@doc_number=D-1B-.
5 DocumentMakeECControlled QV_Set_Object_Attr doc_revision@doc_number D-1B: QV_RC=0.
2 DocumentMakeECControlled-  doc_revision@doc_rev_num=a-.
5 DocumentMakeECControlled QV_Set_Object_Attr doc_revision@doc_rev_num a: QV_RC=0.
5 DocumentMakeECControlled base doc: QV_Subscribe_Object_Attr doc_revision@doc_title : QV_RC=0.
5 DocumentMakeECControlled QV_Subscribe_Object_Attr doc_revision@chg_ctrl : QV_RC=0.
5 DocumentMakeECControlled QV_Subscribe_Object_Attr doc_revision@doc_ctrl_num : QV_RC=0.
5 DocumentMakeECControlled QV_Open_Object  : QV_RC=0.
2 DocumentMakeECControlled-   doc_revision@chg_ctrl=1.
5 DocumentMakeECControlled QV_Set_Object_Attr doc_revision@chg_ctrl 1: QV_RC=0.
2 DocumentMakeECControlled-   doc_revision@doc_ctrl_num=EC-12A.
5 DocumentMakeECControlled QV_Set_Object_Attr doc_revision@doc_ctrl_num EC-12A: QV_RC=0.
5 DocumentMakeECControlled QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
5 DocumentMakeECControlled QV_Subscribe_Object_Attr doc_revision@doc_title : QV_RC=0.
2 DocumentMakeECControlled- Execute Save method.
5 DocumentMakeECControlled QV_Save_Object  : QV_RC=0.
2 DocumentMakeECControlled-----exit---rc=1-.
)"));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead -  site <=> A
)")) + lines(R"(
DocumentMakeECControlled EcNumber=EC-12A, DocumentNumber=D-1B, RevisionNumber=a, DocumentTitle=Bracket
DocumentMakeECControlled     site = A
DocumentMakeECControlled- rc(QV_Create_Object::DocVersion) = 0
DocumentMakeECControlled- rc(QV_Set_Object_Attr::db_object_id) = 0
DocumentMakeECControlled- rc(QV_Set_Object_Attr::doc_revision@doc_number=D-1B) = 0
DocumentMakeECControlled- rc(QV_Set_Object_Attr::doc_revision@doc_rev_num=a) = 0
DocumentMakeECControlled- rc(base doc: QV_Subscribe_Object_Attr::doc_revision@doc_title) = 0
DocumentMakeECControlled- rc(QV_Subscribe_Object_Attr::doc_revision@chg_ctrl) = 0
DocumentMakeECControlled- rc(QV_Subscribe_Object_Attr::doc_revision@doc_ctrl_num) = 0
DocumentMakeECControlled- rc(QV_Open_Object) = 0
DocumentMakeECControlled- rc(QV_Set_Object_Attr::doc_revision@chg_ctrl=1) = 0
DocumentMakeECControlled- rc(QV_Set_Object_Attr::doc_revision@doc_ctrl_num=EC-12A) = 0
DocumentMakeECControlled- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
DocumentMakeECControlled- rc(QV_Subscribe_Object_Attr::doc_revision@doc_title) = 0
DocumentMakeECControlled- rc(QV_Save_Object) = 0
DocumentMakeECControlled  ... document is now EC controlled 
)"));
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_F(DocumentChangeControl, AnEmptyChangeNumberIsStoredAsItIs)
{
    connect();
    const Outcome outcome = control(Text(""), Text("D-1"), "", Names({}));
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(harness::countLines(outcome.calls, R"("doc_revision@chg_ctrl", "1")"), 1);
    EXPECT_EQ(harness::countLines(outcome.calls, R"("doc_revision@doc_ctrl_num", "")"), 1);
}

TEST_F(DocumentChangeControl, TheLogLineOfTheInputsIsCutTo255Characters)
{
    connect();
    const std::string title(200, 't');
    const Outcome outcome = control(Text("EC"), Text("D"), title.c_str(), Names({}));
    EXPECT_EQ(outcome.result, 1);
    // The labels and the three short inputs take 63 characters.
    EXPECT_EQ(outcome.accessLog.substr(0, outcome.accessLog.find('\n')),
              "DocumentMakeECControlled EcNumber=EC, DocumentNumber=D, RevisionNumber=a, DocumentTitle=" +
                  title.substr(0, 255 - 63));
}

TEST_F(DocumentChangeControl, ARevisionThatIsNotFoundIsTold)
{
    connect(2);
    standin::answer("QV_Open_Object", -7, {{"Q100", "No such document"}});
    const Outcome outcome = control(Text("EC-1"), Text("D-1"), "", Names({}));
    EXPECT_EQ(outcome.result, 0);
    expectObjectResult(0);
    const std::string end = lines(R"(
DocumentMakeECControlled-  doc_revision@doc_rev_num=a-.
****** No such document .
DocumentMakeECControlled-----exit---rc=0-.
)");
    EXPECT_EQ(outcome.output.substr(outcome.output.size() - end.size()), end);
    const std::string logEnd = lines(R"(
Q100 - No such document
DocumentMakeECControlled ... could not make document EC controlled
)");
    EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.size() - logEnd.size()), logEnd);
}

} // namespace
