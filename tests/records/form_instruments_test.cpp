#include "records/form_instruments.h"

#include "resources/text_id.h"
#include "testkit/screen_operator.h"
#include "testkit/shown_in.h"
#include "tests/records/looks.h"
#include "tests/records/made_up_instruments.h"
#include "tests/records/reading_session.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The list of instruments on the screen.
class ShownInstruments {
  public:
    explicit ShownInstruments(Session& session) : form(session) {
        form.resize(1000, 600);
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        form.readAgain();
    }

    QTableView& table() { return control<QTableView>(form, u"TableInstruments"_s); }
    QHeaderView& header() { return *table().horizontalHeader(); }
    QAbstractItemModel& rows() { return *table().model(); }
    QString cell(int row, int column) { return rows().index(row, column).data().toString(); }
    QStringList assets() {
        QStringList found;
        for (int row = 0; row < rows().rowCount(); ++row)
            found << cell(row, 0);
        return found;
    }
    QString state() { return control<QLabel>(form, u"LabelShown"_s).text(); }
    void type(const QString& text) {
        QTest::keyClick(&form, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }
    void clickTitle(int column) {
        QTest::mouseClick(header().viewport(), Qt::LeftButton, {},
                          QPoint(header().sectionViewportPosition(column) + 20, header().height() / 2));
    }
    void select(int row) {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                          table().visualRect(rows().index(row, 0)).center());
    }
    /// Chooses an entry of a menu by its text.
    static void trigger(QMenu& menu, const QString& entry) {
        for (auto* action : menu.actions()) {
            if (action->text() == entry) {
                menu.setActiveAction(action);
                QTest::keyClick(&menu, Qt::Key_Return);
                return;
            }
        }
        ADD_FAILURE() << entry.toStdString();
    }

    FormInstruments form;
};

class InstrumentsScreen : public ReadingSession {
  protected:
    ShownInstruments screen{session};
};

TEST_F(InstrumentsScreen, ShowsAllAtFirst) {
    EXPECT_EQ(screen.state(), text(TextId::recordsShown).arg(value(u"select count(*) from mt.inventory"_s)));
}

