#pragma once

#include "app/form_connect.h"
#include "app/menu.h"
#include "app/window_place.h"
#include "workflow/calibrators.h"

#include <QMainWindow>
#include <QStringList>

#include <array>
#include <functional>

class QAction;
class QMdiArea;
class QMenu;

namespace kelvane {

class FrameStart;
class OpenCalParam;
class ReportControl;
class StatusLine;

/// What the main window does beyond the session.
struct Environment {
    /// The data sources that the driver manager knows.
    std::function<QStringList()> dataSources;
    QString commandLine;
    /// A login shows the entries of paper worksheets in the menu.
    bool worksheets = false;
    /// Ends the process at once. It does not come back, except in tests.
    std::function<void()> endProcess;
};

/// The main window: a menu over an area of child windows. Each entry of the menu opens one child window or
/// runs one command; the window does nothing else.
class MDIFormMain final : public QMainWindow {
    Q_OBJECT
  public:
    MDIFormMain(Session& session, Calibrators& calibrators, ReportControl& reports, Environment environment);

    /// The start of the program: captions, size, the empty frame on the screen, start-up, the login screen.
    void load();

    QMdiArea& area() { return *area_; }
    StatusLine& statusLine() { return *statusLine_; }
    const Menu& menu() const { return menu_; }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    struct Command;
    static const Command* commandOf(MenuEntry entry);

    void buildMenu();
    void setCaptions();
    void applyMenu();
    /// Shows behind the child windows how things stand, and what can be done next.
    void showFrameStart();
    /// Takes a step out of those; `none` is the login.
    void takeStep(MenuEntry entry);
    QAction* action(MenuEntry entry) const { return actions_[static_cast<std::size_t>(entry)]; }
    void carryOut(MenuEntry entry);
    void startUp();
    void showLogin(const std::function<void()>& exitQuestion, FormConnect::Purpose purpose);
    void afterLogin();
    /// True while a session that goes on has lost its connection, and the login screen is not open already.
    bool offersConnecting() const;
    /// Opens the login screen over the open screens.
    void connectAgain();
    /// Shows the results without a record, if there are some.
    void offerUnfinishedResults();

    void mnuLogout();
    void mnuExit();
    /// Ends the program.
    void leave();
    void mnuDownload();
    void mnuUpload();
    void mnuPrint();
    void mnuEnter();
    void mnuStrategies();
    void mnuCalParameters();
    void mnuODBC();
    void mnuConfiguration();
    void mnuWorkEntry();
    void mnuPrompts();
    void mnuPredefined();

    /// The parameter editor, once it has an instrument; null otherwise.
    OpenCalParam* openCalParam() const;
    /// The screen of that kind which is open, or null.
    template <class Screen>
    Screen* openScreen() const;
    /// Shows the screen of that kind, made from `arguments` unless it is open already.
    template <class Screen, class... Arguments>
    Screen* showScreen(Arguments&&... arguments);

    Session& session_;
    Calibrators& calibrators_;
    ReportControl& reports_;
    Environment environment_;
    Menu menu_;
    QMdiArea* area_;
    FrameStart* frameStart_;
    StatusLine* statusLine_;
    /// Before the user could change anything.
    WindowPlace placeAtStart_;
    std::array<QAction*, menuEntryCount> actions_{};
};

} // namespace kelvane
