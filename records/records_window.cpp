#include "records/records_window.h"

#include "data/session_values.h"
#include "platform/values/texts.h"
#include "platform/version.h"
#include "records/certificate_windows.h"
#include "records/form_history.h"
#include "records/form_instruments.h"
#include "records/form_pass_rate.h"
#include "records/form_standard_use.h"
#include "records/form_unrecorded.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/panels.h"
#include "ui/status_line.h"
#include "ui/whole_text.h"
#include "ui/window_keys.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr QSize usualSize(1080, 720);
/// Of a tab, in characters.
constexpr int widestCaption = 40;

/// In its place stays something as high, so that the first tab with such a button moves nothing.
void removeCloseButton(QTabBar& tabs, int tab) {
    for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide}) {
        const auto* button = tabs.tabButton(tab, side);
        if (button == nullptr)
            continue;
        auto* room = new QWidget;
        room->setFixedSize(0, button->height());
        tabs.setTabButton(tab, side, room);
    }
}

} // namespace

RecordsWindow::RecordsWindow(Session& session, RecordsEnvironment environment)
    : session_(session),
      environment_(std::move(environment)),
      tabs_(nameControl(new QTabWidget, u"TabsRecords"_s, text(TextId::recordsTitle))),
      instruments_(new FormInstruments(session)),
      uses_(new FormStandardUse(session, environment_.workstationFolders)),
      unrecorded_(new FormUnrecorded(session, environment_.workstationFolders)),
      passRate_(new FormPassRate(session)),
      statusLine_(new StatusLine(session)),
      certificates_(std::make_unique<CertificateWindows>(session, environment_.workstationFolders, this)) {
    setObjectName(u"RecordsWindow"_s);
    setWindowTitle(text(TextId::recordsTitle));
    setStatusBar(statusLine_);
    buildMenu();
    buildTabs();
    setCentralWidget(tabs_);
    resize(usualSize.boundedTo(screen()->availableSize()).expandedTo(minimumSizeHint()));
    statusLine_->setConnecting([this] { return offersConnecting(); }, text(TextId::connectAgain));
    statusLine_->aboutButton().setText(text(TextId::aboutVersion).arg(programVersion().section(u'.', 0, 1)));
    connectGuarded(&statusLine_->connectButton(), &QPushButton::clicked, this, session_.ui,
                   [this] { askLogin(LoginDialog::Purpose::connectAgain); });
    connectGuarded(&statusLine_->aboutButton(), &QPushButton::clicked, this, session_.ui,
                   [this] { environment_.showAbout(this); });
    QObject::connect(instruments_, &FormInstruments::historyWanted, this,
                     [this](const InstrumentSummary& instrument) {
                         runGuarded(session_.ui, [&] { showHistory(instrument); });
                     });
    QObject::connect(instruments_, &FormInstruments::packageWanted, this, [this](const QStringList& assets) {
        runGuarded(session_.ui, [&] { askPackage(assets); });
    });
    QObject::connect(
        instruments_, &FormInstruments::certificatesWanted, this,
        [this](const QStringList& assets) { runGuarded(session_.ui, [&] { writeCertificates(assets); }); });
    QObject::connect(uses_, &FormStandardUse::historyWanted, this, [this](const QString& asset) {
        runGuarded(session_.ui, [&] { showHistoryOf(asset); });
    });
    showSessionState();
}

RecordsWindow::~RecordsWindow() {
    // Its pages come in front once more while they go.
    tabs_->disconnect(this);
}

void RecordsWindow::buildTabs() {
    tabs_->setDocumentMode(true);
    tabs_->setTabsClosable(true);
    tabs_->tabBar()->setObjectName(u"qt_tabwidget_tabbar"_s);
    tabs_->tabBar()->setAccessibleName(text(TextId::recordsTitle));
    QObject::connect(tabs_, &QTabWidget::currentChanged, this, [this] { noteFront(); });
    tabs_->addTab(instruments_, text(TextId::recordsInstruments));
    tabs_->addTab(uses_, text(TextId::usesTab));
    tabs_->addTab(unrecorded_, text(TextId::unrecordedTab));
    tabs_->setTabToolTip(tabs_->addTab(passRate_, text(TextId::passRateTab)), text(TextId::passRateTip));
    for (int tab = 0; tab < tabs_->count(); ++tab)
        removeCloseButton(*tabs_->tabBar(), tab);
    QObject::connect(tabs_, &QTabWidget::tabCloseRequested, this, [this](int tab) { closeTab(tab); });
}

