#include "platform/values/texts.h"
#include "testkit/fixtures.h"
#include "tests/platform/errors.h"

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::errorOf;

TEST(Case, IsMappedCharacterByCharacter) {
    static const struct {
        QString text;
        QString upper;
        QString lower;
    } rows[] = {
        {u""_s, u""_s, u""_s},
        {u"Abc-12 z"_s, u"ABC-12 Z"_s, u"abc-12 z"_s},
        {u"äöüÄÖÜ"_s, u"ÄÖÜÄÖÜ"_s, u"äöüäöü"_s},
        {u"Straße"_s, u"STRAßE"_s, u"straße"_s}, // no simple capital; positions stay
        {u"ŉǰ"_s, u"ŉǰ"_s, u"ŉǰ"_s},
        {u"ﬁ"_s, u"ﬁ"_s, u"ﬁ"_s},
        {u"ÿµ"_s, u"ŸΜ"_s, u"ÿµ"_s},
        {u"Σς"_s, u"ΣΣ"_s, u"σς"_s},
        {u"iIıİ"_s, u"IIIİ"_s, u"iiıi"_s},
        {u"ЖдКЙ"_s, u"ЖДКЙ"_s, u"ждкй"_s},
        {u"ǆǅǄ"_s, u"ǄǄǄ"_s, u"ǆǆǆ"_s},
        {u"ᾀᾗᾠᾳῃῳ"_s, u"ᾈᾟᾨᾼῌῼ"_s, u"ᾀᾗᾠᾳῃῳ"_s},
        {u"ᾈᾏ"_s, u"ᾈᾏ"_s, u"ᾀᾇ"_s},
        {u"\U00010428x"_s, u"\U00010400X"_s, u"\U00010428x"_s},
        {u"漢字 😀"_s, u"漢字 😀"_s, u"漢字 😀"_s},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(toUpperCase(row.text), row.upper);
        EXPECT_EQ(toLowerCase(row.text), row.lower);
    }
}

TEST(Case, NeverChangesTheLength) {
    for (char16_t code = 1; code < 0xD800; ++code) {
        const QString text{QChar(code)};
        ASSERT_EQ(toUpperCase(text).size(), 1) << int(code);
        ASSERT_EQ(toLowerCase(text).size(), 1) << int(code);
    }
}

TEST(TrimBlanks, CutsBlanksOnly) {
    EXPECT_EQ(trimBlanks(u"  a b  "), u"a b"_s);
    EXPECT_EQ(trimBlanks(u""), u""_s);
    EXPECT_EQ(trimBlanks(u"    "), u""_s);
    EXPECT_EQ(trimBlanks(u" \ta\r\n "), u"\ta\r\n"_s);
    EXPECT_EQ(trimBlanks(u"\u00a0a\u00a0"), u"\u00a0a\u00a0"_s);
    EXPECT_EQ(trimBlanks(QString(1'000'000, u' ') + u'x'), u"x"_s);
    EXPECT_EQ(withoutBlanksAtEnd(u"  a b  "), u"  a b"_s);
    EXPECT_EQ(withoutBlanksAtEnd(u"    "), u""_s);
    EXPECT_EQ(withoutBlanksAtEnd(u"a\t "), u"a\t"_s);
}

TEST(CalibratorBytes, AreWindows1252) {
    static const struct {
        int byte;
        char16_t character;
    } rows[] = {
        {0, 0},
        {65, u'A'},
        {127, 0x7F},
        {128, u'€'},
        {130, u'‚'},
        {131, u'ƒ'},
        {132, u'„'},
        {133, u'…'},
        {134, u'†'},
        {135, u'‡'},
        {136, u'ˆ'},
        {137, u'‰'},
        {138, u'Š'},
        {139, u'‹'},
        {140, u'Œ'},
        {142, u'Ž'},
        {145, u'\u2018'},
        {146, u'\u2019'},
        {147, u'\u201C'},
        {148, u'\u201D'},
        {149, u'•'},
        {150, u'–'},
        {151, u'—'},
        {152, u'˜'},
        {153, u'™'},
        {154, u'š'},
        {155, u'›'},
        {156, u'œ'},
        {158, u'ž'},
        {159, u'Ÿ'},
        {160, 0xA0},
        {176, u'°'},
        {181, u'µ'},
        {223, u'ß'},
        {255, u'ÿ'},
        // undefined bytes keep their number
        {129, 0x81},
        {141, 0x8D},
        {143, 0x8F},
        {144, 0x90},
        {157, 0x9D},
    };
    for (const auto& row : rows) {
        const QByteArray bytes(1, static_cast<char>(row.byte));
        const QString text{QChar(row.character)};
        EXPECT_EQ(fromCalibratorBytes(bytes), text) << row.byte;
        EXPECT_EQ(toCalibratorBytes(text), bytes) << row.byte;
        EXPECT_EQ(characterOf(row.byte), text) << row.byte;
    }
}

