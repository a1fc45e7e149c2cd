#include "records/record_pictures.h"

#include "data/start_up.h"
#include "plots/plot_view.h"
#include "records/form_history.h"
#include "resources/text_id.h"
#include "testkit/screen_operator.h"
#include "tests/data/tolerances/tolerance_points.h"
#include "tests/records/looks.h"
#include "tests/records/reading_session.h"
#include "ui/colors.h"
#include "ui/message_box.h"

#include <QFile>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The pictures of PT-101's history, over a session that only reads.
class PicturesScreen : public ReadingSession {
  protected:
    PicturesScreen() {
        EXPECT_TRUE(
            QFile::copy(QStringLiteral(KELVANE_SOURCES "/database/demo/rslt_db.frm"), u"rslt_db.frm"_s));
        ModuleGlobals::StartupFunctions(session, {});
    }

    /// A further record of PT-101, whose points 4, 12 and 20 mA are off by so many percent of 0.040 mA.
    void addRecord(int days, const QString& state, const QList<double>& percents) {
        write(
            u"insert into mt.calibration (mtag,c2301,c2333,c2308,c2323) values ('1401','%1','10:00:00','%2',"
            u"'Y')"_s.arg(day(days), state));
        for (qsizetype at = 0; at < percents.size(); ++at) {
            Point point{50.0 * double(at),
                        4 + 8.0 * double(at) + 0.04 * percents[at] / 100,
                        0,
                        100,
                        20,
                        4,
                        u"0.001"_s,
                        u"psig"_s,
                        u"mA"_s,
                        0.001F};
            point.pos.units = 0.04F;
            point.neg.units = 0.04F;
            addLine(at, calculate(session, point, static_cast<qint16>(at + 1)).result_line);
        }
    }
    void addLine(qsizetype number, const QString& line) {
        write(u"insert into mt.calresults (c2501,c2502,mtag,ctag) select '%1',%2,'1401',max(ctag) from "
              u"mt.calibration"_s.arg(line)
                  .arg(number));
    }
    void removeRecords() {
        write(u"delete from mt.calresults where mtag = '1401'"_s);
        write(u"delete from mt.calibration where mtag = '1401'"_s);
    }
    /// Four years of a steady drift, adjusted once.
    void addDrift() {
        removeRecords();
        addRecord(-1460, u"FOUND-LEFT"_s, {0, 10, 20});
        addRecord(-1095, u"FOUND-LEFT"_s, {5, 35, 75});
        addRecord(-730, u"AS-FOUND"_s, {5, 65, 120});
        addRecord(-729, u"AS-LEFT"_s, {0, -10, 5});
        addRecord(-365, u"FOUND-LEFT"_s, {5, 15, 50});
    }

