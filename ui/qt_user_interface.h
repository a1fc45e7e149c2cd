#pragma once

#include "data/session.h"
#include "platform/user_interface.h"

#include <QList>
#include <QPointer>

class QMainWindow;
class QMdiArea;

namespace kelvane {

class FormCustomDialog;
class FormStatusBar;
class StatusLine;

/// The operator in front of real windows. The session is made with it, and the main window with the session;
/// so these two are attached once they are there. Before that, only message boxes and the pointer work.
class QtUserInterface final : public UserInterface {
  public:
    QtUserInterface();
    ~QtUserInterface() override;

    /// The session and the main window with its area of child windows and its status line. This object must
    /// not use them any more once the window is gone.
    void attach(Session& session, QMainWindow& window, QMdiArea& area, StatusLine& statusLine);

    /// Shows in the status line at once who is logged in, or that the connection is lost.
    void showSessionState();

    BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) override;
    QString askOneField(const DialogQuestion& question) override;
    bool bringQuestionForward() override;
    void showProgress(const QString& caption) override;
    void setProgressText(const QString& text) override;
    void setProgressValue(int percent) override;
    void hideProgress() override;
    void setActivity(const QString& text) override;
    void setBusyPointer() override;
    void setNormalPointer() override;
    void processEvents() override;
    void waitForWindow(const QString& title) override;
    void repaint() override;

  private:
    void disableOthers();
    void enableOthers();
    void redraw();

    Session* session_ = nullptr;
    QPointer<QMainWindow> window_;
    QPointer<QMdiArea> area_;
    QPointer<StatusLine> statusLine_;
    QPointer<FormCustomDialog> question_;
    QPointer<FormStatusBar> progress_;
    /// What the progress window has disabled.
    QList<QPointer<QWidget>> disabled_;
    bool dialogOpen_ = false;
    bool busy_ = false;
};

} // namespace kelvane
