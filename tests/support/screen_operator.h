#pragma once

#include "platform/user_interface.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class QComboBox;
class QMessageBox;
class QWidget;

namespace kelvane {
class FormCustomDialog;
}

namespace kelvane::testing {

/// The person in front of real windows. Boxes and dialogs are queued in the order in which they have to come;
/// each is compared as soon as it is shown and then answered with the mouse, or as the test says. One that
/// differs or comes unexpected fails the test, and is sent away so that the test ends; `~` fails it for what
/// never came. Nothing waits for time.
class ScreenOperator final : public QObject {
  public:
    using ActOnBox = std::function<void(QMessageBox&)>;
    using ActOnDialog = std::function<void(FormCustomDialog&)>;

    ScreenOperator();
    ~ScreenOperator() override;

    /// A box with this text, title and style; answered by a click on the button of that answer.
    void expectBox(const QString& text, const QString& title, BoxStyle style,
                   BoxAnswer answer = BoxAnswer::ok);
    /// The same, answered by `act`.
    void expectBox(const QString& text, const QString& title, BoxStyle style, ActOnBox act);
    /// An error report: a stop box titled "Kelvane" that names this number and routine.
    void expectReport(int number, const QString& routine);
    /// A one-field dialog with this title and prompt; `act` has to bring it to its end.
    void expectDialog(const QString& caption, const QString& prompt, ActOnDialog act);
    /// The same, answered with `entry` (typed, or chosen from the list) and Return.
    void expectDialog(const QString& caption, const QString& prompt, const QString& entry);

    bool allCame() const { return expected_.isEmpty(); }
    /// Waits until everything expected has come and gone.
    void waitUntilAllCame();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Expected {
        QString title;
        QString text;
        bool dialog = false;
        bool report = false;
        BoxStyle style;
        BoxAnswer answer = BoxAnswer::ok;
        ActOnBox onBox;
        ActOnDialog onDialog;
    };
    void meet(QMessageBox& box);
    void meet(FormCustomDialog& dialog);
    void compare(const Expected& expected, const QMessageBox& box) const;

    QList<Expected> expected_;
    bool sendingAway_ = false;
};

/// Answers the one-field dialog: types `entry`, or chooses it from the list, and presses Return.
void answerDialog(FormCustomDialog& dialog, const QString& entry);

/// The control of that name below `parent`; a failure lists the names that exist.
template <class Control>
Control& control(const QWidget& parent, const QString& name);

/// The names of the controls below `parent`.
QString namesBelow(const QWidget& parent);
[[noreturn]] void controlNotFound(const QWidget& parent, const QString& name);

template <class Control>
Control& control(const QWidget& parent, const QString& name) {
    if (auto* found = parent.findChild<Control*>(name))
        return *found;
    controlNotFound(parent, name);
}

/// Chooses a row of a list as a user does, with the keyboard.
void pick(QComboBox& list, const QString& row);

/// A click in the middle of a control, which has to be visible.
void click(QWidget& widget);

} // namespace kelvane::testing
