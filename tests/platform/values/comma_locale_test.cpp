#include "platform/values/moments.h"
#include "platform/values/numbers.h"
#include "testkit/fixtures.h"

#include <QLocale>

#include <clocale>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The process under a locale that writes "1234,5".
class UnderACommaLocale : public ::testing::Test {
  protected:
    void SetUp() override {
        qputenv("LOCPATH", KELVANE_LOCALES);
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        char written[16];
        std::snprintf(written, sizeof written, "%.1f", 0.5);
        ASSERT_STREQ(written, "0,5");
    }
    void TearDown() override {
        std::setlocale(LC_ALL, "C");
        QLocale::setDefault(QLocale::c());
        qunsetenv("LOCPATH");
    }
};

} // namespace

TEST_F(UnderACommaLocale, NumbersKeepTheirPoint) {
    EXPECT_EQ(plainText(1234.5), u"1234.5"_s);
    EXPECT_EQ(plainText(0.1F), u"0.1"_s);
    EXPECT_EQ(plainText(1.5E20), u"1.5E+20"_s);
    EXPECT_EQ(plainText(-1234567), u"-1234567"_s);
    EXPECT_EQ(fixedDecimals(1234.5, 2), u"1234.50"_s);
    EXPECT_EQ(numericValue(u"1234.5"), 1234.5);
    EXPECT_EQ(numericValue(u"1234,5"), 1234);
    EXPECT_EQ(numericValue(u"1e400"), std::numeric_limits<double>::max());
    EXPECT_EQ(numberOf(u"1,000.5"), 1000.5);
    EXPECT_EQ(numberOf(u"1.000,5"), std::nullopt);
    EXPECT_EQ(widenThroughText(0.1F), 0.1);
}

TEST_F(UnderACommaLocale, DatesKeepTheirEnglishNamesAndOrder) {
    const Moment moment{QDate(2026, 3, 8), QTime(21, 5)};
    EXPECT_EQ(formatMoment(moment, u"dddd YYYY-MM-DD HH:NN"), u"Sunday 2026-03-08 21:05"_s);
    EXPECT_EQ(shortDate(moment.date, u""), u"03/08/2026"_s);
    EXPECT_EQ(momentOf(u"8 Mar 2026 9:05 PM", u""), moment);
    EXPECT_EQ(momentOf(u"8 Mär 2026", u""), std::nullopt);
    EXPECT_EQ(momentOf(u"03/08/2026 21:05", u""), moment);
}

} // namespace kelvane
