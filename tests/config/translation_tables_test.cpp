// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/library_test.h"

using namespace harness;

namespace {

/** What both functions tell of the table. */
const std::string readTable = R"(> QV_SizeOf_Xlat("COLOUR_TAB", 3) = 0
5 @- XlatSize=3-. > QV_Read_Xlat("COLOUR_TAB", 0) = 0 as QV_ReadXlat
9 @- 0-1<=>red<. > QV_Read_Xlat("COLOUR_TAB", 1) = 0 as QV_ReadXlat
9 @- 1-2<=><. > QV_Read_Xlat("COLOUR_TAB", 2) = 0 as QV_ReadXlat
9 @- 2-3<=>blue<.
5 @- 1=red.
log @ 1 <=> red
5 @- 2=.
log @ 2 <=> 
5 @- 3=blue.
log @ 3 <=> blue
)";

class TranslationTables : public LibraryTest {
protected:
    using Reader = decltype(&XlatRead);

    /** Reads into lists that held entries before. */
    Outcome read(Reader reader, const char* name)
    {
        from_ = textList({"left", "over"});
        to_ = textList({"before"});
        return record([&] { return reader(name, from_, to_); });
    }
    /** The two lists as "from=to;" in their order. */
    std::string pairs() const
    {
        std::string text;
        EXPECT_EQ(from_.Size(), to_.Size());
        for (int position = 1; position <= std::min(from_.Size(), to_.Size()); ++position) {
            text += std::string(from_[position]) + '=' + std::string(to_[position]) + ';';
        }
        return text;
    }
    static void makeTable()
    {
        standin::setTranslations("COLOUR_TAB", {{"1", "red"}, {"2", ""}, {"3", "blue"}});
    }

    VELListValVELUnicodeString from_;
    VELListValVELUnicodeString to_;
};

