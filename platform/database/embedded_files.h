#pragma once

#include "platform/system.h"

#include <QList>
#include <QString>

namespace kelvane {

/// The files of a database that is open. An engine goes on with a file that was removed or replaced, and
/// everything that it writes is then lost with the file.
class DatabaseFiles {
  public:
    /// Watches `path` in its present state.
    void add(const QString& path);
    /// The first file that is no longer the one that was added; empty when all are.
    QString firstMissing() const;

  private:
    struct File {
        QString path;
        /// The path as the system takes it.
        QByteArray native;
        std::optional<FileIdentity> identity;
    };
    QList<File> files_;
};

} // namespace kelvane
