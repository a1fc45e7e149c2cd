#include "records/form_pass_rate.h"

#include "plots/plot_view.h"
#include "records/since_field.h"
#include "resources/text_id.h"
#include "testkit/screen_operator.h"
#include "tests/records/looks.h"
#include "tests/records/reading_session.h"

#include <QDateEdit>
#include <QPushButton>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The pass rates over a session that only reads.
class PassRateScreen : public ReadingSession {
  protected:
    void open() {
        form = std::make_unique<FormPassRate>(session);
        form->resize(1060, 640);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    void addRecord(int days, const QString& state, const QString& passed) {
        write(u"insert into mt.calibration (mtag,c2301,c2308,c2323) values ('1401','%1','%2','%3')"_s.arg(
            day(days), state, passed));
    }
    const Plot& plot() { return control<PlotView>(*form, u"PlotRates"_s).plot(); }
    QComboBox& kinds() { return control<QComboBox>(*form, u"ComboBy"_s); }
    QDateEdit& since() { return control<QDateEdit>(*form, u"DateSince"_s); }
    QTableWidget& table() { return control<QTableWidget>(*form, u"TableRates"_s); }
    QLabel& state() { return control<QLabel>(*form, u"LabelState"_s); }
    /// The rows as "P100|66.7|2 of 3 passed".
    QStringList tableRows() {
        QStringList found;
        for (int row = 0; row < table().rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < table().columnCount(); ++column)
                cells << table().item(row, column)->text();
            found << cells.join(u'|');
        }
        return found;
    }
    /// As the engine counts them since a day, by the first `length` characters of a column.
    QStringList expected(const QString& key, const QString& from, int length = 100) {
        QMap<QString, std::pair<int, int>> counts;
        for (const auto& row :
             rows(u"select %1,c2323,count(*) from mt.calibration cal join mt.inventory inv on inv.mtag = "
                  "cal.mtag where c2308 in ('AS-FOUND','FOUND-LEFT') and c2323 in ('Y','N') and c2301 "
                  "between '%2' and '%3' group by %1,c2323"_s.arg(key, from, day(0)),
                  3)) {
            const auto cells = row.split(u'|');
            auto& [passed, all] = counts[cells[0].left(length)];
            passed += cells[1] == u"Y" ? cells[2].toInt() : 0;
            all += cells[2].toInt();
        }
        QStringList found;
        for (auto count = counts.cbegin(); count != counts.cend(); ++count)
            found << u"%1|%2|%3"_s.arg(count.key())
                         .arg(100.0 * count->first / count->second, 0, 'f', 1)
                         .arg(text(TextId::passRateOf).arg(count->first).arg(count->second));
        found.sort();
        return found;
    }
    QStringList sorted(QStringList rows) {
        rows.sort();
        return rows;
    }

    std::unique_ptr<FormPassRate> form;
};

TEST_F(PassRateScreen, ShowsTheRatesOfTheLastYearByMonth) {
    addRecord(-3, u"AS-FOUND"_s, u"N"_s);
    addRecord(-3, u"AS-LEFT"_s, u"Y"_s);
    open();
    EXPECT_EQ(since().date(), clock.now().date().addYears(-1));
    EXPECT_FALSE(state().isVisible());
    QStringList counted;
    for (const auto& row : tableRows()) {
        if (!row.contains(u"||"_s))
            counted << row;
    }
    EXPECT_EQ(counted, expected(u"cal.c2301"_s, since().date().toString(Qt::ISODate), 7));
    ASSERT_EQ(plot().series.size(), 1);
    EXPECT_EQ(plot().series[0].points.size(), counted.size());
    EXPECT_EQ(plot().x.names.size(), table().rowCount());
}

TEST_F(PassRateScreen, ShowsThemByModelAndGroup) {
    addRecord(-3, u"AS-FOUND"_s, u"N"_s);
    open();
    const auto from = since().date().toString(Qt::ISODate);
    pick(kinds(), text(TextId::passRateModel));
    EXPECT_EQ(sorted(tableRows()), expected(u"inv.i4203"_s, from));
    EXPECT_EQ(table().horizontalHeaderItem(0)->text(), text(TextId::passRateModel));
    pick(kinds(), text(TextId::passRateGroup));
    EXPECT_EQ(sorted(tableRows()), expected(u"inv.i4240"_s, from));
    EXPECT_EQ(plot().x.names.size(), table().rowCount());
}

TEST_F(PassRateScreen, ReadsAgainFromAnotherDay) {
    open();
    pick(kinds(), text(TextId::passRateGroup));
    const auto before = tableRows();
    since().setDate(QDate(2000, 1, 1));
    EXPECT_EQ(sorted(tableRows()), expected(u"inv.i4240"_s, u"2000-01-01"_s));
    EXPECT_NE(tableRows(), before);
    addRecord(-1, u"AS-FOUND"_s, u"N"_s);
    QTest::keyClick(form.get(), Qt::Key_F5);
    EXPECT_EQ(sorted(tableRows()), expected(u"inv.i4240"_s, u"2000-01-01"_s));
}