    std::unique_ptr<FormHistory> made() {
        InstrumentSummary instrument;
        instrument.asset = u"PT-101"_s;
        instrument.description = u"PRESSURE TRANSMITTER"_s;
        auto history = std::make_unique<FormHistory>(session, instrument);
        control<QTabWidget>(*history, u"TabsHistory"_s).setCurrentIndex(2);
        return history;
    }
    void open() {
        form = made();
        form->resize(1060, 640);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    const Plot& plot() { return control<PlotView>(*form, u"PlotErrors"_s).plot(); }
    QComboBox& pictures() { return control<QComboBox>(*form, u"ComboPicture"_s); }
    QPushButton& save() { return control<QPushButton>(*form, u"CommandSavePicture"_s); }
    QStringList choice() {
        QStringList rows;
        for (int row = 0; row < pictures().count(); ++row)
            rows << pictures().itemText(row);
        return rows;
    }
    static QStringList shown(const PlotSeries& series) {
        QStringList points;
        for (const auto& point : series.points)
            points << QString::number(qRound(point.y));
        return points;
    }
    void choose(int record) {
        auto& records = control<QTableWidget>(*form, u"TableRecords"_s);
        QTest::mouseClick(records.viewport(), Qt::LeftButton, {},
                          records.visualItemRect(records.item(record, 0)).center());
    }

    std::unique_ptr<FormHistory> form;
};

TEST_F(PicturesScreen, ShowTheErrorsOfTheChosenCalibration) {
    addDrift();
    open();
    EXPECT_EQ(choice(), (QStringList{text(TextId::plotErrors), text(TextId::plotDrift).arg(u"4.000mA"_s),
                                     text(TextId::plotDrift).arg(u"12.000mA"_s),
                                     text(TextId::plotDrift).arg(u"20.000mA"_s)}));
    ASSERT_EQ(plot().series.size(), 1);
    EXPECT_EQ(shown(plot().series[0]), (QStringList{u"5"_s, u"15"_s, u"50"_s}));
    choose(1);
    ASSERT_EQ(plot().series.size(), 2);
    EXPECT_EQ(shown(plot().series[0]), (QStringList{u"5"_s, u"65"_s, u"120"_s}));
    EXPECT_EQ(shown(plot().series[1]), (QStringList{u"0"_s, u"-10"_s, u"5"_s}));
    EXPECT_TRUE(plot().title.startsWith(u"PT-101"_s));
}

TEST_F(PicturesScreen, CompareWithAnotherRecord) {
    addDrift();
    open();
    auto& compare = control<QComboBox>(*form, u"ComboCompare"_s);
    compare.setCurrentIndex(5);
    ASSERT_EQ(plot().series.size(), 2);
    EXPECT_EQ(shown(plot().series[1]), (QStringList{u"0"_s, u"10"_s, u"20"_s}));
    compare.setCurrentIndex(1);
    EXPECT_EQ(plot().series.size(), 1) << "one record with itself";
}

TEST_F(PicturesScreen, ShowTheDriftOfAPointThatTheKeyboardChooses) {
    addDrift();
    open();
    pictures().setFocus();
    for (int row = 0; row < 3; ++row)
        QTest::keyClick(&pictures(), Qt::Key_Down);
    EXPECT_EQ(plot().title, u"PT-101: "_s + text(TextId::plotDrift).arg(u"20.000mA"_s));
    ASSERT_EQ(plot().series.size(), 3);
    EXPECT_EQ(shown(plot().series[0]), (QStringList{u"20"_s, u"75"_s, u"120"_s, u"50"_s}));
    EXPECT_EQ(shown(plot().series[1]), QStringList(u"5"_s));
    EXPECT_EQ(plot().notes.size(), 2);
    choose(3);
    EXPECT_TRUE(plot().title.contains(u"20.000mA"_s)) << "of all records, whichever is chosen";
}

TEST_F(PicturesScreen, KeepTheChoiceWhenTheRecordsAreReadAgain) {
    addDrift();
    open();
    pictures().setCurrentIndex(2);
    addRecord(-1, u"FOUND-LEFT"_s, {4, 40, 90});
    QTest::keyClick(form.get(), Qt::Key_F5);
    EXPECT_EQ(pictures().currentIndex(), 2);
    EXPECT_EQ(shown(plot().series[0]).constLast(), u"40"_s);
    removeRecords();
    addRecord(-1, u"FOUND-LEFT"_s, {4});
    form->readAgain();
    EXPECT_EQ(pictures().currentIndex(), 0);
    EXPECT_EQ(choice().size(), 2);
}

TEST_F(PicturesScreen, SayHowManyLinesAndRecordsAreLeftOut) {
    addDrift();
    addRecord(-300, u"CHECK"_s, {10, 10, 10});
    addRecord(30, u"FOUND-LEFT"_s, {10, 10});
    addLine(3, u"written by hand"_s);
    open();
    EXPECT_EQ(plot().notes, QStringList(text(TextId::plotLeftOut).arg(1).arg(3)));
    pictures().setCurrentIndex(1);
    EXPECT_EQ(plot().notes.last(2), (QStringList{text(TextId::plotLeftOut).arg(1).arg(21),
                                                 text(TextId::plotRecordsLeftOut).arg(2).arg(7)}));
}

TEST_F(PicturesScreen, OfRecordsWithoutLinesSayThatThereIsNothing) {
    removeRecords();
    addRecord(-1, u"FOUND-LEFT"_s, {});
    open();
    EXPECT_EQ(choice(), QStringList(text(TextId::plotErrors)));
    EXPECT_EQ(plot().notes, QStringList(text(TextId::plotNothing)));
    EXPECT_FALSE(save().isEnabled());
}

TEST_F(PicturesScreen, OfATemplateThatIsMissingSayWhatIsLeftOut) {
    addDrift();
    session.ResultTemplateLine.clear();
    open();
    EXPECT_EQ(plot().notes,
              (QStringList{text(TextId::plotNothing), text(TextId::plotLeftOut).arg(3).arg(3)}));
}

TEST_F(PicturesScreen, TellTheMethodAndWhatItAssumes) {
    open();
    ui.expectBox(text(TextId::plotMethodText), text(TextId::plotMethod), box::information);
    click(control<QPushButton>(*form, u"CommandMethod"_s));
    for (const auto& word : {u"ILAC-G24"_s, u"OIML D 10"_s, u"assumes"_s})
        EXPECT_TRUE(text(TextId::plotMethodText).contains(word)) << word.toStdString();
}

TEST_F(PicturesScreen, TellTheMethodInABoxThatAScreenHolds) {
    for (const auto& language : {u"en"_s, u"de"_s}) {
        const ShownIn shown(language);
        QTimer::singleShot(0, qApp, [&] {
            auto* box = QApplication::activeModalWidget();
            ASSERT_NE(box, nullptr);
            EXPECT_LE(box->height(), 720);
            EXPECT_LE(box->width(), 1080);
            EXPECT_TRUE(box->grab().save(QCoreApplication::applicationDirPath() +
                                         u"/../pictures/pictures-method-%1.png"_s.arg(language)));
            QTest::keyClick(box, Qt::Key_Escape);
        });
        showMessageBox(nullptr, text(TextId::plotMethodText), text(TextId::plotMethod), box::information);
    }
}

TEST_F(PicturesScreen, AreReachedByTheKeyboard) {
    addDrift();
    open();
    pictures().setFocus();
    for (const auto& name : {u"CommandMethod"_s, u"CommandSavePicture"_s, u"PlotErrors"_s}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), name);
    }
}

TEST_F(PicturesScreen, FollowDarkColours) {
    addDrift();
    const auto before = QApplication::palette();
    QApplication::setPalette(ownPalette(Colors::dark));
    open();
    pictures().setCurrentIndex(3);
    const auto shown = form->grab();
    EXPECT_TRUE(shown.save(QCoreApplication::applicationDirPath() + u"/../pictures/pictures-dark.png"_s));
    const auto ground = control<PlotView>(*form, u"PlotErrors"_s).grab().toImage().pixelColor(2, 2);
    EXPECT_LT(ground.lightness(), 100);
    QApplication::setPalette(before);
}

TEST_F(PicturesScreen, LookWholeInEachSizeAndLanguage) {
    addDrift();
    expectNothingCutOff(u"pictures-errors"_s, [&] { return made(); }, {1060, 640});
    expectNothingCutOff(u"pictures-drift"_s,
                        [&] {
                            auto history = made();
                            history->show();
                            control<QComboBox>(*history, u"ComboPicture"_s).setCurrentIndex(3);
                            return history;
                        },
                        {1060, 640});
}

} // namespace kelvane::testing
