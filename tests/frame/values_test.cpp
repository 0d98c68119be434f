// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <iterator>

#include "tests/harness/library_test.h"

using namespace harness;

namespace {

constexpr char canary = '#';

class Values : public LibraryTest {
protected:
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
    void clearBuffers()
    {
        std::fill(std::begin(name_), std::end(name_), canary);
        std::fill(std::begin(value_), std::end(value_), canary);
    }
    void expectBuffers(const std::string& name, const std::string& value) const
    {
        EXPECT_EQ(name_, name);
        EXPECT_EQ(value_, value);
    }
    static void makeObjectResult()
    {
        captureOutput([] { EngineeringChangeOpen(Text("7"), Text("EC-1"), Names({"id", "desc"})); });
    }
    /** Three changes with "id" and "desc" selected. */
    static void makeThreeChanges()
    {
        makeObjectResult();
        makeListResult({{{"id", "EC-0"}, {"desc", "zero"}},
                        {{"id", "EC-1"}, {"desc", "one"}},
                        {{"id", "EC-2"}, {"desc", "two"}}});
    }

    char name_[50] = {};
    char value_[20000] = {};
};

TEST_F(Values, OfAnObjectAreReadByName)
{
    atEachLevel([this] {
        makeObjectResult();
        standin::script().values["id"] = "EC-1";
        EXPECT_EQ(byName(0, "id").story, story(R"(
GetValue:
9 @- LastRecNo=-1- RecNo=0- Name=id- out of 1 entries.
9 @-name=id-.
- QV_Get_Object_Attr(obj1, "id") = 0
log            -----------------
log             id = EC-1
9 @- Value=EC-1-.
= 1 FromList=Object entries=1 LastRecNo=0 QV_RC=0 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(value_, "EC-1");
        EXPECT_EQ(byName(0, "other").accessLog, "            other = \n");
        EXPECT_STREQ(value_, "");
    });
}

TEST_F(Values, OfAnObjectAreReadBySlot)
{
    atEachLevel([this] {
        makeObjectResult();
        standin::script().values["desc"] = "Stronger bracket";
        LastAttNo = 0;
        EXPECT_EQ(bySlot(0, 1).story, story(R"(
GetAttributeValue:
9 @- LastRecNo=-1- RecNo=0- AttNo=1-.
- QV_Get_Object_Attr(obj1, "desc") = 0
log             desc = Stronger bracket
9 @- Name=desc- Value=Stronger bracket-.
= 1 FromList=Object entries=1 LastRecNo=-1 QV_RC=0 SelectedAttribute=[id, desc]
)"));
        expectBuffers("desc", "Stronger bracket");
        EXPECT_EQ(LastAttNo, 1);
        EXPECT_EQ(bySlot(0, 1).accessLog,
                  "           -----------------\n            desc = Stronger bracket\n")
            << "the same slot again begins a new block";
        EXPECT_EQ(bySlot(0, 0).accessLog, "           -----------------\n            id = \n");
        EXPECT_EQ(LastAttNo, 0);
    });
}

TEST_F(Values, AListRecordIsFetchedOnceAndKeptUntilAnotherIsAskedFor)
{
    atEachLevel([this] {
        makeThreeChanges();
        // The object of the operation before is given up.
        EXPECT_EQ(byName(2, "id").story, story(R"(
GetValue:
9 @- LastRecNo=-1- RecNo=2- Name=id- out of 3 entries.
9 @-name=id-. > QV_Destroy_Object(obj1) = 0
> QV_Read_List(list1, 2, obj2) = 0
- QV_Get_Object_Attr(obj2, "id") = 0
log            -----------------
log             id = EC-2
9 @- Value=EC-2-.
= 1 FromList=List entries=3 LastRecNo=2 QV_RC=0 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(value_, "EC-2");
        const Outcome kept = byName(2, "desc");
        EXPECT_EQ(kept.calls, "QV_Get_Object_Attr(obj2, \"desc\") = 0\n");
        EXPECT_EQ(kept.accessLog, "            desc = two\n");
        LastAttNo = 1;
        EXPECT_EQ(bySlot(0, 0).story, story(R"(
GetAttributeValue:
9 @- LastRecNo=2- RecNo=0- AttNo=0-. > QV_Destroy_Object(obj2) = 0
> QV_Read_List(list1, 0, obj3) = 0
- QV_Get_Object_Attr(obj3, "id") = 0
log            -----------------
log             id = EC-0
9 @- Name=id- Value=EC-0-.
= 1 FromList=List entries=3 LastRecNo=0 QV_RC=0 SelectedAttribute=[id, desc]
)"));
        expectBuffers("id", "EC-0");
        EXPECT_EQ(byName(0, "desc").calls, "QV_Get_Object_Attr(obj3, \"desc\") = 0\n");
        EXPECT_EQ(bySlot(0, 1).calls, "QV_Get_Object_Attr(obj3, \"desc\") = 0\n");
        EXPECT_EQ(LastAttNo, 1);
    });
}

TEST_F(Values, RecordsAndSlotsOutOfRangeGiveNothing)
{
    const auto expectNothing = [this](const Outcome& outcome, int traceLines) {
        EXPECT_EQ(outcome.result, 0);
        EXPECT_STREQ(value_, "");
        EXPECT_EQ(outcome.calls + outcome.accessLog, "");
        EXPECT_EQ(countLines(outcome.output), traceLines);
        EXPECT_EQ(LastRecNo, -1);
        EXPECT_EQ(LastAttNo, 7);
    };
    connect(9);
    for (const int size : {1, 3, 0}) { // the object, and two lists
        makeObjectResult();
        if (size != 1) {
            makeListResult(std::vector<standin::Record>(static_cast<std::size_t>(size)));
        }
        LastAttNo = 7;
        for (const int record : {-1, size, INT32_MAX, INT32_MIN}) {
            SCOPED_TRACE("record " + std::to_string(record) + " of " + std::to_string(size));
            expectNothing(byName(record, "id"), 2);
            expectNothing(bySlot(record, 0), 1);
            EXPECT_STREQ(name_, "");
        }
        for (const int slot : {-1, 2, 50, INT32_MAX, INT32_MIN}) {
            SCOPED_TRACE("slot " + std::to_string(slot));
            expectNothing(bySlot(0, slot), 1);
            EXPECT_STREQ(name_, "");
        }
        NbSelectedAttribute = 60; // there are 50 slots all the same
        expectNothing(bySlot(0, 50), 1);
        standin::forgetCalls();
        DestroyListOrReport();
    }
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
        expectBuffers("", "");
        EXPECT_EQ(LastAttNo, 7);
    });
}

TEST_F(Values, ARecordThatCannotBeFetchedIsReportedAndGivesNothing)
{
    atEachLevel([this] {
        makeThreeChanges();
        standin::answer("QV_Read_List", -7, {{"E1", "Lost"}});
        EXPECT_EQ(bySlot(1, 1).story, story(R"(
GetAttributeValue:
9 @- LastRecNo=-1- RecNo=1- AttNo=1-. > QV_Destroy_Object(obj1) = 0
> QV_Read_List(list1, 1, null) = -7
! E1 - Lost
0 @- ****** ERROR ****** Invalid QV_ObjPtr handle ******.
log @ ****** ERROR ****** Invalid QV_ObjPtr handle ******
= 0 FromList=List entries=3 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[id, desc]
)"));
        expectBuffers("", "");
        EXPECT_EQ(byName(0, "id").storyFrom("call QV_Read"), story(R"(
GetValue:
> QV_Read_List(list1, 0, null) = -7
! E1 - Lost
0 @- ****** ERROR ****** Invalid QV_ObjPtr handle ******.
log @ ****** ERROR ****** Invalid QV_ObjPtr handle ******
= 0 FromList=List entries=3 LastRecNo=-1 QV_RC=-7 SelectedAttribute=[id, desc]
)"));
        EXPECT_STREQ(value_, "");
    });
}

TEST_F(Values, TheHandleAndNotTheCodeTellsWhetherARecordWasFetched)
{
    connect();
    makeThreeChanges();
    standin::script().handOvers["QV_Read_List"] = standin::HandOver::Never;
    EXPECT_EQ(byName(0, "id").output, "GetValue- ****** ERROR ****** Invalid QV_ObjPtr handle ******.\n");

    standin::answer("QV_Read_List", -7, {{"E1", "Stale"}});
    standin::script().handOvers["QV_Read_List"] = standin::HandOver::Always;
    EXPECT_EQ(byName(1, "id").output, "****** Stale .\n");
    EXPECT_STREQ(value_, "EC-1");
    EXPECT_EQ(LastRecNo, 1);

    standin::answer("QV_Read_List", 0);
    standin::answer("QV_Destroy_Object", -7, {{"E1", "Busy"}});
    EXPECT_EQ(byName(2, "id").story, story(R"(
GetValue:
> QV_Destroy_Object(obj2) = -7
! E1 - Busy
> QV_Read_List(list1, 2, obj3) = 0
- QV_Get_Object_Attr(obj3, "id") = 0
log            -----------------
log             id = EC-2
= 1 FromList=List entries=3 LastRecNo=2 QV_RC=0 SelectedAttribute=[id, desc]
)"));
}

TEST_F(Values, AnAttributeTheServerDoesNotHandOutIsEmpty)
{
    connect();
    makeObjectResult();
    standin::script().values["id"] = std::nullopt;
    EXPECT_EQ(byName(0, "id").result, 1);
    EXPECT_STREQ(value_, "");
    EXPECT_EQ(bySlot(0, 0).result, 1);
    expectBuffers("id", "");
    standin::answer("QV_Get_Object_Attr", -7, {{"E1", "Not selected"}});
    EXPECT_EQ(byName(0, "id").errorLog, "") << "the code of this call is not examined";
    EXPECT_STREQ(value_, "");
}

TEST_F(Values, NullArgumentsNeverCrash)
{
    const auto useNulls = [this](const std::string& name, const std::string& value) {
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
        GetAttributeValue(0, 0, name_, nullptr);
        GetAttributeValue(0, 0, nullptr, value_);
        expectBuffers(name, value);
    };
    connect(9);
    captureOutput([&] { useNulls("", ""); });
    makeObjectResult();
    standin::script().values["id"] = "EC-7";
    captureOutput([&] { useNulls("id", "EC-7"); });
    makeThreeChanges();
    captureOutput([&] { useNulls("id", "EC-0"); });
    captureOutput([] {
        DocumentMakeNewRevision(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    });
}

TEST_F(Values, LongValuesAreReadWholeWithOrWithoutASize)
{
    connect(9);
    makeObjectResult();
    const std::string text(10000, 'd');
    standin::script().values["desc"] = text;
    const Outcome outcome = byName(0, "desc");
    EXPECT_EQ(value_, text);
    EXPECT_EQ(value_[text.size() + 1], canary);
    EXPECT_EQ(countLines(outcome.output, "GetValue- Value=" + text + "-."), 1);
    EXPECT_EQ(countLines(outcome.accessLog, "            desc = " + text), 1);
    LastRecNo = -1;
    EXPECT_EQ(record([&] { return GetValue(0, "desc", value_, sizeof value_); }).story, outcome.story);
}

TEST_F(Values, TheSizedReadersNeverWritePastTheBuffer)
{
    connect();
    makeObjectResult();
    standin::script().values["desc"] = "0123456789";
    const auto expectRead = [](const char* buffer, std::size_t size, const std::string& whole) {
        const char untouched[] = {canary, canary, '\0'};
        EXPECT_EQ(size == 0 ? "" : std::string(buffer), whole.substr(0, size == 0 ? 0 : size - 1));
        EXPECT_EQ(std::string(buffer + size, 2), untouched) << "behind a buffer of " << size;
    };
    for (std::size_t size = 0; size <= 12; ++size) {
        clearBuffers();
        const Outcome named = record([&] { return GetValue(0, "desc", value_, size); });
        EXPECT_EQ(named.result, 1);
        expectRead(value_, size, "0123456789");
        EXPECT_EQ(named.output.empty(), size > 10) << "a cut value is told, a whole one is not";

        clearBuffers();
        record([&] { return GetAttributeValue(0, 1, name_, size, value_, 12 - size); });
        expectRead(name_, size, "desc");
        expectRead(value_, 12 - size, "0123456789");
    }
    EXPECT_EQ(GetValue(1, "desc", value_, 5), 0);
    EXPECT_STREQ(value_, "");
}

} // namespace
