#pragma once

#include "data/history/instruments.h"
#include "records/login_dialog.h"
#include "records/package_making.h"

#include <QMainWindow>

class QAction;
class QTabWidget;

namespace kelvane {

class CertificateWindows;
class FormHistory;
class FormInstruments;
class FormPassRate;
class FormStandardUse;
class FormUnrecorded;
class RecordsPage;
class StatusLine;

/// What the window of the records needs of the program around it.
struct RecordsEnvironment {
    LogIn logIn;
    /// Opens the about box over a window.
    std::function<void(QWidget* window)> showAbout;
    /// For a task package.
    PackageAccess packages = {};
    /// Where a workstation may have its files (journal, layouts of the site): the folder in which the program
    /// was started, and the workstation's own.
    QStringList workstationFolders = {};
};

/// The window of the records: a tab for the list of instruments, for the uses of a standard, for results
/// without a record and for the pass rates, and one for each history that is open. It closes without a
/// question, since nothing in it can be lost.
class RecordsWindow final : public QMainWindow {
    Q_OBJECT
  public:
    /// The session has to outlive it.
    RecordsWindow(Session& session, RecordsEnvironment environment);
    ~RecordsWindow() override;

    /// Shows the window and asks for the login.
    void start();
    /// Shows at once who is logged in, or that the connection is lost.
    void showSessionState();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

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
    /// The same by the asset number.
    void showHistoryOf(const QString& asset);
    /// Goes to the tab of an instrument's history; false when none is open.
    bool goToHistory(const QString& asset);
    /// Tells the user when it is not.
    bool isConnected();
    void showUses(const QString& standard, const QDate& day);
    void askPackage(const QStringList& assets);
    void writeCertificates(const QStringList& assets);
    void captionTab(int tab, const QString& asset);
    void closeTab(int tab);
    /// Notes which page has come in front.
    void noteFront();
    /// Of the tab in front.
    RecordsPage& page() const;

    Session& session_;
    RecordsEnvironment environment_;
    QTabWidget* tabs_;
    FormInstruments* instruments_;
    FormStandardUse* uses_;
    FormUnrecorded* unrecorded_;
    FormPassRate* passRate_;
    StatusLine* statusLine_;
    std::unique_ptr<CertificateWindows> certificates_;
    QAction* logOut_ = nullptr;
    QAction* close_ = nullptr;
    /// The pages in the order in which they were last in front.
    QList<QWidget*> visited_;
    /// From a login to log out, also while the connection is lost.
    bool isLoggedIn_ = false;
};

} // namespace kelvane
