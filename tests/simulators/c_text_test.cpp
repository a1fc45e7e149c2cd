#include "simulators/common/c_text.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

TEST(CText, ATextThatComesInIsReadToItsZeroAndNoFurtherThan1024Bytes) {
    EXPECT_EQ(textIn(nullptr), std::nullopt);
    EXPECT_EQ(textIn(""), QString());
    EXPECT_EQ(textIn("5 \x80 \x96 \xD6"), u"5 € – Ö"_s);
    EXPECT_EQ(textIn(QByteArray(5'000'000, 'x').constData()), QString(1024, u'x'));
}

TEST(CText, ATextThatGoesOutHasItsZeroWithinTheWidth) {
    const struct {
        QString text;
        QByteArray buffer;
    } cases[] = {
        {{}, QByteArray("\0     ", 6)},
        {u"ab"_s, QByteArray("ab\0   ", 6)},
        {u"abc"_s, QByteArray("abc\0  ", 6)},
        {u"abcd"_s, QByteArray("abc\0  ", 6)},
        {u"–€Ω"_s, QByteArray("\x96\x80?\0  ", 6)},
    };
    for (const auto& entry : cases) {
        QByteArray buffer(6, ' ');
        putText(buffer.data(), 4, entry.text);
        EXPECT_EQ(buffer, entry.buffer) << entry.text.toStdString();
    }
}

TEST(CText, DigitsAreTheShortestThatGiveTheNumberBack) {
    EXPECT_EQ(digitsOf(0.1F), u"0.1"_s);
    EXPECT_EQ(digitsOf(-20), u"-20"_s);
    EXPECT_EQ(digitsOf(std::numeric_limits<float>::infinity()), u"inf"_s);
    EXPECT_EQ(digitsOf(std::numeric_limits<float>::quiet_NaN()), u"nan"_s);
}

} // namespace kelvane::simulators::fluke702
