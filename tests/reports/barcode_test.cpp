#include "reports/barcode.h"

#include "tests/reports/report_tools.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

class Barcodes : public ::testing::Test {
  protected:
    static QStringList readBack(const QByteArray& symbology, const QString& text) {
        const auto layout =
            testing::layoutOf(R"({"summary": {"items": [{"barcode": "{{a}}", "symbology": ")" + symbology +
                              R"(", "width": 70, "height": 25}]}})");
        return testing::barcodesIn(testing::pdfOf(layout, testing::reportOf({{{u"a"_s, text}}})));
    }

    testing::OwnFolder folder;
};

} // namespace

TEST_F(Barcodes, OfCode128AreReadBack) {
    for (const auto& text :
         {u"PT-1042"_s, u"0"_s, u"1234567890"_s, u"a<b>&\"c'"_s, u"TANK FARM 7/PT-1042/A"_s})
        EXPECT_EQ(readBack("code128", text), QStringList(u"CODE-128:"_s + text));
}

TEST_F(Barcodes, OfQrCodeAreReadBack) {
    for (const auto& text : {u"PT-1042"_s, u"Ω transmitter Ä, 20 mA"_s})
        EXPECT_EQ(readBack("qrcode", text), QStringList(u"QR-Code:"_s + text));
}

TEST_F(Barcodes, ThatCannotBeAreLeftOut) {
    EXPECT_TRUE(barcodeOf(QString(), BarcodeSymbology::code128).bars.isEmpty());
    EXPECT_TRUE(barcodeOf(u"Ω"_s, BarcodeSymbology::code128).bars.isEmpty());
    EXPECT_TRUE(barcodeOf(QString(300, u'x'), BarcodeSymbology::code128).bars.isEmpty());
    EXPECT_TRUE(barcodeOf(QString(20'000, u'x'), BarcodeSymbology::qrCode).bars.isEmpty());
    EXPECT_EQ(readBack("code128", u"Ω"_s), QStringList());
}

TEST_F(Barcodes, ThatWouldBeTooFineForAReaderAreLeftOut) {
    const auto layout = testing::layoutOf(
        R"({"summary": {"items": [{"barcode": "ABCDEFGHIJKLMNOPQRST", "width": 20, "height": 10}]}})");
    EXPECT_TRUE(testing::inkOf(testing::pdfOf(layout, testing::reportOf({{}}))).first().isEmpty());
}

TEST_F(Barcodes, HaveABlankZoneAround) {
    const auto barcode = barcodeOf(u"PT-1042"_s, BarcodeSymbology::code128);
    ASSERT_FALSE(barcode.bars.isEmpty());
    EXPECT_GE(barcode.bars.first().left(), 10);
    EXPECT_GE(barcode.size.width() - barcode.bars.last().right(), 10);
}

} // namespace kelvane
