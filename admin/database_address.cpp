#include "admin/database_address.h"

#include "admin/failure.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>

#include <libpq-fe.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

/// Where Debian's servers have their sockets.
const QString usualSocketFolder = u"/var/run/postgresql"_s;

struct FreeOptions {
    void operator()(PQconninfoOption* options) const { PQconninfoFree(options); }
};
using Options = std::unique_ptr<PQconninfoOption, FreeOptions>;

/// Adds the options that have a value and are not known yet.
void addTo(QHash<QString, QString>& values, const Options& options) {
    if (options == nullptr)
        return;
    for (const auto* option = options.get(); option->keyword != nullptr; ++option) {
        const auto keyword = QString::fromLatin1(option->keyword);
        if (option->val != nullptr && *option->val != '\0' && !values.contains(keyword))
            values.insert(keyword, QString::fromUtf8(option->val));
    }
}

QHash<QString, QString> valuesOf(const QString& text) {
    char* reason = nullptr;
    const Options given(PQconninfoParse(text.toUtf8().constData(), &reason));
    if (given == nullptr) {
        const auto words = QString::fromUtf8(reason).simplified();
        PQfreemem(reason);
        throw usageFailure(u"the address can't be understood: "_s + words);
    }
    QHash<QString, QString> values;
    addTo(values, given);
    // Without a setting of the environment, such as PGPORT, the library's own.
    auto sslMode = values.value(u"sslmode"_s);
    addTo(values, Options(PQconndefaults()));
    values.insert(u"sslmode"_s, sslMode);
    return values;
}

void refusePassword(const QString& text) {
    static const QRegularExpression password(u"^[a-z]+://[^/@?]*:[^/?]*@|password="_s);
    if (text.contains(password))
        throw usageFailure(
            u"a password in an address can be read by everybody on this machine; leave it out"_s);
}

} // namespace

DatabaseAddress databaseAddress(const QString& text) {
    if (text.isEmpty())
        throw usageFailure(u"the address is empty"_s);
    static const QRegularExpression server(u"^postgres(ql)?://"_s);
    if (!text.contains(server))
        return {.text = QDir::cleanPath(QDir().absoluteFilePath(text))};
    refusePassword(text);
    const auto values = valuesOf(text);
    if (values.value(u"dbname"_s).isEmpty())
        throw usageFailure(u"the address names no database: "_s + text);
    return {.text = text,
            .isServer = true,
            .host = values.value(u"host"_s, usualSocketFolder),
            .port = values.value(u"port"_s),
            .database = values.value(u"dbname"_s),
            .sslMode = values.value(u"sslmode"_s),
            .rootCertificate = values.value(u"sslrootcert"_s)};
}

} // namespace kelvane::admin