TEST_F(TranslationTables, AreReadByTheSitesName)
{
    for (const int level : {-1, 0, 1, 2, 4, 5, 8, 9}) {
        SCOPED_TRACE("at trace level " + std::to_string(level));
        restart();
        connect(level);
        makeTable();
        writeFile("QVL_RZM_DEFAULT", "XlatRead unit UNIT_TAB\nXlatRead colour COLOUR_TAB\n");
        entries = 7; // the current result stays
        EXPECT_EQ(read(XlatRead, "colour").story, story(R"(
XlatRead:
2 @-----Start---- What=colour.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=2.
5 @- unit=UNIT_TAB.
5 @- colour=COLOUR_TAB.
5 @-     XlatName=COLOUR_TAB.
log @ colour COLOUR_TAB
)" + readTable + R"(2 @-----Exit------------XlatSize=3--------------------.
= 3 FromList= entries=7 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
        EXPECT_EQ(pairs(), "1=red;2=;3=blue;");
    }
}

TEST_F(TranslationTables, AreReadByTheServersName)
{
    atEachLevel([this] {
        makeTable();
        writeFile("QVL_RZM_DEFAULT", "XlatRead COLOUR_TAB no\nXlatRead2 COLOUR_TAB no\n");
        EXPECT_EQ(read(XlatRead2, "COLOUR_TAB").story, story(R"(
XlatRead2:
2 @-----Start---- XlatName=COLOUR_TAB.
log @ COLOUR_TAB
)" + readTable + R"(2 @-----Exit------------XlatSize=3--------------------.
= 3 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
        EXPECT_EQ(pairs(), "1=red;2=;3=blue;");
    });
}

TEST_F(TranslationTables, ANameWithoutATableIsToldAndIsNoError)
{
    atEachLevel([this] {
        makeTable();
        writeFile("QVL_RZM_DEFAULT", "XlatRead Colour COLOUR_TAB\n");
        QV_RC = -5;
        EXPECT_EQ(read(XlatRead, "colour").story, story(R"(
XlatRead:
2 @-----Start---- What=colour.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=1.
5 @- Colour=COLOUR_TAB.
0 @-     What=colour.
0 @-     XlatName=UNDEFINED.
log @ colour UNDEFINED
2 @-----Exit------------XlatSize=0--------------------.
= 0 FromList= entries=0 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)"));
        EXPECT_EQ(pairs(), "");
    });
}

TEST_F(TranslationTables, TheLocalMappingComesBeforeTheSharedOneAndTheFirstOfTwoWins)
{
    connect();
    writeFile("QVL_RZM_DEFAULT", "XlatRead colour SHARED\nXlatRead twice FIRST\nXlatRead twice SECOND\n");
    writeFile("My_QVL_RZM_DEFAULT", "XlatRead colour LOCAL\nXlatRead unit LOCAL_UNIT\n");
    EXPECT_EQ(read(XlatRead, "colour").calls, "QV_SizeOf_Xlat(\"LOCAL\", 0) = 0\n");
    EXPECT_EQ(read(XlatRead, "unit").calls, "QV_SizeOf_Xlat(\"LOCAL_UNIT\", 0) = 0\n");
    EXPECT_EQ(read(XlatRead, "twice").calls, "QV_SizeOf_Xlat(\"FIRST\", 0) = 0\n");
    EXPECT_EQ(pairs(), "");
}

TEST_F(TranslationTables, AFailureIsReportedAndNeverStopsTheReading)
{
    struct Case {
        std::size_t failing;
        int result;
        const char* pairs;
        std::size_t calls;
    };
    const char* const operations[] = {"XlatRead", "XlatRead2"};
    for (const Reader reader : {XlatRead, XlatRead2}) {
        for (const Case& tested : std::initializer_list<Case>{{1, 0, "", 1},
                                                              {2, 3, "=;2=;3=blue;", 4},
                                                              {3, 3, "1=red;=;3=blue;", 4},
                                                              {4, 3, "1=red;2=;=;", 4}}) {
            SCOPED_TRACE("with call " + std::to_string(tested.failing) + " failing");
            restart();
            connect();
            makeTable();
            writeFile("QVL_RZM_DEFAULT", "XlatRead COLOUR_TAB COLOUR_TAB\n");
            standin::answerCall(tested.failing, -7, {{"Q7", "Unreadable"}});
            const Outcome outcome = read(reader, "COLOUR_TAB");
            EXPECT_EQ(outcome.result, tested.result);
            EXPECT_EQ(pairs(), tested.pairs);
            EXPECT_EQ(standin::calls().size(), tested.calls);
            EXPECT_EQ(QV_RC, tested.failing == tested.calls ? -7 : 0);
            EXPECT_EQ(outcome.output, "****** Unreadable .\n");
            EXPECT_EQ(outcome.errorLog, errorBlock(operations[reader == XlatRead ? 0 : 1], "Unreadable "));
            EXPECT_EQ(countLines(outcome.accessLog, ") = -7"), 1);
            EXPECT_EQ(countLines(outcome.accessLog, " <=> "), tested.result);
        }
    }
}

TEST_F(TranslationTables, AnyNameIsTakenAsItIs)
{
    connect(9);
    writeFile("QVL_RZM_DEFAULT", "XlatRead colour COLOUR_TAB\n");
    const std::string endless(10000, 'e');
    for (const char* const name : {static_cast<const char*>(nullptr), "", endless.c_str()}) {
        const std::string text = name == nullptr ? "" : name;
        const Outcome mapped = read(XlatRead, name);
        EXPECT_EQ(mapped.result, 0);
        EXPECT_EQ(countLines(mapped.output, "XlatRead-     What=" + text + "."), 1);
        EXPECT_EQ(read(XlatRead2, name).calls, "QV_SizeOf_Xlat(\"" + text + "\", 0) = 0\n");
    }
}

TEST_F(TranslationTables, TheNameMayStandInAListThatIsEmptied)
{
    connect();
    makeTable();
    writeFile("QVL_RZM_DEFAULT", "XlatRead colour COLOUR_TAB\n");
    from_ = textList({"colour"});
    EXPECT_EQ(record([&] { return XlatRead(from_[1], from_, to_); }).result, 3);
    to_ = textList({"COLOUR_TAB"});
    EXPECT_EQ(record([&] { return XlatRead2(to_[1], from_, to_); }).result, 3);
    EXPECT_EQ(pairs(), "1=red;2=;3=blue;");
}

} // namespace
