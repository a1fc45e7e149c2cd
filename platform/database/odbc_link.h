#pragma once

#include "platform/database/engine_adapter.h"

namespace kelvane {

class OdbcSession;

/// One connection of a driver, as thin as it can be over plain ODBC 3: texts go out in UTF-16, values come
/// back as text or null, errors keep SQLSTATE, native number and text. Record sets may outlive it; they then
/// fail with error 3709.
class OdbcLink final : public DriverLink {
  public:
    /// Connects without any prompt. `connectionString` names the data source; the login goes beside it, and
    /// behind both `settings` of the driver, which count more than those of the data source.
    OdbcLink(const QString& connectionString, const QString& user, const QString& password,
             const QString& settings = {});
    /// Closes open record sets and disconnects.
    ~OdbcLink() override;
    OdbcLink(const OdbcLink&) = delete;
    OdbcLink& operator=(const OdbcLink&) = delete;

    /// What the driver calls its engine, such as "SQLite".
    QString dbmsName() const;
    /// Sets the test for errors that mean that the connection is gone, beyond SQLSTATE class 08 and the
    /// driver's own report.
    void setLossTest(std::function<bool(const Error&)> isConnectionLoss);
    /// True once a statement or record set has failed because the connection is gone; from then on every
    /// statement fails.
    bool isLost() const;
    /// Counts the connection as lost from now on.
    void giveUp();

    qint64 execute(const QString& statement) override;
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override;

  private:
    std::shared_ptr<OdbcSession> session_;
};

/// A value in the notation of a connection string: in braces, a closing brace doubled.
QString bracedValue(const QString& value);
/// A user name in the notation of a connection string: bare, since some drivers take braces for a part of the
/// name. In braces only where a character needs them, and when it is empty: the data source's own user would
/// count then.
QString userValue(const QString& user);

} // namespace kelvane
