#pragma once

#include "data/history/instruments.h"
#include "records/login_dialog.h"

#include <QMainWindow>

class QAction;
class QTabWidget;

namespace kelvane {

class FormHistory;
class FormInstruments;
class FormPassRate;
class StatusLine;

/// What the window of the records needs of the program around it.
struct RecordsEnvironment {
    LogIn logIn;
    /// Opens the about box over a window.
    std::function<void(QWidget* window)> showAbout;
};

/// The window of the records: a tab for the list of instruments, one for the pass rates, and one for each
/// history that is open. It closes without a question, since nothing in it can be lost.
class RecordsWindow final : public QMainWindow {
    Q_OBJECT
  public:
    /// The session has to outlive it.
    RecordsWindow(Session& session, RecordsEnvironment environment);

    /// Shows the window and asks for the login.
    void start();
    /// Shows at once who is logged in, or that the connection is lost.
    void showSessionState();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildMenu();
    void buildTabs();
    /// Logging in after log out shows the list anew; connecting again reads what is open once more.
    void askLogin(LoginDialog::Purpose purpose);
    void readAll();
    bool offersConnecting() const;
    void logOut();
    void closeHistories();
    void showHistory(const InstrumentSummary& instrument);
    void closeTab(int tab);

    Session& session_;
    RecordsEnvironment environment_;
    QTabWidget* tabs_;
    FormInstruments* instruments_;
    FormPassRate* passRate_;
    StatusLine* statusLine_;
    QAction* logOut_ = nullptr;
    /// From a login to log out, also while the connection is lost.
    bool isLoggedIn_ = false;
};

} // namespace kelvane
