#include "app/mdi_form_main.h"

#include "app/about_box.h"
#include "app/form_odbc.h"
#include "app/frame_start.h"
#include "app/login.h"
#include "app/menu_options.h"
#include "data/start_up.h"
#include "editors/cal_param/form_cal_param.h"
#include "editors/form_test_mess.h"
#include "editors/form_work_config.h"
#include "editors/predefined_tasks/form_predefined_tasks.h"
#include "editors/strategies/form_strategies.h"
#include "platform/version.h"
#include "procedures/strategies.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/guarded.h"
#include "ui/open_windows.h"
#include "ui/program_icon.h"
#include "ui/status_line.h"
#include "ui/window_keys.h"
#include "workflow/form_cal_config.h"
#include "workflow/form_docking_down.h"
#include "workflow/form_unfinished_results.h"
#include "workflow/upload.h"
#include "worksheets/form_work_entry.h"
#include "worksheets/form_worksheet_print.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHash>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int heightInTwips = 8265;
constexpr int widthInTwips = 9975;
const auto placeSection = u"MainWindow"_s;

} // namespace

/// What an entry does. Most commands need the connection.
struct MDIFormMain::Command {
    MenuEntry entry;
    bool needsConnection;
    void (MDIFormMain::*run)();
    /// It has a question to ask before all else, and does not begin while another one is open.
    bool asks = false;
};

const MDIFormMain::Command* MDIFormMain::commandOf(MenuEntry entry) {
    static constexpr Command commands[] = {
        {MenuEntry::mnuLogout, false, &MDIFormMain::mnuLogout},
        {MenuEntry::mnuExit, false, &MDIFormMain::mnuExit},
        {MenuEntry::mnuDownload, true, &MDIFormMain::mnuDownload, true},
        {MenuEntry::mnuUpload, true, &MDIFormMain::mnuUpload, true},
        {MenuEntry::mnuPrint, true, &MDIFormMain::mnuPrint},
        {MenuEntry::mnuEnter, true, &MDIFormMain::mnuEnter, true},
        {MenuEntry::mnuStrategies, true, &MDIFormMain::mnuStrategies},
        {MenuEntry::mnuCalParameters, true, &MDIFormMain::mnuCalParameters},
        {MenuEntry::mnuPrompts, true, &MDIFormMain::mnuPrompts},
        {MenuEntry::mnuODBC, false, &MDIFormMain::mnuODBC},
        {MenuEntry::mnuConfiguration, true, &MDIFormMain::mnuConfiguration},
        {MenuEntry::mnuWorkEntry, true, &MDIFormMain::mnuWorkEntry},
        {MenuEntry::mnuPredefined, true, &MDIFormMain::mnuPredefined},
    };
    const auto* found = std::ranges::find(commands, entry, &Command::entry);
    return found == std::end(commands) ? nullptr : found;
}

MDIFormMain::MDIFormMain(Session& session, Calibrators& calibrators, ReportControl& reports,
                         Environment environment)
    : session_(session),
      calibrators_(calibrators),
      reports_(reports),
      environment_(std::move(environment)),
      area_(new QMdiArea(this)),
      frameStart_(new FrameStart(*area_)),
      statusLine_(new StatusLine(session)) {
    setObjectName(u"MDIFormMain"_s);
    setStatusBar(statusLine_);
    area_->setObjectName(u"Area"_s);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // Behind a window that closes comes the one that was used before it.
    area_->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    setCentralWidget(area_);
    buildMenu();
    menu_.changed = [this] { applyMenu(); };
    connectGuarded(&statusLine_->connectButton(), &QPushButton::clicked, this, session_.ui,
                   [this] { connectAgain(); });
    connectGuarded(&statusLine_->aboutButton(), &QPushButton::clicked, this, session_.ui,
                   [this] { openAboutBox(session_, this); });
    frameStart_->chosen = [this](MenuEntry entry) { runGuarded(session_.ui, [&] { takeStep(entry); }); };
    connectGuarded(statusLine_, &StatusLine::refreshed, this, session_.ui, [this] { showFrameStart(); });
    bindMenuKey(*this, session_.ui);
}

void MDIFormMain::buildMenu() {
    std::array<QMenu*, menuEntryCount> menus{};
    for (const auto& row : menuTree()) {
        const auto place = static_cast<std::size_t>(row.entry);
        auto* menu = row.parent == MenuEntry::none ? nullptr : menus[static_cast<std::size_t>(row.parent)];
        if (isMenu(row.entry)) {
            menus[place] = menu ? menu->addMenu(QString()) : menuBar()->addMenu(QString());
            menus[place]->setObjectName(row.name.toString());
            actions_[place] = menus[place]->menuAction();
        } else {
            actions_[place] = menu->addAction(QString());
            actions_[place]->setShortcut(QKeySequence(row.shortcut.toString()));
        }
        actions_[place]->setObjectName(row.name.toString());
        connectGuarded(actions_[place], &QAction::triggered, this, session_.ui,
                       [this, entry = row.entry] { carryOut(entry); });
    }
    applyMenu();
}

