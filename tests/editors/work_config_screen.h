#pragma once

#include "editors/form_work_config.h"
#include "tests/support/screen_operator.h"

#include <QCheckBox>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <QPushButton>

namespace kelvane::testing {

/// The configuration of calibration records in a window of its own, and the hands of the person before it.
class WorkConfigScreen {
  public:
    WorkConfigScreen();

    void open(Session& session);
    FormWorkConfig& form() { return *form_; }
    bool isOpen() const { return form_ && form_->isOpen(); }
    void close() { form_->close(); }

    QListWidget& available() { return control<QListWidget>(form(), QStringLiteral("ListAvail")); }
    QListWidget& requested() { return control<QListWidget>(form(), QStringLiteral("ListRequest")); }
    QCheckBox& overdue() { return control<QCheckBox>(form(), QStringLiteral("CheckOOC")); }
    QCheckBox& poorTrace() { return control<QCheckBox>(form(), QStringLiteral("CheckTrace")); }
    QPushButton& button(const QString& name) { return control<QPushButton>(form(), name); }
    void press(const QString& button) { click(this->button(button)); }
    /// Ticks a box, or takes the tick away, with the keyboard.
    void toggle(QCheckBox& box);

    /// Selects the row of that text with the mouse.
    void select(QListWidget& list, const QString& row);
    void doubleClick(QListWidget& list, const QString& row);

  private:
    QPoint placeOf(QListWidget& list, const QString& row);

    QMainWindow window_;
    QMdiArea* area_;
    QPointer<FormWorkConfig> form_;
};

} // namespace kelvane::testing
