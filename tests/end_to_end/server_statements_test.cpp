// What a server receives, in its own log: the texts of the routines in its words, and nothing else.
#include "testkit/forwarding_connection.h"
#include "tests/end_to_end/torque_end_to_end.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The text of a routine in the words of the server.
QString serverText(QString text, const QString& end = {}) {
    if (text.endsWith(u";commit"_s))
        text.chop(7);
    text.replace(u"now(*)"_s, u"present_moment()"_s);
    text.replace(u" like "_s, u" ilike "_s);
    return text + end;
}

/// Rows without an order of their own come in that of the key.
QString orderOf(const QString& query) {
    static const QRegularExpression plain(
        u"^select (?!count|max|distinct)[^()]*(?:\\([^()]*\\)[^()]*)* from MT\\.inventory( where .*)?$"_s);
    return plain.match(query).hasMatch() ? u" order by mtag"_s : QString();
}

/// Keeps what the server has to receive for each step of the routines.
class PromisingConnection final : public ForwardingConnection {
  public:
    PromisingConnection(std::unique_ptr<Connection> real, QStringList& promised)
        : ForwardingConnection(std::move(real)), promised_(promised) {}

    qint64 execute(const QString& statement) override {
        promised_ << serverText(statement);
        return ForwardingConnection::execute(statement);
    }
    std::unique_ptr<RecordSet> select(const QString& statement, Rows rows) override {
        const auto limit = rows == Rows::first ? u" limit 1"_s : QString();
        promised_ << serverText(statement, orderOf(statement) + limit);
        return ForwardingConnection::select(statement, rows);
    }
    void beginTransaction() override {
        promised_ << u"begin;set local lock_timeout to 5000"_s
                  << u"select pg_advisory_xact_lock(hashtextextended('kelvane transaction',0))"_s;
        ForwardingConnection::beginTransaction();
    }
    void commitTransaction() override {
        promised_ << u"commit"_s;
        ForwardingConnection::commitTransaction();
    }
    void lock(const QString& name) override {
        promised_ << lockText(u"pg_try_advisory_lock"_s, name);
        ForwardingConnection::lock(name);
    }
    void unlock(const QString& name) override {
        promised_ << lockText(u"pg_advisory_unlock"_s, name);
        ForwardingConnection::unlock(name);
    }

  private:
    static QString lockText(const QString& function, const QString& name) {
        return u"select case when %1(hashtextextended('%2',0)) then 1 else 0 end"_s.arg(function, name);
    }

    QStringList& promised_;
};

class StatementsAtTheServer : public TorqueEndToEnd {
  protected:
    StatementsAtTheServer() {
        database.execute(sharedConnection(session),
                         u"do $$ begin execute format('alter database %I set log_statement to ''all''', "
                         "current_database()); end $$"_s);
        sharedConnection(session).close();
        workplace.logIn();
        process_ = rowsOfLogin(u"select pg_backend_pid()"_s).value(0);
        logged_ = readLog().size();
        session.SharedConnection =
            std::make_unique<PromisingConnection>(std::move(session.SharedConnection), promised);
    }

    /// The texts that the session has sent since the login.
    QStringList received() const {
        static const QRegularExpression entry(u"^\\S+ \\S+ \\S+ \\[(\\d+)\\] LOG:  statement: (.*)$"_s);
        QStringList texts;
        bool isOurs = false;
        for (const auto& line : QString::fromUtf8(readLog().mid(logged_)).split(u'\n')) {
            if (const auto match = entry.match(line); match.hasMatch()) {
                isOurs = match.captured(1) == process_;
                if (isOurs)
                    texts << match.captured(2);
            } else if (isOurs && line.startsWith(u'\t')) {
                texts.last() += u'\n' + line.mid(1);
            } else {
                isOurs = false;
            }
        }
        return texts;
    }

    QStringList promised;

  private:
    QStringList rowsOfLogin(const QString& query) { return queryRows(sharedConnection(session), query); }
    static QByteArray readLog() {
        QFile file(qEnvironmentVariable("KELVANE_TEST_SERVER") + u"/log"_s);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        return file.readAll();
    }

    QString process_;
    qsizetype logged_ = 0;
};

} // namespace

TEST_F(StatementsAtTheServer, OfADownloadAndAnUploadAreThoseOfTheRoutinesInTheServersWords) {
    list(u"TW-101"_s);
    download();
    carryOut({u"TW-101"_s});
    upload({u"TW-101"_s});
    EXPECT_GT(promised.size(), 100);
    const auto texts = received();
    for (qsizetype i = 0; i < qMax(promised.size(), texts.size()); ++i)
        ASSERT_EQ(texts.value(i), promised.value(i)) << "the text of number " << i;
}

} // namespace kelvane::testing
