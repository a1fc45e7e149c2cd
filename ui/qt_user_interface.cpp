#include "ui/qt_user_interface.h"

#include "ui/form_custom_dialog.h"
#include "ui/form_status_bar.h"
#include "ui/message_box.h"
#include "ui/open_windows.h"
#include "ui/status_line.h"

#include <QApplication>
#include <QEventLoop>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenuBar>
#include <QPushButton>
#include <QScopeGuard>

#include <memory>

namespace kelvane {

QtUserInterface::QtUserInterface() = default;

QtUserInterface::~QtUserInterface() {
    setNormalPointer();
}

void QtUserInterface::attach(Session& session, QMainWindow& window, QMdiArea& area, StatusLine& statusLine) {
    session_ = &session;
    window_ = &window;
    area_ = &area;
    statusLine_ = &statusLine;
}

void QtUserInterface::showSessionState() {
    if (!statusLine_)
        return;
    statusLine_->refresh();
    statusLine_->repaint();
}

BoxAnswer QtUserInterface::messageBox(const QString& text, const QString& title, BoxStyle style) {
    // A box is there to be answered: the hourglass waits until it has been.
    const bool wasBusy = busy_;
    setNormalPointer();
    // Over the window that is in use: behind a preview the box would not be seen.
    auto* inUse = qobject_cast<QMainWindow*>(QApplication::activeWindow());
    const auto answer = showMessageBox(inUse ? inUse : window_.data(), text, title, style);
    redraw();
    if (wasBusy)
        setBusyPointer();
    return answer;
}

QString QtUserInterface::askOneField(const DialogQuestion& question) {
    if (bringQuestionForward() || dialogOpen_ || !area_)
        return cancelled;
    dialogOpen_ = true;
    const auto notOpen = qScopeGuard([this] { dialogOpen_ = false; });

    QString result = cancelled;
    QEventLoop loop;
    setBusyPointer();
    const auto normal = qScopeGuard([this] { setNormalPointer(); });
    auto made = std::make_unique<FormCustomDialog>(*session_, question, [&](const QString& answer) {
        result = answer;
        dialogOpen_ = false;
        loop.quit();
    });
    made->showIn(*area_);
    // From here on the area owns it; without the area the question has no answer.
    const QPointer form = made.release();
    question_ = form;
    QObject::connect(form, &QObject::destroyed, &loop, &QEventLoop::quit);
    setNormalPointer();
    if (dialogOpen_)
        loop.exec();
    if (form && form->isOpen())
        form->unload();
    redraw();
    return result;
}

bool QtUserInterface::bringQuestionForward() {
    if (!question_ || !question_->isOpen())
        return false;
    question_->showIn(*area_);
    return true;
}

/// Draws what lay under a box or a question at once: long work may begin before the next event is handled.
void QtUserInterface::redraw() {
    repaint();
    if (window_)
        window_->repaint();
}

void QtUserInterface::showProgress(const QString& caption) {
    if (!area_)
        return;
    if (!progress_ || !progress_->isOpen()) {
        auto made = std::make_unique<FormStatusBar>(*session_);
        made->setWindowTitle(caption);
        disableOthers();
        made->showIn(*area_);
        progress_ = made.release();
    }
    progress_->setWindowTitle(caption);
    processEvents();
}

void QtUserInterface::disableOthers() {
    QList<QWidget*> others{window_->menuBar(), &statusLine_->connectButton()};
    others << area_->viewport()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (auto* other : others) {
        if (other->isEnabled()) {
            other->setEnabled(false);
            disabled_ << other;
        }
    }
}

void QtUserInterface::enableOthers() {
    for (const auto& other : std::exchange(disabled_, {})) {
        if (other)
            other->setEnabled(true);
    }
}

void QtUserInterface::setProgressText(const QString& text) {
    if (progress_)
        progress_->setStatus(text);
}

void QtUserInterface::setProgressValue(int percent) {
    if (progress_)
        progress_->setValue(percent);
}

void QtUserInterface::hideProgress() {
    enableOthers();
    if (progress_)
        progress_->unload();
    progress_.clear();
}

void QtUserInterface::setActivity(const QString& text) {
    if (statusLine_)
        statusLine_->showActivity(text);
}

void QtUserInterface::setBusyPointer() {
    if (!busy_)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    busy_ = true;
}

void QtUserInterface::setNormalPointer() {
    if (busy_)
        QGuiApplication::restoreOverrideCursor();
    busy_ = false;
}

void QtUserInterface::processEvents() {
    QCoreApplication::processEvents();
}

void QtUserInterface::waitForWindow(const QString& title) {
    while (shownWindow(title))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void QtUserInterface::repaint() {
    if (statusLine_)
        statusLine_->refresh();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

} // namespace kelvane
