#include "drivers/torquestar/fields.h"
#include "testkit/fixtures.h"
#include "testkit/line_peer.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

namespace {

std::string displayText(const QByteArray& bytes) {
    return bytes.toHex(' ').toStdString();
}

/// The four bytes of a number that loses no digit, and of others.
QByteArray field(qint32 number) {
    QByteArray bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(static_cast<quint32>(number) >> shift & 255U));
    return bytes;
}

} // namespace

class TorqueFields : public RecordedSession {};

TEST_F(TorqueFields, WholeNumbersAreWrittenBigEndianInTheirWidth) {
    const struct {
        qint32 value;
        int kind;
        const char* bytes;
    } cases[] = {
        {0, 2, "00 00"},        {350, 2, "01 5e"},         {65535, 2, "ff ff"},
        {0, 3, "00 00 00 00"},  {12345, 3, "00 00 30 39"}, {2147483647, 3, "7f ff ff ff"},
        {-1, 3, "ff ff ff ff"}, {0, 4, "00 00 00 00"},     {2, 4, "00 00 4e 20"},
        {-1, 4, "ff ff d8 f0"},
    };
    for (const auto& testCase : cases)
        EXPECT_EQ(displayText(Conv2Hex(session, testCase.value, testCase.kind)), testCase.bytes)
            << testCase.value << " " << testCase.kind;
}

TEST_F(TorqueFields, ScaledRealsAreMultipliedInTheirOwnWidthAndRoundedHalfToEven) {
    EXPECT_EQ(displayText(Conv2Hex(session, 1.5, 4)), "00 00 3a 98");
    EXPECT_EQ(displayText(Conv2Hex(session, 1.5F, 4)), "00 00 3a 98");
    EXPECT_EQ(displayText(Conv2Hex(session, 0.00005, 4)), "00 00 00 00");
    EXPECT_EQ(displayText(Conv2Hex(session, 0.00035, 4)), "00 00 00 04");
    EXPECT_EQ(displayText(Conv2Hex(session, 0.00025, 4)), "00 00 00 02");
    EXPECT_EQ(displayText(Conv2Hex(session, -0.5, 4)), "ff ff ec 78");
    // In 64 bits 12345.678 has 123456780 ten-thousandths; in 32 bits the product is the float 123456776.
    EXPECT_EQ(displayText(Conv2Hex(session, 12345.678, 4)), displayText(field(123456780)));
    EXPECT_EQ(displayText(Conv2Hex(session, 12345.678F, 4)), displayText(field(123456776)));
}

TEST_F(TorqueFields, AKindThatIsUnknownGivesAnEmptyField) {
    for (const int kind : {-1, 0, 1, 5, 8})
        EXPECT_EQ(Conv2Hex(session, 7, kind), QByteArray()) << kind;
}

TEST_F(TorqueFields, AValueThatDoesNotFitIsReportedAndGivesAnEmptyField) {
    const auto refused = [&](auto value, int kind) {
        ui.expectReport(6, u"ModuleTSInterface,Conv2Hex"_s);
        EXPECT_EQ(Conv2Hex(session, value, kind), QByteArray());
        EXPECT_TRUE(ui.hasMetAll()) << value << " " << kind;
    };
    refused(65536, 2);
    refused(-1, 2);
    refused(3e9, 3);
    refused(214748.3648, 4);
    refused(214749, 4);
    refused(-300000.0F, 4);
    refused(std::numeric_limits<float>::max(), 4);
    EXPECT_EQ(displayText(Conv2Hex(session, 214748.3647, 4)), "7f ff ff ff");
}

TEST_F(TorqueFields, AByteOfTenToFifteenLosesADigit) {
    const struct {
        const char* bytes;
        qint32 number;
    } cases[] = {
        {"00 00 30 0a", 0x30A},
        {"00 00 0a 30", 0xA30},
        {"00 00 00 09", 9},
        {"00 00 00 0a", 10},
        {"00 00 00 10", 16},
        {"0a 0b 0c 0d", 0xABCD},
        {"0f 0f 0f 0f", 0xFFFF},
        {"01 02 03 04", 0x01020304},
        {"7f ff ff ff", 2147483647},
        {"80 00 00 00", std::numeric_limits<qint32>::min()},
        {"ff ff ff ff", -1},
        {"ff ff ff 0f", 0xFFFFFFF},
        {"00 bc 61 4e", 12345678},
        {"1e 00 00 01", 0x1E000001},
        {"e1 d2 00 05", static_cast<qint32>(0xE1D20005)},
    };
    for (const auto& testCase : cases) {
        EXPECT_EQ(Conv2Real(session, hex(testCase.bytes)), testCase.number) << testCase.bytes;
        EXPECT_EQ(Conv2Double(session, hex(testCase.bytes)), testCase.number / 10000.0) << testCase.bytes;
    }
}

TEST_F(TorqueFields, ANumberOfAnotherLengthIsSilentlyZero) {
    for (const char* bytes : {"", "01", "01 02 03", "01 02 03 04 05"})
        EXPECT_EQ(Conv2Real(session, hex(bytes)), 0) << bytes;
}

TEST_F(TorqueFields, TheOtherDecodersReportAFieldThatIsTooShort) {
    for (const char* bytes : {"", "01", "01 02 03"}) {
        ui.expectReport(5, u"ModuleTSInterface,Conv2Double"_s);
        EXPECT_EQ(Conv2Double(session, hex(bytes)), 0);
        ui.expectReport(5, u"ModuleTSInterface,Conv2Date"_s);
        EXPECT_EQ(Conv2Date(session, hex(bytes)), QString());
        ui.expectReport(5, u"ModuleTSInterface,Conv2Time"_s);
        EXPECT_EQ(Conv2Time(session, hex(bytes)), QString());
    }
    EXPECT_EQ(Conv2Double(session, hex("00 00 4e 20 77")), 2);
}

TEST_F(TorqueFields, DatesAreReadFromTheirDigits) {
    const struct {
        qint32 number;
        QString text;
    } cases[] = {
        {20261121, u"2026-11-21"_s},    {20240229, u"2024-02-29"_s},
        {1000101, u"0100-01-01"_s},     {20250229, u"2025-2-29"_s},
        {20261301, u"2026-13-1"_s},     {20260100, u"2026-1-0"_s},
        {990101, u"99-1-1"_s},          {0, u"0-0-0"_s},
        {-20260318, u"-2026--3--18"_s}, {100000101, u"10000-1-1"_s},
    };
    for (const auto& testCase : cases) {
        ASSERT_EQ(Conv2Real(session, field(testCase.number)), testCase.number)
            << "a digit is lost: choose another";
        EXPECT_EQ(Conv2Date(session, field(testCase.number)), testCase.text) << testCase.number;
    }
}

TEST_F(TorqueFields, TimesAreReadFromTheirDigitsAndLimited) {
    const struct {
        qint32 number;
        QString text;
    } cases[] = {
        {93005, u"09:30:05"_s},  {0, u"00:00:00"_s},      {235959, u"23:59:59"_s},
        {250000, u"23:59:59"_s}, {126100, u"12:59:59"_s}, {120090, u"12:00:59"_s},
        {240000, u"23:59:59"_s}, {-5, u"0:0:-5"_s},       {-93005, u"-9:-30:-5"_s},
    };
    for (const auto& testCase : cases) {
        ASSERT_EQ(Conv2Real(session, field(testCase.number)), testCase.number)
            << "a digit is lost: choose another";
        EXPECT_EQ(Conv2Time(session, field(testCase.number)), testCase.text) << testCase.number;
    }
}

} // namespace kelvane::testing
