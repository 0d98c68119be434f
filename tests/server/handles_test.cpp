// SPDX-License-Identifier: Apache-2.0
//
// Every call with handles that are null, foreign, destroyed or of another kind, with null pointers, and
// without a user.
#include <cstdint>
#include <functional>
#include <random>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

constexpr int badArgument = -110;
constexpr int badHandle = -111;
constexpr int notLoaded = -115;
constexpr int notOpen = -116;
constexpr int notLoggedOn = -121;

constexpr const char* reportClass = "IndentedRetrievalStrmElm";
constexpr const char* reportName = "ExplosionRetrieval";

class HandlesTest : public ServerTest {
protected:
    void SetUp() override
    {
        ServerTest::SetUp();
        ASSERT_EQ(QV_Create_Object(&object, "EngineeringChange"), 0) << message();
        ASSERT_EQ(QV_Create_List(&list, "EngineeringChange"), 0) << message();
        ASSERT_EQ(QV_Create_Report(&report, reportClass, reportName), 0) << message();
    }

    QV_ObjectHandle object = nullptr;
    QV_ListHandle list = nullptr;
    QV_ReportHandle report = nullptr;
};

using Calls = std::vector<std::pair<std::string, std::function<int()>>>;

/** Every call that takes an existing document. */
Calls callsOnDocument(QV_ObjectHandle document)
{
    static QV_ObjectHandle revision = nullptr;
    return {
        {"check-in defaults", [=] { return QV_Set_Doc_CheckIn_Defaults(document); }},
        {"check-out defaults", [=] { return QV_Set_Doc_CheckOut_Defaults(document); }},
        {"check out", [=] { return QV_CheckOut_Doc(document); }},
        {"check in", [=] { return QV_CheckIn_Doc(document, 0); }},
        {"cancel", [=] { return QV_Cancel_CheckOut_Doc(document); }},
        {"revise", [=] { return QV_Make_New_Revision(document, &revision); }},
    };
}

/** Every call that takes an existing object, list or report. */
Calls callsOn(QV_ObjectHandle object, QV_ListHandle list, QV_ReportHandle report)
{
    static const char* value = nullptr;
    static int size = 0;
    static QV_ObjectHandle record = nullptr;
    static QV_ListHandle rows = nullptr;
    Calls calls = {
        {"set", [=] { return QV_Set_Object_Attr(object, "id", "x"); }},
        {"subscribe", [=] { return QV_Subscribe_Object_Attr(object, "id"); }},
        {"open object", [=] { return QV_Open_Object(object); }},
        {"save", [=] { return QV_Save_Object(object); }},
        {"delete", [=] { return QV_Delete_Object(object); }},
        {"get", [=] { return QV_Get_Object_Attr(object, "id", &value); }},
        {"create and check in", [=] { return QV_Create_and_CheckIn_Doc(object, 0); }},
        {"clause", [=] { return QV_Set_Clause(list, "Select", "id"); }},
        {"open list", [=] { return QV_Open_List(list); }},
        {"size", [=] { return QV_SizeOf_List(list, &size); }},
        {"read", [=] { return QV_Read_List(list, 0, &record); }},
        {"set of report", [=] { return QV_Set_Report_Attr(report, "item_number", "x"); }},
        {"subscribe of report", [=] { return QV_Subscribe_Report_Attr(report, "level"); }},
        {"generate", [=] { return QV_Generate_Report(report, &rows); }},
    };
    const Calls onDocument = callsOnDocument(object);
    calls.insert(calls.end(), onDocument.begin(), onDocument.end());
    return calls;
}

template <typename Handle>
Handle handleOf(std::uintptr_t bits)
{
    return reinterpret_cast<Handle>(bits); // NOLINT(performance-no-int-to-ptr): a handle that nobody made
}

/** Destroys the one in `handle`, makes another in its place, and gives the one that was destroyed. */
template <typename Handle>
Handle replaced(Handle& handle, int (*destroy)(Handle*), const std::function<int()>& create)
{
    const Handle old = handle;
    EXPECT_EQ(destroy(&handle), 0) << message();
    EXPECT_EQ(handle, nullptr);
    EXPECT_EQ(destroy(&handle), 0) << "nothing to release";
    EXPECT_EQ(create(), 0) << message();
    handle = old;
    EXPECT_EQ(destroy(&handle), badHandle);
    EXPECT_EQ(handle, nullptr);
    EXPECT_EQ(destroy(nullptr), badArgument);
    return old;
}

