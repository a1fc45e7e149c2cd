#include "data/tolerances/result_lines.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The twelve texts of a line, in the order of the routine.
struct Texts {
    QString number = u"7"_s;
    QString nominal = u"12.00 mA"_s;
    QString applied = u"50.0 psi"_s;
    QString reading = u"12.01 mA"_s;
    QString tolerance = u"0.10 mA"_s;
    QString deviation = u"0.01 mA"_s;
    QString percent = u"10"_s;
    QString units = {};
    QString comment = u"MARGINAL"_s;
    QString lowLimit = u"11.90"_s;
    QString highLimit = u"12.10"_s;
    QString verdict = u"PASS"_s;
};

QString lineOf(Session& session, Texts& texts) {
    return ModuleGlobals::ResultLine(session, texts.number, texts.nominal, texts.applied, texts.reading,
                                     texts.tolerance, texts.deviation, texts.percent, texts.units,
                                     texts.comment, texts.lowLimit, texts.highLimit, texts.verdict);
}

} // namespace

class ResultLine : public RecordedSession {
  protected:
    /// The line without its trailing blanks; its length has to be `length`.
    QString line(Texts texts, qsizetype length = 120) {
        const auto whole = lineOf(session, texts);
        EXPECT_EQ(whole.size(), length);
        qsizetype end = whole.size();
        while (end > 0 && whole[end - 1] == u' ')
            --end;
        return whole.left(end);
    }
};

TEST_F(ResultLine, WithoutTemplateIs120Blanks) {
    Texts texts;
    EXPECT_EQ(lineOf(session, texts), QString(120, u' '));
    EXPECT_EQ(texts.number, u"7"_s);
    EXPECT_EQ(texts.nominal, u"12.00 mA"_s);
}

