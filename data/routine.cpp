#include "data/routine.h"

namespace kelvane {

std::unique_ptr<RecordSet> Routine::select(const QString& statement, Rows rows) {
    statement_ = statement;
    return sharedConnection(session_).select(statement, rows);
}

std::optional<QString> Routine::selectValue(const QString& statement) {
    const auto rows = select(statement, Rows::first);
    if (!rows->next())
        return {};
    return rows->value(0);
}

bool Routine::hasRow(const QString& statement) {
    return select(statement, Rows::first)->next();
}

void Routine::execute(const QString& statement) {
    statement_ = statement;
    sharedConnection(session_).execute(statement);
}

const QString& Routine::kept(const Sql& statement) {
    statement_ = statement.text();
    return sendable(statement);
}

std::unique_ptr<RecordSet> Routine::select(const Sql& statement, Rows rows) {
    return select(kept(statement), rows);
}

std::optional<QString> Routine::selectValue(const Sql& statement) {
    return selectValue(kept(statement));
}

bool Routine::hasRow(const Sql& statement) {
    return hasRow(kept(statement));
}

void Routine::execute(const Sql& statement) {
    execute(kept(statement));
}

Transaction::Transaction(Session& session) : connection_(sharedConnection(session)) {
    connection_.beginTransaction();
}

Transaction::~Transaction() {
    if (!open_)
        return;
    try {
        connection_.rollBackTransaction();
    } catch (const Error&) {
        // The connection counts as lost then, and the next statement says so.
    }
}

void Transaction::commit() {
    connection_.commitTransaction();
    open_ = false;
}

void Routine::report(const Error& error) {
    ++session_.reportCount;
    if (error.connectionLost)
        session_.SessionConnected = false;
    ModuleGlobals::ReportInternalError(session_, error.number, error.description, name_, statement_);
}

QString notNull(const std::optional<QString>& value) {
    if (!value)
        throw makeError(ErrorNumber::invalidUseOfNull);
    return *value;
}

Moment storedMoment(QStringView text) {
    const auto colon = text.lastIndexOf(u':');
    const auto fraction = colon < 0 ? -1 : text.indexOf(u'.', colon);
    return requireMoment(fraction < 0 ? text : text.left(fraction), u"YYYY/MM/DD");
}

} // namespace kelvane
