#include "reports/layout_bands.h"

#include "reports/design_unit.h"
#include "tests/reports/report_tools.h"

#include <QImage>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::layoutOf;
using testing::mistakeIn;

namespace {

class LayoutBands : public ::testing::Test {
  protected:
    /// A layout with that item on its third line.
    static QByteArray withItem(const QByteArray& item) {
        return "{\"width\": 100, \"fonts\": {\"small\": {\"size\": 7}},\n\"summary\": {\"items\": [\n" +
               item + "\n]}}";
    }
    static ReportItem itemOf(const QByteArray& item) {
        return layoutOf(withItem(item)).summary.first().items.front();
    }

    testing::OwnFolder folder;
};

} // namespace

TEST_F(LayoutBands, ATextHasPlaceFontAndAlignment) {
    const auto item = itemOf(R"({"text": "{{asset}}", "x": 10, "y": 2.5, "width": 40, "font": "small",
                                 "align": "right", "valign": "bottom"})");
    EXPECT_EQ(item.x, 10);
    EXPECT_EQ(item.y, 2.5);
    EXPECT_EQ(item.width, 40);
    EXPECT_FALSE(item.height);
    const auto& text = std::get<TextItem>(item.content);
    EXPECT_EQ(text.alignment, Qt::AlignRight | Qt::AlignBottom);
    EXPECT_EQ(text.font.pixelSize(), unitsOfPoints(7));
    EXPECT_GT(text.lineHeight, text.font.pixelSize());
}

TEST_F(LayoutBands, AnItemWithoutAWidthTakesWhatIsLeft) {
    EXPECT_EQ(itemOf(R"({"text": "a", "x": 30})").width, 70);
    EXPECT_EQ(itemOf(R"({"box": 0.2, "x": 30})").width, 70);
}

TEST_F(LayoutBands, ALineWithoutAWidthGoesDownwards) {
    const auto item = itemOf(R"({"line": 0.2, "x": 30})");
    EXPECT_EQ(item.width, 0);
    EXPECT_EQ(std::get<LineItem>(item.content).thickness, 0.2);
}

TEST_F(LayoutBands, APictureStandsBesideTheLayout) {
    QImage picture(20, 10, QImage::Format_RGB32);
    picture.fill(Qt::black);
    ASSERT_TRUE(picture.save(u"logo.png"_s));
    const auto item = itemOf(R"({"picture": "logo.png", "width": 20, "height": 10})");
    EXPECT_EQ(std::get<PictureItem>(item.content).picture.size(), QSize(20, 10));
}

TEST_F(LayoutBands, AnItemThatIsWrongIsRefusedWithTheLine) {
    const QList<std::pair<QByteArray, QString>> mistakes{
        {"{\"x\": 1}",
         u"An item has one of \"text\", \"line\", \"box\", \"barcode\", \"picture\", \"drawing\"."_s},
        {"3", u"\"items\" must be an object in braces."_s},
        {R"({"text": "a", "colour": "red"})",
         u"\"colour\" is not known here; known are \"text\", \"x\", \"y\", \"width\", \"height\", \"font\", "
         "\"align\", \"valign\"."_s},
        {R"({"text": "a", "line": 0.1})", u"\"line\" is not known here; "_s},
        {R"({"text": 3})", u"\"text\" must be a text."_s},
        {R"({"text": "a", "x": 101})", u"\"x\" must be from 0 to 100."_s},
        {R"({"text": "a", "x": 100})", u"\"width\" is missing."_s},
        {R"({"text": "a", "y": -1})", u"\"y\" must be from 0 to 1000."_s},
        {R"({"text": "a", "x": 60, "width": 41})",
         u"The item ends at 101 mm, but the report is 100 mm wide."_s},
        {R"({"text": "a", "height": 0})", u"\"height\" must be from 0.1 to 1000."_s},
        {R"({"text": "a", "font": "large"})", u"\"font\" can't be \"large\"; known are \"small\"."_s},
        {R"({"text": "a", "align": "middle"})",
         u"\"align\" can't be \"middle\"; known are \"left\", \"center\", \"right\"."_s},
        {R"({"text": "a {{asset"})", u"The fields of \"a {{asset\" are not well formed: Unclosed tag at 2"_s},
        {R"({"text": "{{#a}}b"})", u"The fields of \"{{#a}}b\" are not well formed: Unclosed section"_s},
        {R"({"text": "{{>a}}"})",
         u"The fields of \"{{>a}}\" are not well formed: A text can't take another one in (\"{{>\")."_s},
        {R"({"line": 0})", u"\"line\" must be from 0.05 to 5."_s},
        {R"({"box": 0.2, "shade": 2})", u"\"shade\" must be from 0 to 1."_s},
        {R"({"barcode": "{{asset}}", "height": 10})", u"\"width\" is missing."_s},
        {R"({"barcode": "{{asset}}", "width": 10})", u"\"height\" is missing."_s},
        {R"({"barcode": "a", "width": 10, "height": 5, "symbology": "ean"})",
         u"\"symbology\" can't be \"ean\"; known are \"code128\", \"qrcode\"."_s},
        {R"({"picture": "gone.png", "width": 10, "height": 5})",
         u"The picture \"gone.png\" can't be read: "_s},
    };
    for (const auto& [item, mistake] : mistakes) {
        const auto found = mistakeIn(withItem(item));
        EXPECT_TRUE(found.startsWith(u"test.rpt, line 3: "_s + mistake)) << item.toStdString() << '\n'
                                                                         << found.toStdString();
    }
}

TEST_F(LayoutBands, ABandThatIsWrongIsRefusedWithTheLine) {
    EXPECT_EQ(mistakeIn("{\"summary\": {\n\"high\": 3}}"),
              u"test.rpt, line 2: \"high\" is not known here; known are \"height\", \"items\"."_s);
    EXPECT_EQ(mistakeIn("{\"summary\": {\n\"items\": {}}}"),
              u"test.rpt, line 2: \"items\" must be a list in square brackets."_s);
}

} // namespace kelvane
