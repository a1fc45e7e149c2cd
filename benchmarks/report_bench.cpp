// Worksheets of 21 points to PDF: sheets a second, and the memory that 500 take beyond 50, against a bare
// loop that paints the same texts and lines at the same places, each by one call, into a PDF. Usage:
// bench_reports LAYOUT

#include "benchmarks/alternating_runs.h"
#include "benchmarks/noted_pages.h"
#include "benchmarks/peak_memory.h"
#include "benchmarks/require.h"
#include "reports/report_error.h"
#include "reports/report_pdf.h"
#include "testkit/sheets.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int pointsOfSheet = 21;
constexpr int fewSheets = 50;
constexpr int manySheets = 500;
constexpr int turns = 5;

ReportData sheets(int count) {
    ReportData data;
    data.values = testing::sheetReport();
    for (int sheet = 0; sheet < count; ++sheet)
        data.add(testing::sheetOf(u"PT-%1"_s.arg(1000 + sheet), pointsOfSheet));
    return data;
}

void paintPlainly(const QList<NotedItem>& items, int sheetCount, const QPageLayout& pages,
                  const QString& path) {
    QPdfWriter pdf(path);
    pdf.setPageLayout(pages);
    QPainter painter(&pdf);
    for (int sheet = 0; sheet < sheetCount; ++sheet) {
        if (sheet > 0)
            pdf.newPage();
        paintNoted(items, pdf, painter);
    }
}

double microsecondsOf(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1000;
}

void run(const QString& layoutPath) {
    const QTemporaryDir folder;
    const auto path = folder.filePath(u"sheets.pdf"_s);
    const auto layout = readLayout(layoutPath);
    const auto pages = pageLayout(layout);

    const Report few(layout, sheets(fewSheets));
    const Report many(layout, sheets(manySheets));
    const auto write = [&](const Report& report) { writePdf(report, pages, u"Sheets"_s, path); };
    write(few);
    const auto peakOfFew = peakMegabytes();
    write(many);
    const auto growth = peakMegabytes() - peakOfFew;
    std::printf("reports: %d sheets take %.1f MB more memory at their peak than %d\n", manySheets, growth,
                fewSheets);

    NotedPages noted;
    noted.setPageLayout(pages);
    Report(layout, sheets(1)).paint(noted);
    const auto& items = noted.items();
    const auto texts = std::ranges::count_if(items, [](const auto& item) { return !item.text.isEmpty(); });
    require(texts > pointsOfSheet * 6, u"the texts are not noted"_s);
    const auto took = runTimedTurns(
        turns, [&](int) { return microsecondsOf([&] { write(many); }); },
        [&](int) {
            return microsecondsOf(
                [&] { paintPlainly(items, manySheets, pages, folder.filePath(u"bare.pdf"_s)); });
        });
    std::printf("reports: %.2f times a bare loop that paints the same (aim 2 or less)\n", took.ratio());
    std::printf("reports: %.0f sheets of %d points a second, %lld texts each; the bare loop %.0f\n",
                1E6 * manySheets / took.ours, pointsOfSheet, static_cast<long long>(texts),
                1E6 * manySheets / took.plain);
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    kelvane::bench::require(argc == 2, u"usage: bench_reports LAYOUT"_s);
    try {
        kelvane::bench::run(QString::fromLocal8Bit(argv[1]));
    } catch (const kelvane::ReportError& error) {
        kelvane::bench::giveUp(error.text());
    }
    return 0;
}