TEST_F(HandlesTest, UnknownHandlesAreRefusedByEveryCall)
{
    QV_ObjectHandle second = nullptr;
    QV_ListHandle secondList = nullptr;
    QV_ReportHandle secondReport = nullptr;
    const auto oldObject = replaced<QV_ObjectHandle>(
        object, QV_Destroy_Object, [&] { return QV_Create_Object(&second, "EngineeringChange"); });
    const auto oldList = replaced<QV_ListHandle>(
        list, QV_Destroy_List, [&] { return QV_Create_List(&secondList, "EngineeringChange"); });
    const auto oldReport = replaced<QV_ReportHandle>(
        report, QV_Destroy_Report, [&] { return QV_Create_Report(&secondReport, reportClass, reportName); });

    const auto bitsOf = [](auto handle) { return reinterpret_cast<std::uintptr_t>(handle); };
    struct Wrong {
        std::uintptr_t object, list, report;
    };
    std::vector<Wrong> wrong = {{0, 0, 0},
                                {bitsOf(oldObject), bitsOf(oldList), bitsOf(oldReport)},
                                {bitsOf(secondList), bitsOf(second), bitsOf(secondList)}, // of another kind
                                {bitsOf(&object), 1, 1}};
    std::mt19937_64 random(20240611); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same values at each run
    for (int i = 0; i < 300; ++i) {
        wrong.push_back({random() | 1U << 31, random() | 1U << 31, random() | 1U << 31});
    }
    for (const Wrong& bits : wrong) {
        for (const auto& [name, call] :
             callsOn(handleOf<QV_ObjectHandle>(bits.object), handleOf<QV_ListHandle>(bits.list),
                     handleOf<QV_ReportHandle>(bits.report))) {
            ASSERT_EQ(call(), badHandle) << name;
            ASSERT_NE(message(), "") << name;
        }
    }
    EXPECT_EQ(QV_Set_Object_Attr(second, "id", "x"), 0) << "the live one is untouched";
}

TEST_F(HandlesTest, NullPointersAndUnknownNamesAreRefused)
{
    QV_ObjectHandle record = nullptr;
    QV_ReportHandle none = nullptr;
    EXPECT_EQ(QV_Open_List(list), 0);
    const std::vector<int> codes = {
        QV_Create_Object(&record, nullptr),
        QV_Create_Object(nullptr, "EngineeringChange"),
        QV_Create_List(nullptr, "EngineeringChange"),
        QV_Set_Object_Attr(object, nullptr, ""),
        QV_Set_Object_Attr(object, "id", nullptr),
        QV_Subscribe_Object_Attr(object, nullptr),
        QV_Get_Object_Attr(object, "id", nullptr),
        QV_Set_Clause(list, "Having", "id"),
        QV_Set_Clause(list, nullptr, "id"),
        QV_Set_Clause(list, "Where", nullptr),
        QV_SizeOf_List(list, nullptr),
        QV_Read_List(list, 0, nullptr),
        QV_Read_List(list, 0, &record), // the list is empty
        QV_Read_List(list, -1, &record),
        QV_Create_Report(nullptr, reportClass, reportName),
        QV_Create_Report(&none, nullptr, reportName),
        QV_Create_Report(&none, reportClass, nullptr),
        QV_Create_Report(&none, "Component", reportName),
        QV_Set_Report_Attr(report, nullptr, "A"),
        QV_Set_Report_Attr(report, "item_number", nullptr),
        QV_Subscribe_Report_Attr(report, nullptr),
        QV_Generate_Report(report, nullptr),
    };
    EXPECT_EQ(codes, std::vector<int>(codes.size(), badArgument));
    EXPECT_TRUE(refused(QV_Create_Object(&record, "Nothing"), badArgument, "'Nothing'"));
    EXPECT_TRUE(refused(QV_Create_Report(&none, reportClass, "WhereUsed"), badArgument, "'WhereUsed'"));
    EXPECT_EQ(record, nullptr);
}