TEST_F(ResultLine, EachTagPutsItsPreparedValueAtItsColumn) {
    const struct {
        QString tag;
        QString Texts::*text;
        QString value;
        QString shown;
    } rows[] = {
        {u"TN$"_s, &Texts::number, u"7"_s, u"  7"_s},
        {u"TN$"_s, &Texts::number, u"42"_s, u" 42"_s},
        {u"TN$"_s, &Texts::number, u"123"_s, u"123"_s},
        {u"TN$"_s, &Texts::number, u"1234"_s, u"1234"_s},
        {u"FN$"_s, &Texts::nominal, u"12"_s, u" 12"_s},
        {u"FN$"_s, &Texts::nominal, u"-12"_s, u"-12"_s},
        {u"FN$"_s, &Texts::nominal, u"12 ft-lb"_s, u"12 ft-lb"_s},
        {u"FVA$"_s, &Texts::applied, u"5"_s, u" 5"_s},
        {u"FVA$"_s, &Texts::applied, u"-5"_s, u"-5"_s},
        {u"FRE$"_s, &Texts::reading, u"5"_s, u" 5"_s},
        {u"FRE$"_s, &Texts::reading, u"-5"_s, u"-5"_s},
        {u"TT$"_s, &Texts::tolerance, u"5"_s, u"5"_s},
        {u"DE$"_s, &Texts::deviation, u"5"_s, u"5"_s},
        {u"ET$"_s, &Texts::percent, u"5"_s, u"  5"_s},
        {u"ET$"_s, &Texts::percent, u">500"_s, u">500"_s},
        {u"TU$"_s, &Texts::units, u"psi"_s, u"psi"_s},
        {u"CO$"_s, &Texts::comment, u"NOTIFY USER"_s, u"NOTIFY USER"_s},
        {u"FLL$"_s, &Texts::lowLimit, u"5"_s, u" 5"_s},
        {u"FLL$"_s, &Texts::lowLimit, u"-5"_s, u"-5"_s},
        {u"FUL$"_s, &Texts::highLimit, u"5"_s, u" 5"_s},
        {u"FUL$"_s, &Texts::highLimit, u"-5"_s, u"-5"_s},
        {u"TR$"_s, &Texts::verdict, u"FAIL"_s, u"FAIL"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE((row.tag + u' ' + row.value).toStdString());
        session.ResultTemplateLine = u"....."_s + row.tag;
        Texts texts;
        texts.*row.text = row.value;
        const auto line = lineOf(session, texts);
        EXPECT_EQ(line, (QString(5, u' ') + row.shown).leftJustified(120, u' '));
        EXPECT_EQ(texts.*row.text, row.shown) << "padded in place";
    }
}

TEST_F(ResultLine, TagThatTheTemplateLacksIsLeftOutAndItsTextStaysUnpadded) {
    session.ResultTemplateLine = u"TN$   FN$"_s;
    Texts texts;
    EXPECT_EQ(lineOf(session, texts).trimmed(), u"7    12.00 mA"_s);
    EXPECT_EQ(texts.applied, u"50.0 psi"_s);
    EXPECT_EQ(texts.percent, u"10"_s);
    EXPECT_EQ(texts.nominal, u" 12.00 mA"_s);
}

TEST_F(ResultLine, WholeTemplate) {
    session.ResultTemplateLine =
        u"TN$ FN$       FVA$      FRE$       TT$      DE$      ET$ TU$ CO$      FLL$    FUL$    TR$"_s;
    EXPECT_EQ(
        line({}),
        u"  7  12.00 mA  50.0 psi  12.01 mA  0.10 mA  0.01 mA   10     MARGINAL  11.90   12.10  PASS"_s);
}

TEST_F(ResultLine, LaterTagsOverwriteWhatAWideValueHasReached) {
    session.ResultTemplateLine = u"FN$TT$"_s;
    Texts texts;
    texts.tolerance = u"x"_s;
    EXPECT_EQ(line(texts), u" 12x00 mA"_s);
}

TEST_F(ResultLine, TagsAreReplacedInTheirOwnOrderNotInThatOfTheTemplate) {
    // The verdict comes last although its column comes first.
    session.ResultTemplateLine = u"TR$TN$"_s;
    EXPECT_EQ(line({}), u"PASS 7"_s);
}

TEST_F(ResultLine, OnlyTheFirstOfTwoEqualTagsCounts) {
    session.ResultTemplateLine = u"TR$.......TR$"_s;
    EXPECT_EQ(line({}), u"PASS"_s);
}

TEST_F(ResultLine, IncompleteTagIsNone) {
    for (const auto& line : {u"TN FN TR"_s, u"$"_s, u"T$ N$ $TR"_s, u"T N$"_s, u"tr$"_s, u"TRX$"_s}) {
        session.ResultTemplateLine = line;
        Texts texts;
        EXPECT_EQ(lineOf(session, texts), QString(120, u' ')) << line.toStdString();
        EXPECT_EQ(texts.number, u"7"_s);
    }
}

TEST_F(ResultLine, TagInsideAnotherWordCounts) {
    session.ResultTemplateLine = u"..STR$"_s;
    EXPECT_EQ(line({}), u"   PASS"_s);
}

TEST_F(ResultLine, EachTemplateIsReadAnew) {
    session.ResultTemplateLine = u"TR$"_s;
    EXPECT_EQ(line({}), u"PASS"_s);
    session.ResultTemplateLine = u"..TR$"_s;
    EXPECT_EQ(line({}), u"  PASS"_s);
    session.ResultTemplateLine = u"TT$"_s;
    EXPECT_EQ(line({}), u"0.10 mA"_s);
    session.ResultTemplateLine.clear();
    EXPECT_EQ(line({}), QString());
}

TEST_F(ResultLine, ValueAtTheEndMakesTheLineLonger) {
    session.ResultTemplateLine = QString(118, u'.') + u"CO$"_s;
    EXPECT_EQ(line({}, 126), QString(118, u' ') + u"MARGINAL"_s);
}

TEST_F(ResultLine, ValueBehindTheEndIsAppendedToTheLine) {
    session.ResultTemplateLine = QString(300, u'.') + u"CO$"_s;
    EXPECT_EQ(line({}, 128), QString(120, u' ') + u"MARGINAL"_s);
}

TEST_F(ResultLine, SubstitutionOfAnotherLengthMovesTheRestOfTheLine) {
    session.ResultTemplateLine = u"FRE$       TR$"_s;
    session.SubstTable[0] = {u"FRE"_s, u" psi"_s, u" PSIG"_s};
    Texts texts;
    texts.reading = u"-12.5 psi"_s;
    texts.verdict.clear();
    EXPECT_EQ(line(texts, 121), u"-12.5 PSIG"_s);

    // What stood behind the value before it was filled is moved too.
    session.ResultTemplateLine = u"TT$.......FN$"_s;
    session.SubstTable[0] = {u"TT"_s, u" mA"_s, u" milliamps"_s};
    EXPECT_EQ(line({}, 127), u"0.10 milliamps    12.00 mA"_s);
}

TEST_F(ResultLine, LastFittingRowWinsAndEachStartsFromTheValue) {
    session.ResultTemplateLine = u"DE$"_s;
    session.SubstTable[0] = {u"DE"_s, u" mA"_s, u" first"_s};
    session.SubstTable[1] = {u"DE"_s, u"A"_s, u"amp"_s};
    session.SubstTable[2] = {u"DE"_s, u" V"_s, u" volt"_s};
    session.SubstTable[3] = {u"TT"_s, u" mA"_s, u" other code"_s};
    EXPECT_EQ(line({}, 122), u"0.01 mamp"_s);
}

TEST_F(ResultLine, ColumnsCountCharactersHoweverManyUnitsTheyTake) {
    // In the template before a tag, and in a value before another one.
    session.ResultTemplateLine = u"😀😀TT$.......TR$"_s;
    Texts texts;
    texts.tolerance = u"😀0.1"_s;
    EXPECT_EQ(line(texts, 121), u"  😀0.1      PASS"_s);

    // In a value that is filled up to three characters.
    session.ResultTemplateLine = u"TN$.TR$"_s;
    texts = {};
    texts.number = u"😀"_s;
    EXPECT_EQ(line(texts, 121), u"  😀 PASS"_s);

    // A later value that overwrites half of an earlier one leaves whole characters.
    session.ResultTemplateLine = u"FN$TT$"_s;
    texts = {};
    texts.nominal = u"-😀😀😀😀"_s;
    texts.tolerance = u"x"_s;
    EXPECT_EQ(line(texts, 123), u"-😀😀x😀"_s);

    // In what a substitution takes off the end.
    session.ResultTemplateLine = u"DE$"_s;
    session.SubstTable[0] = {u"DE"_s, u"😀"_s, u" C"_s};
    texts = {};
    texts.deviation = u"0.01😀"_s;
    EXPECT_EQ(line(texts, 121), u"0.01 C"_s);
}

TEST_F(ResultLine, TextFoundInTheMiddleStillCutsTheEnd) {
    session.ResultTemplateLine = u"DE$"_s;
    session.SubstTable[0] = {u"DE"_s, u"0.0"_s, u"#"_s};
    EXPECT_EQ(line({}, 118), u"0.01#"_s);
}

TEST_F(ResultLine, SubstitutionComparesExactly) {
    session.ResultTemplateLine = u"DE$"_s;
    session.SubstTable[0] = {u"DE"_s, u" MA"_s, u" X"_s};
    session.SubstTable[1] = {u"de"_s, u" mA"_s, u" X"_s};
    EXPECT_EQ(line({}), u"0.01 mA"_s);
}

TEST_F(ResultLine, TwoCharacterCodesOfAFileNeverMatchTheThreeCharacterOnes) {
    session.ResultTemplateLine = u"FVA$      FRE$      FLL$      FUL$"_s;
    for (int row = 0; const auto& code : {u"FV"_s, u"FR"_s, u"FL"_s, u"FU"_s})
        session.SubstTable[row++] = {code, u"0"_s, u"wrong"_s};
    EXPECT_EQ(line({}), u" 50.0 psi  12.01 mA  11.90     12.10"_s);
}

TEST_F(ResultLine, RowWithoutCodeEndsTheSubstitutions) {
    session.ResultTemplateLine = u"DE$"_s;
    session.SubstTable[0] = {u"TN"_s, u"x"_s, u"y"_s};
    session.SubstTable[2] = {u"DE"_s, u" mA"_s, u" X"_s};
    EXPECT_EQ(line({}), u"0.01 mA"_s);
}

TEST_F(ResultLine, AllFiveHundredAndOneRowsAreRead) {
    session.ResultTemplateLine = u"DE$"_s;
    for (int row = 0; row < 500; ++row)
        session.SubstTable[row] = {u"XX"_s, u"x"_s, u"y"_s};
    session.SubstTable[500] = {u"DE"_s, u" mA"_s, u" AM"_s};
    EXPECT_EQ(line({}), u"0.01 AM"_s);
}

TEST_F(ResultLine, RowWithAnEmptyTextToFindAppends) {
    session.ResultTemplateLine = u"DE$"_s;
    session.SubstTable[0] = {u"DE"_s, {}, u"!"_s};
    EXPECT_EQ(line({}, 121), u"0.01 mA!"_s);
}

} // namespace kelvane::testing
