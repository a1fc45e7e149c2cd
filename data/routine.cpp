#include "data/routine.h"

namespace kelvane {

const QString& Routine::take(const Sql& statement) {
    keepStatement(statement.text());
    return requireIntact(statement);
}

std::unique_ptr<RecordSet> Routine::select(const Sql& statement, Rows rows) {
    return sharedConnection(session()).select(take(statement), rows);
}

std::optional<QString> Routine::selectValue(const Sql& statement) {
    const auto rows = select(statement, Rows::first);
    if (!rows->next())
        return {};
    return rows->value(0);
}

bool Routine::hasRow(const Sql& statement) {
    return select(statement, Rows::first)->next();
}

qint64 Routine::execute(const Sql& statement) {
    return sharedConnection(session()).execute(take(statement));
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
        // The connection counts as lost then, and the next statement fails.
    }
}

void Transaction::commit() {
    connection_.commitTransaction();
    open_ = false;
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
