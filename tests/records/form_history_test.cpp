#include "records/form_history.h"

#include "data/start_up.h"
#include "resources/text_id.h"
#include "testkit/screen_operator.h"
#include "tests/records/looks.h"
#include "tests/records/reading_session.h"

#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// Over a reading session, with the result template of the demonstration.
class HistoryScreen : public ReadingSession {
  protected:
    HistoryScreen() {
        EXPECT_TRUE(
            QFile::copy(QStringLiteral(KELVANE_SOURCES "/database/demo/rslt_db.frm"), u"rslt_db.frm"_s));
        ModuleGlobals::StartupFunctions(session, {});
    }

    void open(const QString& asset = u"PT-101"_s) {
        InstrumentSummary instrument;
        instrument.asset = asset;
        form = std::make_unique<FormHistory>(session, instrument);
        form->resize(1000, 700);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    /// A further record of PT-101, so many days from now, with the lines of its present one.
    void addRecord(int days, const QString& state, const QString& passed,
                   const QString& time = u"10:00:00"_s) {
        write(u"insert into mt.calibration (mtag,c2301,c2333,c2303,c2308,c2323,c2307,c2326) values "
              "('1401','%1','%2','%3','%4','%5','jdoe','of %4')"_s.arg(day(days), time, day(days + 30), state,
                                                                       passed));
        write(u"insert into mt.calresults (c2501,c2502,mtag,ctag) select c2501,c2502,mtag,(select max(ctag) "
              "from mt.calibration) from mt.calresults where mtag = '1401' and ctag = (select min(ctag) from "
              "mt.calresults where mtag = '1401')"_s);
    }
    QString newest() { return u"(select max(ctag) from mt.calibration)"_s; }

    QTableWidget& records() { return control<QTableWidget>(*form, u"TableRecords"_s); }
    QTableWidget& lines(const QString& side) { return control<QTableWidget>(*form, u"TableLines"_s + side); }
    QTableWidget& details() { return control<QTableWidget>(*form, u"TableDetails"_s); }
    QComboBox& compare() { return control<QComboBox>(*form, u"ComboCompare"_s); }
    QString label(const QString& name) { return control<QLabel>(*form, name).text(); }
    static QString row(const QTableWidget& table, int row) {
        QStringList cells;
        for (int column = 0; column < table.columnCount(); ++column)
            cells << (table.item(row, column) ? table.item(row, column)->text() : QString());
        return cells.join(u'|');
    }
    QString detail(TextId title, int column) {
        for (int at = 0; at < details().rowCount(); ++at) {
            if (details().item(at, 0)->text() == text(title))
                return details().item(at, column)->text();
        }
        return {};
    }
    void choose(int record) {
        QTest::mouseClick(records().viewport(), Qt::LeftButton, {},
                          records().visualItemRect(records().item(record, 0)).center());
    }

    std::unique_ptr<FormHistory> form;
};

TEST_F(HistoryScreen, ShowsTheRecordsNewestFirst) {
    open();
    ASSERT_EQ(records().rowCount(), 3);
    QStringList shown;
    for (int at = 0; at < 3; ++at)
        shown << row(records(), at);
    QStringList expected;
    for (const auto& stored :
         rows(u"select c2301,c2333,c2308,c2323,c2307,c2352,c2350,(select count(*) from "
              "mt.calresults r where r.ctag = c.ctag) from mt.calibration c where mtag = "
              "'1401' order by c2301 desc"_s,
              8))
        expected << QString(stored).replace(u"|Y|"_s, u"|passed|"_s);
    EXPECT_EQ(shown, expected);
}

TEST_F(HistoryScreen, ShowsThePointsOfTheChosenRecord) {
    open();
    auto& points = lines(u"Left"_s);
    ASSERT_EQ(points.rowCount(), 5);
    EXPECT_EQ(row(points, 2), u"3|12.000mA|12.010mA|0.010mA|11.960|12.040|PASS"_s);
    EXPECT_EQ(label(u"LabelNoteRight"_s), text(TextId::historyFoundLeft));
    EXPECT_EQ(detail(TextId::standardsUsed, 1),
              u"F702-01 (no record by that day), DOCUMENTING CALIBRATOR\nPM-100 (no record by that day), "
              "PRESSURE MODULE 100 PSIG"_s);
    EXPECT_EQ(detail(TextId::listTechnician, 1), u"bkowalski"_s);
    choose(1);
    EXPECT_EQ(lines(u"Left"_s).rowCount(), 0);
    EXPECT_EQ(label(u"LabelNoteLeft"_s), text(TextId::historyNoLines));
}

TEST_F(HistoryScreen, ShowsAsFoundAndAsLeftSideBySide) {
    addRecord(-1, u"AS-FOUND"_s, u"N"_s);
    write(u"update mt.calresults set c2501 = replace(replace(c2501,'PASS','FAIL'),'x','x') where ctag = "_s +
          newest() + u" and c2502 = 4"_s);
    addRecord(0, u"AS-LEFT"_s, u"Y"_s);
    open();
    ASSERT_EQ(records().rowCount(), 5);
    for (const int chosen : {0, 1}) {
        choose(chosen);
        EXPECT_EQ(label(u"LabelRecordLeft"_s), day(-1) + u" 10:00:00 AS-FOUND failed"_s);
        EXPECT_EQ(label(u"LabelRecordRight"_s), day(0) + u" 10:00:00 AS-LEFT passed"_s);
        EXPECT_EQ(lines(u"Right"_s).rowCount(), 5);
        EXPECT_EQ(detail(TextId::listRemarks, 1), u"of AS-FOUND"_s);
        EXPECT_EQ(detail(TextId::listRemarks, 2), u"of AS-LEFT"_s);
        EXPECT_EQ(label(u"LabelNoteRight"_s), text(TextId::historyPairedByOrder)) << "what was assumed";
    }
}

TEST_F(HistoryScreen, ShowsWhatCanNotBeReadAsItIsStoredAndCountsIt) {
    write(u"update mt.calresults set c2501 = replace(c2501,'12.010','12.100') where mtag = '1401'"_s);
    open();
    auto& points = lines(u"Left"_s);
    ASSERT_EQ(points.rowCount(), 5);
    EXPECT_EQ(points.item(2, 0)->text(), value(u"select c2501 from mt.calresults where mtag = '1401' and "
                                               "c2502 = 2"_s));
    EXPECT_EQ(points.columnSpan(2, 0), points.columnCount());
    EXPECT_EQ(points.item(1, 0)->text(), u"2"_s);
    EXPECT_EQ(label(u"LabelNoteLeft"_s), text(TextId::historyUnreadable).arg(1).arg(5));
}

TEST_F(HistoryScreen, WithoutATemplateShowsTheLinesAsTheyAreStored) {
    session.ResultTemplateLine = {};
    open();
    EXPECT_EQ(lines(u"Left"_s).columnSpan(0, 0), lines(u"Left"_s).columnCount());
    EXPECT_EQ(label(u"LabelNoteLeft"_s), text(TextId::historyNoTemplate));
}

TEST_F(HistoryScreen, TellsTwoRecordsOfOneMomentApart) {
    addRecord(0, u"AS-FOUND"_s, u"N"_s);
    addRecord(0, u"AS-LEFT"_s, u"Y"_s);
    open();
    EXPECT_EQ(records().item(0, 2)->text(), u"AS-LEFT"_s);
    EXPECT_EQ(records().item(1, 2)->text(), u"AS-FOUND"_s);
    EXPECT_EQ(label(u"LabelRecordLeft"_s), day(0) + u" 10:00:00 AS-FOUND failed"_s);
    EXPECT_EQ(label(u"LabelRecordRight"_s), day(0) + u" 10:00:00 AS-LEFT passed"_s);
}

TEST_F(HistoryScreen, ComparesTwoRecords) {
    addRecord(-1, u"FOUND-LEFT"_s, u"N"_s);
    open();
    choose(1);
    pick(compare(), day(-1) + u" 10:00:00 FOUND-LEFT failed"_s);
    EXPECT_TRUE(label(u"LabelRecordRight"_s).startsWith(day(-1)));
    EXPECT_TRUE(label(u"LabelRecordLeft"_s).endsWith(u"passed"_s));
    EXPECT_EQ(lines(u"Left"_s).rowCount(), 5);
    EXPECT_EQ(lines(u"Right"_s).rowCount(), 5);
    EXPECT_EQ(detail(TextId::listResult, 1), u"passed"_s);
    EXPECT_EQ(detail(TextId::listResult, 2), u"failed"_s);
    pick(compare(), text(TextId::historyPair));
    EXPECT_EQ(label(u"LabelNoteRight"_s), text(TextId::historyFoundLeft));
}

TEST_F(HistoryScreen, ReadAgainStaysAtTheRecordsThatAreCompared) {
    open();
    choose(1);
    compare().setCurrentIndex(3);
    const auto left = label(u"LabelRecordLeft"_s);
    const auto right = label(u"LabelRecordRight"_s);
    // A newer one moves them down.
    addRecord(0, u"FOUND-LEFT"_s, u"Y"_s);
    QTest::keyClick(form.get(), Qt::Key_F5);
    ASSERT_EQ(records().rowCount(), 4);
    EXPECT_EQ(records().currentRow(), 2);
    EXPECT_EQ(compare().currentIndex(), 4);
    EXPECT_EQ(label(u"LabelRecordLeft"_s), left);
    EXPECT_EQ(label(u"LabelRecordRight"_s), right);
    write(u"delete from mt.calibration where mtag = '1401' and ctag = (select min(ctag) from mt.calibration "
          "where mtag = '1401')"_s);
    QTest::keyClick(form.get(), Qt::Key_F5);
    EXPECT_EQ(label(u"LabelRecordLeft"_s), left);
    EXPECT_EQ(compare().currentIndex(), 0) << "the compared record is gone";
}

TEST_F(HistoryScreen, HasBothSidesOnOneLine) {
    addRecord(-1, u"AS-FOUND"_s, u"N"_s);
    addRecord(0, u"AS-LEFT"_s, u"Y"_s);
    open();
    const auto place = [&](const QString& name) {
        const auto& widget = control<QWidget>(*form, name);
        return QRect(widget.mapTo(form.get(), QPoint()), widget.size());
    };
    for (const int width : {1000, 600, 1000}) {
        form->resize(width, 700);
        const auto left = place(u"TableLinesLeft"_s);
        const auto right = place(u"TableLinesRight"_s);
        EXPECT_EQ(left.top(), right.top()) << width;
        EXPECT_EQ(left.bottom(), right.bottom()) << width << ": only the right side has a note";
        EXPECT_GE(place(u"LabelNoteRight"_s).top(), right.bottom());
        const auto& caption = control<QLabel>(*form, u"LabelRecordLeft"_s);
        EXPECT_EQ(caption.height(), caption.heightForWidth(caption.width())) << "no more than it needs";
    }
    choose(2);
    QCoreApplication::processEvents();
    ASSERT_EQ(label(u"LabelNoteRight"_s), text(TextId::historyFoundLeft));
    EXPECT_EQ(place(u"LabelNoteRight"_s).top(), place(u"LabelRecordLeft"_s).top());
    EXPECT_FALSE(control<QLabel>(*form, u"LabelNoteLeft"_s).isVisible());
}

TEST_F(HistoryScreen, ReadAgainFillsItsWidth) {
    open();
    const auto& header = *records().horizontalHeader();
    ASSERT_EQ(header.length(), records().viewport()->width());
    form->resize(1300, 700);
    QTest::keyClick(form.get(), Qt::Key_F5);
    EXPECT_EQ(header.length(), records().viewport()->width());
}

TEST_F(HistoryScreen, OfNothingButNullsIsShown) {
    write(u"insert into mt.calibration (mtag) values ('1401')"_s);
    write(u"insert into mt.standards (c2430,mtag,ctag) select '9999','1401',"_s + newest());
    open();
    ASSERT_EQ(records().rowCount(), 4);
    choose(3);
    EXPECT_EQ(label(u"LabelRecordLeft"_s), QString());
    EXPECT_EQ(label(u"LabelNoteRight"_s), text(TextId::historyAlone));
    EXPECT_EQ(detail(TextId::standardsUsed, 1), u"9999 (not in the inventory any more)"_s);
}

TEST_F(HistoryScreen, OfANumberThatIsFilledUpWithBlanksShowsItWithoutThem) {
    write(u"update mt.inventory set i4201 = 'PT-101    ' where i4201 = 'PT-101'"_s);
    open(u"PT-101    "_s);
    EXPECT_EQ(records().rowCount(), 3);
    EXPECT_EQ(label(u"LabelInstrument"_s), u"PT-101"_s);
    control<QTabWidget>(*form, u"TabsHistory"_s).setCurrentIndex(2);
    const auto title = control<QWidget>(*form, u"PlotErrors"_s).accessibleName();
    EXPECT_TRUE(title.startsWith(u"PT-101: "_s)) << title.toStdString();
}

TEST_F(HistoryScreen, OfALongNumberIsNoWiderThanOfAShortOne) {
    open();
    const auto width = form->minimumSizeHint().width();
    const auto asset = QString(4000, u'W');
    write(u"update mt.inventory set i4201 = '%1' where i4201 = 'PT-101'"_s.arg(asset));
    open(asset);
    EXPECT_EQ(records().rowCount(), 3);
    EXPECT_EQ(form->minimumSizeHint().width(), width);
    control<QTabWidget>(*form, u"TabsHistory"_s).setCurrentIndex(2);
    EXPECT_EQ(form->minimumSizeHint().width(), width);
}

TEST_F(HistoryScreen, OfAnInstrumentWithoutRecordsSaysSo) {
    open(u"PM-300"_s);
    EXPECT_EQ(label(u"LabelState"_s), text(TextId::historyNone));
    EXPECT_FALSE(records().isVisible());
}

TEST_F(HistoryScreen, AsksForTheCertificateOfTheChosenCalibration) {
    open();
    QList<CertifiedCalibration> wanted;
    QObject::connect(form.get(), &FormHistory::certificateWanted, form.get(),
                     [&](const CertifiedCalibration& calibration) { wanted << calibration; });
    choose(2);
    click(control<QPushButton>(*form, u"CommandCertificate"_s));
    ASSERT_EQ(wanted.size(), 1);
    EXPECT_EQ(wanted[0].instrument.asset, u"PT-101"_s);
    const auto oldest = value(u"select min(ctag) from mt.calibration where mtag = '1401'"_s);
    const auto& found = wanted[0].asFound;
    const auto& left = wanted[0].asLeft;
    EXPECT_TRUE((found && found->ctag == oldest) || (left && left->ctag == oldest));
}

TEST_F(HistoryScreen, OfADatabaseThatFailsKeepsWhatWasRead) {
    open();
    closeConnection(session);
    ui.expectReport(static_cast<int>(ErrorNumber::connectionClosed), u"History,calibrations"_s);
    QTest::keyClick(form.get(), Qt::Key_F5);
    EXPECT_EQ(label(u"LabelState"_s), text(TextId::historyNotRead));
    EXPECT_TRUE(control<QLabel>(*form, u"LabelState"_s).isVisible());
    EXPECT_EQ(records().rowCount(), 3);
}

TEST_F(HistoryScreen, LooksWholeInEachSizeAndLanguage) {
    addRecord(-1, u"AS-FOUND"_s, u"N"_s);
    write(u"update mt.calresults set c2501 = replace(c2501,'12.010','12.100') where ctag = "_s + newest());
    addRecord(0, u"AS-LEFT"_s, u"Y"_s);
    expectNothingCutOff(u"records-history"_s,
                        [&] {
                            InstrumentSummary instrument;
                            instrument.asset = u"PT-101"_s;
                            instrument.description = u"PRESSURE TRANSMITTER"_s;
                            return std::make_unique<FormHistory>(session, instrument);
                        },
                        {1000, 720});
}

} // namespace kelvane::testing
