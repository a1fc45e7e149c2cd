#include "admin/server_connection.h"

#include "admin/failure.h"
#include "admin/password_questions.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

struct ClearResult {
    void operator()(PGresult* result) const { PQclear(result); }
};
struct FreeText {
    void operator()(char* text) const { PQfreemem(text); }
};

/// What a state of a failed statement means for the administrator.
struct Meaning {
    QLatin1StringView state;
    QStringView text;
};
constexpr std::array meanings{
    Meaning{"42501"_L1, u"this login has no right to do that"},
    Meaning{"3F000"_L1, u"the database is none of the workstations; make it first"},
    Meaning{"42883"_L1, u"the database is none of the workstations, or needs an upgrade"},
    Meaning{"42P01"_L1, u"the database is none of the workstations, or needs an upgrade"},
    Meaning{"55P03"_L1, u"others are changing the same; nothing was changed, try again"},
};

/// The state of what the database's own functions report, for the administrator already.
constexpr auto functionsOwn = "P0001"_L1;

QString oneLine(const char* text) {
    return QString::fromUtf8(text).simplified();
}

Failure statementFailure(const PGresult* result) {
    const auto state = QLatin1StringView(PQresultErrorField(result, PG_DIAG_SQLSTATE));
    const auto reason = oneLine(PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY));
    const auto* meaning = std::ranges::find(meanings, state, &Meaning::state);
    if (state == functionsOwn)
        return {reason};
    if (meaning == meanings.end())
        return {u"the server says: "_s + reason};
    return {u"%1 (the server says: %2)"_s.arg(meaning->text, reason)};
}

/// The parameters of a connection. An address among them counts as all that it holds.
class Parameters {
  public:
    Parameters(QByteArray address, const char* password) : address_(std::move(address)) {
        add("connect_timeout", "15");
        add("dbname", address_.constData());
        add("client_encoding", "UTF8");
        add("fallback_application_name", "kelvane-admin");
        if (password != nullptr)
            add("password", password);
        end();
    }
    /// For the question whether a server is there, which needs neither its name to be proved nor a login.
    explicit Parameters(QByteArray address) : address_(std::move(address)) {
        add("connect_timeout", "15");
        add("dbname", address_.constData());
        add("sslmode", "prefer");
        end();
    }
    const char* const* names() const { return names_.data(); }
    const char* const* values() const { return values_.data(); }

  private:
    void end() { add(nullptr, nullptr); }
    void add(const char* name, const char* value) {
        names_.push_back(name);
        values_.push_back(value);
    }
    QByteArray address_;
    std::vector<const char*> names_;
    std::vector<const char*> values_;
};

/// Why the server at an address does not answer as it should; empty when it does.
QString troubleOf(const Parameters& parameters) {
    switch (PQpingParams(parameters.names(), parameters.values(), 1)) {
    case PQPING_OK:
        return {};
    case PQPING_REJECT:
        return u"is starting or stopping; try again"_s;
    case PQPING_NO_RESPONSE:
    case PQPING_NO_ATTEMPT:
        break;
    }
    return u"does not answer"_s;
}

} // namespace

void ServerConnection::Finish::operator()(pg_conn* connection) const {
    PQfinish(connection);
}

ServerConnection::ServerConnection(const DatabaseAddress& address) : address_(address) {
    connect(nullptr);
    if (!isOpen() && PQconnectionNeedsPassword(connection_.get()) != 0) {
        const auto password = serverPassword(QString::fromUtf8(PQuser(connection_.get())));
        connect(&password);
    }
    if (isOpen())
        return;
    const auto reason = oneLine(PQerrorMessage(connection_.get()));
    const auto trouble = troubleOf(Parameters(address_.text.toUtf8()));
    throw Failure{u"the server at %1 %2 (%3)"_s.arg(
        address_.host, trouble.isEmpty() ? u"refuses the connection"_s : trouble, reason)};
}

bool ServerConnection::isOpen() const {
    return PQstatus(connection_.get()) == CONNECTION_OK;
}

void ServerConnection::connect(const Password* password) {
    const Parameters parameters(address_.text.toUtf8(),
                                password == nullptr ? nullptr : password->utf8().constData());
    connection_.reset(PQconnectdbParams(parameters.names(), parameters.values(), 1));
    // Notices of the server would go to the standard error by themselves.
    PQsetNoticeProcessor(
        connection_.get(), [](void*, const char*) {}, nullptr);
}

QList<QStringList> ServerConnection::run(const char* statement, const QStringList& values) {
    std::vector<QByteArray> texts;
    for (const auto& value : values)
        texts.push_back(value.toUtf8());
    std::vector<const char*> parameters;
    for (const auto& text : texts)
        parameters.push_back(text.constData());
    const std::unique_ptr<PGresult, ClearResult> result(
        PQexecParams(connection_.get(), statement, static_cast<int>(parameters.size()), nullptr,
                     parameters.data(), nullptr, nullptr, 0));
    const auto status = PQresultStatus(result.get());
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK)
        throw PQresultErrorField(result.get(), PG_DIAG_SQLSTATE) != nullptr
            ? statementFailure(result.get())
            : Failure{u"the connection to the server is lost: "_s +
                      oneLine(PQerrorMessage(connection_.get()))};
    QList<QStringList> rows;
    for (int row = 0; row < PQntuples(result.get()); ++row) {
        QStringList cells;
        for (int column = 0; column < PQnfields(result.get()); ++column)
            cells << (PQgetisnull(result.get(), row, column) != 0
                          ? QString()
                          : QString::fromUtf8(PQgetvalue(result.get(), row, column)));
        rows << cells;
    }
    return rows;
}

QString ServerConnection::verifierOf(const Password& password, const QString& user) const {
    const std::unique_ptr<char, FreeText> verifier(PQencryptPasswordConn(
        connection_.get(), password.utf8().constData(), user.toUtf8().constData(), "scram-sha-256"));
    if (verifier == nullptr)
        throw Failure{u"the password can't be prepared for the server: "_s +
                      oneLine(PQerrorMessage(connection_.get()))};
    return QString::fromLatin1(verifier.get());
}

} // namespace kelvane::admin
