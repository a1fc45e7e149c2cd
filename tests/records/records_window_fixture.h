#pragma once

#include "data/session_values.h"
#include "records/records_window.h"
#include "testkit/screen_operator.h"
#include "tests/records/reading_session.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

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
    /// Of the tabs that can be closed.
    QStringList histories() {
        QStringList captions;
        for (int tab = fixedTabs; tab < tabs().count(); ++tab)
            captions << tabs().tabText(tab);
        return captions;
    }
    void closeHistories() {
        while (tabs().count() > fixedTabs) {
            tabs().setCurrentIndex(fixedTabs);
            QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
        }
        // They are deleted by the event loop.
        QTest::qWait(1);
    }
    /// Loses the connection and makes it again.
    void connectAgain() {
        disconnect();
        click(control<QPushButton>(window, u"CommandConnectAgain"_s));
        EXPECT_TRUE(QTest::qWaitFor([&] { return asksLogin(); }));
        typeLogin();
    }
    /// A key as the window system sends it: it goes where the keyboard is.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }
    /// The name of the control that has the keyboard.
    static QString focused() {
        const auto* widget = QApplication::focusWidget();
        return widget == nullptr ? QString() : widget->objectName();
    }
    QString asset(int row) { return table().model()->index(row, 0).data().toString(); }
    QString rowsInDatabase() {
        QStringList counts;
        for (const auto& table : {u"mt.calibration"_s, u"mt.inventory"_s, u"mt.hvm_kv_task_inuse"_s,
                                  u"mt.hvm_kv_task_packages"_s, u"mt.calresults"_s})
            counts << value(u"select count(*) from "_s + table);
        return counts.join(u' ');
    }

    /// The lists, which have no history.
    static constexpr int fixedTabs = 4;
    int abouts = 0;
    RecordsWindow window{session,
                         {[this](const QString& user, const QString& password) { logIn(user, password); },
                          [this](QWidget*) { ++abouts; },
                          {openConnections(),
                           [this](Session& writer, const QString& user, const QString& password) {
                               sharedConnection(writer).open(database.connectionString(), user, password);
                               writer.SessionUser = user;
                               writer.SessionConnected = true;
                               readSessionValues(writer, user);
                           }},
                          {folder.path()}}};
};

} // namespace kelvane::testing
