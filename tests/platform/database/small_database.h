#pragma once

#include "testkit/embedded_database.h"

#include <QStringList>

namespace kelvane::testing {

/// Makes the database file `path`, or adds to it, by running `statements` through the driver.
void makeFile(const QString& path, const QStringList& statements);

/// A database of a few small tables: accounts jdoe ("kelvane") and "Jürgen" ("pässwörd"), owners mt, std and
/// abc.
class SmallDatabase : public EmbeddedDatabase {
  public:
    explicit SmallDatabase(const QHash<QString, QString>& settings = {});
    std::unique_ptr<Connection> connect() const;
};

/// The first column of all rows; a null is "(null)".
QStringList firstColumn(Connection& connection, const QString& query);

/// What `action` throws.
template <class Action>
std::optional<Error> errorOf(Action&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    return {};
}

} // namespace kelvane::testing
