#include "tests/reports/report_tools.h"

#include "reports/report_error.h"
#include "reports/report_pdf.h"
#include "testkit/sheets.h"

#include <QImage>
#include <QProcess>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr double millimetresPerPoint = 25.4 / 72;
constexpr int dotsPerInch = 100;

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// The pages of a PDF as pictures.
class PagePictures {
  public:
    PagePictures(const QString& pdf, int resolution) {
        outputOf(u"pdftoppm"_s, {u"-png"_s, u"-gray"_s, u"-r"_s, QString::number(resolution), pdf,
                                 folder_.filePath(u"page"_s)});
    }
    QStringList files() const {
        QStringList files;
        for (const auto& file : QDir(folder_.path()).entryInfoList(QDir::Files, QDir::Name))
            files << file.filePath();
        return files;
    }

  private:
    QTemporaryDir folder_;
};

QRectF inkIn(const QImage& page) {
    QRect ink;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (qGray(page.pixel(x, y)) < 200)
                ink |= QRect(x, y, 1, 1);
        }
    }
    const auto pixel = 25.4 / dotsPerInch;
    return {ink.x() * pixel, ink.y() * pixel, ink.width() * pixel, ink.height() * pixel};
}

} // namespace

ReportLayout layoutOf(const QByteArray& content) {
    writeFile(u"test.rpt"_s, content);
    return readLayout(u"test.rpt"_s);
}

QString mistakeIn(const QByteArray& content) {
    try {
        layoutOf(content);
    } catch (const ReportError& error) {
        return error.text();
    }
    return {};
}

QString shippedLayout() {
    return QStringLiteral(KELVANE_SOURCES) + u"/resources/layouts/kvwrksht.rpt"_s;
}

ReportData reportOf(const QList<QJsonObject>& groups) {
    ReportData data;
    data.values = sheetReport();
    for (const auto& group : groups)
        data.add(group);
    return data;
}

QString pdfOf(const ReportLayout& layout, const ReportData& data, QPageSize::PageSizeId paper) {
    const auto path = u"report.pdf"_s;
    auto pages = pageLayout(layout);
    pages.setPageSize(QPageSize(paper));
    writePdf(Report(layout, data), pages, u"Report"_s, path);
    return path;
}

QByteArray outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000)) << program.toStdString();
    return process.readAllStandardOutput();
}

QStringList pageTexts(const QString& pdf) {
    auto pages = QString::fromUtf8(outputOf(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s})).split(u'\f');
    EXPECT_EQ(pages.takeLast(), QString());
    return pages;
}

QList<PdfWord> wordsOf(const QString& pdf) {
    QList<PdfWord> words;
    qsizetype page = -1;
    QXmlStreamReader xml(outputOf(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s}));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"page")
            ++page;
        if (xml.name() != u"word")
            continue;
        const auto place = [&xml](const QString& name) {
            return xml.attributes().value(name).toDouble() * millimetresPerPoint;
        };
        const QRectF where(QPointF(place(u"xMin"_s), place(u"yMin"_s)),
                           QPointF(place(u"xMax"_s), place(u"yMax"_s)));
        words << PdfWord{.page = page, .place = where, .text = xml.readElementText()};
    }
    return words;
}

QList<QRectF> inkOf(const QString& pdf) {
    QList<QRectF> ink;
    const PagePictures pictures(pdf, dotsPerInch);
    for (const auto& picture : pictures.files())
        ink << inkIn(QImage(picture));
    return ink;
}

QStringList barcodesIn(const QString& pdf) {
    const PagePictures pictures(pdf, 300);
    const auto found = outputOf(u"zbarimg"_s, QStringList{u"-q"_s} + pictures.files());
    return QString::fromUtf8(found).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace kelvane::testing
