#pragma once

#include "editors/form_strategies.h"
#include "tests/support/screen_operator.h"

#include <QComboBox>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <QPushButton>

namespace kelvane::testing {

/// The parameter editor as the other editors see it.
class StandInCalParam final : public OpenCalParam {
  public:
    QString strategy() const override { return shown; }
    void addStrategy(const QString& name) override { added << name; }
    void renameStrategy(const QString& from, const QString& to) override { renamed << from << to; }
    void addMessage(const QString&) override {}

    QString shown;
    QStringList added;
    QStringList renamed; // each from and to
};

/// The screen of the test strategies in a window of its own, and the hands of the person before it. Each
/// control is used with the mouse or the keyboard.
class StrategiesScreen {
  public:
    StrategiesScreen();

    /// Opens it; `calParam` is the open parameter editor.
    void open(Session& session, OpenCalParam* calParam = nullptr);
    FormStrategies& form() { return *form_; }
    bool isOpen() const { return form_ && form_->isOpen(); }
    void close() { form_->close(); }

    QComboBox& names() { return control<QComboBox>(form(), QStringLiteral("ComboTSNames")); }
    QComboBox& predefined() { return control<QComboBox>(form(), QStringLiteral("ComboPreDef")); }
    QListWidget& list() { return control<QListWidget>(form(), QStringLiteral("ListPoints")); }
    QPushButton& button(const QString& name) { return control<QPushButton>(form(), name); }

    QString name() { return names().currentText(); }
    QStringList allNames();
    QStringList points();
    int selected();
    /// The names of the controls that can be used, of those that are ever enabled or disabled.
    QStringList enabled();

    void press(const QString& button) { click(this->button(button)); }
    /// Chooses a row out of the list that drops down.
    void choose(QComboBox& list, const QString& row);
    /// Selects a point with the mouse.
    void select(int row);
    void doubleClick(int row);

  private:
    QPoint placeOf(int row);

    QMainWindow window_;
    QMdiArea* area_;
    QPointer<FormStrategies> form_;
};

/// The query for the names of all strategies.
QString selectNames();
/// The query for whether a strategy exists, with its name as it stands in a statement.
QString selectName(const QString& name);
/// The query for the points of a strategy.
QString selectPoints(const QString& name);
/// What is read to show the strategy `name`: all names, whether it exists, and its points.
QStringList loadOf(const QString& name);
/// The same when another one, `shown`, takes its place.
QStringList loadOf(const QString& name, const QString& shown);

} // namespace kelvane::testing
