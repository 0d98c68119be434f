// SPDX-License-Identifier: Apache-2.0
//
// Handles that are null, foreign, destroyed or of another kind, null pointers, and calls without a user.
#include <cstdint>
#include <functional>
#include <random>

#include "tests/server/server_test.h"

namespace servertest {
namespace {

class HandlesTest : public ServerTest {
protected:
    static constexpr int badHandle = -111;
    static constexpr int badArgument = -110;
};

using Calls = std::vector<std::pair<std::string, std::function<int()>>>;

/** Every call that takes an existing object or list. */
Calls callsOn(QV_ObjectHandle object, QV_ListHandle list)
{
    static const char* value = nullptr;
    static int size = 0;
    static QV_ObjectHandle record = nullptr;
    return {
        {"set", [=] { return QV_Set_Object_Attr(object, "id", "x"); }},
        {"subscribe", [=] { return QV_Subscribe_Object_Attr(object, "id"); }},
        {"open object", [=] { return QV_Open_Object(object); }},
        {"save", [=] { return QV_Save_Object(object); }},
        {"delete", [=] { return QV_Delete_Object(object); }},
        {"get", [=] { return QV_Get_Object_Attr(object, "id", &value); }},
        {"clause", [=] { return QV_Set_Clause(list, "Select", "id"); }},
        {"open list", [=] { return QV_Open_List(list); }},
        {"size", [=] { return QV_SizeOf_List(list, &size); }},
        {"read", [=] { return QV_Read_List(list, 0, &record); }},
    };
}

template <typename Handle>
Handle handleOf(std::uintptr_t bits)
{
    return reinterpret_cast<Handle>(bits); // NOLINT(performance-no-int-to-ptr): a handle that nobody made
}

TEST_F(HandlesTest, UnknownHandlesAreRefusedByEveryCall)
{
    QV_ObjectHandle object = nullptr;
    QV_ListHandle list = nullptr;
    ASSERT_EQ(QV_Create_Object(&object, "EngineeringChange"), 0);
    ASSERT_EQ(QV_Create_List(&list, "EngineeringChange"), 0);
    QV_ObjectHandle oldObject = object;
    QV_ListHandle oldList = list;
    EXPECT_EQ(QV_Destroy_Object(&object), 0);
    EXPECT_EQ(QV_Destroy_List(&list), 0);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(list, nullptr);
    ASSERT_EQ(QV_Create_Object(&object, "EngineeringChange"), 0); // in the old one's place
    ASSERT_EQ(QV_Create_List(&list, "EngineeringChange"), 0);
    EXPECT_NE(object, oldObject);

    std::vector<std::pair<QV_ObjectHandle, QV_ListHandle>> wrong = {
        {nullptr, nullptr},
        {oldObject, oldList},
        {handleOf<QV_ObjectHandle>(reinterpret_cast<std::uintptr_t>(list)),
         handleOf<QV_ListHandle>(reinterpret_cast<std::uintptr_t>(object))},
        {handleOf<QV_ObjectHandle>(reinterpret_cast<std::uintptr_t>(&object)), handleOf<QV_ListHandle>(1)},
    };
    std::mt19937_64 random(20240611); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same values at each run
    for (int i = 0; i < 1000; ++i) {
        wrong.emplace_back(handleOf<QV_ObjectHandle>(random() | 1U << 31),
                           handleOf<QV_ListHandle>(random() | 1U << 31));
    }
    for (const auto& [wrongObject, wrongList] : wrong) {
        for (const auto& [name, call] : callsOn(wrongObject, wrongList)) {
            ASSERT_EQ(call(), badHandle) << name;
            ASSERT_NE(message(), "") << name;
        }
    }
    QV_ObjectHandle again = oldObject;
    EXPECT_EQ(QV_Destroy_Object(&again), badHandle);
    EXPECT_EQ(again, nullptr);
    EXPECT_EQ(QV_Destroy_Object(&again), 0) << "nothing to release";
    EXPECT_EQ(QV_Set_Object_Attr(object, "id", "x"), 0) << "the live one is untouched";
    EXPECT_EQ(QV_Destroy_List(&list), 0);
}

TEST_F(HandlesTest, NullPointersAndUnknownNamesAreRefused)
{
    QV_ObjectHandle object = nullptr;
    QV_ListHandle list = nullptr;
    EXPECT_EQ(QV_Create_Object(&object, "Nothing"), badArgument);
    EXPECT_NE(message().find("'Nothing'"), std::string::npos);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(QV_Create_Object(&object, nullptr), badArgument);
    EXPECT_EQ(QV_Create_Object(nullptr, "EngineeringChange"), badArgument);
    EXPECT_EQ(QV_Create_List(nullptr, "EngineeringChange"), badArgument);
    EXPECT_EQ(QV_Destroy_Object(nullptr), badArgument);
    EXPECT_EQ(QV_Destroy_List(nullptr), badArgument);
    ASSERT_EQ(QV_Create_Object(&object, "EngineeringChange"), 0);
    ASSERT_EQ(QV_Create_List(&list, "EngineeringChange"), 0);
    EXPECT_EQ(QV_Set_Object_Attr(object, nullptr, ""), badArgument);
    EXPECT_EQ(QV_Set_Object_Attr(object, "id", nullptr), badArgument);
    EXPECT_EQ(QV_Subscribe_Object_Attr(object, nullptr), badArgument);
    EXPECT_EQ(QV_Get_Object_Attr(object, "id", nullptr), badArgument);
    EXPECT_EQ(QV_Set_Clause(list, "Having", "id"), badArgument);
    EXPECT_EQ(QV_Set_Clause(list, nullptr, "id"), badArgument);
    EXPECT_EQ(QV_Set_Clause(list, "Where", nullptr), badArgument);
    EXPECT_EQ(QV_Open_List(list), 0);
    EXPECT_EQ(QV_SizeOf_List(list, nullptr), badArgument);
    EXPECT_EQ(QV_Read_List(list, 0, &object), badArgument) << "the list is empty";
    EXPECT_EQ(QV_Read_List(list, -1, &object), badArgument);
}

TEST_F(HandlesTest, MessagesBelongToTheLastFailedCall)
{
    EXPECT_EQ(QV_Open_Object(nullptr), badHandle);
    EXPECT_EQ(QV_Error_Size(), 1);
    EXPECT_STREQ(QV_Error_MsgCode(0), "-111");
    EXPECT_STREQ(QV_Error_MsgCode(1), "");
    EXPECT_STREQ(QV_Error_MsgTxt(-1), "");
    EXPECT_EQ(QV_Error_Size(), 1);
    const std::string first = message();
    QV_ObjectHandle none = nullptr;
    EXPECT_EQ(QV_Destroy_Object(&none), 0);
    EXPECT_EQ(message(), first) << "a call that succeeds leaves it";
    EXPECT_LT(QV_Create_Object(&none, "NoSuchClass"), 0);
    EXPECT_NE(message(), first);
    EXPECT_EQ(QV_Error_Size(), 1);
}

TEST_F(HandlesTest, ARecordOutlivesItsListButIsOnlyRead)
{
    create("EngineeringChange", {{"id", "EC1"}});
    QV_ListHandle list = nullptr;
    QV_ObjectHandle record = nullptr;
    ASSERT_EQ(QV_Create_List(&list, "EngineeringChange"), 0);
    ASSERT_EQ(QV_Set_Clause(list, "Select", "id"), 0);
    int size = 0;
    EXPECT_EQ(QV_SizeOf_List(list, &size), -116) << "not opened";
    ASSERT_EQ(QV_Open_List(list), 0);
    create("EngineeringChange", {{"id", "EC2"}});
    ASSERT_EQ(QV_SizeOf_List(list, &size), 0);
    EXPECT_EQ(size, 1) << "the rows of an opened list stay";
    ASSERT_EQ(QV_Read_List(list, 0, &record), 0);
    ASSERT_EQ(QV_Destroy_List(&list), 0);
    const char* value = nullptr;
    ASSERT_EQ(QV_Get_Object_Attr(record, "id", &value), 0);
    EXPECT_STREQ(value, "EC1");
    EXPECT_EQ(QV_Get_Object_Attr(record, "desc", &value), -115);
    EXPECT_EQ(QV_Set_Object_Attr(record, "id", "x"), badHandle);
    EXPECT_EQ(QV_Destroy_Object(&record), 0);
}

TEST_F(HandlesTest, NothingWorksWithoutAUser)
{
    QV_ObjectHandle object = nullptr;
    QV_ListHandle list = nullptr;
    QV_ReportHandle report = nullptr;
    ASSERT_EQ(QV_Create_Object(&object, "EngineeringChange"), 0);
    EXPECT_EQ(logon(), -123);
    ASSERT_EQ(QV_Logoff(), 0);
    Calls calls = callsOn(object, list);
    calls.emplace_back("create object", [&] { return QV_Create_Object(&object, "EngineeringChange"); });
    calls.emplace_back("create list", [&] { return QV_Create_List(&list, "EngineeringChange"); });
    calls.emplace_back("destroy object", [&] { return QV_Destroy_Object(&object); });
    calls.emplace_back("destroy report", [&] { return QV_Destroy_Report(&report); });
    calls.emplace_back("check in", [&] { return QV_CheckIn_Doc(object, 0); });
    calls.emplace_back("start", [] { return QV_Start_Multisave(); });
    calls.emplace_back("log off", [] { return QV_Logoff(); });
    for (const auto& [name, call] : calls) {
        EXPECT_EQ(call(), -121) << name;
    }
    ASSERT_EQ(logon(), 0) << message();
    EXPECT_EQ(QV_Open_Object(object), badHandle) << "handles end with the logon";
    ASSERT_EQ(QV_Close_Env(), 0);
    EXPECT_EQ(QV_Close_Env(), -120);
    EXPECT_EQ(logon(), -120);
}

} // namespace
} // namespace servertest
