#pragma once

#include "demo/difference.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

class QMessageBox;

namespace kelvane {

class ChildWindow;
class FormCustomDialog;

namespace demo {

/// The technician at the screen: answers boxes and one-field dialogs by what the present step expects, with
/// real key and mouse events, and takes a picture of every window that comes up. Whatever the step does not
/// expect is sent away, and told at the end of the step.
class Person final : public QObject {
  public:
    /// A box that has to come, to the letter, and the caption of the button to press on it.
    struct Box {
        QString title;
        QString text;
        QString button = QStringLiteral("OK");
    };
    /// The entry, or nothing for a question that must not come.
    using OnDialog = std::function<std::optional<QString>(const QString& caption, const QString& prompt)>;

    /// Pictures of `window` go into the folder.
    Person(QWidget& window, const QString& pictures);

    /// Carries out one step, in which these boxes come in this order. Throws `Difference` when something
    /// else came up in it, or a box did not.
    void step(const QString& told, const QList<Box>& boxes, OnDialog onDialog,
              const std::function<void()>& act);

    /// Takes a picture of the whole window as it is now.
    void look(const QString& name) { picture(window_, name); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void meet(ChildWindow& window);
    void meet(QMessageBox& box);
    void answer(FormCustomDialog& dialog);
    void picture(QWidget& widget, const QString& name);
    void complain(const QString& what);

    QWidget& window_;
    QString pictures_;
    int taken_ = 0;
    QList<Box> boxes_;
    OnDialog onDialog_;
    QStringList unexpected_;
};

/// The control of that name below `parent`; throws `Difference` when it isn't there.
template <class Control>
Control& control(const QWidget& parent, const QString& name) {
    if (auto* found = parent.findChild<Control*>(name))
        return *found;
    throw Difference(QStringLiteral("there is no control ") + name);
}

} // namespace demo
} // namespace kelvane