void MDIFormMain::setCaptions() {
    QHash<MenuEntry, QString> taken;
    for (const auto& row : menuTree())
        action(row.entry)->setText(withMnemonic(text(row.caption), taken[row.parent]));
    statusLine_->setConnecting([this] { return offersConnecting(); },
                               withMnemonic(text(TextId::connectAgain), taken[MenuEntry::none]));
    // Without the number of the correction, which the box tells.
    statusLine_->aboutButton().setText(programNameWithVersion(programVersion().section(u'.', 0, 1)));
}

void MDIFormMain::applyMenu() {
    for (const auto& row : menuTree()) {
        action(row.entry)->setVisible(menu_.isShown(row.entry));
        action(row.entry)->setEnabled(menu_.isEnabled(row.entry));
    }
    statusLine_->refresh();
}

void MDIFormMain::showFrameStart() {
    const auto login = openScreen<FormConnect>() ? std::optional(TextId::loginTitle)
                       : offersConnecting()      ? std::optional(TextId::connectAgain)
                                                 : std::nullopt;
    frameStart_->setContents(frameContents(session_, menu_, login, [this](MenuEntry entry) {
        return session_.SessionConnected || !commandOf(entry)->needsConnection;
    }));
}

void MDIFormMain::takeStep(MenuEntry entry) {
    if (entry != MenuEntry::none)
        action(entry)->trigger();
    else if (auto* login = openScreen<FormConnect>())
        login->showIn(*area_);
    else
        connectAgain();
}

void MDIFormMain::load() {
    runGuarded(session_.ui, [this] {
        setWindowTitle(text(TextId::applicationName));
        // For the child windows too.
        QApplication::setWindowIcon(programIcon());
        setCaptions();
        statusLine_->refresh();
        resize(pixels(widthInTwips), pixels(heightInTwips));
        runGuarded(session_.ui, [this] { restorePlace(session_, placeSection, *this); });
        // The empty frame is shown first, so that a warning of the start-up has something to stand on.
        show();
        placeAtStart_ = placeOf(*this);
        startUp();
    });
}

void MDIFormMain::startUp() {
    // Whatever fails before it, without the login screen the program is of no use.
    runGuarded(session_.ui, [this] { ModuleGlobals::StartupFunctions(session_, environment_.commandLine); });
    showLogin([this] { mnuExit(); }, FormConnect::Purpose::logIn);
}

void MDIFormMain::showLogin(const std::function<void()>& exitQuestion, FormConnect::Purpose purpose) {
    auto* login = showScreen<FormConnect>(menu_, exitQuestion, purpose);
    statusLine_->refresh();
    connectGuarded(login, &FormConnect::loggedIn, this, session_.ui, [this] { afterLogin(); });
    connectGuarded(login, &FormConnect::closed, this, session_.ui, [this] { statusLine_->refresh(); });
}

void MDIFormMain::afterLogin() {
    if (environment_.worksheets)
        showWorksheetEntries(menu_);
    offerUnfinishedResults();
}

bool MDIFormMain::offersConnecting() const {
    // What a login enables stays until log out.
    return menu_.isEnabled(MenuEntry::mnuLogout) && !session_.SessionConnected && !openScreen<FormConnect>();
}

void MDIFormMain::connectAgain() {
    if (!offersConnecting() || session_.ui.bringQuestionForward())
        return;
    showLogin([] {}, FormConnect::Purpose::connectAgain);
}

void MDIFormMain::offerUnfinishedResults() {
    if (auto* open = openScreen<FormUnfinishedResults>()) {
        open->refresh();
        open->showIn(*area_);
    } else if (!unfinishedResults(session_).isEmpty()) {
        showScreen<FormUnfinishedResults>();
    }
}

void MDIFormMain::carryOut(MenuEntry entry) {
    const auto* command = commandOf(entry);
    if (!command)
        return;
    if (command->needsConnection && !session_.SessionConnected) {
        session_.ui.messageBox(text(TextId::connectionLostAdvice), text(TextId::connectionLost),
                               box::warning);
        return;
    }
    if (command->asks && session_.ui.bringQuestionForward())
        return;
    // The menu has closed, and what follows may take long.
    session_.ui.repaint();
    (this->*command->run)();
}

void MDIFormMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    runGuarded(session_.ui, [this] { mnuExit(); });
}

