#include "testkit/recording_connection.h"

namespace kelvane::testing {

namespace {

class ScriptedRows final : public RecordSet {
  public:
    explicit ScriptedRows(QList<Row> rows) : rows_(std::move(rows)) {}
    bool next() override { return ++at_ < rows_.size(); }
    std::optional<QString> value(int column) override {
        if (at_ < 0 || at_ >= rows_.size())
            throw makeError(ErrorNumber::noCurrentRow);
        return rows_.at(at_).at(column);
    }

  private:
    QList<Row> rows_;
    qsizetype at_ = -1;
};

} // namespace

void RecordingConnection::open(const QString& connectionString, const QString& user,
                               const QString& password) {
    if (script_.open && !script_.lost)
        throw makeError(ErrorNumber::connectionOpen);
    script_.opened << connectionString << user << password;
    if (const auto failure = script_.failures.constFind(connectionString); failure != script_.failures.cend())
        throw *failure;
    script_.open = true;
    script_.lost = false;
}

void RecordingConnection::take(const QString& statement) {
    script_.statements << statement;
    if (script_.lost)
        throw Error{10054, QStringLiteral("Connection lost"), QStringLiteral("08S01"), true};
    if (const auto failure = script_.failures.constFind(statement); failure != script_.failures.cend()) {
        script_.lost = failure->connectionLost;
        throw *failure;
    }
}

qint64 RecordingConnection::execute(const QString& statement) {
    take(statement);
    return script_.changedRows.value(statement, -1);
}

std::unique_ptr<RecordSet> RecordingConnection::select(const QString& statement, Rows rows) {
    take(statement);
    if (rows == Rows::first)
        script_.firstRowOnly << statement;
    return std::make_unique<ScriptedRows>(script_.answers.value(statement));
}

void RecordingConnection::takeStep(const QString& step) {
    script_.transactions << step;
    if (const auto failure = script_.failures.constFind(step); failure != script_.failures.cend())
        throw *failure;
}

} // namespace kelvane::testing
