#pragma once

#include <QStringList>

#include <array>

namespace kelvane {

class Sql;
struct Session;

/// The ways in which a predefined task package names its instruments.
enum class Definition { assetList, sql, segregate, description, model };
inline constexpr std::size_t definitionCount = 5;

/// How a way is stored.
struct DefinitionKind {
    Definition definition;
    /// `tp_definition`.
    QStringView letter;
    /// The column that holds its value; empty for a list of instruments, which has a table of its own.
    QStringView column;
    /// The query for the values to choose from; null where nothing is chosen.
    Sql (*choices)(const Session& session);
    /// The name under which a click on the option reports; empty where it reads nothing.
    QStringView click;
};

/// All ways, in the order of `Definition`.
const std::array<DefinitionKind, definitionCount>& definitionKinds();
const DefinitionKind& kindOf(Definition definition);
/// True when its value is chosen from values of the database.
inline bool hasValues(Definition definition) {
    return kindOf(definition).choices != nullptr;
}

/// A predefined task package as it is saved.
struct TaskPackage {
    QString name;
    Definition definition = Definition::assetList;
    /// The value of the definition's column.
    QString value = {};
    QString notes = {};
    /// Asset numbers, for a list of instruments.
    QStringList assets = {};
};

/// The two statements that remove the package of that name with its list.
QList<Sql> packageDeletes(const QString& name);
/// The statement of the package itself, with that new tag.
Sql packageInsert(const Session& session, const TaskPackage& package, const QString& tptag);
/// The statement of one instrument of its list; the number goes in as it is.
Sql assetInsert(const Session& session, const QString& tptag, const QString& asset);

} // namespace kelvane
