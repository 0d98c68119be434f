// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <iterator>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

constexpr char canary = '#';

class Values : public LibraryTest {
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        clearBuffers();
    }
    void clearBuffers()
    {
        std::fill(std::begin(name_), std::end(name_), canary);
        std::fill(std::begin(value_), std::end(value_), canary);
    }

    /** Reads by name; the buffer afterwards is in value_. */
    Outcome byName(int record, const char* name)
    {
        clearBuffers();
        return LibraryTest::record([&] { return GetValue(record, name, value_); });
    }
    Outcome bySlot(int record, int slot)
    {
        clearBuffers();
        return LibraryTest::record([&] { return GetAttributeValue(record, slot, name_, value_); });
    }
    static void makeObjectResult(const std::vector<std::string>& names)
    {
        Names array(names);
        captureOutput([&] { ASSERT_EQ(EngineeringChangeOpen(Text("7"), Text("EC-1"), array), 1); });
    }
    /** Three changes with "id" and "desc" selected, as captured from an array. */
    static void makeThreeChanges()
    {
        makeListResult({{{"id", "EC-0"}, {"desc", "zero"}},
                        {{"id", "EC-1"}, {"desc", "one"}},
                        {{"id", "EC-2"}, {"desc", "two"}}});
        std::string("id").copy(SelectedAttribute[0], 49);
        std::string("desc").copy(SelectedAttribute[1], 49);
        NbSelectedAttribute = 2;
    }

    char name_[50] = {};
    char value_[20000] = {};
};

