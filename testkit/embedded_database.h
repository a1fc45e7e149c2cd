#pragma once

#include "testkit/open_connections.h"

#include <QHash>
#include <QTemporaryDir>

namespace kelvane::testing {

/// The folder of the demonstration database: that of today, or what KELVANE_DEMO_DATABASE in the environment
/// names.
QString demoDatabase();

/// A copy of a database's files in a folder of its own, and a data source of its own for it. Settings of the
/// data source may be changed, such as {"Timeout", "100"}.
class EmbeddedDatabase {
  public:
    /// `filesFrom` is a folder with "kelvane.db" and the owners' "*.db" files; empty for no files yet.
    explicit EmbeddedDatabase(const QString& filesFrom, const QHash<QString, QString>& settings = {});
    /// The name of the data source.
    QString dsn() const { return dsn_; }
    QString connectionString() const { return QStringLiteral("DSN=") + dsn_; }
    /// The folder of the files.
    QString path() const { return folder_.path(); }
    QString file(const QString& name) const { return folder_.filePath(name); }
    /// A new connection, opened.
    std::unique_ptr<Connection> connect(const QString& user = QStringLiteral("jdoe"),
                                        const QString& password = QStringLiteral("kelvane")) const;

  private:
    QTemporaryDir folder_;
    QString dsn_;
};

} // namespace kelvane::testing
