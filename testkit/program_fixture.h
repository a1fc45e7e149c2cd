#pragma once

#include "app/workstation_program.h"
#include "testkit/fixtures.h"
#include "testkit/recorded_link.h"
#include "testkit/recorded_link3.h"
#include "testkit/screen_operator.h"
#include "ui/child_window.h"

class QAction;

namespace kelvane::testing {

/// A serial port that is not there: it can't be opened.
class MissingPort final : public SerialPort {
  public:
    bool portOpen() const override { return false; }
    void setPortOpen(bool open) override;
    void setCommPort(int) override {}
    void setSettings(const QString&) override {}
    int inBufferCount() override { return 0; }
    QByteArray input() override { return {}; }
    void output(const QByteArray&) override {}
};

/// The whole workstation with real windows, over a recording connection unless a test sets others, settings
/// in memory and a folder of its own that holds a result template. Nothing is on the screen before `start`.
class ProgramTest : public ::testing::Test {
  protected:
    /// `worksheets`: a login shows the entries of paper worksheets.
    explicit ProgramTest(bool worksheets = false);
    ~ProgramTest() override;

    /// Shows the main window and the login screen.
    void start();
    /// What the database answers at a login.
    void answerLogin(const QString& user, const QString& owner, const QString& level,
                     const QString& procedit = QStringLiteral("3"));
    /// Types name and password into the login screen and presses Return.
    void typeLogin(const QString& user, const QString& password);
    /// Start and a good login of "jdoe", group MT, at that level; `procedit` is 3.
    void startLoggedIn(int level);

    QAction* action(const QString& entry);
    /// Chooses an entry of the menu.
    void choose(const QString& entry);
    /// Presses a shortcut in the window that has the focus.
    void pressKeys(const QString& shortcut);

    /// The open child window of that name, or null.
    ChildWindow* findChild(const QString& name);
    /// The open child window of that name; a failure when there is none.
    ChildWindow& child(const QString& name);
    QStringList openChildren();

    /// Closes the one-field dialog and confirms that it is to be cancelled.
    void cancel(FormCustomDialog& dialog);
    /// The same of a dialog that is to come.
    void expectCancelledDialog(const QString& caption, const QString& prompt);
    /// The question about unsaved changes that is to come when a screen closes.
    void expectDiscard(BoxAnswer answer);

    OwnFolder folder;
    SetClock clock;
    MemorySettings settings;
    RecordingConnection::Script script;
    /// What makes the program's connections.
    ConnectionFactory connections = [this] { return std::make_unique<RecordingConnection>(script); };
    MissingPort port;
    RecordedLink link;
    RecordedLink3 link3;
    CalibratorLinks links{port, link, link3};
    QStringList dataSources{QStringLiteral("Calibration Data"), QStringLiteral("Site B")};
    int processEnded = 0;
    /// What happens when the program ends its process.
    std::function<void()> atEnd = [this] { ++processEnded; };
    ScreenOperator simulatedOperator;
    WorkstationProgram program;
    Session& session = program.session;
};

} // namespace kelvane::testing
