#pragma once

#include "testkit/fixtures.h"
#include "tests/editors/strategies/strategies_screen.h"

#include <algorithm>

namespace kelvane::testing {

/// The screen over a recording connection that answers for the strategies "FIVE" and "UP DOWN".
class StrategiesTest : public RecordedSession {
  protected:
    StrategiesTest() {
        know(QStringLiteral("FIVE"), {QStringLiteral("0"), QStringLiteral("25"), QStringLiteral("50"),
                                      QStringLiteral("75"), QStringLiteral("100")});
        know(QStringLiteral("UP DOWN"), {QStringLiteral("0"), QStringLiteral("100"), QStringLiteral("0")});
    }

    /// From now on the database has this strategy, under its name as it stands in a statement.
    void know(const QString& name, const QStringList& points) {
        auto names = script.answers[selectNames()];
        names << Row{QString(name).replace(QStringLiteral("''"), QStringLiteral("'"))};
        std::ranges::sort(names, {}, [](const Row& row) { return *row[0]; });
        QList<Row> rows;
        for (const auto& point : points)
            rows << Row{point};
        script.answers[selectNames()] = names;
        script.answers[selectName(name)] = {Row{name}};
        script.answers[selectPoints(name)] = rows;
        script.answers[QStringLiteral("select test_point_pct from mt.hvm_kv_proc_points where tp_name = '") +
                       name + QLatin1Char('\'')] = rows;
    }
    /// From now on the database has no such strategy.
    void forget(const QString& name) {
        script.answers[selectNames()].removeOne(Row{name});
        for (auto answer = script.answers.begin(); answer != script.answers.end();)
            answer = answer.key().contains(QLatin1Char('\'') + name + QLatin1Char('\''))
                         ? script.answers.erase(answer)
                         : std::next(answer);
    }

    /// Opens the screen; what it reads then is not recorded.
    void open() {
        screen.open(session, calParam);
        script.statements.clear();
    }
    /// The statements since the last look.
    QStringList statements() { return std::exchange(script.statements, {}); }

    void expectPointDialog(const QString& answer, std::function<void(const DialogQuestion&)> check = {}) {
        ui.expectDialog(QStringLiteral("Kelvane"), QStringLiteral("Enter the test point to add: (%)"), answer,
                        std::move(check));
    }
    void expectModifyDialog(const QString& answer, std::function<void(const DialogQuestion&)> check = {}) {
        ui.expectDialog(QStringLiteral("Kelvane"), QStringLiteral("Enter the new test point: (%)"), answer,
                        std::move(check));
    }
    void expectNameDialog(const QString& answer, std::function<void(const DialogQuestion&)> check = {}) {
        ui.expectDialog(QStringLiteral("Add new test strategy"),
                        QStringLiteral("Enter a name for the new test strategy (30 chars max!):"), answer,
                        std::move(check));
    }
    void expectRenameDialog(const QString& answer, std::function<void(const DialogQuestion&)> check = {}) {
        ui.expectDialog(QStringLiteral("Rename Test Strategy"),
                        QStringLiteral("Enter new test stragegy name:"), answer, std::move(check));
    }
    void add(const QString& name) {
        expectNameDialog(name);
        screen.press(QStringLiteral("CommandAdd"));
    }
    void addPoint(const QString& point) {
        expectPointDialog(point);
        screen.press(QStringLiteral("CommandAddTP"));
    }

    static QString deletePoints(const QString& name) {
        return QStringLiteral("delete from mt.hvm_kv_proc_points where tp_name = '") + name +
               QStringLiteral("';commit");
    }

    StandInCalParam standIn;
    /// The open parameter editor.
    OpenCalParam* calParam = nullptr;
    StrategiesScreen screen;

    const QStringList idle{QStringLiteral("ComboTSNames"),  QStringLiteral("CommandAdd"),
                           QStringLiteral("CommandRename"), QStringLiteral("CommandDeleteTS"),
                           QStringLiteral("ComboPreDef"),   QStringLiteral("CommandAddTP"),
                           QStringLiteral("CommandModify"), QStringLiteral("CommandDeletePoint"),
                           QStringLiteral("CommandMoveUp"), QStringLiteral("CommandMoveDown")};
    const QString loading = QStringLiteral("FormStrategies,LoadStrategyList");
    const Error refused{547, QStringLiteral("The statement is refused.")};
    const QString discard =
        QStringLiteral("Are you sure you want to discard any changes made since last save?");
};

} // namespace kelvane::testing
