#include "platform/database/odbc_driver.h"

#include <QRegularExpression>

#ifdef Q_OS_WIN
#include <windows.h>
#endif
#include <odbcinst.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The value of a key of a connection string; a value in braces without them.
QString valueOf(const QString& connectionString, const QString& key) {
    const QRegularExpression pair(u"(?:^|;)\\s*%1\\s*=\\s*(?:\\{([^}]*)\\}|([^;]*))"_s.arg(key),
                                  QRegularExpression::CaseInsensitiveOption);
    const auto match = pair.match(connectionString);
    return match.captured(1).isEmpty() ? match.captured(2).trimmed() : match.captured(1);
}

/// An entry of one of the driver manager's files.
QString entry(const QString& section, const QString& key, const char* file) {
    if (section.isEmpty())
        return {};
    std::array<char, 1024> value{};
    const auto length =
        SQLGetPrivateProfileString(section.toLocal8Bit().constData(), key.toLatin1().constData(), "",
                                   value.data(), static_cast<int>(value.size()), file);
    return QString::fromLocal8Bit(value.data(), std::clamp<qsizetype>(length, 0, value.size() - 1));
}

} // namespace

QString driverOf(const QString& connectionString) {
    auto driver = valueOf(connectionString, u"DRIVER"_s);
    if (driver.isEmpty())
        driver = entry(valueOf(connectionString, u"DSN"_s), u"Driver"_s, "odbc.ini");
    return (driver + u' ' + entry(driver, u"Driver"_s, "odbcinst.ini")).trimmed();
}

} // namespace kelvane