void RecordsWindow::buildMenu() {
    auto* file = menuBar()->addMenu(text(TextId::fileMenu));
    file->setObjectName(u"mnuFile"_s);
    const auto add = [&](TextId caption, const QString& name, const QKeySequence& keys) {
        auto* made = file->addAction(text(caption));
        made->setObjectName(name);
        made->setShortcut(keys);
        return made;
    };
    close_ = add(TextId::closeCommand, u"mnuClose"_s, QKeySequence(u"Ctrl+W"_s));
    auto* certificate = add(TextId::certificateSettings, u"mnuCertificates"_s, {});
    logOut_ = add(TextId::logOutCommand, u"mnuLogout"_s, QKeySequence(u"Ctrl+L"_s));
    auto* exit = add(TextId::exitCommand, u"mnuExit"_s, QKeySequence(u"Ctrl+Q"_s));
    connectGuarded(close_, &QAction::triggered, this, session_.ui,
                   [this] { closeTab(tabs_->currentIndex()); });
    connectGuarded(certificate, &QAction::triggered, this, session_.ui,
                   [this] { certificates_->editSettings(); });
    connectGuarded(logOut_, &QAction::triggered, this, session_.ui, [this] { logOut(); });
    connectGuarded(exit, &QAction::triggered, this, session_.ui, [this] { this->close(); });
    const auto changing = [this](const QString& keys, int step) {
        auto* shortcut = new QShortcut(QKeySequence(keys), this);
        QObject::connect(shortcut, &QShortcut::activated, this, [this, step] { changePage(*tabs_, step); });
    };
    changing(u"Ctrl+PgUp"_s, -1);
    changing(u"Ctrl+PgDown"_s, 1);
    bindMenuKey(*this, session_.ui);
}

void RecordsWindow::start() {
    show();
    askLogin(LoginDialog::Purpose::logIn);
}

void RecordsWindow::showSessionState() {
    logOut_->setEnabled(isLoggedIn_);
    tabs_->setEnabled(isLoggedIn_);
    statusLine_->refresh();
    statusLine_->repaint();
}

bool RecordsWindow::offersConnecting() const {
    return isLoggedIn_ && !session_.SessionConnected;
}

void RecordsWindow::askLogin(LoginDialog::Purpose purpose) {
    const auto before = databaseValuesOf(session_);
    auto* dialog = new LoginDialog(session_, environment_.logIn, purpose, this);
    connectGuarded(dialog, &QDialog::accepted, this, session_.ui, [this, purpose, before] {
        isLoggedIn_ = true;
        // Its owner can be another one now.
        if (purpose == LoginDialog::Purpose::connectAgain && databaseValuesOf(session_) != before)
            closeHistories();
        showSessionState();
        readAll();
        if (purpose == LoginDialog::Purpose::logIn && &page() == instruments_)
            instruments_->focusFilter();
        else
            page().focusTable();
    });
    connectGuarded(dialog, &QDialog::rejected, this, session_.ui, [this, purpose] {
        if (purpose == LoginDialog::Purpose::logIn)
            close();
    });
    dialog->open();
}

void RecordsWindow::readAll() {
    instruments_->readAgain();
    uses_->readAgain();
    if (unrecorded_->isVisible())
        unrecorded_->readAgain();
    passRate_->readAgain();
    for (auto* history : tabs_->findChildren<FormHistory*>())
        history->readAgain();
}

void RecordsWindow::logOut() {
    closeHistories();
    instruments_->forget();
    uses_->forget();
    unrecorded_->forget();
    passRate_->forget();
    closeConnection(session_);
    session_.SessionConnected = false;
    isLoggedIn_ = false;
    showSessionState();
    askLogin(LoginDialog::Purpose::logIn);
}

void RecordsWindow::closeHistories() {
    certificates_->closePreviews();
    for (int tab = tabs_->count() - 1; tab > 0; --tab)
        closeTab(tab);
}