TEST_F(InstrumentsScreen, FiltersWhatIsTypedAfterAPause) {
    const auto before = screen.assets().size();
    screen.type(u"pt-1"_s);
    EXPECT_EQ(screen.assets().size(), before) << "not with each key";
    EXPECT_TRUE(QTest::qWaitFor([&] { return screen.assets().size() < before; }));
    for (const auto& asset : screen.assets())
        EXPECT_TRUE(asset.startsWith(u"PT-1"_s)) << asset.toStdString();
    screen.type(u"no such instrument's"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(screen.assets(), QStringList()) << "Return does not wait";
    EXPECT_EQ(screen.state(), text(TextId::recordsNone));
}

TEST_F(InstrumentsScreen, ShowsTheSavedFilters) {
    setCurrent(u"PT-101"_s, u"c2303 = '%1'"_s.arg(day(-1)));
    setCurrent(u"PT-102"_s, u"c2303 = '%1'"_s.arg(day(45)));
    auto& choice = control<QComboBox>(screen.form, u"ComboShow"_s);
    struct Case {
        QString row;
        bool hasOverdue;
        bool hasLater;
    };
    for (const auto& test : {Case{u"Overdue"_s, true, false},
                             {u"Due within 30 days"_s, true, false},
                             {u"Due within 60 days"_s, true, true},
                             {u"All instruments"_s, true, true}}) {
        pick(choice, test.row);
        EXPECT_EQ(screen.assets().contains(u"PT-101"_s), test.hasOverdue) << test.row.toStdString();
        EXPECT_EQ(screen.assets().contains(u"PT-102"_s), test.hasLater) << test.row.toStdString();
    }
}

TEST_F(InstrumentsScreen, OffersTheValuesOfTheDatabaseToChooseFrom) {
    auto& choice = control<QComboBox>(screen.form, u"ComboShow"_s);
    auto& values = control<QComboBox>(screen.form, u"ComboValue"_s);
    EXPECT_FALSE(values.isVisible());
    for (const auto& [row, column] : {std::pair{u"Of one group"_s, u"i4240"_s},
                                      {u"Of one model"_s, u"i4203"_s},
                                      {u"Of one description"_s, u"i4204"_s}}) {
        pick(choice, row);
        EXPECT_TRUE(values.isVisible());
        ASSERT_GT(values.count(), 1) << row.toStdString();
        pick(values, values.itemText(values.count() - 1));
        auto expected = this->values(u"select i4201 from mt.inventory where %1 = '%2'"_s.arg(
            column, values.currentText().replace(u"'"_s, u"''"_s)));
        auto found = screen.assets();
        found.sort();
        EXPECT_EQ(found, expected) << row.toStdString();
    }
    pick(choice, text(TextId::recordsAll));
    EXPECT_FALSE(values.isVisible());
}

TEST_F(InstrumentsScreen, IsSortedByATitleThatIsClicked) {
    screen.clickTitle(1);
    EXPECT_EQ(screen.header().sortIndicatorSection(), 1);
    const auto ascending = screen.cell(0, 1);
    screen.clickTitle(1);
    EXPECT_EQ(screen.header().sortIndicatorOrder(), Qt::DescendingOrder);
    EXPECT_GT(screen.cell(0, 1), ascending);
    screen.clickTitle(12);
    EXPECT_EQ(screen.header().sortIndicatorSection(), 1) << "the database can't order by calibrators";
    EXPECT_EQ(screen.header().sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(InstrumentsScreen, HasItsColumnsChosenAndSortedFromTheKeyboard) {
    auto& columns = control<QPushButton>(screen.form, u"CommandColumns"_s);
    auto& menu = *columns.menu();
    const auto inMenu = [&](const std::function<void()>& use) {
        QTimer::singleShot(0, &menu, [&] {
            EXPECT_TRUE(menu.isVisible());
            use();
            menu.close();
        });
        columns.setFocus();
        QTest::keyClick(&columns, Qt::Key_Space);
    };
    EXPECT_TRUE(screen.header().isSectionHidden(4));
    inMenu([&] { ShownInstruments::trigger(menu, u"Serial Number"_s); });
    EXPECT_FALSE(screen.header().isSectionHidden(4));
    inMenu([&] { ShownInstruments::trigger(menu, u"Description"_s); });
    EXPECT_TRUE(screen.header().isSectionHidden(1));
    inMenu([&] {
        auto& order = *menu.findChild<QMenu*>(u"MenuSortBy"_s);
        order.actions().at(3)->trigger();
    });
    EXPECT_EQ(screen.header().sortIndicatorSection(), 3);
    inMenu([&] {
        auto& order = *menu.findChild<QMenu*>(u"MenuSortBy"_s);
        order.actions().constLast()->trigger();
    });
    EXPECT_EQ(screen.header().sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(InstrumentsScreen, KeepsItsColumns) {
    screen.header().moveSection(3, 0);
    screen.header().resizeSection(3, 77);
    screen.header().setSectionHidden(1, true);
    screen.form.storeLayout();
    ShownInstruments next(session);
    EXPECT_EQ(next.header().visualIndex(3), 0);
    EXPECT_EQ(next.header().sectionSize(3), 77);
    EXPECT_TRUE(next.header().isSectionHidden(1));
}

TEST_F(InstrumentsScreen, CopiesTheSelectedRowsWithTheTitles) {
    screen.select(0);
    QTest::keyClick(&screen.table(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&screen.table(), Qt::Key_C, Qt::ControlModifier);
    const auto lines = QApplication::clipboard()->text().split(u"\r\n"_s);
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines[0].startsWith(u"Asset\tDescription\tModel\t"_s)) << lines[0].toStdString();
    EXPECT_EQ(lines[1].section(u'\t', 0, 1), screen.cell(0, 0) + u'\t' + screen.cell(0, 1));
    EXPECT_EQ(lines[2].section(u'\t', 0, 0), screen.cell(1, 0));
}

TEST_F(InstrumentsScreen, SavesAListInTheFormThatIsChosen) {
    setCurrent(u"PT-101"_s, u"c2303 = '%1'"_s.arg(day(-7)));
    pick(control<QComboBox>(screen.form, u"ComboShow"_s), u"Overdue"_s);
    const auto path = folder.path() + u"/overdue.csv"_s;
    QTimer::singleShot(0, &screen.form, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->selectNameFilter(text(TextId::recordsCsvCommas));
        auto& name = *dialog->findChild<QLineEdit*>();
        name.setText(path);
        QTest::keyClick(&name, Qt::Key_Return);
    });
    click(control<QPushButton>(screen.form, u"CommandSave"_s));
    EXPECT_EQ(control<QLabel>(screen.form, u"LabelOutcome"_s).text(), u"Saved: "_s + path);
    const auto lines = folder.read(u"overdue.csv"_s).split(u"\r\n"_s);
    EXPECT_EQ(lines.size(), screen.assets().size() + 2);
    EXPECT_TRUE(lines[0].startsWith(u"Asset;Description;Model;Location;Last Calibration;Result;Due;"_s));
    const auto row = lines.filter(u"PT-101;"_s).value(0);
    EXPECT_TRUE(row.contains(u";"_s + day(-7) + u";-7;"_s)) << row.toStdString();
    EXPECT_EQ(settings.values.value(u"Records/CsvForm"_s), u"Commas"_s);
}

TEST_F(InstrumentsScreen, OpensTheHistoryByReturnAndByADoubleClick) {
    QSignalSpy wanted(&screen.form, &FormInstruments::historyWanted);
    auto& command = control<QPushButton>(screen.form, u"CommandHistory"_s);
    EXPECT_FALSE(command.isEnabled()) << "nothing is selected";
    screen.select(2);
    QTest::keyClick(&screen.table(), Qt::Key_Return);
    screen.select(3);
    QTest::mouseDClick(screen.table().viewport(), Qt::LeftButton, {},
                       screen.table().visualRect(screen.rows().index(3, 0)).center());
    click(command);
    ASSERT_EQ(wanted.size(), 3);
    EXPECT_EQ(wanted[0][0].value<InstrumentSummary>().asset, screen.cell(2, 0));
    EXPECT_EQ(wanted[1][0].value<InstrumentSummary>().asset, screen.cell(3, 0));
}

TEST_F(InstrumentsScreen, WantsAPackageOfTheSelectedInstruments) {
    QSignalSpy wanted(&screen.form, &FormInstruments::packageWanted);
    auto& command = control<QPushButton>(screen.form, u"CommandPackage"_s);
    EXPECT_FALSE(command.isEnabled()) << "nothing is selected";
    screen.select(3);
    QTest::keyClick(&screen.table(), Qt::Key_Up, Qt::ShiftModifier);
    click(command);
    ASSERT_EQ(wanted.size(), 1);
    EXPECT_EQ(wanted[0][0].toStringList(), (QStringList{screen.cell(2, 0), screen.cell(3, 0)}));
    screen.form.tell(u"made"_s);
    EXPECT_EQ(control<QLabel>(screen.form, u"LabelOutcome"_s).text(), u"made"_s);
}

TEST_F(InstrumentsScreen, WantsTheCertificatesOfTheSelectedInstruments) {
    QSignalSpy wanted(&screen.form, &FormInstruments::certificatesWanted);
    auto& command = control<QPushButton>(screen.form, u"CommandCertificates"_s);
    EXPECT_FALSE(command.isEnabled()) << "nothing is selected";
    screen.select(3);
    QTest::keyClick(&screen.table(), Qt::Key_Up, Qt::ShiftModifier);
    click(command);
    ASSERT_EQ(wanted.size(), 1);
    EXPECT_EQ(wanted[0][0].toStringList(), (QStringList{screen.cell(2, 0), screen.cell(3, 0)}));
}

TEST_F(InstrumentsScreen, BeginsWithTheChoiceOfTheLastTime) {
    setCurrent(u"PT-101"_s, u"c2303 = '%1'"_s.arg(day(-7)));
    pick(control<QComboBox>(screen.form, u"ComboShow"_s), u"Overdue"_s);
    ShownInstruments next(session);
    EXPECT_EQ(control<QComboBox>(next.form, u"ComboShow"_s).currentText(), u"Overdue"_s);
    EXPECT_EQ(next.assets(), screen.assets());
    next.form.forget();
    next.form.readAgain();
    EXPECT_GT(next.assets().size(), screen.assets().size()) << "all after log out";
}

TEST_F(InstrumentsScreen, ReadsAgainWhenItIsAsked) {
    write(u"update mt.inventory set i4204 = 'ANOTHER' where i4201 = '%1'"_s.arg(screen.cell(0, 0)));
    EXPECT_NE(screen.cell(0, 1), u"ANOTHER"_s);
    QTest::keyClick(&screen.table(), Qt::Key_F5);
    EXPECT_EQ(screen.cell(0, 1), u"ANOTHER"_s);
}

TEST_F(InstrumentsScreen, OfADatabaseThatFailsNeverSaysThatTheseAreAll) {
    auto& choice = control<QComboBox>(screen.form, u"ComboShow"_s);
    pick(choice, u"Due within 90 days"_s);
    const auto before = screen.assets();
    closeConnection(session);
    constexpr int closed = static_cast<int>(ErrorNumber::connectionClosed);
    ui.expectReport(closed, u"History,values"_s);
    QTest::keyClick(&choice, Qt::Key_Down);
    EXPECT_EQ(choice.currentText(), u"Due within 90 days"_s) << "the groups could not be read";
    EXPECT_EQ(screen.assets(), before);
    ui.expectReport(closed, u"History,instruments"_s);
    QTest::keyClick(&screen.table(), Qt::Key_F5);
    EXPECT_EQ(screen.state(), text(TextId::recordsIncomplete));
}

TEST_F(InstrumentsScreen, BehindTheBoxOfAFailedReadingNothingIsSaidOfTheInstruments) {
    closeConnection(session);
    ui.expectReport(static_cast<int>(ErrorNumber::connectionClosed), u"History,instruments"_s);
    QString behind = u"nothing came"_s;
    ui.onBox = [&] { behind = screen.state(); };
    QTest::keyClick(&screen.table(), Qt::Key_F5);
    EXPECT_EQ(behind, QString());
}

TEST_F(InstrumentsScreen, AfterLogOutShowsNothing) {
    screen.type(u"pt-1"_s);
    screen.form.forget();
    QTest::qWait(200);
    EXPECT_EQ(screen.rows().rowCount(), 0);
    EXPECT_EQ(control<QLineEdit>(screen.form, u"TextFilter"_s).text(), QString());
    EXPECT_EQ(screen.state(), text(TextId::recordsNotLoggedIn));
}

TEST_F(InstrumentsScreen, LooksWholeInEachSizeAndLanguage) {
    setCurrent(u"PT-101"_s, u"c2303 = '%1', c2323 = 'N'"_s.arg(day(-7)));
    expectNothingCutOff(u"records-instruments"_s, [&] {
        auto made = std::make_unique<FormInstruments>(session);
        made->readAgain();
        return made;
    });
}

class InstrumentsOfALostDatabase : public MadeUpSession {};

TEST_F(InstrumentsOfALostDatabase, StayAndAreToldToBeNotAll) {
    inventory.instruments = 1000;
    inventory.failAt = 333;
    inventory.isLoss = true;
    ShownInstruments screen(session);
    EXPECT_EQ(screen.state(), text(TextId::recordsShown).arg(1000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return screen.table().verticalScrollBar()->maximum() > 0; }));
    screen.table().scrollTo(screen.rows().index(199, 0));
    QTest::qWait(20);
    EXPECT_EQ(screen.state(), text(TextId::recordsShown).arg(1000));
    ui.expectReport(10054, u"History,instruments"_s);
    screen.table().scrollTo(screen.rows().index(340, 0));
    const auto told = text(TextId::connectionLost) + u' ' + text(TextId::recordsIncomplete);
    EXPECT_TRUE(QTest::qWaitFor([&] { return screen.state() == told; }));
    EXPECT_EQ(screen.cell(340, 0), u"I-00340"_s);
    screen.table().scrollToBottom();
    QTest::qWait(20);
    EXPECT_EQ(screen.rows().rowCount(), 1000);
}

TEST_F(InstrumentsOfALostDatabase, AreNotCopiedAndTheClipboardKeepsItsText) {
    inventory.instruments = 1000;
    inventory.failAt = 333;
    inventory.isLoss = true;
    ShownInstruments screen(session);
    QApplication::clipboard()->setText(u"before"_s);
    screen.table().setFocus();
    QTest::keyClick(&screen.table(), Qt::Key_A, Qt::ControlModifier);
    ui.expectReport(10054, u"History,instruments"_s);
    QTest::keyClick(&screen.table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"before"_s);
    EXPECT_EQ(control<QLabel>(screen.form, u"LabelOutcome"_s).text(), text(TextId::recordsIncomplete));
}

} // namespace kelvane::testing
