// SPDX-License-Identifier: Apache-2.0
//
// Check-out, check-in and the cancelling of a check-out: one test for all three, and a table of what differs.
#include <ostream>

#include "tests/harness/library_test.h"

using harness::atLevel;
using harness::lines;
using harness::Names;
using harness::Outcome;
using harness::Text;
using harness::writeFile;

namespace {

struct VaultOperation {
    const char* name;
    int (*run)(char*, char*, char*, char**);
    bool setsOwner;
    const char* vaultDefaults; // the call for them, "" when there is none
    const char* vaultCall;
    const char* arguments; // of that call, behind the handle
    const char* done;
    const char* notDone;
};

void PrintTo(const VaultOperation& operation, std::ostream* stream)
{
    *stream << operation.name;
}

/** `text` with the operation's name in place of each "@NAME". */
std::string named(const VaultOperation& operation, std::string text)
{
    const std::string mark = "@NAME";
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark)) {
        text.replace(at, mark.size(), operation.name);
    }
    return text;
}

class DocumentVault : public harness::LibraryTest, public ::testing::WithParamInterface<VaultOperation> {
protected:
    static Outcome run(char* id, char* documentNumber, char* revision, char** names)
    {
        return record([&] { return GetParam().run(id, documentNumber, revision, names); });
    }
    static std::string withName(const std::string& text) { return named(GetParam(), text); }

    static std::string expectedCalls();
    static std::string expectedTrace();
    static std::string expectedLog();
};

std::string DocumentVault::expectedCalls()
{
    const VaultOperation& vault = GetParam();
    std::string text = lines(R"(
QV_Destroy_Object(null) = 0
QV_Create_Object(obj1, "DocVersion") = 0
QV_Set_Object_Attr(obj1, "db_object_id", "4711x") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_number", "D-1B") = 0
QV_Set_Object_Attr(obj1, "doc_revision@doc_rev_num", "a") = 0
)");
    if (vault.setsOwner) {
        text += "QV_Set_Object_Attr(obj1, \"doc_revision@owner@pdi_system_id\", \"\") = 0\n";
    }
    text += "QV_Open_Object(obj1) = 0\n";
    if (*vault.vaultDefaults != '\0') {
        text += std::string(vault.vaultDefaults) + "(obj1) = 0\n";
    }
    text += lines(R"(
QV_Subscribe_Object_Attr(obj1, "doc_type") = 0
QV_Subscribe_Object_Attr(obj1, "db_object_id") = 0
QV_Set_Object_Attr(obj1, "site", "A") = 0
QV_Set_Object_Attr(obj1, "doc_type", "DRW") = 0
)");
    return text + vault.vaultCall + "(obj1" + vault.arguments + ") = 0\n";
}

std::string DocumentVault::expectedTrace()
{
    const VaultOperation& vault = GetParam();
    std::string text = R"(
2 @NAME-----Start------------------------------.
2 @NAME- Calling DefaultRead for @NAME.
2 DefaultRead-----Start------------------------------.
2 DefaultRead- Reading defaults from ./QVL_RZM_DEFAULT.
5 DefaultRead- site=A.
5 DefaultRead- doc_type=DRW.
2 DefaultRead-----Exit----NbOfDefault=2--------.
2 @NAME- rc(DefaultRead)=2.
2 @NAME- Printing Input Attributes ....
2 @NAME-    DbObjectId=4711x-.
2 @NAME-    DocumentNumber=D-1B-.
2 @NAME-    RevisionNumber=a-.
2 @NAME- Printing Selected Attributes ....
2 @NAME-   doc_type-.
2 @NAME-   db_object_id-.
5 @NAME QV_Create_Object DocVersion : QV_RC=0.
2 @NAME-  db_object_id=4711x-.
5 @NAME QV_Set_Object_Attr db_object_id 4711x: QV_RC=0.
2 @NAME-   doc_revision@doc_number=D-1B-.
5 @NAME QV_Set_Object_Attr doc_revision@doc_number D-1B: QV_RC=0.
2 @NAME-   doc_revision@doc_rev_num=a-.
5 @NAME QV_Set_Object_Attr doc_revision@doc_rev_num a: QV_RC=0.
)";
    if (vault.setsOwner) {
        text += lines(R"(
1 @NAME-  *** TEST FOR QV34GA ONLY *** doc_revision@owner@pdi_system_id=-.
5 @NAME QV_Set_Object_Attr doc_revision@owner@pdi_system_id : QV_RC=0.
)");
    }
    text += "5 @NAME QV_Open_Object  : QV_RC=0.\n";
    if (*vault.vaultDefaults != '\0') {
        text += "5 @NAME   : QV_RC=0.\n"; // this one call is reported without a name
    }
    return text + lines(R"(
5 @NAME QV_Subscribe_Object_Attr doc_type : QV_RC=0.
5 @NAME QV_Subscribe_Object_Attr db_object_id : QV_RC=0.
2 @NAME-     site=A-.
5 @NAME QV_Set_Object_Attr site A: QV_RC=0.
2 @NAME-     doc_type=DRW-.
5 @NAME QV_Set_Object_Attr doc_type DRW: QV_RC=0.
)") + "5 @NAME " +
           vault.vaultCall + "  : QV_RC=0.\n";
}