void MDIFormMain::mnuExit() {
    if (session_.ui.messageBox(text(TextId::confirmExit), text(TextId::applicationName), box::question) !=
        BoxAnswer::yes)
        return;
    // The rows of a report that is open must not stay in the database. A print under an open question can't
    // end.
    auto* sheets = openScreen<FormWorksheetPrint>();
    if (sheets && sheets->isPrinting() && !isWindowOpen(session_, u"FormCustomDialog")) {
        connectGuarded(sheets, &FormWorksheetPrint::printed, this, session_.ui, [this] { leave(); });
        sheets->closeReport();
    } else {
        leave();
    }
}

void MDIFormMain::leave() {
    runGuarded(session_.ui, [this] {
        if (const auto place = placeOf(*this); place != placeAtStart_)
            storePlace(session_, placeSection, place);
    });
    // Ending the process runs no destructors, and the embedded engine then leaves its last records beside its
    // files.
    closeConnection(session_);
    environment_.endProcess();
}

void MDIFormMain::mnuLogout() {
    if (isAnyWindowOpen(session_)) {
        session_.ui.messageBox(text(TextId::windowsOpenAtLogOut), text(TextId::applicationName),
                               box::warning);
        return;
    }
    runGuarded(session_.ui, [this] { disconnectSession(session_); });
    resetMenuForLogout(menu_);
    startUp();
}

void MDIFormMain::mnuDownload() {
    const bool openBefore = openScreen<FormDockingDown>() != nullptr;
    const QPointer form = showScreen<FormDockingDown>(calibrators_);
    // Its own question may be on the screen: then it is only brought forward.
    if (form->isRunning())
        return;
    QString calibrator;
    form->run([&] {
        session_.ui.processEvents();
        calibrator = chooseCalibrator(session_, text(TextId::downloadCommand), u"LastDownloadCalibrator"_s);
    });
    if (!form || !form->isOpen())
        return;
    if (!calibrator.isEmpty())
        form->takeCalibrator(calibrator);
    else if (openBefore)
        form->close();
    else
        form->unload();
}

void MDIFormMain::mnuUpload() {
    const auto before = unfinishedResults(session_);
    runGuarded(session_.ui, [this] { ModuleGlobals::UploadFromCalibrator(calibrators_); });
    const auto after = unfinishedResults(session_);
    const auto isNew = [&](const UnfinishedResult& result) {
        return std::ranges::find(before, result.id, &UnfinishedResult::id) == before.cend();
    };
    if (std::ranges::any_of(after, isNew))
        offerUnfinishedResults();
}

void MDIFormMain::mnuPrint() {
    showScreen<FormWorksheetPrint>(reports_);
}

void MDIFormMain::mnuEnter() {
    if (openScreen<FormWorkEntry>()) {
        showScreen<FormWorkEntry>();
        return;
    }
    auto* form = showScreen<FormWorkEntry>();
    connectGuarded(form, &FormWorkEntry::resultsLeft, this, session_.ui,
                   [this] { offerUnfinishedResults(); });
    form->begin();
}

void MDIFormMain::mnuStrategies() {
    showScreen<FormStrategies>([this] { return openCalParam(); });
}

void MDIFormMain::mnuCalParameters() {
    const bool openBefore = openScreen<FormCalParam>() != nullptr;
    if (!openBefore && session_.ui.bringQuestionForward())
        return;
    if (!warnWithoutStrategies(session_))
        return;
    // The warning does not keep the screen from opening.
    auto* form = showScreen<FormCalParam>();
    if (!openBefore)
        form->chooseFirst();
}

OpenCalParam* MDIFormMain::openCalParam() const {
    return isWindowOpen(session_, u"FormCalParam") ? openScreen<FormCalParam>() : nullptr;
}

void MDIFormMain::mnuODBC() {
    if (openScreen<FormODBC>())
        showScreen<FormODBC>(QStringList());
    else
        showScreen<FormODBC>(environment_.dataSources());
}

void MDIFormMain::mnuConfiguration() {
    const auto* docking = openScreen<FormDockingDown>();
    showScreen<FormCalConfig>(calibrators_, docking ? docking->calibrator() : QString());
}

void MDIFormMain::mnuWorkEntry() {
    showScreen<FormWorkConfig>();
}

void MDIFormMain::mnuPrompts() {
    showScreen<FormTestMess>([this] { return openCalParam(); });
}

void MDIFormMain::mnuPredefined() {
    showScreen<FormPredefinedTasks>();
}

template <class Screen>
Screen* MDIFormMain::openScreen() const {
    for (auto* child : area_->subWindowList()) {
        if (auto* screen = qobject_cast<Screen*>(child); screen && screen->isOpen())
            return screen;
    }
    return nullptr;
}

template <class Screen, class... Arguments>
Screen* MDIFormMain::showScreen(Arguments&&... arguments) {
    if (auto* screen = openScreen<Screen>()) {
        screen->showIn(*area_);
        return screen;
    }
    auto made = std::make_unique<Screen>(session_, std::forward<Arguments>(arguments)...);
    made->showIn(*area_);
    return made.release();
}

} // namespace kelvane
