#pragma once

#include "editors/strategies/form_strategies.h"
#include "testkit/screen_window.h"

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

/// The screen of the test strategies in a window of its own.
class StrategiesScreen : public EditorScreen<FormStrategies> {
  public:
    /// Opens it; `calParam` is the open parameter editor.
    void open(Session& session, OpenCalParam* calParam = nullptr);

    QComboBox& names() { return controlNamed<QComboBox>(QStringLiteral("ComboTSNames")); }
    QComboBox& predefined() { return controlNamed<QComboBox>(QStringLiteral("ComboPreDef")); }
    QListWidget& list() { return controlNamed<QListWidget>(QStringLiteral("ListPoints")); }

    QString name() { return names().currentText(); }
    QStringList allNames() { return choicesOf(names()); }
    QStringList points();
    int selected();
    /// The names of the controls that can be used, of those that are ever enabled or disabled.
    QStringList enabled();

    /// Selects a point with the mouse.
    void select(int row) { ScreenWindow::select(list(), row); }
    void doubleClick(int row) { ScreenWindow::doubleClick(list(), row); }
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
