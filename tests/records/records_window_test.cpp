#include "records/records_window.h"

#include "records/form_instruments.h"
#include "resources/text_id.h"
#include "tests/records/looks.h"
#include "tests/records/records_window_fixture.h"

#include <QAction>
#include <QInputDialog>
#include <QMenu>
#include <QTabBar>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(RecordsWindowOnDatabase, AsksForTheLoginAndShowsTheInstruments) {
    window.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return asksLogin(); }));
    EXPECT_FALSE(tabs().isEnabled());
    EXPECT_EQ(table().model()->rowCount(), 0);
    typeLogin();
    EXPECT_TRUE(tabs().isEnabled());
    EXPECT_EQ(QString::number(table().model()->rowCount()), value(u"select count(*) from mt.inventory"_s));
    click(control<QPushButton>(window, u"ButtonAbout"_s));
    EXPECT_EQ(abouts, 1);
}

TEST_F(RecordsWindowOnDatabase, ClosesWithALoginThatIsGivenUp) {
    window.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return asksLogin(); }));
    click(control<QPushButton>(login(), u"CommandCancel"_s));
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(RecordsWindowOnDatabase, OpensEachHistoryOnceInATab) {
    start();
    openHistory(1);
    openHistory(2);
    openHistory(1);
    EXPECT_EQ(histories(), (QStringList{asset(1), asset(2)}));
    EXPECT_EQ(tabs().currentIndex(), fixedTabs);
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(tabs().currentIndex(), fixedTabs + 1);
    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(histories(), QStringList{asset(1)});
    for (int tab = 0; tab < fixedTabs; ++tab) {
        tabs().setCurrentIndex(tab);
        QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    }
    EXPECT_EQ(tabs().count(), fixedTabs + 1) << "the lists stay";
}

TEST_F(RecordsWindowOnDatabase, TheFirstHistoryMovesNothing) {
    start();
    const auto& row = *tabs().tabBar();
    const int before = row.height();
    openHistory(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(row.height(), before);
}

TEST_F(RecordsWindowOnDatabase, OpensTheHistoryOfANumberThatIsFilledUpWithBlanks) {
    write(u"update mt.inventory set i4201 = 'PT-101    ' where i4201 = 'PT-101'"_s);
    start();
    int row = 0;
    while (row < table().model()->rowCount() && asset(row) != u"PT-101"_s)
        ++row;
    openHistory(row);
    EXPECT_EQ(histories(), QStringList(u"PT-101"_s));
    EXPECT_EQ(control<QTableView>(window, u"TableRecords"_s).model()->rowCount(), 3);
    closeHistories();
}

TEST_F(RecordsWindowOnDatabase, CutsALongCaptionOffAndHasItsWholeTextAsTheToolTip) {
    const auto number = u"R&D <b>"_s + QString(4000, u'W');
    write(u"update mt.inventory set i4201 = '%1' where i4201 = 'PT-101'"_s.arg(number));
    start();
    const auto size = window.size();
    int row = 0;
    while (row < table().model()->rowCount() && asset(row) != number)
        ++row;
    openHistory(row);
    ASSERT_EQ(histories().size(), 1);
    const auto caption = histories().constFirst();
    EXPECT_TRUE(caption.startsWith(u"R&&D <b>WWW"_s) && caption.endsWith(u'…')) << caption.toStdString();
    EXPECT_LT(caption.size(), 60);
    EXPECT_TRUE(tabs().tabToolTip(fixedTabs).startsWith(u"<qt>R&amp;D &lt;b&gt;WWW"_s));
    EXPECT_EQ(window.size(), size);
    openHistory(0);
    EXPECT_EQ(tabs().tabToolTip(fixedTabs + 1), QString()) << "a short one is shown whole";
    closeHistories();
}

TEST_F(RecordsWindowOnDatabase, AfterLogOutShowsNothingOfTheSession) {
    start();
    openHistory(0);
    control<QAction>(window, u"mnuLogout"_s).trigger();
    EXPECT_TRUE(asksLogin());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(histories(), QStringList());
    EXPECT_EQ(table().model()->rowCount(), 0);
    typeLogin(users::editorOfAbc);
    QStringList shown;
    for (int row = 0; row < table().model()->rowCount(); ++row)
        shown << asset(row);
    shown.sort();
    EXPECT_EQ(shown, values(u"select i4201 from abc.inventory"_s)) << "those of the other owner";
}

TEST_F(RecordsWindowOnDatabase, KeepsWhatIsOpenWhenTheConnectionIsLostAndMadeAgain) {
    start();
    openHistory(0);
    auto& again = control<QPushButton>(window, u"CommandConnectAgain"_s);
    EXPECT_FALSE(again.isVisible());
    disconnect();
    EXPECT_TRUE(again.isVisible());
    EXPECT_EQ(histories().size(), 1);
    EXPECT_GT(table().model()->rowCount(), 0);
    ui.expectBox(text(TextId::connectionLostAdvice), text(TextId::connectionLost), box::warning);
    openHistory(5);
    EXPECT_EQ(histories().size(), 1);

    click(again);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asksLogin(); }));
    EXPECT_EQ(control<QLineEdit>(login(), u"TextUsername"_s).text(), users::technician);
    typeLogin();
    EXPECT_FALSE(again.isVisible());
    EXPECT_EQ(histories().size(), 1);
    openHistory(5);
    EXPECT_EQ(histories().size(), 2);
}