TEST(CalibratorBytes, GoThereAndBackForEveryByte) {
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(toCalibratorBytes(fromCalibratorBytes(all)), all);
}

TEST(CalibratorBytes, OfACharacterThatHasNoneAreAQuestionMark) {
    EXPECT_EQ(toCalibratorBytes(u"Ω ж 漢"), "? ? ?"_ba);
    EXPECT_EQ(toCalibratorBytes(u"a😀b"), "a?b"_ba);                // one for the whole character
    EXPECT_EQ(toCalibratorBytes(u"\u0080\u0085\u009f"), "???"_ba); // these numbers mean other characters
    EXPECT_EQ(toCalibratorBytes(u"\u0100\ufeff"), "??"_ba);
    // Halves of a character, alone and beside a whole one.
    const QString high(QChar(0xD800));
    const QString low(QChar(0xDC00));
    EXPECT_EQ(toCalibratorBytes(high), "?"_ba);
    EXPECT_EQ(toCalibratorBytes(low), "?"_ba);
    EXPECT_EQ(toCalibratorBytes(low + high), "??"_ba);
    EXPECT_EQ(toCalibratorBytes(high + high + low + low), "???"_ba);
    EXPECT_EQ(toCalibratorBytes(u""), ""_ba);
}

TEST(CharacterOf, AboveAByteIsItsCodePoint) {
    EXPECT_EQ(characterOf(256), u"\u0100"_s);
    EXPECT_EQ(characterOf(937), u"Ω"_s);
    EXPECT_EQ(characterOf(8364), u"€"_s);
    EXPECT_EQ(characterOf(0xFFFF), u"\uFFFF"_s);
    EXPECT_EQ(characterOf(0x1F600), u"😀"_s);
    EXPECT_EQ(characterOf(0x10FFFF).toUcs4(), QList<uint>{0x10FFFF});
}

TEST(CharacterOf, ACodeOfNoCharacterIsError5) {
    for (const int code : {-1, 0xD800, 0xDFFF, 0x110000, 2147483647, -2147483647})
        EXPECT_EQ(errorOf([=] { characterOf(code); }), 5) << code;
}

TEST(CharacterCount, CountsAPairOnceAndEachHalfByItself) {
    EXPECT_EQ(characterCount(u""), 0);
    EXPECT_EQ(characterCount(u"aΩ漢"), 3);
    EXPECT_EQ(characterCount(u"a😀b😀"), 4);
    const QString high(QChar(0xD800));
    const QString low(QChar(0xDC00));
    EXPECT_EQ(characterCount(low + high), 2);
    EXPECT_EQ(characterCount(high + high + low), 2);
}

TEST(UnitsOfCharacters, NeverEndInsideAPair) {
    const auto text = u"a😀b"_s;
    EXPECT_EQ(unitsOfCharacters(text, -1), 0);
    EXPECT_EQ(unitsOfCharacters(text, 0), 0);
    EXPECT_EQ(unitsOfCharacters(text, 1), 1);
    EXPECT_EQ(unitsOfCharacters(text, 2), 3);
    EXPECT_EQ(unitsOfCharacters(text, 3), 4);
    EXPECT_EQ(unitsOfCharacters(text, 100), 4);
}

} // namespace kelvane
