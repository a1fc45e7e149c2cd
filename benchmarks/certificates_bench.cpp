// Certificates of the last calibrations to PDF files: certificates a second, against plain ODBC that fires
// the same queries and a bare loop that paints the same texts and lines, each by one call, into as many
// files; and the memory that many take beyond a tenth of them. Usage: bench_certificates [COUNT]

#include "benchmarks/alternating_runs.h"
#include "benchmarks/noted_pages.h"
#include "benchmarks/peak_memory.h"
#include "benchmarks/site.h"
#include "records/certificate_run.h"
#include "reports/report_error.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>
#include <QProcess>

#include <cstdio>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::bench {

namespace {

constexpr int usualCount = 500;
constexpr int turns = 5;
const auto asset = u"PT-101"_s;

CertificateForm form(const Site& site) {
    return readCertificateForm(site.session, {});
}

QStringList assets(int count) {
    return QStringList(count, asset);
}

void writeMany(Site& site, int count, const QString& folder) {
    const auto run =
        writeCertificates(site.session, assets(count), form(site), folder, [](auto...) { return true; });
    require(run.written == count, run.failures.join(u'\n'));
    site.requireNoErrors();
}

/// What the certificates of `Site::session` come to without this program: texts of queries, and what is
/// painted.
class Bare {
  public:
    explicit Bare(Site& site) : plain_(site.database.connectPlainly()) {
        site.log = {};
        const auto instrument = instrumentNamed(site.session, asset);
        const auto records = calibrationsOf(site.session, asset);
        require(instrument.found && records, u"the instrument can't be read"_s);
        const auto calibration = lastCalibration(site.session, *instrument.found, *records);
        require(calibration.has_value(), u"the instrument has no record"_s);
        const auto report = certificateReport(site.session, *calibration, form(site));
        for (const auto& statement : std::as_const(site.log.statements))
            queries_ << site.database.engineTexts(statement, Rows::all).constFirst().statement;
        pages_ = pageLayout(report.layout());
        NotedPages noted;
        noted.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
        noted.setPageLayout(pages_);
        report.paint(noted);
        items_ = noted.items();
        require(items_.size() > 100, u"the certificate is not noted"_s);
    }

    void write(int count, const QString& folder) {
        for (int number = 0; number < count; ++number) {
            for (const auto& query : std::as_const(queries_))
                plain_->run(query, std::numeric_limits<int>::max());
            QPdfWriter pdf(u"%1/%2.pdf"_s.arg(folder).arg(number));
            pdf.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
            pdf.setPageLayout(pages_);
            QPainter painter(&pdf);
            paintNoted(items_, pdf, painter);
        }
    }
    qsizetype size() const { return items_.size(); }

  private:
    std::unique_ptr<PlainOdbc> plain_;
    QStringList queries_;
    QPageLayout pages_;
    QList<NotedItem> items_;
};

/// The peak of a program that writes so many.
double peakOf(int count) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {u"peak"_s, QString::number(count)});
    process.waitForFinished(-1);
    require(process.exitCode() == 0, u"the certificates could not be written"_s);
    return process.readAllStandardOutput().trimmed().toDouble();
}

void printPeak(int count) {
    Site site({});
    const QTemporaryDir folder;
    writeMany(site, count, folder.path());
    std::printf("%f\n", peakMegabytes());
}

void run(int count) {
    Site site({});
    Bare bare(site);
    const QTemporaryDir ours;
    const QTemporaryDir plain;
    const auto timed = [&](const std::function<void()>& work) {
        QElapsedTimer timer;
        timer.start();
        work();
        return static_cast<double>(timer.nsecsElapsed()) / 1000;
    };
    const auto took = runTimedTurns(
        turns, [&](int) { return timed([&] { writeMany(site, count, ours.path()); }); },
        [&](int) { return timed([&] { bare.write(count, plain.path()); }); });
    std::printf("certificates: %.2f times the bare queries and the bare painter (aim 1.5 or less)\n",
                took.ratio());
    std::printf("certificates: %.0f a second, each of %lld texts and lines; bare %.0f\n",
                1E6 * count / took.ours, static_cast<long long>(bare.size()), 1E6 * count / took.plain);
    const auto peakOfFew = peakOf(count / 10);
    std::printf("certificates: %d take %.1f MB more memory at their peak than %d (%.1f MB)\n", count,
                peakOf(count) - peakOfFew, count / 10, peakOfFew);
}

} // namespace

} // namespace kelvane::bench

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QGuiApplication application(argc, argv);
    try {
        if (argc == 3 && qstrcmp(argv[1], "peak") == 0)
            kelvane::bench::printPeak(std::atoi(argv[2]));
        else
            kelvane::bench::run(argc > 1 ? std::atoi(argv[1]) : kelvane::bench::usualCount);
    } catch (const kelvane::ReportError& error) {
        kelvane::bench::giveUp(error.text());
    }
    return 0;
}
