#include "records/certificate_report.h"

#include "records/certificate_plot.h"
#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/shown_in.h"
#include "tests/records/certificate_fixture.h"

#include <QFontDatabase>
#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class CertificateOnPaper : public CertificateSession {
  protected:
    static QString outputOf(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished(60'000)) << program.toStdString();
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    void write(const CertifiedCalibration& calibration) {
        settings.values[u"Certificate/Paper"_s] = paper;
        writeCertificate(session, calibration, readCertificateForm(session, {}), path);
    }
    /// The pages as a reader program finds them.
    QStringList pages(const CertifiedCalibration& calibration) {
        write(calibration);
        auto found = outputOf(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s}).split(u'\f');
        EXPECT_EQ(found.takeLast(), QString());
        return found;
    }
    QString whole(const CertifiedCalibration& calibration) { return pages(calibration).join(u'\n'); }
    static void expectAll(const QString& page, const QStringList& words) {
        for (const auto& word : words)
            EXPECT_TRUE(page.contains(word)) << word.toStdString() << '\n' << page.toStdString();
    }
    CertifiedCalibration many(int points) {
        auto calibration = adjusted();
        calibration.asLeft.reset();
        calibration.asFound->lines.clear();
        for (int point = 0; point < points; ++point)
            calibration.asFound->lines << line(0.5 * (point % 200), 10, qint16(point + 1));
        return calibration;
    }
    /// That each word stands between the margins.
    void expectNothingOverTheEdge(double width) {
        static const QRegularExpression word(u"xMin=\"([0-9.]+)\" yMin=\"[0-9.]+\" xMax=\"([0-9.]+)\""_s);
        constexpr double margin = 15 / 25.4 * 72;
        const auto boxes = outputOf(u"pdftotext"_s, {u"-bbox"_s, path, u"-"_s});
        int words = 0;
        for (auto matches = word.globalMatch(boxes); matches.hasNext(); ++words) {
            const auto match = matches.next();
            EXPECT_GE(match.captured(1).toDouble(), margin - 2);
            EXPECT_LE(match.captured(2).toDouble(), width - margin + 2);
        }
        EXPECT_GT(words, 40);
    }

    QString paper = u"A4"_s;
    const QString path = folder.path() + u"/certificate.pdf"_s;
};

TEST_F(CertificateOnPaper, HasEveryBlock) {
    settings.values[u"Certificate/Laboratory"_s] = u"Nordhafen Laboratory"_s;
    settings.values[u"Certificate/Address"_s] = u"1 Quay\r\n4000 Westport"_s;
    settings.values[u"Certificate/Accreditation"_s] = u"No. 0815"_s;
    settings.values[u"Certificate/Customer"_s] = u"Boiler House"_s;
    settings.values[u"Certificate/DecisionRule"_s] = u"SimpleAcceptance"_s;
    const auto found = whole(adjusted());
    expectAll(found, {u"Calibration Certificate"_s,
                      u"MT-501/502"_s,
                      u"Nordhafen Laboratory"_s,
                      u"1 Quay"_s,
                      u"4000 Westport"_s,
                      u"No. 0815"_s,
                      u"Boiler House"_s,
                      u"PRESSURE TRANSMITTER"_s,
                      u"S 77"_s,
                      u"2026-03-17"_s,
                      u"2026-03-18"_s,
                      u"Date of Receipt"_s,
                      u"Results as Found"_s,
                      u"Results as Left"_s,
                      u"12.060 mA"_s,
                      u"11.966 mA"_s,
                      u"Error in Percent of the Tolerance"_s,
                      text(TextId::plotPercentAxis),
                      u"as found"_s,
                      u"as left"_s,
                      u"Measurement Standards"_s,
                      u"Metrological Traceability"_s,
                      u"Statement of Conformity"_s,
                      u"simple acceptance"_s,
                      u"Measurement Uncertainty"_s,
                      u"Calibrated by"_s,
                      u"Authorized by"_s,
                      u"relate only to the item"_s,
                      u"condition, deviations from the method and results of external providers"_s,
                      u"except in full"_s,
                      u"End of the certificate"_s});
    EXPECT_EQ(found.count(u"End of the certificate"_s), 1);
}

TEST_F(CertificateOnPaper, IsMadeToBeKept) {
    write(adjusted());
    expectAll(outputOf(u"pdfinfo"_s, {path}), {u"Calibration Certificate MT-501/502"_s});
    const auto metadata = outputOf(u"pdfinfo"_s, {u"-meta"_s, path});
    EXPECT_TRUE(metadata.contains(QRegularExpression(u"pdfaid:part[>=\"]+1"_s))) << metadata.toStdString();
    EXPECT_TRUE(metadata.contains(QRegularExpression(u"pdfaid:conformance[>=\"]+B"_s)));
    const auto fonts = outputOf(u"pdffonts"_s, {path}).split(u'\n', Qt::SkipEmptyParts).mid(2);
    ASSERT_GE(fonts.size(), 2);
    for (const auto& font : fonts)
        EXPECT_TRUE(font.contains(QRegularExpression(u"Identity-H +yes "_s))) << font.toStdString();
}

