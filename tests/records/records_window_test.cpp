#include "records/records_window.h"

#include "data/session_values.h"
#include "resources/text_id.h"
#include "testkit/screen_operator.h"
#include "tests/records/looks.h"
#include "tests/records/reading_session.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The window over a session that is logged out at first, and whose connection refuses to write.
class RecordsWindowOnDatabase : public ReadingSession {
  protected:
    RecordsWindowOnDatabase() { disconnect(); }
    ~RecordsWindowOnDatabase() override { window.close(); }

    void disconnect() {
        closeConnection(session);
        session.SessionConnected = false;
        window.showSessionState();
    }
    void logIn(const QString& user, const QString& password) {
        sharedConnection(session).open(database.connectionString(), user, password);
        session.SessionUser = user;
        session.SessionConnected = true;
        readSessionValues(session, user);
    }
    QWidget& login() {
        auto* dialog = window.findChild<LoginDialog*>();
        EXPECT_NE(dialog, nullptr);
        return *dialog;
    }
    bool asksLogin() const {
        const auto* dialog = window.findChild<LoginDialog*>();
        return dialog != nullptr && dialog->isVisible();
    }
    void typeLogin(const QString& user = users::technician) {
        auto& name = control<QLineEdit>(login(), u"TextUsername"_s);
        if (!name.isReadOnly())
            name.setText(user);
        auto& secret = control<QLineEdit>(login(), u"TextPassword"_s);
        QTest::keyClicks(&secret, u"kelvane"_s);
        QTest::keyClick(&secret, Qt::Key_Return);
        // The dialog is deleted by the event loop.
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.findChild<LoginDialog*>() == nullptr; }));
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void start() {
        window.start();
        EXPECT_TRUE(QTest::qWaitFor([&] { return asksLogin(); }));
        typeLogin();
    }
    QTabWidget& tabs() { return control<QTabWidget>(window, u"TabsRecords"_s); }
    QTableView& table() { return control<QTableView>(window, u"TableInstruments"_s); }
    void openHistory(int row) {
        tabs().setCurrentIndex(0);
        table().selectRow(row);
        QTest::keyClick(&table(), Qt::Key_Return);
    }
    QStringList openTabs() {
        QStringList captions;
        for (int tab = 0; tab < tabs().count(); ++tab)
            captions << tabs().tabText(tab);
        return captions;
    }
    /// The tabs that are always there.
    static QStringList lists() { return {text(TextId::recordsInstruments), text(TextId::passRateTab)}; }
    QString asset(int row) { return table().model()->index(row, 0).data().toString(); }
    QString rowsInDatabase() {
        QStringList counts;
        for (const auto& table : {u"mt.calibration"_s, u"mt.inventory"_s, u"mt.hvm_kv_task_inuse"_s,
                                  u"mt.hvm_kv_task_packages"_s, u"mt.calresults"_s})
            counts << value(u"select count(*) from "_s + table);
        return counts.join(u' ');
    }

    int abouts = 0;
    RecordsWindow window{session,
                         {[this](const QString& user, const QString& password) { logIn(user, password); },
                          [this](QWidget*) { ++abouts; }}};
};

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
    EXPECT_EQ(openTabs(), lists() + QStringList({asset(1), asset(2)}));
    EXPECT_EQ(tabs().tabText(tabs().currentIndex()), asset(1));
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(tabs().tabText(tabs().currentIndex()), asset(2));
    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(openTabs(), lists() + QStringList(asset(1)));
    for (int tab = 0; tab < lists().size(); ++tab) {
        tabs().setCurrentIndex(tab);
        QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    }
    EXPECT_EQ(openTabs(), lists() + QStringList(asset(1))) << "only histories close";
}

TEST_F(RecordsWindowOnDatabase, AfterLogOutShowsNothingOfTheSession) {
    start();
    openHistory(0);
    control<QAction>(window, u"mnuLogout"_s).trigger();
    EXPECT_TRUE(asksLogin());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(openTabs(), lists());
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
    EXPECT_EQ(tabs().count(), lists().size() + 1);
    EXPECT_GT(table().model()->rowCount(), 0);
    ui.expectBox(text(TextId::connectionLostAdvice), text(TextId::connectionLost), box::warning);
    openHistory(5);
    EXPECT_EQ(tabs().count(), lists().size() + 1);

    click(again);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asksLogin(); }));
    EXPECT_EQ(control<QLineEdit>(login(), u"TextUsername"_s).text(), users::technician);
    typeLogin();
    EXPECT_FALSE(again.isVisible());
    EXPECT_EQ(tabs().count(), lists().size() + 1);
    openHistory(5);
    EXPECT_EQ(tabs().count(), lists().size() + 2);
}

TEST_F(RecordsWindowOnDatabase, StoresTheColumnsWhenItCloses) {
    start();
    table().setColumnHidden(1, true);
    window.close();
    EXPECT_TRUE(settings.values.value(u"Records/Instruments"_s).contains(u"-Description="_s));
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(RecordsWindowOnDatabase, WritesNothing) {
    ReadingSession::LoggedInSession::logIn(users::technician);
    const auto before = rowsInDatabase();
    disconnect();
    start();
    for (int row = 0; row < 12; ++row)
        openHistory(row);
    tabs().setCurrentIndex(1);
    tabs().setCurrentIndex(0);
    for (const auto& choice : {u"Overdue"_s, u"Of one group"_s, u"Of one model"_s, u"Of one description"_s})
        pick(control<QComboBox>(window, u"ComboShow"_s), choice);
    // What a page tried to write would have been refused, and its report would have been a box.
    EXPECT_EQ(rowsInDatabase(), before);
    EXPECT_EQ(folder.read(u"errors.log"_s), QString());
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
