#pragma once

#include "data/session.h"
#include "procedures/refusal.h"

#include <QStringList>

#include <optional>

namespace kelvane {

class Routine;

/// A test strategy: a named, ordered list of test points.
struct Strategy {
    QString name;
    /// Percentages of an instrument's range, as they were typed.
    QStringList points = {};
};

/// The names of all strategies, in their order, and one of them with its points. Its name is empty when there
/// is none.
struct StrategyList {
    QStringList names;
    Strategy shown;
};

/// The names of all strategies, in their order. Part of the routine that calls it.
QStringList strategyNames(Routine& routine);

/// Reads all names, and the strategy `name`, or the first one when that is empty or does not exist. Nothing
/// when the database failed, which is reported as "FormStrategies,LoadStrategyList".
std::optional<StrategyList> loadStrategies(Session& session, const QString& name);

/// Asks for the name of a new strategy until it is free; `cancelled` when the user gives up, nothing when the
/// database failed. Reported as "FormStrategies,CommandAdd".
std::optional<QString> askStrategyName(Session& session);

/// Renames a strategy, with all instruments that use it; onto the name of another one it joins that one.
/// Gives the failure, nothing when it is done. Reported as "FormStrategies,CommandRename".
std::optional<SaveFailure> renameStrategy(Session& session, const QString& from, const QString& to);

/// Deletes a strategy that no instrument uses, once the user has confirmed it. True when it is deleted.
/// Reported as "FormStrategies,CommandDeleteTS".
bool deleteStrategy(Session& session, const QString& name);

/// Stores the points in place of those that the strategy has. The name and the points go in as they stand.
/// Gives the failure with the point at which it came, nothing when all is stored. Reported as
/// "FormStrategies,CommandSave".
std::optional<SaveFailure> saveStrategy(Session& session, const Strategy& strategy);

/// Warns when there is no strategy at all. False when the database failed, which is reported as
/// "MDIFormMain,mnuCalParameters.Click".
bool warnWithoutStrategies(Session& session);

} // namespace kelvane
