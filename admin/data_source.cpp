#include "admin/data_source.h"

#include "admin/failure.h"

#include <QList>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

/// The workstation's own list takes no longer ones.
constexpr int maxNameBytes = 31;

using Settings = QList<std::pair<QString, QString>>;

Settings embeddedSettings(const QString& folder) {
    return {
        {u"Driver"_s, u"SQLite3"_s},
        {u"Description"_s, u"Calibration database of this workstation"_s},
        {u"Database"_s, folder + u"/kelvane.db"_s},
        {u"BigInt"_s, u"1"_s},
        {u"FKSupport"_s, u"1"_s},
        {u"JournalMode"_s, u"WAL"_s},
        {u"SyncPragma"_s, u"FULL"_s},
        // The driver's own wait for a lock is kept short: the program waits by itself, and repaints
        // meanwhile.
        {u"Timeout"_s, u"50"_s},
        {u"NoCreat"_s, u"1"_s},
    };
}

QString sslModeOf(const DatabaseAddress& address) {
    if (address.isSocket())
        return u"disable"_s;
    return address.sslMode.isEmpty() ? u"verify-full"_s : address.sslMode;
}

Settings serverSettings(const DatabaseAddress& address) {
    Settings settings{
        {u"Driver"_s, u"PostgreSQL Unicode"_s},
        {u"Description"_s, u"Calibration database of the workstations"_s},
        {u"Servername"_s, address.host},
        {u"Port"_s, address.port},
        {u"Database"_s, address.database},
        {u"SSLmode"_s, sslModeOf(address)},
        // With cursors of its own the driver would end an open record set when another statement fails.
        {u"UseDeclareFetch"_s, u"0"_s},
        {u"UseServerSidePrepare"_s, u"0"_s},
        // Its log is readable by everybody and holds the password; Debian switches it on.
        {u"CommLog"_s, u"0"_s},
        {u"Debug"_s, u"0"_s},
        {u"BoolsAsChar"_s, u"0"_s},
        {u"LFConversion"_s, u"0"_s},
        // The driver makes no savepoints: the program decides what an error undoes.
        {u"Protocol"_s, u"7.4-0"_s},
    };
    if (!address.isSocket() && !address.rootCertificate.isEmpty())
        settings << std::pair{u"pqopt"_s, u"sslrootcert="_s + address.rootCertificate};
    return settings;
}

void checkName(const QString& name) {
    static const QRegularExpression reserved(uR"([\[\]{}(),;?*=!@\\/\x00-\x1f\x7f])"_s);
    if (name.isEmpty() || name.toUtf8().size() > maxNameBytes || name.contains(reserved) ||
        name.trimmed() != name)
        throw usageFailure(
            u"the name of a data source has 1 to %1 characters, none of []{}(),;?*=!@\\/, and no "
            "blank at its ends"_s.arg(maxNameBytes));
}

void checkValue(const QString& value) {
    static const QRegularExpression reserved(uR"([;{}\x00-\x1f\x7f])"_s);
    if (value.contains(reserved) || value.trimmed() != value)
        throw Failure{u"a data source can't name %1: it holds \";\", a brace, a blank at an end or a control "
                      "character"_s.arg(value)};
}

} // namespace

QString dataSourceSection(const DatabaseAddress& address, const QString& name) {
    checkName(name);
    auto section = u'[' + name + u"]\n"_s;
    const auto settings = address.isServer ? serverSettings(address) : embeddedSettings(address.text);
    for (const auto& setting : settings) {
        checkValue(setting.second);
        section += setting.first + u" = "_s + setting.second + u'\n';
    }
    return section;
}

} // namespace kelvane::admin
