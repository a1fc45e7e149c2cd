#include "testkit/sheets.h"
#include "tests/reports/report_tools.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::inkOf;
using testing::pageTexts;
using testing::pdfOf;
using testing::reportOf;
using testing::sheetOf;
using testing::wordsOf;

namespace {

struct Paper {
    const char* name;
    QPageSize::PageSizeId id;
    QSizeF size; // mm
};

void PrintTo(const Paper& paper, std::ostream* out) {
    *out << paper.name;
}

/// How often a pattern stands in a text; none of the places overlaps another.
qsizetype countOf(const QRegularExpression& pattern, const QString& text) {
    qsizetype count = 0;
    for (auto match = pattern.globalMatch(text); match.hasNext(); match.next())
        ++count;
    return count;
}

class WorksheetLayout : public ::testing::TestWithParam<Paper> {
  protected:
    QString pdfWith(const QList<QJsonObject>& groups) const {
        return pdfOf(readLayout(testing::shippedLayout()), reportOf(groups), GetParam().id);
    }

    /// That all of the pages stands between the margins.
    void expectNothingOverTheEdge(const QString& pdf) const {
        const auto paper = GetParam().size;
        const auto side = (paper.width() - 186) / 2 - 0.5;
        const QRectF body(QPointF(side, 10), QPointF(paper.width() - side, paper.height() - 9));
        const auto pages = inkOf(pdf);
        for (qsizetype page = 0; page < pages.size(); ++page) {
            const auto ink = pages[page];
            EXPECT_TRUE(body.contains(ink)) << "page " << page + 1 << ": " << ink.left() << ' ' << ink.top()
                                            << ' ' << ink.right() << ' ' << ink.bottom();
        }
        for (const auto& word : wordsOf(pdf)) {
            const auto middle = word.place.center();
            EXPECT_TRUE(word.place.left() >= side && word.place.right() <= paper.width() - side)
                << word.text.toStdString();
            EXPECT_TRUE(body.contains(middle)) << word.text.toStdString();
        }
    }

    testing::OwnFolder folder;
};

} // namespace

TEST_P(WorksheetLayout, ShowsEachPointOnceWithItsColumns) {
    for (const auto points : {1, 21, 201}) {
        const auto pdf = pdfWith({sheetOf(u"PT-1042"_s, points)});
        const auto pages = pageTexts(pdf);
        const auto whole = pages.join(QString());
        const QRegularExpression point(
            u"\\b\\d+ +[0-9.]+ +[0-9.]+ psig +[0-9.]+ mA +[0-9.]+ mA +[0-9.]+ mA"_s);
        EXPECT_EQ(countOf(point, whole), points);
        for (qsizetype page = 0; page < pages.size(); ++page) {
            const auto hasPoints = pages[page].contains(QRegularExpression(u"psig +[0-9.]+ mA"_s));
            EXPECT_EQ(pages[page].contains(u"High limit"_s), hasPoints) << page;
            EXPECT_TRUE(pages[page].contains(u"Page %1 of %2"_s.arg(page + 1).arg(pages.size()))) << page;
            EXPECT_TRUE(pages[page].contains(u"Printed 03/18/2026 09:30 by jdoe"_s)) << page;
            EXPECT_GE(pages[page].count(u"PT-1042"_s), 3) << page;
        }
        EXPECT_TRUE(pages.last().contains(u"Signature"_s));
        expectNothingOverTheEdge(pdf);
    }
}

TEST_P(WorksheetLayout, ShowsWhatIsKnownOfAnInstrumentOnOnePage) {
    const auto pages = pageTexts(pdfWith({sheetOf(u"PT-1042"_s, 5)}));
    ASSERT_EQ(pages.size(), 1);
    const auto& page = pages.first();
    for (const auto& text : {u"Northfield Instruments"_s,
                             u"NP-300"_s,
                             u"Pressure transmitter, feed water pump A"_s,
                             u"9984-221 B"_s,
                             u"Boiler house, level 2, rack 14"_s,
                             u"03/17/2025"_s,
                             u"03/17/2026"_s,
                             u"0 to 200 psig"_s,
                             u"4 to 20 mA"_s,
                             u"UP AND DOWN"_s,
                             u"0.25 % of span"_s,
                             u"Isolate the transmitter at its manifold."_s,
                             u"Open the manifold again."_s,
                             u"Calibrated by *"_s,
                             u"Work order"_s,
                             u"STD-7"_s,
                             u"Deadweight tester"_s,
                             u"DW-118"_s,
                             u"11/30/2026"_s,
                             u"Remarks"_s,
                             u"pass"_s,
                             u"fail"_s})
        EXPECT_TRUE(page.contains(text)) << text.toStdString();
}