TEST_F(PassRateScreen, ReadsFromATypedDayBehindTabReturnAndF5) {
    open();
    pick(kinds(), text(TextId::passRateGroup));
    addRecord(-1, u"AS-FOUND"_s, u"N"_s);
    const auto before = tableRows();
    kinds().setFocus();
    QTest::keyClick(&kinds(), Qt::Key_Tab);
    ASSERT_TRUE(since().hasFocus());
    QTest::keyClicks(&since(), u"2018-06-15"_s);
    EXPECT_EQ(tableRows(), before) << "not while it is typed";
    QTest::keyClick(&since(), Qt::Key_Tab);
    EXPECT_FALSE(since().hasFocus());
    EXPECT_EQ(sorted(tableRows()), expected(u"inv.i4240"_s, u"2018-06-15"_s));

    since().setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&since(), u"2999-12-31"_s);
    QTest::keyClick(&since(), Qt::Key_Return);
    EXPECT_EQ(tableRows(), QStringList());

    QTest::keyClick(&since(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&since(), u"2000-01-02"_s);
    QTest::keyClick(&since(), Qt::Key_F5);
    EXPECT_EQ(since().date(), QDate(2000, 1, 2));
    EXPECT_EQ(sorted(tableRows()), expected(u"inv.i4240"_s, u"2000-01-02"_s));
}

TEST_F(PassRateScreen, ReadsOnceForATypedDayAndF5) {
    open();
    since().setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&since(), u"2000-01-02"_s);
    closeConnection(session);
    ui.expectReport(static_cast<int>(ErrorNumber::connectionClosed), u"History,passRates"_s);
    QTest::keyClick(&since(), Qt::Key_F5);
    EXPECT_EQ(since().date(), QDate(2000, 1, 2));
}

TEST_F(PassRateScreen, AfterLogOutBeginsWithTheUsualDayAndReadsNothing) {
    open();
    since().setDate(QDate(2000, 1, 1));
    EXPECT_GT(table().rowCount(), 0);
    form->forget();
    EXPECT_EQ(since().date(), usualSince(session));
    EXPECT_EQ(table().rowCount(), 0);
}

TEST_F(PassRateScreen, ThatCouldNotBeReadShowsNoRates) {
    open();
    EXPECT_GT(table().rowCount(), 0);
    closeConnection(session);
    ui.expectReport(static_cast<int>(ErrorNumber::connectionClosed), u"History,passRates"_s);
    since().setDate(QDate(2000, 1, 1));
    EXPECT_TRUE(state().isVisible());
    EXPECT_EQ(state().text(), text(TextId::historyNotRead));
    EXPECT_EQ(table().rowCount(), 0);
    EXPECT_TRUE(plot().isEmpty());
    EXPECT_TRUE(plot().notes.isEmpty()) << "nothing was counted";
    EXPECT_FALSE(control<QPushButton>(*form, u"CommandSavePicture"_s).isEnabled());
}

TEST_F(PassRateScreen, SaysThatNothingWasCountedAndWhatIsLeftOut) {
    write(u"update mt.calibration set c2323 = null"_s);
    open();
    since().setDate(QDate(2000, 1, 1));
    const auto records = value(u"select count(*) from mt.calibration"_s);
    EXPECT_EQ(plot().notes, (QStringList{text(TextId::plotNothing),
                                         text(TextId::passRateLeftOut).arg(0).arg(0).arg(0).arg(records)}));
    EXPECT_EQ(table().rowCount(), 0);
}

TEST_F(PassRateScreen, ReadsOnlyWhenItComesIntoSight) {
    form = std::make_unique<FormPassRate>(session);
    form->readAgain();
    EXPECT_EQ(table().rowCount(), 0);
    form->show();
    EXPECT_GT(table().rowCount(), 0);
    form->forget();
    EXPECT_EQ(table().rowCount(), 0);
    EXPECT_TRUE(plot().isEmpty());
}

TEST_F(PassRateScreen, LooksWholeInEachSizeAndLanguage) {
    addRecord(-3, u"AS-FOUND"_s, u"N"_s);
    for (const int kind : {0, 1, 2})
        expectNothingCutOff(u"pass-rate-%1"_s.arg(kind),
                            [&] {
                                auto made = std::make_unique<FormPassRate>(session);
                                control<QDateEdit>(*made, u"DateSince"_s).setDate(QDate(2022, 1, 1));
                                control<QComboBox>(*made, u"ComboBy"_s).setCurrentIndex(kind);
                                return made;
                            },
                            {1060, 640});
}

} // namespace kelvane::testing
