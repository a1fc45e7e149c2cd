#include "platform/database/embedded_adapter.h"

#include "platform/database/accounts.h"
#include "platform/database/embedded_dialect.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int maxAttached = 10; // the engine's own limit

// What the engine's native codes say; the higher bits hold details.
enum NativeCode : int {
    noTransaction = 1,
    busy = 5,
    readOnly = 8,
    inputOutput = 10,
    damaged = 11,
    cannotOpen = 14,
    notADatabase = 26,
};

int primaryCode(const Error& error) {
    return static_cast<int>(error.number) & 0xff;
}

/// An error of the engine has a state, the program's own ones of the same number have none.
bool isBusy(const Error& error) {
    return primaryCode(error) == busy && !error.sqlState.isEmpty();
}

QString quote(const QString& text) {
    return u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\'';
}

QString quoteName(const QString& name) {
    return u'"' + QString(name).replace(u"\""_s, u"\"\""_s) + u'"';
}

std::optional<QString> firstValue(DriverLink& link, const QString& query, int column = 0) {
    const auto rows = link.select(query, Rows::all);
    return rows->next() ? rows->value(column) : std::nullopt;
}

[[noreturn]] void unusable(const QString& file, Error error) {
    error.description =
        text(TextId::databaseFileUnusable).arg(QDir::toNativeSeparators(file), error.description);
    throw error;
}

/// Checks that `file`, opened as `schema`, is a database that can be written, and makes its commits safe.
/// Opening alone proves nothing: the driver "opens" any file.
void verifyWritable(DriverLink& link, const QString& schema, const QString& file) {
    const auto name = quoteName(schema);
    try {
        firstValue(link, u"select count(*) from "_s + name + u".sqlite_master"_s);
        if (!QFileInfo(file).isWritable())
            throw Error{readOnly, text(TextId::fileReadOnly)};
        if (firstValue(link, u"pragma "_s + name + u".journal_mode"_s) != u"wal"_s)
            firstValue(link, u"pragma "_s + name + u".journal_mode = wal"_s);
        link.execute(u"pragma "_s + name + u".synchronous = full"_s);
    } catch (const Error& error) {
        unusable(file, error);
    }
}

/// Refuses a name without account and a wrong password in one and the same way.
void checkLogin(DriverLink& link, const QString& user, const QString& password) {
    const auto hash = firstValue(link, u"select hash from main.accounts where name = "_s + quote(user));
    const bool matches = passwordMatches(password, hash ? hash->toUtf8() : dummyHash());
    if (!hash || !matches)
        throw Error{-103, text(TextId::loginOrPasswordInvalid), u"28000"_s};
}

/// Ends the open transaction without its changes. False when it may still be open: whatever ran on this
/// connection from now on would never be committed.
bool rollBack(DriverLink& link) {
    try {
        link.execute(u"rollback"_s);
        return true;
    } catch (const Error& error) {
        return static_cast<int>(error.number) == noTransaction; // the engine has done it by itself
    }
}

/// The rows of two statements; -1 where the driver did not report those of one.
qint64 sumOfRows(qint64 first, qint64 second) {
    return first < 0 || second < 0 ? -1 : first + second;
}

} // namespace

/// The driver's own wait can't be interrupted and counts several times over, so that it is kept short.
QString EmbeddedAdapter::driverSettings() const {
    return u";Timeout=50"_s;
}

template <class Statement>
auto EmbeddedAdapter::retryWhileBusy(Statement statement) const {
    return wait_.retry(statement, isBusy);
}

void EmbeddedAdapter::attach(DriverLink& link, const QString& file) {
    // As an address the file is never made when it has just gone.
    const auto address = QString::fromLatin1(QUrl::fromLocalFile(file).toEncoded()) + u"?mode=rw"_s;
    const auto schema = QFileInfo(file).completeBaseName();
    try {
        retryWhileBusy([&] { link.execute(u"attach "_s + quote(address) + u" as "_s + quoteName(schema)); });
    } catch (const Error& error) {
        unusable(file, error);
    }
    retryWhileBusy([&] { verifyWritable(link, schema, file); });
    files_.add(file);
}

/// All of `statements` or none. They take the write lock at the start, so that two workstations can't wait
/// for each other.
qint64 EmbeddedAdapter::executeTogether(DriverLink& link, const QStringList& statements) const {
    retryWhileBusy([&] { link.execute(u"begin immediate"_s); });
    try {
        qint64 rows = 0;
        for (const auto& statement : statements)
            rows = sumOfRows(rows, link.execute(statement));
        link.execute(u"commit"_s);
        return rows;
    } catch (Error& failure) {
        failure.connectionLost = failure.connectionLost || !rollBack(link);
        throw;
    }
}