TEST_P(WorksheetLayout, HasTheAssetsBarcodeOnEachPage) {
    for (const auto& asset : {u"PT-1042/A"_s, u"7"_s}) {
        const auto pdf = pdfWith({sheetOf(asset, 21)});
        const auto found = testing::barcodesIn(pdf);
        EXPECT_EQ(found, QStringList(pageTexts(pdf).size(), u"CODE-128:"_s + asset));
        EXPECT_GT(found.size(), 1);
    }
}

TEST_P(WorksheetLayout, TakesTextsOfAnyLengthAndAlphabet) {
    auto sheet = sheetOf(u"A<&>\"'-7"_s, 21);
    sheet[u"manufacturer"_s] = u"<b>Müller & Søn</b> \"x\""_s;
    sheet[u"model"_s] = u"Ωμέγα"_s;
    sheet[u"location"_s] = u"Котельная"_s;
    sheet[u"description"_s] = QString(400, u'Q');
    sheet[u"serial"_s] = u"مقياس"_s;
    sheet[u"strategy"_s] = u"圧力伝送器"_s;
    sheet[u"tolerance"_s] = u"0.25 % of span "_s.repeated(100);
    auto points = sheet[u"points"_s].toArray();
    points[7] =
        QJsonObject{{u"number"_s, u"8"_s}, {u"input"_s, QString(90, u'9')}, {u"lower"_s, QString(60, u'8')}};
    sheet[u"points"_s] = points;
    const auto pdf = pdfWith({sheet});
    expectNothingOverTheEdge(pdf);
    const auto pages = pageTexts(pdf);
    const auto whole = pages.first();
    for (const auto& text : {u"A<&>\"'-7"_s, u"<b>Müller & Søn</b> \"x\""_s, u"Ωμέγα"_s, u"Котельная"_s})
        EXPECT_TRUE(whole.contains(text)) << text.toStdString();
    EXPECT_EQ(whole.count(u'Q'), 400);
    EXPECT_EQ(whole.simplified().count(u"0.25 %"_s), 100);
    EXPECT_GE(pages.join(QString()).count(u'9'), 90);
}

TEST_P(WorksheetLayout, TakesAnyNumberOfMessages) {
    auto sheet = sheetOf(u"PT-1"_s, 1);
    QJsonArray messages;
    for (int message = 1; message <= 251; ++message)
        messages << QJsonObject{
            {u"name"_s, u"M%1"_s.arg(message)},
            {u"text"_s, u"Message%1. "_s.arg(message) + u"Mind the step. "_s.repeated(message % 12)}};
    sheet[u"messagesBefore"_s] = messages;
    const auto pdf = pdfWith({sheet});
    expectNothingOverTheEdge(pdf);
    const auto whole = pageTexts(pdf).join(QString());
    for (int message = 1; message <= 251; ++message)
        EXPECT_EQ(whole.count(u"Message%1."_s.arg(message)), 1) << message;
}

TEST_P(WorksheetLayout, LeavesEmptyListsOut) {
    const auto pdf = pdfWith({QJsonObject{{u"asset"_s, u"PT-1"_s}}});
    const auto pages = pageTexts(pdf);
    ASSERT_EQ(pages.size(), 1);
    for (const auto& title : {u"Before the test"_s, u"Readings"_s, u"After the test"_s, u"Record"_s})
        EXPECT_FALSE(pages[0].contains(title)) << title.toStdString();
    EXPECT_TRUE(pages[0].contains(u"Standards"_s)); // to be filled in by hand
    expectNothingOverTheEdge(pdf);
}

INSTANTIATE_TEST_SUITE_P(Papers, WorksheetLayout,
                         ::testing::Values(Paper{"A4", QPageSize::A4, {210, 297}},
                                           Paper{"Letter", QPageSize::Letter, {215.9, 279.4}}),
                         [](const auto& paper) { return std::string(paper.param.name); });

} // namespace kelvane
