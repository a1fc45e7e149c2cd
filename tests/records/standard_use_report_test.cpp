#include "records/standard_use_report.h"

#include "reports/report_error.h"
#include "reports/report_pdf.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "testkit/shown_in.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class ReportOfUses : public RecordedSession {
  protected:
    static StandardUse use(int number) {
        return {.asset = u"PT-%1"_s.arg(number % 50, 3, 10, QLatin1Char('0')),
                .description = u"PRESSURE TRANSMITTER"_s,
                .date = storedMomentOf(u"2026-01-05"_s),
                .time = storedMomentOf(u"08:00:00"_s),
                .state = u"AS-LEFT"_s,
                .passed = number % 2 == 0 ? u"Y"_s : u"N"_s,
                .ctag = QString::number(5000 + number),
                .mtag = QString::number(number % 50)};
    }
    /// The pages of the list as a reader program finds them.
    QStringList pages() {
        const auto path = folder.path() + u"/uses.pdf"_s;
        const auto report = standardUseReport(session, list, folders);
        auto layout = pageLayout(report.layout());
        layout.setPageSize(QPageSize(QPageSize::A4));
        EXPECT_TRUE(writePdf(report, layout, standardUseTitle(list), path));
        QProcess reader;
        reader.start(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
        EXPECT_TRUE(reader.waitForFinished(60'000));
        auto found = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\f');
        EXPECT_EQ(found.takeLast(), QString());
        return found;
    }

    QStringList folders;
    StandardUseList list{{u"DMM-01"_s, u"DIGITAL MULTIMETER"_s, u"S/N 77"_s}, QDate(2025, 3, 18), {}};
};

TEST_F(ReportOfUses, SaysWhatWasAskedByWhomAndWhen) {
    list.uses = {use(1), use(2)};
    const auto found = pages();
    ASSERT_EQ(found.size(), 1);
    for (const auto& words :
         {u"Calibrations Carried Out with Standard DMM-01 since 2025-03-18"_s, u"DIGITAL MULTIMETER"_s,
          u"S/N 77"_s, u"Since:"_s, u"calibrations: 2, instruments: 2"_s, u"PT-001"_s, u"2026-01-05"_s,
          u"08:00:00"_s, u"AS-LEFT"_s, text(TextId::resultFailed), text(TextId::resultPassed), u"5002"_s,
          u"Page 1 of 1"_s, u", jdoe"_s, u"03/18/2026"_s})
        EXPECT_TRUE(found[0].contains(words)) << words.toStdString() << '\n' << found[0].toStdString();
}

TEST_F(ReportOfUses, HasEveryRowAndItsTitlesOnEachPage) {
    for (int number = 0; number < 200; ++number)
        list.uses << use(number);
    const auto found = pages();
    ASSERT_GT(found.size(), 2);
    const auto all = found.join(u'\n');
    for (int number = 0; number < 200; ++number)
        EXPECT_EQ(all.count(QString::number(5000 + number)), 1) << number;
    for (int page = 0; page < found.size(); ++page) {
        EXPECT_TRUE(found[page].contains(u"Page %1 of %2"_s.arg(page + 1).arg(found.size())));
        EXPECT_TRUE(found[page].contains(u"Asset "_s));
    }
    EXPECT_TRUE(found[0].contains(u"calibrations: 200, instruments: 50"_s));
}

TEST_F(ReportOfUses, SpeaksTheLanguageOfTheProgram) {
    list.uses = {use(1)};
    const ShownIn german(u"de"_s);
    const auto page = pages().value(0);
    for (const auto& words : {u"Kalibrierungen mit dem Normal DMM-01 seit 2025-03-18"_s, u"Seriennummer"_s,
                              u"Kalibrierungen: 1, Pr\u00fcfmittel: 1"_s, u"Seite 1 von 1"_s,
                              u"nicht bestanden"_s, u"Datensatz"_s})
        EXPECT_TRUE(page.contains(words)) << words.toStdString() << '\n' << page.toStdString();
    EXPECT_FALSE(page.contains(u"Page"_s) || page.contains(u"Since"_s) || page.contains(u"Serial"_s));
}

TEST_F(ReportOfUses, TellsUndatedRecordsAndThatThereAreNone) {
    EXPECT_TRUE(pages().value(0).contains(u"No calibration since 2025-03-18 names the standard DMM-01."_s));
    auto undated = use(1);
    undated.date = {};
    list.uses = {use(2), undated};
    EXPECT_EQ(undatedUses(list.uses), 1);
    EXPECT_TRUE(pages().value(0).contains(u"instruments: 2. No readable date, so any day: 1"_s));
}

TEST_F(ReportOfUses, CountsInstrumentsThatTheInventoryHasLost) {
    auto lost = use(1);
    auto other = use(2);
    lost.asset.clear();
    other.asset.clear();
    list.uses = {lost, other, lost};
    EXPECT_EQ(standardUseCounts(list),
              u"Standard DMM-01 since 2025-03-18: calibrations: 3, instruments: 2"_s);
}

TEST_F(ReportOfUses, TakesTheLayoutOfTheSite) {
    folders = {folder.path() + u"/none"_s, folder.path()};
    folder.write(u"kvuses.rpt"_s,
                 R"({"groupHeader": {"height": 9, "items": [{"text": "Our list of {{standard}}"}]}})");
    EXPECT_TRUE(pages().value(0).contains(u"Our list of DMM-01"_s));
    folder.write(u"kvuses.rpt"_s, "{");
    EXPECT_THROW(standardUseReport(session, list, folders), ReportError);
}

} // namespace kelvane::testing
