// The window of the records from the keyboard.
#include "records/records_page.h"
#include "records/saved_columns.h"
#include "records/table_copy.h"
#include "resources/text_id.h"
#include "tests/records/records_window_fixture.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class RecordsWindowKeys : public RecordsWindowOnDatabase {};

TEST_F(RecordsWindowKeys, TypingBehindTheLoginFilters) {
    start();
    ASSERT_EQ(focused(), u"TextFilter"_s);
    const int all = table().model()->rowCount();
    for (const auto key : {Qt::Key_P, Qt::Key_T})
        press(key);
    EXPECT_TRUE(QTest::qWaitFor([&] { return table().model()->rowCount() < all; }));
    control<QAction>(window, u"mnuLogout"_s).trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return asksLogin(); }));
    typeLogin();
    EXPECT_EQ(focused(), u"TextFilter"_s);
}

TEST_F(RecordsWindowKeys, BehindConnectingAgainTheTableOfThePageHasTheKeyboard) {
    start();
    for (const auto& [tab, name] : {std::pair{0, u"TableInstruments"_s},
                                    {1, u"TableUses"_s},
                                    {2, u"ListResults"_s},
                                    {3, u"TableRates"_s}}) {
        tabs().setCurrentIndex(tab);
        connectAgain();
        EXPECT_EQ(focused(), name);
    }
    openHistory(0);
    connectAgain();
    EXPECT_EQ(focused(), u"TableRecords"_s);
}

