#pragma once

#include "platform/user_interface.h"

#include <QList>
#include <functional>

namespace kelvane::testing {

/// A scripted operator. `expectBox` and `expectDialog` queue what has to come, in order, with the answer; a
/// box or dialog that differs from the next one expected, or comes unexpected, fails the test; `~` fails it
/// for what never came. `events` records the progress window and pointer calls ("busy", "normal", "progress
/// Caption", "value 14", "text …", "hide", "events", "wait Title").
class ScriptedUserInterface final : public UserInterface {
  public:
    ~ScriptedUserInterface() override;

    void expectBox(const QString& text, const QString& title, BoxStyle style,
                   BoxAnswer answer = BoxAnswer::ok);
    /// The dialog's question is compared in caption and prompt; `check` may compare the rest.
    void expectDialog(const QString& caption, const QString& prompt, const QString& answer,
                      std::function<void(const DialogQuestion&)> check = {});
    /// An error report: a stop box, titled "Kelvane", that names this number and routine.
    void expectReport(int number, const QString& routine);
    /// Nothing that was expected is still open.
    bool hasMetAll() const { return expected_.isEmpty(); }

    BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) override;
    QString askOneField(const DialogQuestion& question) override;
    bool bringQuestionForward() override;
    void showProgress(const QString& caption) override;
    void setProgressText(const QString& text) override;
    void setProgressValue(int percent) override;
    void hideProgress() override;
    void setActivity(const QString& text) override { activities << text; }
    void setBusyPointer() override;
    void setNormalPointer() override;
    void processEvents() override;
    void waitForWindow(const QString& title) override;
    void repaint() override;

    QStringList events;
    /// What the status line showed, apart from `events`.
    QStringList activities;
    /// How often the windows were let paint; not part of `events`.
    int repaints = 0;
    /// Whether a question is open all the time, and how often it was brought forward.
    bool questionOpen = false;
    int broughtForward = 0;
    /// Runs while a box stands, when a test sets it.
    std::function<void()> onBox;
    /// Runs while a window is waited for, when a test sets it.
    std::function<void()> onWait;
    bool busy = false;
    bool progressShown = false;

  private:
    struct Expected {
        bool dialog = false;
        bool report = false;
        QString text; // of a box; prompt of a dialog; routine of a report
        QString title;
        BoxStyle style;
        BoxAnswer answer = BoxAnswer::ok;
        QString entry;
        int number = 0;
        std::function<void(const DialogQuestion&)> check;
    };
    QList<Expected> expected_;
};

} // namespace kelvane::testing
