#include "plots/plot_letters.h"

#include "testkit/fixtures.h"
#include "tests/plots/painted.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class PlotLetterWidths : public ::testing::Test {
  protected:
    PaintedDevice device;
    PlotLetters letters{QFontMetricsF(testLooks().font, &device)};
    const QString sentence = u"A sentence of several words that does not fit into one line."_s;
};

} // namespace

TEST(PlotLines, HoldNoCharactersThatAFileMayNotHold) {
    EXPECT_EQ(plotLine(u" one\n two\t\u0001\u001b\uffff "_s), u"one two"_s);
    EXPECT_EQ(plotLine(u"Ω 温度 \U0001f600 e\u0301"_s), u"Ω 温度 \U0001f600 e\u0301"_s);
    EXPECT_EQ(plotLine(u"a"_s + QChar(0xd800) + u'b'), u"a\ufffdb"_s);
}

TEST_F(PlotLetterWidths, GrowWithTheResolution) {
    const PaintedDevice fine(192);
    const PlotLetters larger{QFontMetricsF(testLooks().font, &fine)};
    EXPECT_NEAR(larger.line(), 2 * letters.line(), 2);
    EXPECT_NEAR(larger.widthOf(sentence), 2 * letters.widthOf(sentence), letters.widthOf(sentence) * 0.1);
}

TEST_F(PlotLetterWidths, CutATextInItsMiddle) {
    EXPECT_EQ(letters.shortened(u" two\nlines "_s, 500), u"two lines"_s);
    const auto cut = letters.shortened(sentence, 120);
    EXPECT_TRUE(cut.startsWith(u"A s"_s) && cut.endsWith(u"line."_s)) << cut.toStdString();
    EXPECT_LE(letters.widthOf(cut), 120);
    EXPECT_EQ(letters.shortened(sentence, 2), QString());
    EXPECT_EQ(letters.shortened(sentence, -5), QString());
}

TEST_F(PlotLetterWidths, BreakASentenceBetweenWords) {
    const auto lines = letters.linesOf(sentence, 150);
    EXPECT_GE(lines.size(), 3);
    EXPECT_EQ(lines.join(u' '), sentence);
    for (const auto& line : lines)
        EXPECT_LE(letters.widthOf(line), 150);
}

TEST_F(PlotLetterWidths, ShortenAWordThatIsWiderThanALine) {
    const auto lines = letters.linesOf(u"one "_s + QString(300, u'W') + u" two"_s, 150);
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[1].contains(u'…'));
    EXPECT_LE(letters.widthOf(lines[1]), 150);
}

TEST_F(PlotLetterWidths, EndManyLinesWithDots) {
    const QStringList sentences = {u"One."_s, u"Two."_s, u"Three."_s};
    EXPECT_EQ(letters.linesOf(sentences, 150, 3), sentences);
    EXPECT_EQ(letters.linesOf(sentences, 150, 2), QStringList({u"One."_s, u"Two. …"_s}));
    EXPECT_EQ(letters.linesOf(sentences, 150, 0), QStringList());
    EXPECT_EQ(letters.linesOf(sentences, 150, -1), QStringList());
}

} // namespace kelvane::testing
