#pragma once

#include "data/session.h"
#include "procedures/refusal.h"
#include "procedures/task_package.h"
#include "resources/strings.h"

#include <optional>

namespace kelvane {

/// A package as it was read.
struct StoredPackage {
    bool exists = false;
    QString notes = {};
    /// The statement, whatever the definition is.
    QString sql = {};
    /// Nothing when its letter is unknown.
    std::optional<Definition> definition = {};
    /// The value of a definition that is chosen from a list.
    QString value = {};
    QStringList assets = {};
    /// False when the database failed meanwhile; the members then hold what was read before.
    bool isComplete = false;
};

/// The longest name of a new package, in characters.
inline constexpr qint16 longestPackageName = 30;

/// The names of all predefined packages, in the order of the database. Nothing when it failed, which is
/// reported as "FormPredefinedTasks,LoadTasks".
std::optional<QStringList> packageNames(Session& session);

/// Reads a package; the name goes in as it stands. Reported as "FormPredefinedTasks,LoadPackage".
StoredPackage loadPackage(Session& session, const QString& name);

/// The values that a definition can be chosen from. Nothing when the database failed, which is reported under
/// the name of the option.
std::optional<QStringList> packageValues(Session& session, Definition definition);

/// Asks for the name of a new package until it is free; `cancelled` when the user gives up, nothing when the
/// database failed. Reported as "FormStrategies,CommandAdd", the name that this command has from the screen
/// of the strategies.
std::optional<QString> askPackageName(Session& session);

/// Whether a package has that name. Nothing when the database failed, which is reported as
/// "FormStrategies,CommandAdd", too.
std::optional<bool> isPackageName(Session& session, const QString& name);

/// What is wrong with an instrument that is to join those that are listed; nothing when it may.
std::optional<TextId> faultOfInstrument(Session& session, const QStringList& listed, const QString& asset);

/// What keeps a package from being saved; nothing when it may be.
std::optional<TextId> faultOfPackage(const TaskPackage& package);

/// Stores the package under a new tag in place of the one of its name. Gives the failure, nothing when all is
/// stored; its row is the instrument of the list at which it came, -1 for none. Reported as
/// "FormPredefinedTasks,CommandSave".
std::optional<SaveFailure> savePackage(Session& session, const TaskPackage& package);

/// True when the package is gone; reported as "FormPredefinedTasks,CommandRemoveTP".
bool removePackage(Session& session, const QString& name);

} // namespace kelvane
