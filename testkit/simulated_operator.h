#pragma once

#include "platform/user_interface.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class QMessageBox;
class QWidget;

namespace kelvane {

class FormCustomDialog;

namespace demo {

/// The simulated operator of real windows. Boxes and dialogs are queued in the order in which they have to
/// come. Each is compared as soon as it is shown and then answered with mouse and keyboard, or by `act`. One
/// that differs or comes unexpected is reported and closed. Nothing waits for time.
class SimulatedOperator : public QObject {
  public:
    using ActOnBox = std::function<void(QMessageBox&)>;
    using ActOnDialog = std::function<void(FormCustomDialog&)>;
    using ActOnWindow = std::function<void(QWidget&)>;
    using Report = std::function<void(const QString& message)>;

    explicit SimulatedOperator(Report report);

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

    /// Another window with this title, as a preview or a choice of files; `act` has to bring it to its end.
    void expectWindow(const QString& title, ActOnWindow act);

    bool hasMetAll() const { return expected_.isEmpty(); }
    /// Waits until everything expected has come and gone.
    void waitUntilAllCame();
    /// Reports what has not come, and expects it no longer.
    void reportMissing();

    /// Called with every box and child window that comes up, before it is answered.
    std::function<void(QWidget&)> onShown;

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
        ActOnWindow onWindow = {};
    };
    bool isExpectedWindow(const QWidget* window) const;
    void answerWindow(QWidget& window);
    void actOn(QWidget& window);
    void answerMessageBox(QMessageBox& box);
    void answerFieldDialog(FormCustomDialog& dialog);
    void closeDialog(FormCustomDialog& dialog);
    void compare(const Expected& expected, const QMessageBox& box) const;
    void checkSame(const QString& what, const QString& found, const QString& expected) const;

    Report report_;
    QList<Expected> expected_;
    bool closingDialog_ = false;
};

} // namespace demo
} // namespace kelvane
