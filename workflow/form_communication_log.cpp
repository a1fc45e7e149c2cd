#include "workflow/form_communication_log.h"

#include "drivers/line_settings.h"
#include "drivers/port_state.h"
#include "platform/error.h"
#include "platform/whole_file.h"
#include "resources/captions.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/panels.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// So much of the log is shown: lines, and characters of each.
constexpr int maxLines = 10'000;
constexpr qsizetype maxLine = 2000;
/// How often the window looks for what others have written, and at the port, in milliseconds. What this
/// program logs comes at once.
constexpr int lookAtFileEvery = 1000;
constexpr int lookAtPortEvery = 3000;

QString linesOf(const QByteArray& bytes) {
    auto lines = QString::fromUtf8(bytes.chopped(1)).split(u'\n');
    for (auto& line : lines) {
        if (line.size() > maxLine)
            line = line.first(maxLine) + QChar(0x2026);
    }
    return lines.join(u'\n');
}

} // namespace

FormCommunicationLog::FormCommunicationLog(Session& session, Calibrators& calibrators,
                                           const QString& calibrator)
    : ChildWindow(session, u"FormCommunicationLog"_s, {.width = 9300, .height = 6600}),
      calibrators_(calibrators),
      file_({}),
      LabelPort(changingNote(u"LabelPort"_s, TextId::serialPort)),
      LabelFile(changingNote(u"LabelFile"_s, TextId::communicationLogTitle)),
      TextLog(nameControl(new QPlainTextEdit, u"TextLog"_s, text(TextId::communicationLogView),
                          TextId::communicationLogView)),
      TextSearch(nameControl(new QLineEdit, u"TextSearch"_s, text(TextId::communicationLogSearch),
                             TextId::communicationLogSearchTip)),
      CommandNext(button(u"CommandNext"_s, TextId::communicationLogNext, TextId::communicationLogNextTip)),
      LabelOutcome(label(u"LabelOutcome"_s, TextId::communicationLogSearch)),
      CommandPause(
          button(u"CommandPause"_s, TextId::communicationLogPause, TextId::communicationLogPauseTip)),
      CommandSave(button(u"CommandSave"_s, TextId::communicationLogSave, TextId::communicationLogSaveTip)),
      CommandClose(button(u"CommandClose"_s, TextId::closeCommand, TextId::closeWindowTip)) {
    // Nobody has to close it before he logs out.
    setCountsAsOpen(false);
    TextLog->setReadOnly(true);
    TextLog->setLineWrapMode(QPlainTextEdit::NoWrap);
    TextLog->setMaximumBlockCount(maxLines);
    TextLog->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    TextLog->setTabChangesFocus(true);
    TextLog->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layOut();
    connectCommands();
    setDefaultButton(CommandNext);
    setCancelButton(CommandClose);
    setFirstFocus(TextSearch);
    setCalibrator(calibrator);
}

FormCommunicationLog::~FormCommunicationLog() {
    // One that has closed may still be there when the next one follows the log.
    if (isOpen())
        log().onChange = {};
}

void FormCommunicationLog::closeEvent(QCloseEvent* event) {
    ChildWindow::closeEvent(event);
    if (!isOpen())
        log().onChange = {};
}

void FormCommunicationLog::layOut() {
    auto* search = new QHBoxLayout;
    search->addWidget(labelFor(TextSearch, u"Label1"_s, TextId::communicationLogSearch));
    search->addWidget(TextSearch, 1);
    search->addWidget(CommandNext);
    auto* commands = new QHBoxLayout;
    commands->addWidget(LabelOutcome, 1);
    for (auto* command : {CommandPause, CommandSave, CommandClose})
        commands->addWidget(command);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->addWidget(LabelPort);
    column->addWidget(LabelFile);
    column->addLayout(search);
    column->addWidget(TextLog, 1);
    column->addLayout(commands);
    setBody(body);
    LabelOutcome->clear();
    // A long path must not make the window wider.
    LabelOutcome->setMinimumWidth(1);
    kelvane::setTabOrder({TextSearch, CommandNext, TextLog, CommandPause, CommandSave, CommandClose});
}

void FormCommunicationLog::connectCommands() {
    connectGuarded(CommandNext, &QPushButton::clicked, this, session_.ui, [this] { findNext(); });
    connectGuarded(CommandPause, &QPushButton::clicked, this, session_.ui, [this] { pause(); });
    connectGuarded(CommandSave, &QPushButton::clicked, this, session_.ui, [this] { save(); });
    connectGuarded(CommandClose, &QPushButton::clicked, this, session_.ui, [this] { close(); });
    const auto repeat = [this](int milliseconds, void (FormCommunicationLog::*look)()) {
        auto* timer = new QTimer(this);
        connectGuarded(timer, &QTimer::timeout, this, session_.ui, [this, look] { (this->*look)(); });
        timer->start(milliseconds);
    };
    repeat(lookAtFileEvery, &FormCommunicationLog::takeNewLines);
    repeat(lookAtFileEvery, &FormCommunicationLog::showFile);
    repeat(lookAtPortEvery, &FormCommunicationLog::lookAtPort);
}

