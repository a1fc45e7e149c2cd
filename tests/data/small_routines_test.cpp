#include "data/small_routines.h"

#include "testkit/fixtures.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

class SmallRoutines : public RecordedSession {};

struct TextCase {
    QString text;
    QString result;
};

} // namespace

TEST_F(SmallRoutines, SingleQuotesAreDoubledAndNothingElse) {
    const TextCase cases[] = {
        {u""_s, u""_s},
        {u"O'Brien"_s, u"O''Brien"_s},
        {u"''"_s, u"''''"_s},
        {u"'"_s, u"''"_s},
        {u"\"a\" \\ 50% _"_s, u"\"a\" \\ 50% _"_s},
        {u"’溫度'ß"_s, u"’溫度''ß"_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(SQLSafe(testCase.text), testCase.result);
}

TEST_F(SmallRoutines, ALibraryTextEndsAtItsFirstZeroAndLosesItsBlanks) {
    const TextCase cases[] = {
        {u""_s, u""_s},
        {u"  743B  "_s, u"743B"_s},
        {u" 743B \0 junk"_s, u"743B"_s},
        {u"743B\0\0\0"_s, u"743B"_s},
        {u"\0 743B"_s, u""_s},
        {u"a b"_s, u"a b"_s},
        {u"\t743B\r\n"_s, u"\t743B\r\n"_s},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(CleanDLLString(testCase.text), testCase.result);
}

TEST_F(SmallRoutines, APromptGoesToACalibratorUnchanged) {
    const auto prompt = u" $U_NAM$ 'x'\0\r\n溫"_s;
    EXPECT_EQ(DPCsafePrompt(prompt), prompt);
}

TEST_F(SmallRoutines, ARandomTagHasItsLengthOfDigitsAndCapitals) {
    for (const qint16 length : {qint16{1}, qint16{10}, qint16{500}}) {
        const auto tag = RandomString(session, length);
        EXPECT_EQ(tag.size(), length);
        for (const auto character : tag)
            EXPECT_TRUE(u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"_s.contains(character)) << tag.toStdString();
    }
}

TEST_F(SmallRoutines, ARandomTagOfNoLengthIsEmpty) {
    EXPECT_EQ(RandomString(session, 0), QString());
    EXPECT_EQ(RandomString(session, -1), QString());
}

TEST_F(SmallRoutines, EveryDigitAndCapitalComesUp) {
    const auto tag = RandomString(session, 20000);
    EXPECT_EQ(QSet<QChar>(tag.begin(), tag.end()).size(), 36);
}

TEST_F(SmallRoutines, TagsOfTheSameSecondDiffer) {
    QSet<QString> tags;
    for (int i = 0; i < 1000; ++i)
        tags << RandomString(session, 10);
    EXPECT_EQ(tags.size(), 1000);
}

TEST_F(SmallRoutines, TheCheckSumAddsCodesAndPositions) {
    const struct {
        QString text;
        double sum;
    } cases[] = {
        {u""_s, 0},
        {u"A"_s, 66},
        {u"AB"_s, 65 + 1 + 66 + 2},
        {u"é"_s, 0xE9 + 1},
        {u"溫x"_s, 0x6EAB + 1 + 'x' + 2},
        {u"\U0001F527x"_s, 0x1F527 + 1 + 'x' + 2},
        {QString(100000, u'A'), 65.0 * 100000 + 100000.0 * 100001 / 2},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(CheckSum(session, testCase.text), testCase.sum) << testCase.text.left(20).toStdString();
}

TEST_F(SmallRoutines, TheCheckSumDoesNotSeeTheOrderOfCharacters) {
    EXPECT_EQ(CheckSum(session, u"0.5 psi"_s), CheckSum(session, u"psi 5.0"_s));
    EXPECT_NE(CheckSum(session, u"0.5 psi"_s), CheckSum(session, u"0.6 psi"_s));
    EXPECT_NE(CheckSum(session, u"0.5 psi"_s), CheckSum(session, u"0.5 psi "_s));
}

TEST_F(SmallRoutines, TheCheckSumShowsTheBusyPointer) {
    CheckSum(session, u"A"_s);
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

} // namespace kelvane::testing
