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
2 @-----Exit------------XlatSize=3--------------------.
= 3 FromList= entries=7 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)";

class TranslationTables : public LibraryTest {
protected:
    using Reader = decltype(&XlatRead);

    /** Reads into lists that held entries before, with a current result that stays. */
    int use(Reader reader, const char* name)
    {
        standin::script().translations["COLOUR_TAB"] = {{"1", "red"}, {"2", ""}, {"3", "blue"}};
        from_ = textList({"left", "over"});
        to_ = textList({"before"});
        entries = 7;
        return reader(name, from_, to_);
    }
    Outcome read(Reader reader, const char* name)
    {
        return record([=] { return use(reader, name); });
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

    VELListValVELUnicodeString from_;
    VELListValVELUnicodeString to_;
};

TEST_F(TranslationTables, AreReadByTheSitesName)
{
    storiesOf([this] {
        writeFile("QVL_RZM_DEFAULT", "XlatRead unit UNIT_TAB\nXlatRead colour COLOUR_TAB\n");
        return use(XlatRead, "colour");
    }).tell(R"(
XlatRead:
2 @-----Start---- What=colour.
2 @- Calling DefaultRead for @.
2 DefaultRead-----Start------------------------------.
2 @- rc(DefaultRead)=2.
5 @- unit=UNIT_TAB.
5 @- colour=COLOUR_TAB.
5 @-     XlatName=COLOUR_TAB.
log @ colour COLOUR_TAB
)" + readTable);
    EXPECT_EQ(pairs(), "1=red;2=;3=blue;");
}

TEST_F(TranslationTables, AreReadByTheServersName)
{
    storiesOf([this] {
        writeFile("QVL_RZM_DEFAULT", "XlatRead COLOUR_TAB no\nXlatRead2 COLOUR_TAB no\n");
        return use(XlatRead2, "COLOUR_TAB");
    }).tell(R"(
XlatRead2:
2 @-----Start---- XlatName=COLOUR_TAB.
log @ COLOUR_TAB
)" + readTable);
    EXPECT_EQ(pairs(), "1=red;2=;3=blue;");
}

TEST_F(TranslationTables, ANameWithoutATableIsToldAndIsNoError)
{
    storiesOf([this] {
        writeFile("QVL_RZM_DEFAULT", "XlatRead Colour COLOUR_TAB\n");
        QV_RC = -5;
        return use(XlatRead, "colour");
    }).tell(R"(
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
= 0 FromList= entries=7 LastRecNo=0 QV_RC=0 SelectedAttribute=[]
)");
    EXPECT_EQ(pairs(), "");
}

TEST_F(TranslationTables, TheFirstOfTwoMappingsWins)
{
    connect();
    writeFile("QVL_RZM_DEFAULT", "XlatRead twice FIRST\nXlatRead twice SECOND\n");
    EXPECT_EQ(read(XlatRead, "twice").calls, "QV_SizeOf_Xlat(\"FIRST\", 0) = 0\n");
}

TEST_F(TranslationTables, AFailureIsReportedAndNeverStopsTheReading)
{
    const std::tuple<std::size_t, std::string, int> cases[] = {
        {1, "", 0}, {2, "=;2=;3=blue;", 0}, {3, "1=red;=;3=blue;", 0}, {4, "1=red;2=;=;", -7}};
    for (const auto& [failing, left, code] : cases) {
        for (const Reader reader : {XlatRead, XlatRead2}) {
            SCOPED_TRACE("with call " + std::to_string(failing) + " failing");
            restart();
            connect();
            writeFile("QVL_RZM_DEFAULT", "XlatRead COLOUR_TAB COLOUR_TAB\n");
            standin::answer(std::to_string(failing), -7, {{"Q7", "Unreadable"}});
            const Outcome outcome = read(reader, "COLOUR_TAB");
            EXPECT_EQ(outcome.result, left.empty() ? 0 : 3);
            EXPECT_EQ(pairs(), left);
            EXPECT_EQ(QV_RC, left.empty() ? -7 : code);
            EXPECT_EQ(outcome.output, "****** Unreadable .\n");
            EXPECT_EQ(outcome.errorLog,
                      errorBlock(reader == XlatRead ? "XlatRead" : "XlatRead2", "Unreadable "));
        }
    }
}

TEST_F(TranslationTables, AnyNameIsTakenAsItIs)
{
    connect(9);
    writeFile("QVL_RZM_DEFAULT", "XlatRead colour COLOUR_TAB\n");
    const std::string endless(10000, 'e');
    for (const char* const name : {static_cast<const char*>(nullptr), endless.c_str()}) {
        const std::string text = name == nullptr ? "" : name;
        EXPECT_EQ(countLines(read(XlatRead, name).output, "XlatRead-     What=" + text + "."), 1);
        EXPECT_EQ(read(XlatRead2, name).calls, "QV_SizeOf_Xlat(\"" + text + "\", 0) = 0\n");
    }
}

TEST_F(TranslationTables, TheNameMayStandInAListThatIsEmptied)
{
    connect();
    writeFile("QVL_RZM_DEFAULT", "XlatRead colour COLOUR_TAB\n");
    read(XlatRead, "colour");
    from_ = textList({"colour"});
    EXPECT_EQ(record([&] { return XlatRead(from_[1], from_, to_); }).result, 3);
    to_ = textList({"COLOUR_TAB"});
    EXPECT_EQ(record([&] { return XlatRead2(to_[1], from_, to_); }).result, 3);
    EXPECT_EQ(pairs(), "1=red;2=;3=blue;");
}

} // namespace
