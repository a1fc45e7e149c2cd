#include "platform/database/shared_adapter.h"

#include "platform/database/refused_value.h"
#include "platform/database/shared_dialect.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Whole results, since a failing statement would end an open one that is fetched piece by piece; texts as
/// they are; no savepoint around each statement; and no log, which would hold the password. The settings of
/// the data source, and those of the driver's own installation, don't count then.
constexpr auto driverChoices =
    ";UseDeclareFetch=0;UseServerSidePrepare=0;CommLog=0;Debug=0;BoolsAsChar=0;LFConversion=0"
    ";Protocol=7.4-0;KeepaliveTime=30;KeepaliveInterval=10"_L1;

/// What the session is set to, whatever the server's and the role's own settings are. Names without a schema
/// mean the dialect's and the server's functions and operators alone. A try for a lock is short, so that the
/// window is painted between two. What a workstation leaves behind, asleep or out of reach, must not hold its
/// locks for long.
constexpr auto sessionSettings = "set search_path to dialect,pg_catalog,pg_temp"
                                 ";set datestyle to iso,ymd"
                                 ";set extra_float_digits to 1"
                                 ";set standard_conforming_strings to on"
                                 ";set default_transaction_isolation to 'read committed'"
                                 ";set client_min_messages to error"
                                 ";set lock_timeout to 200"
                                 ";set statement_timeout to 60000"
                                 ";set idle_in_transaction_session_timeout to 60000"
                                 ";set client_connection_check_interval to 2000"
                                 ";set tcp_keepalives_idle to 30"
                                 ";set tcp_keepalives_interval to 10"
                                 ";set tcp_keepalives_count to 3"_L1;

/// One at a time, as on the embedded engine: two editors who replace the same rows would each delete what was
/// there before and leave both of what they insert. The lock ends with the transaction.
constexpr auto oneTransaction = "begin;set local lock_timeout to 5000"
                                ";select pg_advisory_xact_lock(hashtextextended('kelvane transaction',0))"_L1;

bool meetsLock(const Error& error) {
    return error.sqlState == "55P03"_L1 || error.sqlState == "40P01"_L1;
}

/// Where the server only quotes the value that it refuses, the column is named, too: a screen shows its
/// field.
void nameColumn(Error& error, const QString& statement) {
    if (!error.sqlState.startsWith("22"_L1))
        return;
    if (const auto column = columnOfRefusedValue(statement, error.description); !column.isEmpty())
        error.description = column + u": "_s + error.description;
}

qint64 executeNaming(DriverLink& link, const QString& statement) {
    try {
        return link.execute(statement);
    } catch (Error& error) {
        nameColumn(error, statement);
        throw;
    }
}

/// There is no such schema or table, or the login must not see it.
bool meansNoDatabase(const Error& error) {
    return error.sqlState == "3F000"_L1 || error.sqlState.startsWith("42"_L1);
}

/// The number that the server knows the lock `name` by.
QString lockNumber(const QString& name) {
    return u"hashtextextended('"_s + QString(name).replace(u"'"_s, u"''"_s) + u"',0)"_s;
}

bool isTrue(DriverLink& link, const QString& condition) {
    const auto rows = link.select(u"select case when "_s + condition + u" then 1 else 0 end"_s, Rows::all);
    return rows->next() && rows->value(0) == u"1"_s;
}

} // namespace

QString SharedAdapter::driverSettings() const {
    return driverChoices;
}

void SharedAdapter::prepareSession(DriverLink& link, const QString&, const QString&) {
    link.execute(sessionSettings);
    try {
        link.select(u"select max(number) from kelvane.upgrades"_s, Rows::all);
    } catch (Error& error) {
        if (meansNoDatabase(error))
            error.description = text(TextId::serverHasNoDatabase).arg(error.description);
        throw;
    }
}

template <class Statement>
auto SharedAdapter::run(Statement statement) {
    wait_.begin();
    try {
        return wait_.retry(statement,
                           [this](const Error& error) { return !inTransaction_ && meetsLock(error); });
    } catch (Error& error) {
        failed_ = inTransaction_;
        if (meetsLock(error))
            error.description = text(TextId::lockedByAnotherWorkstation).arg(error.description);
        throw;
    }
}

qint64 SharedAdapter::execute(DriverLink& link, const QString& statement) {
    qint64 rows = 0;
    for (const auto& step : sharedBatch(statement)) {
        // Several in one text are one transaction.
        const auto texts = step.committed ? QStringList(step.statements.join(u';')) : step.statements;
        const bool together = step.committed && step.statements.size() > 1;
        for (const auto& text : texts) {
            const auto changed = text.isEmpty() ? 0 : run([&] { return executeNaming(link, text); });
            rows = rows < 0 || changed < 0 || together ? -1 : rows + changed;
        }
    }
    return rows;
}

std::unique_ptr<RecordSet> SharedAdapter::select(DriverLink& link, const QString& statement, Rows rows) {
    const auto query = sharedQuery(statement, rows);
    return run([&] { return link.select(query, Rows::all); });
}

void SharedAdapter::beginTransaction(DriverLink& link) {
    if (inTransaction_)
        throw Error{1, makeError(ErrorNumber::invalidArgument).description,
                    u"25001"_s}; // the server would only warn
    inTransaction_ = true;
    failed_ = false;
    try {
        run([&] { return link.execute(oneTransaction); });
    } catch (Error& failure) {
        try {
            rollBackTransaction(link);
        } catch (const Error&) {
            failure.connectionLost = true;
        }
        throw;
    }
}

void SharedAdapter::commitTransaction(DriverLink& link) {
    if (failed_)
        throw Error{static_cast<double>(ErrorNumber::invalidArgument), text(TextId::transactionHasFailed),
                    u"25P02"_s};
    link.execute(u"commit"_s);
    inTransaction_ = false;
}

void SharedAdapter::rollBackTransaction(DriverLink& link) {
    inTransaction_ = false;
    failed_ = false;
    try {
        link.execute(u"rollback"_s);
    } catch (Error& error) {
        error.connectionLost = true; // what ran from now on might never be committed
        throw;
    }
}

void SharedAdapter::lock(DriverLink& link, const QString& name) {
    wait_.begin();
    while (!isTrue(link, u"pg_try_advisory_lock("_s + lockNumber(name) + u')')) {
        if (!wait_.next())
            throw lockHeldElsewhere(name);
    }
}

void SharedAdapter::unlock(DriverLink& link, const QString& name) {
    isTrue(link, u"pg_advisory_unlock("_s + lockNumber(name) + u')');
}

void SharedAdapter::refuseWriting(DriverLink& link) {
    link.execute(u"set default_transaction_read_only to on"_s);
}

bool SharedAdapter::isConnectionLoss(const Error& error) const {
    // The server was shut down, crashed, can't take connections now, or has ended this session; the last is
    // the driver's own word for it.
    static constexpr QLatin1StringView states[] = {"57P01"_L1, "57P02"_L1, "57P03"_L1, "57P05"_L1,
                                                   "25P03"_L1};
    return std::ranges::find(states, error.sqlState) != std::end(states) ||
           static_cast<int>(error.number) == 35;
}

} // namespace kelvane