TEST_F(Values, OfAnObjectAreReadByName)
{
    atEachLevel([this] {
        makeObjectResult({"id"});
        standin::setValue("id", "EC-1");
        EXPECT_EQ(byName(0, "id").story, story(R"(
GetValue:
9 @- LastRecNo=-1- RecNo=0- Name=id- out of 1 entries.
9 @-name=id-.
- QV_Get_Object_Attr(obj1, "id") = 0
log            -----------------
log             id = EC-1
9 @- Value=EC-1-.
= 1 FromList=Object entries=1 LastRecNo=0 QV_RC=0 SelectedAttribute=[id]
)"));
        EXPECT_STREQ(value_, "EC-1");
        EXPECT_EQ(byName(0, "desc").story, story(R"(
GetValue:
9 @- LastRecNo=0- RecNo=0- Name=desc- out of 1 entries.
9 @-name=desc-.
- QV_Get_Object_Attr(obj1, "desc") = 0
log             desc = 
9 @- Value=-.
= 1 FromList=Object entries=1 LastRecNo=0 QV_RC=0 SelectedAttribute=[id]
)"));
        EXPECT_STREQ(value_, "");
    });
}

TEST_F(Values, OfAnObjectAreReadBySlot)
{
    atEachLevel([this] {
        makeObjectResult({"id", "desc"});
        standin::setValue("id", "EC-1");
        standin::setValue("desc", "Stronger bracket");
        LastAttNo = -1;
        EXPECT_EQ(bySlot(0, 0).story, story(R"(
GetAttributeValue:
9 @- LastRecNo=-1- RecNo=0- AttNo=0-.
- QV_Get_Object_Attr(obj1, "id") = 0
log             id = EC-1
9 @- Name=id- Value=EC-1-.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(name_, "id");
        EXPECT_STREQ(value_, "EC-1");
        EXPECT_EQ(bySlot(0, 1).story, story(R"(
GetAttributeValue:
9 @- LastRecNo=-1- RecNo=0- AttNo=1-.
- QV_Get_Object_Attr(obj1, "desc") = 0
log             desc = Stronger bracket
9 @- Name=desc- Value=Stronger bracket-.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(name_, "desc");
        EXPECT_STREQ(value_, "Stronger bracket");
        EXPECT_EQ(LastAttNo, 1);

        const std::string separated = "           -----------------\n            desc = Stronger bracket\n";
        EXPECT_EQ(bySlot(0, 1).accessLog, separated) << "the same slot again begins a new block";
        EXPECT_EQ(bySlot(0, 0).accessLog, "           -----------------\n            id = EC-1\n");
        EXPECT_EQ(LastAttNo, 0);
    });
}

TEST_F(Values, AListRecordIsFetchedOnceAndKeptUntilAnotherIsAskedFor)
{
    atEachLevel([this] {
        makeThreeChanges();
        EXPECT_EQ(byName(2, "id").story, story(R"(
GetValue:
9 @- LastRecNo=-1- RecNo=2- Name=id- out of 3 entries.
9 @-name=id-. > QV_Read_List(list1, 2, obj1) = 0
- QV_Get_Object_Attr(obj1, "id") = 0
log            -----------------
log             id = EC-2
9 @- Value=EC-2-.
= 1 FromList=List entries=3 LastRecNo=2 QV_RC=0 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(value_, "EC-2");
        const Outcome kept = byName(2, "desc");
        EXPECT_STREQ(value_, "two");
        EXPECT_EQ(kept.calls, "QV_Get_Object_Attr(obj1, \"desc\") = 0\n");
        EXPECT_EQ(kept.accessLog, "            desc = two\n");
        EXPECT_EQ(byName(0, "id").story, story(R"(
GetValue:
9 @- LastRecNo=2- RecNo=0- Name=id- out of 3 entries.
9 @-name=id-. > QV_Destroy_Object(obj1) = 0
> QV_Read_List(list1, 0, obj2) = 0
- QV_Get_Object_Attr(obj2, "id") = 0
log            -----------------
log             id = EC-0
9 @- Value=EC-0-.
= 1 FromList=List entries=3 LastRecNo=0 QV_RC=0 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(value_, "EC-0");
    });
}

TEST_F(Values, BothReadersShareTheRecordAtHand)
{
    atEachLevel([this] {
        makeThreeChanges();
        LastAttNo = 1;
        EXPECT_EQ(bySlot(1, 0).story, story(R"(
GetAttributeValue:
9 @- LastRecNo=-1- RecNo=1- AttNo=0-. > QV_Read_List(list1, 1, obj1) = 0
- QV_Get_Object_Attr(obj1, "id") = 0
log            -----------------
log             id = EC-1
9 @- Name=id- Value=EC-1-.
= 1 FromList=List entries=3 LastRecNo=1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(name_, "id");
        EXPECT_STREQ(value_, "EC-1");
        EXPECT_EQ(byName(1, "desc").calls, "QV_Get_Object_Attr(obj1, \"desc\") = 0\n");
        EXPECT_EQ(bySlot(1, 1).calls, "QV_Get_Object_Attr(obj1, \"desc\") = 0\n");
        EXPECT_EQ(bySlot(2, 1).calls, lines(R"(
QV_Destroy_Object(obj1) = 0
QV_Read_List(list1, 2, obj2) = 0
QV_Get_Object_Attr(obj2, "desc") = 0
)"));
        EXPECT_EQ(LastAttNo, 1);
        EXPECT_EQ(LastRecNo, 2);
    });
}

TEST_F(Values, AlternatingBetweenRecordsReadsEachTime)
{
    connect();
    makeThreeChanges();
    const auto reads = [this](const std::vector<int>& records) {
        LastRecNo = -1;
        std::string calls;
        for (const int number : records) {
            calls += byName(number, "id").calls;
        }
        return countLines(calls, "QV_Read_List(");
    };
    EXPECT_EQ(reads({2, 2}), 1);
    EXPECT_EQ(reads({1, 2, 1}), 3);
    EXPECT_EQ(reads({0, 0, 1, 1, 2, 2}), 3);
}

TEST_F(Values, TheObjectOfAnEarlierOperationIsDestroyedBeforeTheFirstRecord)
{
    connect();
    makeObjectResult({"id"});
    makeThreeChanges();
    EXPECT_EQ(byName(0, "id").calls, lines(R"(
QV_Destroy_Object(obj1) = 0
QV_Read_List(list1, 0, obj2) = 0
QV_Get_Object_Attr(obj2, "id") = 0
)"));
}

TEST_F(Values, RecordsAndSlotsOutOfRangeGiveNothing)
{
    const auto expectNothing = [this](const Outcome& outcome, int record, int slot) {
        EXPECT_EQ(outcome.result, 0) << record << ", " << slot;
        EXPECT_STREQ(value_, "");
        EXPECT_EQ(outcome.calls + outcome.accessLog, "");
    };
    const auto expectNoSlot = [&](int record, int slot) {
        const std::string lastRecord = std::to_string(LastRecNo);
        const int lastSlot = LastAttNo;
        const Outcome outcome = bySlot(record, slot);
        expectNothing(outcome, record, slot);
        EXPECT_STREQ(name_, "");
        EXPECT_EQ(outcome.output, QVL_Traces_Level < 9 ? ""
                                                       : "GetAttributeValue- LastRecNo=" + lastRecord +
                                                             "- RecNo=" + std::to_string(record) +
                                                             "- AttNo=" + std::to_string(slot) + "-.\n");
        EXPECT_EQ(std::to_string(LastRecNo), lastRecord);
        EXPECT_EQ(LastAttNo, lastSlot);
    };
    const auto expectNoneOf = [&](int size) {
        for (const int record : {-1, size, INT32_MAX, INT32_MIN}) {
            const int lastRecord = LastRecNo;
            expectNothing(byName(record, "id"), record, 0);
            EXPECT_EQ(LastRecNo, lastRecord);
            expectNoSlot(record, 0);
        }
        for (const int slot : {-1, 2, 50, INT32_MAX, INT32_MIN}) {
            expectNoSlot(size - 1, slot);
        }
    };
    atEachLevel([&] {
        makeObjectResult({"id", "desc"});
        expectNoneOf(1);
        makeThreeChanges();
        EXPECT_EQ(byName(1, "id").result, 1);
        expectNoneOf(3);
        EXPECT_EQ(byName(3, "id").story, story(R"(
GetValue:
9 @- LastRecNo=1- RecNo=3- Name=id- out of 3 entries.
9 @-name=id-.
= 0 FromList=List entries=3 LastRecNo=1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
    });
}

TEST_F(Values, AListWithoutRecordsHasNoValues)
{
    connect();
    makeListResult({});
    EXPECT_EQ(byName(0, "id").result, 0);
    EXPECT_EQ(bySlot(0, 0).result, 0);
}

TEST_F(Values, BeforeAnyOperationBothReadersAnswerEmptyTexts)
{
    atEachLevel([this] {
        // The record at hand is 0 when the library is loaded.
        EXPECT_EQ(byName(0, "id").story, story(R"(
GetValue:
9 @- LastRecNo=0- RecNo=0- Name=id- out of 0 entries.
9 @-name=id-.
log             id = 
9 @- Value=-.
= 1 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
        EXPECT_STREQ(value_, "");
        EXPECT_EQ(byName(5, "id").accessLog, "           -----------------\n            id = \n");
        EXPECT_EQ(bySlot(3, 7).story, story(R"(
GetAttributeValue:
9 @- LastRecNo=5- RecNo=3- AttNo=7-.
log              = 
9 @- Name=- Value=-.
= 1 FromList= entries=0 LastRecNo=5 QV_RC=0 SelectedAttribute=[]
)"));
        EXPECT_STREQ(name_, "");
        EXPECT_STREQ(value_, "");
        EXPECT_EQ(LastAttNo, 7);
    });
}

TEST_F(Values, ARecordThatCannotBeFetchedIsReportedAndGivesNothing)
{
    atEachLevel([this] {
        makeThreeChanges();
        standin::answer("QV_Read_List", -7, {{"E1", "Lost"}});
        EXPECT_EQ(byName(0, "id").story, story(R"(
GetValue:
9 @- LastRecNo=-1- RecNo=0- Name=id- out of 3 entries.
9 @-name=id-. > QV_Read_List(list1, 0, null) = -7
! E1 - Lost
0 @- ****** ERROR ****** Invalid QV_ObjPtr handle ******.
log @ ****** ERROR ****** Invalid QV_ObjPtr handle ******
= 0 FromList=List entries=3 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(value_, "");
        EXPECT_EQ(bySlot(1, 1).story, story(R"(
GetAttributeValue:
9 @- LastRecNo=-1- RecNo=1- AttNo=1-. > QV_Read_List(list1, 1, null) = -7
! E1 - Lost
0 @- ****** ERROR ****** Invalid QV_ObjPtr handle ******.
log @ ****** ERROR ****** Invalid QV_ObjPtr handle ******
= 0 FromList=List entries=3 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(name_, "");
        EXPECT_STREQ(value_, "");
    });
}

TEST_F(Values, AReadThatSucceedsWithoutAHandleGivesNothing)
{
    connect();
    makeThreeChanges();
    standin::handOver("QV_Read_List", standin::HandOver::Never);
    const Outcome outcome = byName(0, "id");
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.output, "GetValue- ****** ERROR ****** Invalid QV_ObjPtr handle ******.\n");
    EXPECT_EQ(outcome.errorLog, "");
}

TEST_F(Values, AFailedReadThatLeavesAHandleIsReportedAndReadFrom)
{
    connect();
    makeThreeChanges();
    standin::answer("QV_Read_List", -7, {{"E1", "Stale"}});
    standin::handOver("QV_Read_List", standin::HandOver::Always);
    const Outcome outcome = byName(1, "id");
    EXPECT_EQ(outcome.result, 1);
    EXPECT_STREQ(value_, "EC-1");
    EXPECT_EQ(outcome.output, "****** Stale .\n");
    EXPECT_EQ(LastRecNo, 1);
}

TEST_F(Values, ADestroyThatFailsIsReportedAndTheNextRecordIsRead)
{
    connect();
    makeThreeChanges();
    EXPECT_EQ(byName(0, "id").result, 1);
    standin::answer("QV_Destroy_Object", -7, {{"E1", "Busy"}});
    EXPECT_EQ(byName(1, "id").story, story(R"(
GetValue:
> QV_Destroy_Object(obj1) = -7
! E1 - Busy
> QV_Read_List(list1, 1, obj2) = 0
- QV_Get_Object_Attr(obj2, "id") = 0
log            -----------------
log             id = EC-1
= 1 FromList=List entries=3 LastRecNo=1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
    EXPECT_STREQ(value_, "EC-1");
}

TEST_F(Values, AnAttributeTheServerDoesNotHandOutIsEmpty)
{
    connect();
    makeObjectResult({"id"});
    standin::setValue("id", std::nullopt);
    EXPECT_EQ(byName(0, "id").result, 1);
    EXPECT_STREQ(value_, "");
    EXPECT_EQ(bySlot(0, 0).result, 1);
    EXPECT_STREQ(name_, "id");
    EXPECT_STREQ(value_, "");
    standin::answer("QV_Get_Object_Attr", -7, {{"E1", "Not selected"}});
    const Outcome outcome = byName(0, "id");
    EXPECT_EQ(outcome.result, 1) << "the code of this call is not examined";
    EXPECT_STREQ(value_, "");
    EXPECT_EQ(outcome.output + outcome.errorLog, "");
}

TEST_F(Values, NullArgumentsNeverCrash)
{
    const auto useNulls = [this] {
        int number = -1;
        SizeOfAttributeValue(nullptr, nullptr);
        SizeOfAttributeValue(nullptr, &number);
        EXPECT_EQ(number, NbSelectedAttribute);
        SizeOfAttributeValue(&number, nullptr);
        EXPECT_EQ(number, entries);
        clearBuffers();
        EXPECT_EQ(GetValue(0, nullptr, value_), 1);
        EXPECT_STREQ(value_, "");
        GetValue(0, "id", nullptr);
        GetValue(0, "id", nullptr, 10);
        GetAttributeValue(0, 0, nullptr, nullptr);
        GetAttributeValue(0, 0, nullptr, 10, nullptr, 10);
        clearBuffers();
        GetAttributeValue(0, 0, name_, nullptr);
        EXPECT_STREQ(name_, SelectedAttribute[0]);
        GetAttributeValue(0, 0, nullptr, value_);
        EXPECT_EQ(value_, std::string(entries > 0 ? "EC-0" : ""));
    };
    connect(9);
    captureOutput(useNulls);
    makeObjectResult({"id"});
    standin::setValue("id", "EC-0");
    captureOutput(useNulls);
    makeThreeChanges();
    captureOutput(useNulls);
}

TEST_F(Values, LongValuesAreReadWhole)
{
    connect(9);
    makeObjectResult({"desc"});
    const std::string text(10000, 'd');
    standin::setValue("desc", text);
    const Outcome outcome = byName(0, "desc");
    EXPECT_EQ(value_, text);
    EXPECT_EQ(value_[text.size() + 1], canary);
    EXPECT_EQ(countLines(outcome.output, "GetValue- Value=" + text + "-."), 1);
    EXPECT_EQ(countLines(outcome.accessLog, "            desc = " + text), 1);
}

TEST_F(Values, TheSizedReadersNeverWritePastTheBuffer)
{
    connect();
    makeObjectResult({"desc"});
    standin::setValue("desc", "0123456789");
    const auto expectRead = [](const char* buffer, std::size_t size, const std::string& whole) {
        EXPECT_EQ(buffer, whole.substr(0, size - 1)) << "buffer of " << size;
        EXPECT_EQ(std::count(buffer + size, buffer + 20, canary), std::ptrdiff_t(20 - size));
    };
    for (std::size_t size = 1; size <= 12; ++size) {
        clearBuffers();
        const Outcome named = record([&] { return GetValue(0, "desc", value_, size); });
        EXPECT_EQ(named.result, 1);
        expectRead(value_, size, "0123456789");
        EXPECT_EQ(named.output.empty(), size > 10) << "a cut value is told, a whole one is not";

        clearBuffers();
        const Outcome slotted =
            record([&] { return GetAttributeValue(0, 0, name_, size, value_, 13 - size); });
        EXPECT_EQ(slotted.result, 1);
        expectRead(name_, size, "desc");
        expectRead(value_, 13 - size, "0123456789");
    }
    clearBuffers();
    captureOutput([this] {
        GetValue(0, "desc", value_, 0);
        GetAttributeValue(0, 0, name_, 0, value_, 0);
    });
    EXPECT_EQ(value_[0], canary);
    EXPECT_EQ(name_[0], canary);
    EXPECT_EQ(GetValue(1, "desc", value_, 5), 0);
    EXPECT_STREQ(value_, "");
}

TEST_F(Values, ASizedReadIsLoggedLikeAnyOther)
{
    connect(9);
    makeObjectResult({"desc"});
    standin::setValue("desc", "0123456789");
    const Outcome unsized = byName(0, "desc");
    LastRecNo = -1;
    EXPECT_EQ(record([&] { return GetValue(0, "desc", value_, sizeof value_); }).story, unsized.story);
}

TEST_F(Values, AStoredChangeIsReadByNameWhileTheSelectionIsStale)
{
    connect();
    makeObjectResult({"desc"});
    captureOutput([] { ASSERT_EQ(EngineeringChangeCreate("EC-2", "", "", "", ""), 1); });
    standin::setValue("db_object_id", "4711");
    standin::setValue("desc", "stale");
    EXPECT_EQ(byName(0, "db_object_id").result, 1);
    EXPECT_STREQ(value_, "4711");
    EXPECT_EQ(bySlot(0, 0).result, 1);
    EXPECT_STREQ(name_, "desc");
}

} // namespace
