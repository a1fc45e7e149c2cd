#include "reports/report.h"

#include "reports/report_error.h"
#include "testkit/sheets.h"
#include "tests/reports/report_tools.h"

#include <QBuffer>
#include <QJsonArray>
#include <QPdfWriter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QTest>

#include <set>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::layoutOf;
using testing::pageTexts;
using testing::pdfOf;
using testing::reportOf;
using testing::sheetOf;
using testing::wordsOf;

namespace {

class Reports : public ::testing::Test {
  protected:
    /// A group with rows of several lines each; every word of a row begins with its number.
    static QJsonObject groupOf(const QString& name, int rows) {
        QJsonArray list;
        for (int row = 1; row <= rows; ++row) {
            QString words;
            for (int word = 0; word < 3 + 5 * (row % 4); ++word)
                words += u"r%1w%2 "_s.arg(row).arg(word);
            list << QJsonObject{{u"text"_s, words}};
        }
        return {{u"asset"_s, name}, {u"points"_s, list}};
    }

    QString writtenOn(QPdfWriter& pdf, const Report& report) const {
        pdf.setPageLayout(pageLayout(report.layout()));
        pdf.setPageSize(QPageSize(QPageSize::A4));
        report.paint(pdf);
        return u"other.pdf"_s;
    }

    testing::OwnFolder folder;
    const QByteArray table = R"({"width": 150,
        "pageHeader": {"height": 12, "items": [{"text": "head {{asset}}"}]},
        "tables": [{"rows": "points", "header": {"height": 8, "items": [{"text": "columns"}]},
                    "row": {"height": 8, "items": [{"text": "{{rowNumber}}."},
                                                   {"text": "{{text}}", "x": 20, "width": 40}]}}],
        "signature": {"height": 30, "items": [{"text": "signed"}, {"text": "dated", "y": 25}]},
        "pageFooter": {"items": [{"text": "foot {{page}} of {{pages}}"}]}})";
};

} // namespace

TEST_F(Reports, BeginEachGroupOnANewPageAndNumberItsPages) {
    const auto pages = pageTexts(pdfOf(layoutOf(table), reportOf({groupOf(u"A"_s, 40), groupOf(u"B"_s, 1)})));
    ASSERT_GT(pages.size(), 2);
    const auto pagesOfA = pages.size() - 1;
    for (qsizetype page = 0; page < pages.size(); ++page) {
        const auto isOfB = page == pagesOfA;
        EXPECT_TRUE(pages[page].contains(isOfB ? u"head B"_s : u"head A"_s)) << page;
        EXPECT_TRUE(
            pages[page].contains(isOfB ? u"foot 1 of 1"_s : u"foot %1 of %2"_s.arg(page + 1).arg(pagesOfA)))
            << page;
    }
}

TEST_F(Reports, NeverSplitARow) {
    const auto words = wordsOf(pdfOf(layoutOf(table), reportOf({groupOf(u"A"_s, 201)})));
    QMap<int, std::set<qsizetype>> pagesOfRow;
    QMap<int, int> wordsOfRow;
    const QRegularExpression ofRow(u"^r(\\d+)w\\d+$"_s);
    for (const auto& word : words) {
        const auto match = ofRow.match(word.text);
        if (!match.hasMatch())
            continue;
        pagesOfRow[match.captured(1).toInt()].insert(word.page);
        ++wordsOfRow[match.captured(1).toInt()];
    }
    ASSERT_EQ(pagesOfRow.size(), 201);
    for (int row = 1; row <= 201; ++row) {
        EXPECT_EQ(pagesOfRow[row].size(), 1) << row;
        EXPECT_EQ(wordsOfRow[row], 3 + 5 * (row % 4)) << row;
    }
}

TEST_F(Reports, RepeatATablesHeaderOnEachOfItsPages) {
    for (const auto& page : pageTexts(pdfOf(layoutOf(table), reportOf({groupOf(u"A"_s, 100)}))))
        EXPECT_EQ(page.count(u"columns"_s), page.contains(u"w0"_s) ? 1 : 0) << page.toStdString();
}

TEST_F(Reports, LeaveATableWithoutRowsOutWithItsHeader) {
    const auto pages = pageTexts(pdfOf(layoutOf(table), reportOf({{{u"asset"_s, u"A"_s}}})));
    ASSERT_EQ(pages.size(), 1);
    EXPECT_FALSE(pages[0].contains(u"columns"_s));
    EXPECT_TRUE(pages[0].contains(u"signed"_s));
}

TEST_F(Reports, KeepTheSignatureTogether) {
    for (int rows = 1; rows < 40; ++rows) {
        const auto pages = pageTexts(pdfOf(layoutOf(table), reportOf({groupOf(u"A"_s, rows)})));
        EXPECT_TRUE(pages.last().contains(u"signed"_s) && pages.last().contains(u"dated"_s)) << rows;
        EXPECT_EQ(pages.join(QString()).count(u"signed"_s), 1) << rows;
    }
}

TEST_F(Reports, PrintEmptyRowsWithoutValues) {
    const auto layout = layoutOf(R"({"tables": [{"rows": "points", "emptyRows": 2, "row": {"items": [
        {"text": "row {{rowNumber}}"}, {"text": "{{text}}{{asset}}", "x": 50}]}}]})");
    const auto pages = pageTexts(pdfOf(layout, reportOf({groupOf(u"A"_s, 1)})));
    ASSERT_EQ(pages.size(), 1);
    EXPECT_TRUE(pages[0].contains(u"row 3"_s));
    EXPECT_FALSE(pages[0].contains(u"row 4"_s));
    EXPECT_FALSE(pages[0].contains(u'A'));
}