bool RecordsWindow::goToHistory(const QString& asset) {
    for (auto* history : tabs_->findChildren<FormHistory*>()) {
        const int tab = tabs_->indexOf(history);
        if (tab < 0 || history->asset() != asset)
            continue;
        tabs_->setCurrentIndex(tab);
        return true;
    }
    return false;
}

bool RecordsWindow::isConnected() {
    if (!session_.SessionConnected)
        session_.ui.messageBox(text(TextId::connectionLostAdvice), text(TextId::connectionLost),
                               box::warning);
    return session_.SessionConnected;
}

void RecordsWindow::showHistoryOf(const QString& asset) {
    if (goToHistory(asset) || !isConnected())
        return;
    if (const auto instrument = instrumentNamed(session_, asset); instrument.found)
        showHistory(*instrument.found);
}

void RecordsWindow::showUses(const QString& standard, const QDate& day) {
    if (!isConnected())
        return;
    tabs_->setCurrentWidget(uses_);
    uses_->showUses(standard, day);
}

void RecordsWindow::askPackage(const QStringList& assets) {
    if (isConnected())
        makePackage(session_, environment_.packages, assets, this,
                    [this](const QString& outcome) { instruments_->tell(outcome); });
}

void RecordsWindow::writeCertificates(const QStringList& assets) {
    if (!isConnected())
        return;
    if (const auto outcome = certificates_->write(assets); !outcome.isEmpty())
        instruments_->tell(outcome);
}

void RecordsWindow::showHistory(const InstrumentSummary& instrument) {
    if (goToHistory(instrument.asset) || !isConnected())
        return;
    auto* history = new FormHistory(session_, instrument);
    QObject::connect(history, &FormHistory::usesWanted, this,
                     [this](const QString& standard, const QDate& day) {
                         runGuarded(session_.ui, [&] { showUses(standard, day); });
                     });
    QObject::connect(history, &FormHistory::certificateWanted, this,
                     [this](const CertifiedCalibration& calibration) {
                         runGuarded(session_.ui, [&] { certificates_->show(calibration); });
                     });
    const int tab = tabs_->addTab(history, QString());
    captionTab(tab, withoutBlanksAtEnd(instrument.asset));
    tabs_->setCurrentIndex(tab);
    history->focusTable();
}

RecordsPage& RecordsWindow::page() const {
    return *static_cast<RecordsPage*>(tabs_->currentWidget());
}

void RecordsWindow::noteFront() {
    auto* front = tabs_->currentWidget();
    visited_.removeOne(front);
    visited_ << front;
    close_->setEnabled(qobject_cast<FormHistory*>(front) != nullptr);
}

/// A long asset number would take the whole row of tabs.
void RecordsWindow::captionTab(int tab, const QString& asset) {
    const auto letters = tabs_->tabBar()->fontMetrics();
    auto shown = letters.elidedText(asset, Qt::ElideRight, letters.averageCharWidth() * widestCaption);
    if (shown != asset)
        tabs_->setTabToolTip(tab, wholeTextTip(asset));
    tabs_->setTabText(tab, shown.replace(u'&', u"&&"_s));
}

/// Only histories close.
void RecordsWindow::closeTab(int tab) {
    auto* history = qobject_cast<FormHistory*>(tabs_->widget(tab));
    if (history == nullptr)
        return;
    visited_.removeOne(history);
    // Otherwise its neighbour would come in front, and be read, meanwhile.
    if (tabs_->currentWidget() == history)
        tabs_->setCurrentWidget(visited_.constLast());
    tabs_->removeTab(tab);
    // Until it goes it is no history of this window any more.
    history->setParent(nullptr);
    history->deleteLater();
    page().focusTable();
}

void RecordsWindow::closeEvent(QCloseEvent* event) {
    runGuarded(session_.ui, [this] { instruments_->storeLayout(); });
    certificates_->closePreviews();
    instruments_->forget();
    uses_->forget();
    closeConnection(session_);
    session_.SessionConnected = false;
    event->accept();
}

void RecordsWindow::keyPressEvent(QKeyEvent* event) {
    if (auto* clicked = buttonOfReturn(*this, event->key()))
        clicked->click();
    else
        QMainWindow::keyPressEvent(event);
}

} // namespace kelvane
