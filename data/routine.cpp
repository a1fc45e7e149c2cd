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

void Routine::report(const Error& error) {
    if (error.connectionLost)
        session_.SessionConnected = false;
    ModuleGlobals::ReportInternalError(session_, error.number, error.description, name_, statement_);
}

QString notNull(const std::optional<QString>& value) {
    if (!value)
        throw makeError(ErrorNumber::invalidUseOfNull);
    return *value;
}

} // namespace kelvane