TEST_F(HandlesTest, TheVaultTakesOpenedDocumentsOnly)
{
    for (const auto& [name, call] : callsOnDocument(object)) {
        EXPECT_TRUE(refused(call(), badArgument, "EngineeringChange")) << name;
    }
    EXPECT_EQ(QV_Create_and_CheckIn_Doc(object, 0), badArgument);
    Object document("DocVersion", {{"doc_revision@doc_number", "D"}});
    for (const auto& [name, call] : callsOnDocument(document.handle())) {
        EXPECT_EQ(call(), notOpen) << name;
    }
    ASSERT_EQ(document.createAndCheckIn(), 0) << message();
    EXPECT_EQ(document.createAndCheckIn(), QV_ALREADY_STORED) << "it is one document already";
    EXPECT_EQ(QV_Make_New_Revision(document.handle(), nullptr), badArgument);
    ASSERT_EQ(document.checkOut(), 0) << message();
    EXPECT_EQ(QV_CheckIn_Doc(document.handle(), 1), badArgument) << "no such option";
}

TEST_F(HandlesTest, MessagesBelongToTheLastFailedCall)
{
    EXPECT_EQ(QV_Open_Object(nullptr), badHandle);
    EXPECT_STREQ(QV_Error_MsgCode(0), "-111");
    EXPECT_STREQ(QV_Error_MsgCode(1), "");
    EXPECT_STREQ(QV_Error_MsgTxt(-1), "");
    const std::string first = message();
    EXPECT_EQ(QV_Destroy_Object(&object), 0);
    EXPECT_EQ(message(), first) << "a call that succeeds leaves it";
    EXPECT_LT(QV_Create_Object(&object, "NoSuchClass"), 0);
    EXPECT_NE(message(), first);
    EXPECT_EQ(QV_Error_Size(), 1);
}

TEST_F(HandlesTest, ARecordOutlivesItsListButIsOnlyRead)
{
    create("EngineeringChange", {{"id", "EC1"}});
    ASSERT_EQ(QV_Set_Clause(list, "Select", "id"), 0);
    int size = 0;
    EXPECT_EQ(QV_SizeOf_List(list, &size), notOpen);
    ASSERT_EQ(QV_Open_List(list), 0);
    create("EngineeringChange", {{"id", "EC2"}});
    ASSERT_EQ(QV_SizeOf_List(list, &size), 0);
    EXPECT_EQ(size, 1) << "the rows of an opened list stay";
    QV_ObjectHandle record = nullptr;
    EXPECT_EQ(QV_Read_List(list, 1, &record), badArgument);
    ASSERT_EQ(QV_Read_List(list, 0, &record), 0);
    ASSERT_EQ(QV_Destroy_List(&list), 0);
    const char* value = nullptr;
    ASSERT_EQ(QV_Get_Object_Attr(record, "id", &value), 0);
    EXPECT_STREQ(value, "EC1");
    EXPECT_EQ(QV_Get_Object_Attr(record, "desc", &value), notLoaded);
    EXPECT_EQ(QV_Set_Object_Attr(record, "id", "x"), badHandle);
}

TEST_F(HandlesTest, NothingWorksWithoutAUser)
{
    EXPECT_EQ(logon(), -123) << "somebody is logged on";
    ASSERT_EQ(QV_Logoff(), 0);
    int size = 0;
    const char* text = nullptr;
    Calls calls = callsOn(object, list, report);
    calls.insert(calls.end(),
                 {{"create object", [&] { return QV_Create_Object(&object, "EngineeringChange"); }},
                  {"create list", [&] { return QV_Create_List(&list, "EngineeringChange"); }},
                  {"create report", [&] { return QV_Create_Report(&report, reportClass, reportName); }},
                  {"destroy object", [&] { return QV_Destroy_Object(&object); }},
                  {"destroy list", [&] { return QV_Destroy_List(&list); }},
                  {"destroy report", [&] { return QV_Destroy_Report(&report); }},
                  {"start", [] { return QV_Start_Multisave(); }},
                  {"size of table", [&] { return QV_SizeOf_Xlat("t", &size); }},
                  {"entry of table", [&] { return QV_Read_Xlat("t", 0, &text, &text); }},
                  {"log off", [] { return QV_Logoff(); }}});
    for (const auto& [name, call] : calls) {
        EXPECT_EQ(call(), notLoggedOn) << name;
    }
    ASSERT_EQ(logon(), 0) << message();
    for (const auto& [name, call] : callsOn(object, list, report)) {
        EXPECT_EQ(call(), badHandle) << name << ": handles end with the logon";
    }
    ASSERT_EQ(QV_Close_Env(), 0);
    EXPECT_EQ(QV_Close_Env(), -120);
    EXPECT_EQ(logon(), -120);
}

} // namespace
} // namespace servertest