void EmbeddedAdapter::requireFiles(DriverLink& link) {
    const auto missing = files_.firstMissing();
    if (missing.isEmpty())
        return;
    if (std::exchange(inTransaction_, false))
        rollBack(link);
    throw Error{cannotOpen, text(TextId::databaseFileReplaced).arg(QDir::toNativeSeparators(missing)),
                u"08S01"_s, true};
}

void EmbeddedAdapter::prepareSession(DriverLink& link, const QString& user, const QString& password) {
    wait_.begin();
    const QFileInfo main(firstValue(link, u"pragma database_list"_s, 2).value_or(QString()));
    retryWhileBusy([&] { verifyWritable(link, u"main"_s, main.filePath()); });
    mainFile_ = main.filePath();
    files_.add(mainFile_);
    if (!firstValue(link, u"select name from main.sqlite_master where name = 'accounts'"_s))
        throw Error{notADatabase,
                    text(TextId::fileIsNoCalibrationDatabase).arg(QDir::toNativeSeparators(main.filePath()))};
    checkLogin(link, user, password);
    link.execute(u"pragma foreign_keys = on"_s);

    auto owners = main.dir().entryInfoList({u"*.db"_s}, QDir::Files, QDir::Name);
    owners.removeIf([&](const QFileInfo& file) { return file == main; });
    if (owners.size() > maxAttached)
        throw Error{static_cast<double>(ErrorNumber::subscriptOutOfRange),
                    text(TextId::tooManyOwnerDatabases)
                        .arg(QDir::toNativeSeparators(main.path()), QString::number(maxAttached))};
    for (const auto& owner : owners)
        attach(link, owner.filePath());
}

/// Runs the statements one by one.
qint64 EmbeddedAdapter::executeEach(DriverLink& link, const QStringList& statements) const {
    qint64 rows = 0;
    for (const auto& statement : statements)
        rows = sumOfRows(rows, retryWhileBusy([&] { return link.execute(statement); }));
    return rows;
}

qint64 EmbeddedAdapter::execute(DriverLink& link, const QString& statement) {
    requireFiles(link);
    wait_.begin();
    qint64 rows = 0;
    for (const auto& step : embeddedBatch(statement)) {
        const bool together = step.committed && step.statements.size() > 1 && !inTransaction_;
        // A single one commits by itself.
        rows = sumOfRows(rows, together ? executeTogether(link, step.statements)
                                        : executeEach(link, step.statements));
    }
    return rows;
}

std::unique_ptr<RecordSet> EmbeddedAdapter::select(DriverLink& link, const QString& statement, Rows rows) {
    requireFiles(link);
    wait_.begin();
    const auto query = embeddedQuery(statement, rows);
    std::unique_ptr<RecordSet> found;
    retryWhileBusy([&] { found = link.select(query, Rows::all); });
    return found;
}

/// The write lock is taken at the start, so that two workstations can't wait for each other.
void EmbeddedAdapter::beginTransaction(DriverLink& link) {
    requireFiles(link);
    wait_.begin();
    retryWhileBusy([&] { link.execute(u"begin immediate"_s); });
    inTransaction_ = true;
}

void EmbeddedAdapter::commitTransaction(DriverLink& link) {
    requireFiles(link);
    link.execute(u"commit"_s);
    inTransaction_ = false;
}

void EmbeddedAdapter::rollBackTransaction(DriverLink& link) {
    inTransaction_ = false;
    if (!rollBack(link)) {
        auto error = makeError(ErrorNumber::connectionClosed);
        error.connectionLost = true;
        throw error;
    }
}

void EmbeddedAdapter::lock(DriverLink& link, const QString& name) {
    requireFiles(link);
    if (!locks_.isOpen()) {
        locks_.open(mainFile_);
        // Whoever comes after its removal makes a new one and does not see what is locked in this one.
        files_.add(EmbeddedLocks::fileBeside(mainFile_));
    }
    wait_.begin();
    while (!locks_.take(name)) {
        if (!wait_.next())
            throw lockHeldElsewhere(name);
        requireFiles(link);
    }
}

void EmbeddedAdapter::unlock(DriverLink&, const QString& name) {
    locks_.release(name);
}

void EmbeddedAdapter::refuseWriting(DriverLink& link) {
    link.execute(u"pragma query_only = on"_s);
}

bool EmbeddedAdapter::isConnectionLoss(const Error& error) const {
    // Disk or share gone, file replaced or damaged: nothing that this connection does is worth anything now.
    const auto code = primaryCode(error);
    return code == inputOutput || code == damaged || code == cannotOpen || code == notADatabase;
}

} // namespace kelvane
