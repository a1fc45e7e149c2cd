#include "reports/measured_band.h"

#include "reports/design_unit.h"
#include "tests/reports/report_tools.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::layoutOf;
using testing::PdfWord;

namespace {

class Bands : public ::testing::Test {
  protected:
    /// The height of a band, in millimetres.
    static double heightOf(const QByteArray& band, const QJsonObject& group) {
        const auto layout = layoutOf("{\"width\": 100, \"summary\": " + band + "}");
        FieldValues values({});
        values.setGroup(group);
        PlainTexts plainTexts;
        return MeasuredBand(layout.summary.first(), values, plainTexts).height() / unitsOfMillimetres(1);
    }

    /// The words of a band on paper, by their text.
    static QHash<QString, QRectF> wordsOf(const QByteArray& band, const QJsonObject& group) {
        const auto layout = layoutOf("{\"width\": 100, \"summary\": " + band + "}");
        QHash<QString, QRectF> words;
        for (const auto& word : testing::wordsOf(testing::pdfOf(layout, testing::reportOf({group}))))
            words.insert(word.text, word.place);
        return words;
    }

    testing::OwnFolder folder;
    const QJsonObject longText{{u"a"_s, u"one two three four five six seven eight nine ten eleven twelve"_s}};
};

} // namespace

TEST_F(Bands, AreAsHighAsTheLayoutSaysAtLeast) {
    EXPECT_NEAR(heightOf(R"({"height": 8, "items": [{"text": "{{a}}", "y": 2}]})", {}), 8, 1e-6);
    EXPECT_NEAR(heightOf(R"({"items": [{"box": 0.2, "y": 2, "height": 5}]})", {}), 7, 1e-6);
}

TEST_F(Bands, HaveRoomForADrawingThatIsThere) {
    const auto layout = layoutOf(R"({"width": 100, "summary": {"height": 5, "items":
        [{"drawing": "errors", "x": 10, "y": 2, "width": 50, "height": 30}]}})");
    FieldValues values({});
    PlainTexts plainTexts;
    const auto& band = layout.summary.first();
    QList<QRectF> places;
    const ReportDrawings drawings{{u"errors"_s, [&](QPainter&, const QRectF& place) { places << place; }}};
    MeasuredBand measured(band, values, plainTexts, drawings);
    EXPECT_NEAR(measured.height(), unitsOfMillimetres(32), 1e-6);
    QImage paper(10, 10, QImage::Format_RGB32);
    QPainter painter(&paper);
    measured.paint(painter, {0, unitsOfMillimetres(100)});
    ASSERT_EQ(places.size(), 1);
    EXPECT_NEAR(places[0].left(), unitsOfMillimetres(10), 1e-6);
    EXPECT_NEAR(places[0].top(), unitsOfMillimetres(102), 1e-6);
    EXPECT_NEAR(places[0].height(), unitsOfMillimetres(30), 1e-6);
    EXPECT_NEAR(MeasuredBand(band, values, plainTexts).height(), unitsOfMillimetres(5), 1e-6);
}

TEST_F(Bands, GrowWithTheirTextsAndKeepTheSpaceBelow) {
    const QByteArray band = R"({"height": 8, "items": [{"text": "{{a}}", "y": 2, "width": 20}]})";
    const auto oneLine = heightOf(band, {{u"a"_s, u"one"_s}});
    EXPECT_NEAR(oneLine, 8, 1e-6);
    const auto twoLines = heightOf(band, {{u"a"_s, u"one two\nthree"_s}});
    const auto threeLines = heightOf(band, {{u"a"_s, u"one\ntwo\nthree"_s}});
    EXPECT_GT(twoLines, 8 + 3);
    EXPECT_NEAR(threeLines - twoLines, twoLines - oneLine, 1e-6);
}

