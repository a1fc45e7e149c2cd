#pragma once

#include "platform/error.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace kelvane {

/// How much of a record set its reader needs.
enum class Rows {
    all,
    /// Only the first row: the engine is then asked for no more than that one.
    first,
};

/// The rows of a query, walked forward once. It stays readable while other statements, commits included, run
/// on the same connection.
class RecordSet {
  public:
    virtual ~RecordSet() = default;
    /// Goes to the next row, at first to the first one; false behind the last.
    virtual bool next() = 0;
    /// The value of a column of the present row, counted from 0, as text; nothing for a null. Ask for the
    /// columns in ascending order. Error 3021 without a row.
    virtual std::optional<QString> value(int column) = 0;
};

/// The database: plain texts go in, texts or nulls come out. Failures are thrown as `Error` with the driver's
/// own native number and text. Each statement commits by itself, but within a transaction.
class Connection {
  public:
    virtual ~Connection() = default;
    /// Opens with a connection string such as "DSN=Calibration Data" and the user's own login. Error 3705
    /// when it is open already, unless it has been lost, in which case it is made anew.
    virtual void open(const QString& connectionString, const QString& user, const QString& password) = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    /// True once a statement has failed because the connection is gone.
    virtual bool isLost() const = 0;
    /// Gives the number of rows that the text has inserted, changed and deleted; -1 where the engine does not
    /// report it.
    virtual qint64 execute(const QString& statement) = 0;
    virtual std::unique_ptr<RecordSet> select(const QString& statement, Rows rows = Rows::all) = 0;

    /// From here to `commitTransaction` or `rollBackTransaction` the statements take effect together or not
    /// at all; what "commit" in their texts asks for waits for the end. Transactions do not nest. A site's
    /// own engine keeps the commits of the texts: there these three do nothing.
    virtual void beginTransaction() = 0;
    virtual void commitTransaction() = 0;
    virtual void rollBackTransaction() = 0;

    /// Takes a lock that all workstations of the database know by `name`, and that only one of them has at a
    /// time; waits for it as long as for a lock of the engine, and fails with `lockHeldElsewhere` when
    /// another workstation keeps it. The lock ends with `unlock`, with the connection, and with the process,
    /// in whatever way. A site's own engine is left as it is: there these two do nothing.
    virtual void lock(const QString& name) = 0;
    virtual void unlock(const QString& name) = 0;

    /// From here until it is closed, the engine itself refuses what writes, whatever the login may do. A
    /// site's own engine is left as it is: there this does nothing.
    virtual void refuseWriting() = 0;
};

/// Makes a closed connection.
using ConnectionFactory = std::function<std::unique_ptr<Connection>()>;

} // namespace kelvane