TEST_F(RecordsWindowOnDatabase, LeadsFromAHistoryToTheUsesOfAStandardAndBack) {
    write(
        u"insert into mt.standards (c2430,mtag,ctag) select (select mtag from mt.inventory where i4201 = "
        "'DMM-01'),mtag,ctag from mt.calibration where c2339 = '1' and mtag = (select mtag from mt.inventory "
        "where i4201 = 'PT-101')"_s);
    write(
        u"update mt.calibration set c2301 = '%1' where c2339 = '1' and mtag = (select mtag from mt.inventory "
        "where i4201 = 'PT-101')"_s.arg(day(-10)));
    start();
    int row = 0;
    while (asset(row) != u"PT-101")
        ++row;
    openHistory(row);
    auto& standards = control<QPushButton>(window, u"CommandUses"_s);
    ASSERT_TRUE(standards.isEnabled());
    auto* offered = standards.menu()->actions().value(0);
    for (auto* action : standards.menu()->actions())
        offered = action->text() == u"DMM-01" ? action : offered;
    ASSERT_NE(offered, nullptr);
    offered->trigger();
    EXPECT_EQ(tabs().currentIndex(), 1);
    auto& uses = control<QTableView>(window, u"TableUses"_s);
    QStringList used;
    for (int use = 0; use < uses.model()->rowCount(); ++use)
        used << uses.model()->index(use, 0).data().toString();
    ASSERT_TRUE(used.contains(u"PT-101"_s)) << used.join(u',').toStdString();
    closeHistories();
    tabs().setCurrentIndex(1);
    uses.selectRow(static_cast<int>(used.indexOf(u"PT-101"_s)));
    QTest::keyClick(&uses, Qt::Key_Return);
    EXPECT_EQ(histories(), QStringList{u"PT-101"_s});
}

TEST_F(RecordsWindowOnDatabase, ShowsUsesOfAStandardSinceTheRecordThatLeadsThere) {
    const auto mtag = u"(select mtag from mt.inventory where i4201 = 'PT-101')"_s;
    write(u"update mt.calibration set c2301 = '%1' where mtag = %2"_s.arg(day(-1500), mtag));
    write(u"insert into mt.standards (c2430,mtag,ctag) select (select mtag from mt.inventory where i4201 = "
          "'DMM-01'),mtag,ctag from mt.calibration where mtag = %1"_s.arg(mtag));
    start();
    int row = 0;
    while (asset(row) != u"PT-101")
        ++row;
    openHistory(row);
    QAction* offered = nullptr;
    for (auto* action : control<QPushButton>(window, u"CommandUses"_s).menu()->actions())
        offered = action->text() == u"DMM-01" ? action : offered;
    ASSERT_NE(offered, nullptr);
    offered->trigger();
    auto& uses = control<QTableView>(window, u"TableUses"_s);
    ASSERT_GT(uses.model()->rowCount(), 0);
    const auto last = uses.model()->index(uses.model()->rowCount() - 1, 0);
    EXPECT_EQ(last.data().toString(), u"PT-101"_s);
    EXPECT_EQ(last.siblingAtColumn(2).data().toString(), day(-1500));
}

