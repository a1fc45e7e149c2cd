// The window of the records from the keyboard.
#include "records/records_page.h"
#include "resources/text_id.h"
#include "tests/records/records_window_fixture.h"

#include <QAction>
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

} // namespace kelvane::testing
