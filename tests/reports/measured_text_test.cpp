#include "reports/measured_text.h"

#include "reports/design_unit.h"
#include "tests/reports/report_tools.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

QFont font() {
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(unitsOfPoints(9));
    return font;
}

/// How many lines a text takes.
double linesOf(const QString& text, double width) {
    return MeasuredText(text, font(), Qt::AlignLeft, unitsOfMillimetres(width)).height() / lineHeight(font());
}

} // namespace

TEST(MeasuredText, WrapsBetweenWords) {
    EXPECT_EQ(linesOf(u"word"_s, 30), 1);
    EXPECT_EQ(linesOf(u"word word word"_s, 12), 3);
}

TEST(MeasuredText, WrapsWithinAWordThatIsTooLong) {
    EXPECT_EQ(linesOf(QString(100, u'm'), 400), 1);
    EXPECT_GT(linesOf(QString(100, u'm'), 30), 9);
}

TEST(MeasuredText, BreaksAtLineEndsOfAllKinds) {
    EXPECT_EQ(linesOf(u"a\r\nb\nc\rd"_s, 30), 4);
}

TEST(MeasuredText, ShowsControlCharactersAsBlanks) {
    EXPECT_EQ(linesOf(u"a\tb"_s + QChar(u'\x01') + QChar(u'\0') + u"c"_s, 30), 1);
}

TEST(MeasuredText, TakesATimeInProportionToAnEndlessWord) {
    QElapsedTimer timer;
    timer.start();
    EXPECT_GT(linesOf(QString(100'000, u'x'), 100), 1000);
    EXPECT_LT(timer.elapsed(), 20'000);
}

} // namespace kelvane