TEST_F(RecordsWindowOnDatabase, MakesAPackageWithAnotherLoginAndKeepsItsOwn) {
    start();
    int row = 0;
    while (asset(row) != u"PT-101")
        ++row;
    table().selectRow(row);
    click(control<QPushButton>(window, u"CommandPackage"_s));
    EXPECT_TRUE(QTest::qWaitFor([&] { return asksLogin(); }));
    QTimer typing;
    QObject::connect(&typing, &QTimer::timeout, &window, [&] {
        auto* dialog = window.findChild<QInputDialog*>();
        if (dialog == nullptr || !dialog->isVisible())
            return;
        typing.stop();
        auto& name = *dialog->findChild<QLineEdit*>();
        QTest::keyClicks(&name, u"CREW"_s);
        QTest::keyClick(&name, Qt::Key_Return);
    });
    typing.start(1);
    typeLogin(users::editor);
    auto& outcome = control<QLabel>(control<QWidget>(window, u"FormInstruments"_s), u"LabelOutcome"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return outcome.isVisible(); }));
    EXPECT_EQ(outcome.text(), text(TextId::packageMade).arg(u"CREW"_s).arg(1));
    EXPECT_EQ(session.SessionUser, users::technician);
    EXPECT_TRUE(session.SessionConnected);
    EXPECT_THROW(sharedConnection(session).execute(u"delete from mt.hvm_kv_task_packages"_s), Error);
}

TEST_F(RecordsWindowOnDatabase, StoresTheColumnsWhenItCloses) {
    start();
    table().setColumnHidden(1, true);
    window.close();
    EXPECT_TRUE(settings.values.value(u"Records/Instruments"_s).contains(u"-Description"_s));
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(RecordsWindowOnDatabase, WritesNothing) {
    ReadingSession::LoggedInSession::logIn(users::technician);
    const auto before = rowsInDatabase();
    disconnect();
    start();
    for (int row = 0; row < 12; ++row)
        openHistory(row);
    for (int tab = 0; tab < fixedTabs; ++tab)
        tabs().setCurrentIndex(tab);
    tabs().setCurrentIndex(1);
    auto& standard = control<QLineEdit>(window, u"TextStandard"_s);
    QTest::keyClicks(&standard, u"DMM-01"_s);
    QTest::keyClick(&standard, Qt::Key_Return);
    tabs().setCurrentIndex(0);
    for (const auto& choice : {u"Overdue"_s, u"Of one group"_s, u"Of one model"_s, u"Of one description"_s})
        pick(control<QComboBox>(window, u"ComboShow"_s), choice);
    // What a page tried to write would have been refused, and its report would have been a box.
    EXPECT_EQ(rowsInDatabase(), before);
    EXPECT_EQ(folder.read(u"errors.log"_s), QString());
}

TEST_F(RecordsWindowOnDatabase, FitsASmallScreenInGermanAndLargeLetters) {
    const ShownIn german(u"de"_s);
    const LettersOfSize large(15);
    disconnect();
    RecordsWindow made(
        session,
        {[this](const QString& user, const QString& password) { logIn(user, password); }, [](QWidget*) {}});
    logIn(users::technician, u"kelvane"_s);
    made.show();
    auto& instruments = control<FormInstruments>(made, u"FormInstruments"_s);
    instruments.readAgain();
    Q_EMIT instruments.historyWanted({.asset = u"PT-101"_s});
    EXPECT_EQ(control<QTabWidget>(made, u"TabsRecords"_s).count(), fixedTabs + 1);
    EXPECT_LE(made.minimumSizeHint().width(), smallScreen.width());
    EXPECT_LE(made.minimumSizeHint().height(), smallScreen.height());
}

TEST_F(RecordsWindowOnDatabase, LooksWholeInEachSizeAndLanguage) {
    expectNothingCutOff(u"records-window"_s,
                        [&] {
                            disconnect();
                            auto made = std::make_unique<RecordsWindow>(
                                session,
                                RecordsEnvironment{[this](const QString& user, const QString& password) {
                                                       logIn(user, password);
                                                   },
                                                   [](QWidget*) {}});
                            made->start();
                            auto* dialog = made->findChild<LoginDialog*>();
                            control<QLineEdit>(*dialog, u"TextUsername"_s).setText(users::technician);
                            control<QLineEdit>(*dialog, u"TextPassword"_s).setText(u"kelvane"_s);
                            control<QPushButton>(*dialog, u"CommandConnect"_s).click();
                            auto& list = control<QTableView>(*made, u"TableInstruments"_s);
                            list.selectRow(25);
                            QTest::keyClick(&list, Qt::Key_Return);
                            return made;
                        },
                        {1000, 760});
}

} // namespace kelvane::testing