std::string DocumentVault::expectedLog()
{
    const VaultOperation& vault = GetParam();
    std::string text = lines(R"(
@NAME DbObjectId=4711x, DocumentNumber=D-1B, RevisionNumber=a
@NAME     site = A
@NAME     doc_type = DRW
@NAME- rc(QV_Create_Object::DocVersion) = 0
@NAME- rc(QV_Set_Object_Attr::db_object_id=4711x) = 0
@NAME- rc(QV_Set_Object_Attr::doc_revision@doc_number=D-1B) = 0
@NAME- rc(QV_Set_Object_Attr::doc_revision@doc_rev_num=a) = 0
)");
    if (vault.setsOwner) {
        text += "@NAME- rc(QV_Set_Object_Attr::doc_revision@owner@pdi_system_id) = 0\n";
    }
    text += "@NAME- rc(QV_Open_Object) = 0\n";
    if (*vault.vaultDefaults != '\0') {
        text += "@NAME- rc() = 0\n";
    }
    return text + lines(R"(
@NAME- rc(QV_Subscribe_Object_Attr::doc_type) = 0
@NAME- rc(QV_Subscribe_Object_Attr::db_object_id) = 0
@NAME- rc(QV_Set_Object_Attr::site=A) = 0
@NAME- rc(QV_Set_Object_Attr::doc_type=DRW) = 0
)") + "@NAME- rc(" +
           vault.vaultCall + ") = 0\n" + "@NAME " + vault.done + "\n";
}

TEST_P(DocumentVault, AVersionIsOpenedGivenItsDefaultsAndMoved)
{
    atEachLevel([](int level) {
        writeFile("QVL_RZM_DEFAULT", withName("@NAME site A\nDocument no no\n@NAME doc_type DRW\n"));
        Text id("4711x");
        Text documentNumber("d-1b");
        Text revision("a");
        const Outcome outcome = run(id, documentNumber, revision, Names({"doc_type", "db_object_id"}));
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(entries, 1);
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_STREQ(FromList, "Object");
        EXPECT_EQ(NbSelectedAttribute, 2);
        EXPECT_STREQ(SelectedAttribute[0], "doc_type");
        EXPECT_STREQ(SelectedAttribute[1], "db_object_id");
        EXPECT_EQ(id.str() + ' ' + documentNumber.str() + ' ' + revision.str(), "4711x D-1B a");
        EXPECT_EQ(outcome.calls, expectedCalls());
        EXPECT_EQ(outcome.output, atLevel(level, withName(expectedTrace())));
        EXPECT_EQ(outcome.accessLog, (level < 3 ? "" : lines(R"(
DefaultRead - Reading defaults from  ./QVL_RZM_DEFAULT
DefaultRead -  site <=> A
DefaultRead -  doc_type <=> DRW
)")) + withName(expectedLog()));
        EXPECT_EQ(outcome.errorLog, "");
    });
}

TEST_P(DocumentVault, WithoutDefaultsAndNamesTheVaultCallFollowsAtOnce)
{
    connect();
    const Outcome outcome = run(Text(""), Text("D-1"), Text("1"), nullptr);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(NbSelectedAttribute, 0);
    std::string end = "QV_Open_Object(obj1) = 0\n";
    if (*GetParam().vaultDefaults != '\0') {
        end += std::string(GetParam().vaultDefaults) + "(obj1) = 0\n";
    }
    end += std::string(GetParam().vaultCall) + "(obj1" + GetParam().arguments + ") = 0\n";
    EXPECT_EQ(outcome.calls.substr(outcome.calls.find("QV_Open_Object")), end);
}

TEST_P(DocumentVault, ARefusalOfTheVaultIsTold)
{
    connect(0);
    standin::answer(GetParam().vaultCall, -7, {{"Q7", "checked out by jdoe"}});
    const Outcome outcome = run(Text(""), Text("D-1"), Text("1"), Names({}));
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(entries, 0);
    EXPECT_EQ(outcome.output, "****** checked out by jdoe .\n");
    const std::string logEnd =
        withName(std::string("@NAME- rc(") + GetParam().vaultCall +
                 ") = -7\nQ7 - checked out by jdoe\n@NAME " + GetParam().notDone + "\n");
    EXPECT_EQ(outcome.accessLog.substr(outcome.accessLog.size() - logEnd.size()), logEnd);
}

TEST_P(DocumentVault, InputsThatDoNotFitTheLogLineAreCutThereAndNowhereElse)
{
    connect();
    const std::string id(100, 'i');
    const std::string documentNumber(100, 'D');
    // The labels take 45 characters of the 255: 10 are left for the revision, and with 11 the last one is
    // cut.
    for (const std::string& revision : {std::string(10, 'r'), std::string(11, 'r')}) {
        const Outcome outcome = run(Text(id), Text(documentNumber), Text(revision), nullptr);
        EXPECT_EQ(outcome.result, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.accessLog.substr(0, outcome.accessLog.find('\n')),
                  withName("@NAME DbObjectId=" + id + ", DocumentNumber=" + documentNumber +
                           ", RevisionNumber=" + std::string(10, 'r')));
        EXPECT_EQ(harness::countLines(outcome.calls, '"' + revision + '"'), 1);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Operations, DocumentVault,
    ::testing::Values(VaultOperation{"DocumentCheckOut", DocumentCheckOut, true,
                                     "QV_Set_Doc_CheckOut_Defaults", "QV_CheckOut_Doc", "",
                                     "...Document was  checked out", "...Document was  not checked out"},
                      VaultOperation{"DocumentCheckIn", DocumentCheckIn, false, "QV_Set_Doc_CheckIn_Defaults",
                                     "QV_CheckIn_Doc", ", 0", "...Document was  checked in",
                                     "...Document was  not checked in"},
                      VaultOperation{"DocumentCancelCheckOut", DocumentCancelCheckOut, false, "",
                                     "QV_Cancel_CheckOut_Doc", "", "...Document check-out was  canceled",
                                     "...Document check-out was  not canceled"}),
    [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
