#pragma once

#include "tests/database/scripts.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace kelvane::testing {

/// The pattern of a temporary folder, in memory where it can be: an upgrade waits for the disk most of its
/// time.
QString folderInMemory();

/// The steps of an upgrade, by their file names in order.
QStringList upgradeSteps();

/// A database at path("site"), upgraded by the scripts or by a copy of them with other steps.
class Upgrade : public ::testing::Test {
  protected:
    QString path(const QString& name) const { return folder.filePath(name); }
    QString site() const { return path(QStringLiteral("site")); }
    QString siteFile(const QString& name) const { return site() + QLatin1Char('/') + name; }

    /// The database as the first scripts made it, with rows in every table and without a version.
    void makeFirstVersion() const;
    /// A database of the newest version without rows.
    QString newDatabase() const;
    /// A copy of the scripts that has those of today's steps.
    QString copyOfScripts(const QString& name, const QStringList& steps = upgradeSteps()) const;
    /// Adds a step behind those of a copy.
    static void addStep(const QString& scripts, const QString& name, const QByteArray& text);

    /// Upgrades the database by today's scripts or by a copy of them.
    Outcome upgrade(const QString& scripts = {}, const ScriptEnvironment& environment = {}) const;
    void expectUpgrade(const QString& scripts = {}) const;

    /// The number of the last step entered in the database; 0 without a history.
    int version() const;
    /// Takes the history away: no table held the version before there were upgrades.
    void forgetVersion() const;
    /// The folders of copies beside the database.
    QStringList copies() const;
    /// The columns of each owner's inventory.
    QString inventoryColumns() const;
    void expectSound() const;

    QTemporaryDir folder{folderInMemory()};
};

} // namespace kelvane::testing
