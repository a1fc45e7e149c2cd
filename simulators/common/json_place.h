#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <vector>

namespace kelvane::simulators {

/// An object of a memory file with its path in the file, so that an error names the place. Whatever is not as
/// it should be throws `Failure`.
struct Place {
    QJsonObject object;
    QString words;
};

[[noreturn]] void throwInvalid(const QString& where, const QString& what);

/// The whole file, which bears its `format` as a mark.
Place wholeFrom(const QByteArray& text, const QString& format);

QJsonValue valueOf(const Place& place, const QString& key, QJsonValue::Type type);
QString textAt(const Place& place, const QString& key);
/// A number times the factor; without a factor (1) it has to be a whole one.
qint32 numberFrom(const QJsonValue& value, double factor, qint32 low, qint32 high, const QString& where);
std::vector<Place> objectsAt(const Place& place, const QString& key);
void refuseOtherKeys(const Place& place, const QStringList& known);

} // namespace kelvane::simulators