TEST_F(RecordsWindowKeys, WorkInTheRowOfTabsAndWithNoControlInFocus) {
    start();
    const auto first = asset(0);
    for (const bool isInTabs : {true, false}) {
        const auto changed = isInTabs ? u"IN THE TABS"_s : u"NOWHERE"_s;
        const auto go = [&] {
            if (isInTabs)
                tabs().tabBar()->setFocus();
            else if (QApplication::focusWidget() != nullptr)
                QApplication::focusWidget()->clearFocus();
            ASSERT_EQ(focused(), isInTabs ? u"qt_tabwidget_tabbar"_s : QString());
        };
        tabs().setCurrentIndex(0);
        write(u"update mt.inventory set i4204 = '%1' where i4201 = '%2'"_s.arg(changed, first));
        go();
        press(Qt::Key_F5);
        EXPECT_EQ(table().model()->index(0, 1).data().toString(), changed);
        go();
        press(Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(focused(), u"TextFilter"_s);
        tabs().setCurrentIndex(1);
        go();
        press(Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(focused(), u"TextStandard"_s);
    }
}

TEST_F(RecordsWindowKeys, ReadAgainTheInstrumentsStaySelected) {
    start();
    const auto selected = [&] {
        QStringList assets;
        for (const auto& index : table().selectionModel()->selectedRows())
            assets << asset(index.row());
        return assets;
    };
    table().setFocus();
    for (int row = 0; row < 4; ++row)
        press(Qt::Key_Down);
    press(Qt::Key_Down, Qt::ShiftModifier);
    const auto before = selected();
    ASSERT_EQ(before.size(), 2);
    // It comes before them.
    write(u"update mt.inventory set i4201 = '0-FIRST' where i4201 = '%1'"_s.arg(asset(0)));
    press(Qt::Key_F5);
    EXPECT_EQ(asset(0), u"0-FIRST"_s);
    EXPECT_EQ(selected(), before);
    EXPECT_EQ(asset(table().currentIndex().row()), before.constLast());
    connectAgain();
    EXPECT_EQ(selected(), before);
    write(u"update mt.inventory set i4201 = 'ZZ-LAST' where i4201 = '%1'"_s.arg(before[0]));
    press(Qt::Key_F5);
    EXPECT_EQ(selected(), QStringList{before[1]});
}

TEST_F(RecordsWindowKeys, WithoutAConnectionNoPageAsksTheDatabaseAndEachSaysSo) {
    const auto lost = text(TextId::connectionLost);
    // Not longer ago than the page looks back at first.
    write(u"update mt.calibration set c2301 = '%1' where mtag = '1401'"_s.arg(day(-10)));
    start();
    openHistory(0);
    auto& records = control<QTableWidget>(window, u"TableRecords"_s);
    const int calibrations = records.rowCount();
    const auto label = [&](const QString& form, const QString& name) {
        return control<QLabel>(control<QWidget>(window, form), name).text();
    };
    tabs().setCurrentIndex(3);
    tabs().setCurrentIndex(1);
    auto& standard = control<QLineEdit>(window, u"TextStandard"_s);
    standard.setText(u"PM-100"_s);
    standard.setFocus();
    press(Qt::Key_Return);
    auto& uses = control<QTableView>(window, u"TableUses"_s);
    const int used = uses.model()->rowCount();
    ASSERT_GT(used, 0);
    tabs().setCurrentIndex(0);
    const int all = table().model()->rowCount();
    // From here on a statement would end in a box, which fails the test.
    disconnect();
    for (const bool isTyped : {true, false}) {
        if (isTyped) {
            control<QLineEdit>(window, u"TextFilter"_s).setFocus();
            press(Qt::Key_P);
            EXPECT_TRUE(
                QTest::qWaitFor([&] { return label(u"FormInstruments"_s, u"LabelShown"_s) == lost; }));
        } else {
            press(Qt::Key_F5);
        }
        EXPECT_EQ(table().model()->rowCount(), all);
        EXPECT_EQ(label(u"FormInstruments"_s, u"LabelShown"_s), lost);
    }
    auto& choice = control<QComboBox>(window, u"ComboShow"_s);
    choice.setCurrentIndex(choice.findText(u"Of one group"_s));
    EXPECT_EQ(choice.currentText(), text(TextId::recordsAll)) << "the groups are not known";
    pick(choice, u"Overdue"_s);
    EXPECT_EQ(table().model()->rowCount(), all);
    click(control<QPushButton>(control<QWidget>(window, u"FormInstruments"_s), u"CommandSave"_s));
    EXPECT_EQ(label(u"FormInstruments"_s, u"LabelOutcome"_s), lost);
    tabs().setCurrentIndex(1);
    press(Qt::Key_F5);
    EXPECT_EQ(label(u"FormStandardUse"_s, u"LabelUses"_s), lost);
    EXPECT_EQ(uses.model()->rowCount(), used);
    standard.setText(u"DMM-02"_s);
    standard.setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(label(u"FormStandardUse"_s, u"LabelUses"_s), lost);
    EXPECT_EQ(uses.model()->rowCount(), 0) << "those are of another standard";
    tabs().setCurrentIndex(3);
    press(Qt::Key_F5);
    EXPECT_EQ(label(u"FormPassRate"_s, u"LabelState"_s), lost);
    EXPECT_GT(control<QTableWidget>(window, u"TableRates"_s).rowCount(), 0);
    tabs().setCurrentIndex(fixedTabs);
    press(Qt::Key_F5);
    EXPECT_EQ(label(u"FormHistory"_s, u"LabelState"_s), lost);
    EXPECT_EQ(records.rowCount(), calibrations);
}

TEST_F(RecordsWindowKeys, CtrlCCopiesTheSelectedRowsOfEachTable) {
    start();
    int row = 0;
    while (asset(row) != u"PT-101")
        ++row;
    openHistory(row);
    auto& parts = control<QTabWidget>(window, u"TabsHistory"_s);
    struct Case {
        QString table;
        int tab;
        int part;
    };
    for (const auto& copied : {Case{u"TableLinesLeft"_s, fixedTabs, 0},
                               {u"TableDetails"_s, fixedTabs, 1},
                               {u"TableRecords"_s, fixedTabs, 0},
                               {u"TableRates"_s, 3, 0}}) {
        tabs().setCurrentIndex(copied.tab);
        parts.setCurrentIndex(copied.part);
        auto& shown = control<QTableView>(window, copied.table);
        ASSERT_TRUE(shown.isVisible()) << copied.table.toStdString();
        const int last = shown.model()->rowCount() - 1;
        ASSERT_GE(last, 0) << copied.table.toStdString();
        shown.setFocus();
        shown.selectRow(last);
        QApplication::clipboard()->clear();
        press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(),
                  copiedRows(*shown.model(), {last}, shownColumns(*shown.horizontalHeader())))
            << copied.table.toStdString();
    }
}

TEST_F(RecordsWindowKeys, CtrlWGoesBackToThePageBefore) {
    start();
    auto& close = control<QAction>(window, u"mnuClose"_s);
    EXPECT_FALSE(close.isEnabled());
    openHistory(0);
    EXPECT_TRUE(close.isEnabled());
    openHistory(1);
    tabs().setCurrentIndex(fixedTabs);
    tabs().setCurrentIndex(fixedTabs + 1);
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(tabs().currentIndex(), fixedTabs);
    EXPECT_EQ(focused(), u"TableRecords"_s);
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(tabs().currentIndex(), 0);
    EXPECT_EQ(focused(), u"TableInstruments"_s);
    EXPECT_FALSE(close.isEnabled());
    EXPECT_EQ(control<QTableWidget>(window, u"TableRates"_s).rowCount(), 0) << "it was never in front";
}

TEST_F(RecordsWindowKeys, ReturnOpensTheCurrentRowWhileNoneIsSelected) {
    start();
    while (focused() != u"TableInstruments")
        press(Qt::Key_Tab);
    ASSERT_FALSE(table().selectionModel()->hasSelection());
    press(Qt::Key_Return);
    EXPECT_EQ(histories(), QStringList{asset(0)});
}

TEST_F(RecordsWindowKeys, F10OpensTheMenuAndReturnClicksTheFocusedButton) {
    start();
    press(Qt::Key_F10);
    auto& file = control<QMenu>(window, u"mnuFile"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return file.isVisible(); }));
    file.close();
    const auto changed = u"BY RETURN"_s;
    write(u"update mt.inventory set i4204 = '%1' where i4201 = '%2'"_s.arg(changed, asset(0)));
    control<QPushButton>(control<QWidget>(window, u"FormInstruments"_s), u"CommandReadAgain"_s).setFocus();
    press(Qt::Key_Return);
    EXPECT_EQ(table().model()->index(0, 1).data().toString(), changed);
    control<QPushButton>(window, u"ButtonAbout"_s).setFocus();
    press(Qt::Key_Enter);
    EXPECT_EQ(abouts, 1);
}

} // namespace kelvane::testing