void FormCommunicationLog::setCalibrator(const QString& calibrator) {
    if (calibrator == calibrator_)
        return;
    if (!calibrator_.isEmpty())
        log().onChange = {};
    calibrator_ = calibrator;
    log().onChange = [this] { runGuarded(session_.ui, [this] { takeChange(); }); };
    setWindowTitle(text(TextId::communicationLogTitle) + u": "_s + calibratorCaption(calibrator));
    file_ = FollowedFile(log().path());
    TextLog->clear();
    if (paused_)
        pause();
    takeNewLines();
    showPort();
    showFile();
}

void FormCommunicationLog::takeChange() {
    takeNewLines();
    // To look who has a port takes its time; an exchange does not wait for it without a need.
    if (log().opening() != shownOpening_)
        showPort();
}

void FormCommunicationLog::takeNewLines() {
    if (paused_)
        return;
    const auto lines = file_.readNew();
    if (!lines.isEmpty())
        TextLog->appendPlainText(linesOf(lines));
}

void FormCommunicationLog::lookAtPort() {
    // Timers run while a driver waits for its calibrator, and this takes its time.
    if (!calibrators_.communicating)
        showPort();
}

void FormCommunicationLog::showPort() {
    shownOpening_ = log().opening();
    const auto setting = [this](QStringView key) {
        return session_.settings.value(calibrator_, key.toString());
    };
    // Settings that can't be read are no reason for a report each time that the window looks.
    try {
        const int number =
            calibratorNamed(calibrator_).port(setting(lineKey::baudRate), setting(lineKey::port));
        LabelPort->setText(portState(calibrators_.ports, number, shownOpening_));
    } catch (const Error& error) {
        LabelPort->setText(error.description);
    }
}

void FormCommunicationLog::showFile() {
    LabelFile->setText(log().isSwitchedOn()
                           ? text(TextId::communicationLogFile).arg(QDir::toNativeSeparators(log().path()))
                           : text(TextId::communicationLogOff));
}

void FormCommunicationLog::pause() {
    paused_ = !paused_;
    CommandPause->setText(text(paused_ ? TextId::communicationLogContinue : TextId::communicationLogPause));
    CommandPause->setToolTip(
        text(paused_ ? TextId::communicationLogContinueTip : TextId::communicationLogPauseTip));
    CommandPause->setAccessibleName(CommandPause->text());
    takeNewLines();
}

/// Behind the last place the search begins again at the first line.
void FormCommunicationLog::findNext() {
    const auto wanted = TextSearch->text();
    LabelOutcome->clear();
    if (wanted.isEmpty() || TextLog->find(wanted))
        return;
    const auto before = TextLog->textCursor();
    TextLog->moveCursor(QTextCursor::Start);
    if (TextLog->find(wanted))
        return;
    TextLog->setTextCursor(before);
    LabelOutcome->setText(text(TextId::communicationLogNotFound).arg(wanted));
}

void FormCommunicationLog::save() {
    QFileDialog dialog(this, titleOf(TextId::communicationLogSave));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(text(TextId::communicationLogText).split(u";;"_s));
    dialog.setDefaultSuffix(u"txt"_s);
    dialog.setDirectory(QDir::homePath());
    dialog.selectFile(QFileInfo(log().path()).completeBaseName() + u".txt"_s);
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
        saveAs(dialog.selectedFiles().constFirst());
}

void FormCommunicationLog::saveAs(const QString& path) {
    const auto shownPath = QDir::toNativeSeparators(path);
    const auto fault = writeWholeFile(path, TextLog->toPlainText().toUtf8() + '\n');
    LabelOutcome->setText(fault.isEmpty() ? text(TextId::communicationLogSaved).arg(shownPath)
                                          : text(TextId::communicationLogNotSaved).arg(shownPath, fault));
}

void showCommunicationLog(QMdiArea& area, Session& session, Calibrators& calibrators,
                          const QString& calibrator) {
    for (auto* child : area.subWindowList()) {
        auto* open = qobject_cast<FormCommunicationLog*>(child);
        if (open && open->isOpen()) {
            open->setCalibrator(calibrator);
            open->showIn(area);
            return;
        }
    }
    auto made = std::make_unique<FormCommunicationLog>(session, calibrators, calibrator);
    made->showIn(area);
    static_cast<void>(made.release());
}

} // namespace kelvane