TEST_F(Bands, MoveDownWhatStandsBelowATextThatHasGrown) {
    const QByteArray band = R"({"items": [{"text": "{{a}}", "width": 20}, {"text": "beside", "x": 30},
        {"text": "below", "x": 30, "y": 4}, {"text": "{{b}}", "y": 4, "width": 20},
        {"text": "last", "y": 8}]})";
    const auto plain = wordsOf(band, {{u"a"_s, u"a"_s}, {u"b"_s, u"b"_s}});
    const auto grown = wordsOf(band, {{u"a"_s, u"a\na2"_s}, {u"b"_s, u"b\nb2\nb3"_s}});
    const auto moved = [&](const QString& word) { return grown[word].top() - plain[word].top(); };
    const auto line = grown[u"a2"_s].top() - grown[u"a"_s].top();
    EXPECT_GT(line, 3);
    EXPECT_NEAR(moved(u"beside"_s), 0, 0.05);
    EXPECT_NEAR(moved(u"below"_s), line, 0.05);
    EXPECT_NEAR(moved(u"b"_s), line, 0.05);
    EXPECT_NEAR(moved(u"last"_s), 3 * line, 0.05);
}

TEST_F(Bands, SetATextSmallerThatDoesNotFitItsHeight) {
    const QByteArray band =
        R"({"items": [{"text": "{{a}}", "width": 20, "height": 8}, {"text": "z", "y": 8}]})";
    EXPECT_LT(heightOf(band, longText), 13);
    const auto words = wordsOf(band, longText);
    ASSERT_EQ(words.size(), 13);
    EXPECT_LT(words[u"twelve"_s].height(), words[u"z"_s].height() * 0.8);
    EXPECT_LT(words[u"twelve"_s].bottom(), words[u"z"_s].top() + 1);
}

TEST_F(Bands, AlignTextsInTheirPlaces) {
    const auto words = wordsOf(R"({"items": [
        {"text": "left", "x": 10, "width": 40}, {"text": "center", "x": 10, "width": 40, "align": "center"},
        {"text": "right", "x": 10, "width": 40, "align": "right"},
        {"text": "low", "x": 60, "height": 20, "valign": "bottom"},
        {"text": "mid", "x": 80, "height": 20, "valign": "center"}]})",
                               {});
    const auto edge = (210 - 100) / 2.0;
    EXPECT_NEAR(words[u"left"_s].left(), edge + 10, 0.5);
    EXPECT_NEAR(words[u"center"_s].center().x(), edge + 30, 0.5);
    EXPECT_NEAR(words[u"right"_s].right(), edge + 50, 0.5);
    EXPECT_NEAR(words[u"low"_s].bottom(), 12 + 20, 0.5);
    EXPECT_NEAR(words[u"mid"_s].center().y(), 12 + 10, 0.5);
}

TEST_F(Bands, DrawBoxesAndUprightLinesWithoutAHeightToTheirEnd) {
    const auto inkBottom = [this](const QByteArray& item) {
        const auto layout = layoutOf("{\"width\": 100, \"summary\": {\"items\": [" + item +
                                     ", {\"text\": \"{{a}}\", \"width\": 20}]}}");
        return testing::inkOf(testing::pdfOf(layout, testing::reportOf({longText}))).first().bottom() - 12;
    };
    const auto height = heightOf(R"({"items": [{"text": "{{a}}", "width": 20}]})", longText);
    EXPECT_GT(height, 20);
    EXPECT_NEAR(inkBottom(R"({"box": 0.5})"), height, 0.6);
    EXPECT_NEAR(inkBottom(R"({"line": 0.5, "x": 50})"), height, 0.6);
    EXPECT_LT(inkBottom(R"({"box": 0.5, "height": 4})"), height - 0.2);
}

TEST_F(Bands, TellWhetherTheyNameThePage) {
    EXPECT_TRUE(namesPages(layoutOf(R"({"summary": {"items": [{"text": "{{page}}"}]}})").summary.first()));
    EXPECT_FALSE(namesPages(layoutOf(R"({"summary": {"items": [{"text": "page"}]}})").summary.first()));
}

} // namespace kelvane