TEST_F(CertificateOnPaper, HasItsNumberAndTheCountOfPagesOnEachPage) {
    for (const auto& size : {u"A4"_s, u"Letter"_s}) {
        paper = size;
        const auto found = pages(many(200));
        ASSERT_GT(found.size(), 4);
        for (qsizetype page = 0; page < found.size(); ++page) {
            expectAll(found[page], {u"Page %1 of %2"_s.arg(page + 1).arg(found.size()), u"MT-501"_s});
            EXPECT_EQ(found[page].contains(u"Low Limit"_s), found[page].contains(u" psig "_s)) << page;
        }
        const QRegularExpression point(u"\\d+ +[0-9.]+ psig +[0-9.]+ mA +[0-9.]+ mA +0.004 mA"_s);
        qsizetype points = 0;
        for (auto matches = point.globalMatch(found.join(u'\n')); matches.hasNext(); matches.next())
            ++points;
        EXPECT_EQ(points, 200);
        EXPECT_TRUE(found.constLast().contains(u"End of the certificate"_s));
    }
}

TEST_F(CertificateOnPaper, IsOnThePaperOfTheSettings) {
    expectAll((write(adjusted()), outputOf(u"pdfinfo"_s, {path})), {u"(A4)"_s});
    expectNothingOverTheEdge(595);
    paper = u"Letter"_s;
    expectAll((write(adjusted()), outputOf(u"pdfinfo"_s, {path})), {u"612 x 792"_s});
    expectNothingOverTheEdge(612);
}

TEST_F(CertificateOnPaper, KeepsLongNamesAndOtherAlphabetsWhole) {
    auto calibration = adjusted();
    const auto name = u"Ω-δοκιμή Манометр сигнальный"_s;
    QStringList words;
    for (int word = 0; word < 60; ++word)
        words << u"word%1"_s.arg(word);
    calibration.instrument.description = words.join(u' ');
    calibration.instrument.manufacturer = name;
    calibration.instrument.asset = QString(90, u'W');
    calibration.asFound->ctag = QString(40, u'7');
    const auto found = whole(calibration);
    expectAll(found, words + name.split(u' '));
    EXPECT_GE(found.count(u'W'), 90);
    expectNothingOverTheEdge(595);
    if (QFontDatabase::families(QFontDatabase::Japanese).isEmpty())
        GTEST_SKIP() << "no letters for Japanese here";
    calibration.instrument.manufacturer = u"東京計器"_s;
    expectAll(whole(calibration), {u"東京計器"_s});
}

TEST_F(CertificateOnPaper, SpeaksTheLanguageOfTheProgram) {
    const ShownIn german(u"de"_s);
    const auto found = whole(adjusted());
    expectAll(found, {u"Kalibrierschein"_s, u"Auftraggeber"_s, u"nicht angegeben"_s, u"Seite 1 von "_s,
                      u"Ende des Kalibrierscheins"_s, u"Verwendete Normale"_s});
    for (const auto& word : {u"Certificate"_s, u"Customer"_s, u"not stated"_s, u"Page "_s, u"Standards"_s})
        EXPECT_FALSE(found.contains(word)) << word.toStdString() << '\n' << found.toStdString();
}

TEST_F(CertificateOnPaper, WithoutAReadableLineHasNoPlot) {
    auto calibration = adjusted();
    calibration.asFound->lines = {u"  9 of another program   12.3  PASS"_s};
    calibration.asLeft->lines.clear();
    EXPECT_TRUE(certificatePlot(session, calibration).isEmpty());
    const auto found = whole(calibration);
    EXPECT_FALSE(found.contains(u"Percent of the Tolerance"_s));
    expectAll(found,
              {u"9 of another program"_s, text(TextId::certificateUnreadable), text(TextId::historyNoLines)});
    EXPECT_TRUE(whole(blank()).contains(u"not stated"_s));
}

TEST_F(CertificateOnPaper, PlotsTheErrorsInPercentOfTheTolerance) {
    const auto plot = certificatePlot(session, adjusted());
    ASSERT_EQ(plot.series.size(), 2);
    EXPECT_EQ(plot.series[0].name, u"as found"_s);
    EXPECT_EQ(plot.series[1].name, u"as left"_s);
    const auto percents = [&](int series) {
        QList<int> found;
        for (const auto& point : plot.series[series].points)
            found << qRound(point.y);
        return found;
    };
    EXPECT_EQ(percents(0), (QList<int>{25, 150}));
    EXPECT_EQ(percents(1), (QList<int>{0, -85}));
    EXPECT_EQ(plot.levels.size(), 2);
}

TEST_F(CertificateOnPaper, TakesTheLayoutOfTheSite) {
    folder.write(u"certificate.rpt"_s, R"({"groupHeader": {"items": [{"text": "Ours: {{number}}"}]}})");
    const auto form = readCertificateForm(session, {folder.path() + u"/none"_s, folder.path()});
    writeCertificate(session, adjusted(), form, path);
    EXPECT_TRUE(outputOf(u"pdftotext"_s, {path, u"-"_s}).contains(u"Ours: MT-501/502"_s));
    folder.write(u"certificate.rpt"_s, "{");
    EXPECT_THROW(readCertificateForm(session, {folder.path()}), ReportError);
}

TEST_F(CertificateOnPaper, ThatCanNotBeWrittenSaysWhereAndWhy) {
    try {
        writeCertificate(session, adjusted(), readCertificateForm(session, {}), u"gone/a.pdf"_s);
        ADD_FAILURE() << "no refusal";
    } catch (const ReportError& error) {
        EXPECT_TRUE(error.text().startsWith(u"gone/a.pdf can't be written: "_s))
            << error.text().toStdString();
    }
}

} // namespace kelvane::testing
