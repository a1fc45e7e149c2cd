#include "platform/database/reading_connection.h"

#include "platform/database/sql_text.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Words that no query needs, and that make one write, lock or call. Some engines take a change in the place
/// of a table, or a query that stores its rows.
constexpr QLatin1StringView refusedWords[] = {
    "alter"_L1,     "call"_L1,      "commit"_L1, "create"_L1, "delete"_L1,   "drop"_L1,   "exec"_L1,
    "execute"_L1,   "for"_L1,       "into"_L1,   "insert"_L1, "lock"_L1,     "merge"_L1,  "pragma"_L1,
    "procedure"_L1, "returning"_L1, "set"_L1,    "share"_L1,  "truncate"_L1, "update"_L1,
};

/// A name behind a point, such as that of a column, is none of the language's words.
bool isRefused(TokenSpan tokens, std::size_t at) {
    if (at > 0 && tokens[at - 1].is(u'.'))
        return false;
    return std::ranges::any_of(refusedWords, [&](QLatin1StringView word) { return tokens[at].is(word); });
}

bool isQuery(const QString& statement) {
    const auto sql = tokensOf(statement);
    const TokenSpan tokens = sql.tokens;
    if (!sql.complete || !sql.comments.isEmpty() || tokens.empty() || !tokens.front().is("select"_L1))
        return false;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (tokens[at].is(u';') || isRefused(tokens, at))
            return false;
    }
    return true;
}

class ReadingConnection final : public Connection {
  public:
    explicit ReadingConnection(std::unique_ptr<Connection> real) : real_(std::move(real)) {}

    void open(const QString& connectionString, const QString& user, const QString& password) override {
        real_->open(connectionString, user, password);
        refuseWriting();
    }
    void close() override { real_->close(); }
    bool isOpen() const override { return real_->isOpen(); }
    bool isLost() const override { return real_->isLost(); }
    qint64 execute(const QString&) override { refuse(); }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        if (!isQuery(statement))
            throw Error{static_cast<double>(ErrorNumber::invalidArgument), text(TextId::queryExpected)};
        return real_->select(statement, rows);
    }
    void beginTransaction() override { refuse(); }
    void commitTransaction() override { refuse(); }
    void rollBackTransaction() override { refuse(); }
    void lock(const QString&) override { refuse(); }
    void unlock(const QString&) override { refuse(); }
    /// A connection that might write is none.
    void refuseWriting() override {
        try {
            real_->refuseWriting();
        } catch (const Error&) {
            real_->close();
            throw;
        }
    }

  private:
    [[noreturn]] static void refuse() { throw makeError(ErrorNumber::databaseReadOnly); }

    std::unique_ptr<Connection> real_;
};

} // namespace

ConnectionFactory readingConnections(ConnectionFactory connections) {
    return
        [connections = std::move(connections)] { return std::make_unique<ReadingConnection>(connections()); };
}

} // namespace kelvane