TEST_F(Reports, PaintABandThatIsHigherThanThePageSmaller) {
    const auto layout = layoutOf(R"({"width": 100, "summary": {"items": [{"text": "{{a}}", "width": 10}]}})");
    QString words;
    for (int word = 0; word < 300; ++word)
        words += u"w%1 "_s.arg(word);
    const auto pdf = pdfOf(layout, reportOf({{{u"a"_s, words}}}));
    const auto found = wordsOf(pdf);
    EXPECT_EQ(found.size(), 300);
    EXPECT_EQ(found.last().page, 0);
    EXPECT_LE(found.last().place.bottom(), 297 - 12 + 0.5);
}

TEST_F(Reports, BreakAlikeOnEveryDevice) {
    const Report report(readLayout(testing::shippedLayout()),
                        reportOf({sheetOf(u"PT-1"_s, 201), sheetOf(u"PT-2"_s, 21)}));
    const auto expected =
        pageTexts(pdfOf(report.layout(), reportOf({sheetOf(u"PT-1"_s, 201), sheetOf(u"PT-2"_s, 21)})));
    ASSERT_GT(expected.size(), 8);

    for (const auto resolution : {72, 300, 1200}) {
        QPdfWriter pdf(u"other.pdf"_s);
        pdf.setResolution(resolution);
        EXPECT_EQ(pageTexts(writtenOn(pdf, report)).size(), expected.size()) << resolution;
        const auto pages = pageTexts(u"other.pdf"_s);
        for (qsizetype page = 0; page < pages.size(); ++page)
            EXPECT_EQ(pages[page].simplified(), expected[page].simplified()) << resolution << ' ' << page;
    }

    for (const auto mode : {QPrinter::ScreenResolution, QPrinter::HighResolution}) {
        QPrinter printer(mode);
        printer.setOutputFileName(u"printed.pdf"_s);
        printer.setPageLayout(pageLayout(report.layout()));
        printer.setPageSize(QPageSize(QPageSize::A4));
        EXPECT_TRUE(report.paint(printer));
        const auto pages = pageTexts(u"printed.pdf"_s);
        ASSERT_EQ(pages.size(), expected.size());
        for (qsizetype page = 0; page < pages.size(); ++page)
            EXPECT_EQ(pages[page].simplified(), expected[page].simplified()) << mode << ' ' << page;
    }
}

TEST_F(Reports, HaveThePagesOfThePdfInThePreview) {
    const Report report(readLayout(testing::shippedLayout()),
                        reportOf({sheetOf(u"PT-1"_s, 201), sheetOf(u"PT-2"_s, 21)}));
    const auto expected =
        pageTexts(pdfOf(report.layout(), reportOf({sheetOf(u"PT-1"_s, 201), sheetOf(u"PT-2"_s, 21)})));
    QPrinter printer;
    printer.setPageLayout(pageLayout(report.layout()));
    printer.setPageSize(QPageSize(QPageSize::A4));
    QPrintPreviewWidget preview(&printer);
    QObject::connect(&preview, &QPrintPreviewWidget::paintRequested, &preview,
                     [&](QPrinter* device) { report.paint(*device); });
    preview.updatePreview();
    preview.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return preview.pageCount() == expected.size(); }))
        << preview.pageCount();
}

TEST_F(Reports, ArePaintedSmallerOnPaperThatIsTooNarrow) {
    const auto layout = readLayout(testing::shippedLayout());
    const auto pdf = pdfOf(layout, reportOf({sheetOf(u"PT-1"_s, 21)}), QPageSize::A5);
    const auto ink = testing::inkOf(pdf);
    ASSERT_FALSE(ink.isEmpty());
    for (const auto& page : ink) {
        EXPECT_GE(page.left(), 11.5);
        EXPECT_LE(page.right(), 148 - 11.5);
    }
    EXPECT_EQ(pageTexts(pdf).join(QString()).count(u"psig"_s), 21 + 1);
}

TEST_F(Reports, StandInTheMiddleOfThePaperWithItsWholeAreaToo) {
    const auto layout = layoutOf(R"({"width": 100, "pageHeader": {"height": 10, "items": [{"box": 1}]}})");
    QPdfWriter pdf(u"full.pdf"_s);
    auto pages = pageLayout(layout);
    pages.setMode(QPageLayout::FullPageMode);
    pages.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageLayout(pages);
    const Report report(layout, reportOf({{}}));
    report.paint(pdf);
    const auto ink = testing::inkOf(u"full.pdf"_s).first();
    EXPECT_NEAR(ink.left(), 55 - 0.5, 0.4);
    EXPECT_NEAR(ink.right(), 155 + 0.5, 0.4);
    EXPECT_NEAR(ink.top(), 12 - 0.5, 0.4);
}

TEST_F(Reports, EndEarlyWhenTheyAreTold) {
    const Report report(layoutOf(table),
                        reportOf({groupOf(u"A"_s, 1), groupOf(u"B"_s, 1), groupOf(u"C"_s, 1)}));
    QPdfWriter pdf(u"part.pdf"_s);
    EXPECT_FALSE(report.paint(pdf, [](qsizetype group) { return group < 2; }));
    EXPECT_EQ(report.groupCount(), 3);
}

TEST_F(Reports, AreNotPaintedOnPaperWithoutRoom) {
    const Report report(layoutOf(table), reportOf({groupOf(u"A"_s, 1)}));
    QPdfWriter pdf(u"small.pdf"_s);
    pdf.setPageLayout({QPageSize(QSizeF(60, 60), QPageSize::Millimeter), QPageLayout::Portrait,
                       QMarginsF(12, 12, 12, 12), QPageLayout::Millimeter});
    EXPECT_THROW(report.paint(pdf), ReportError);
}

} // namespace kelvane
