#include "simulators/common/call_record.h"

#include "simulators/common/c_text.h"
#include "simulators/common/failure.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

void CallRecord::open(const QString& path) {
    file_.close();
    file_.setFileName(path);
    if (!path.isEmpty() && !file_.open(QIODevice::Append | QIODevice::Unbuffered))
        throw Failure(u"The record %1 can't be written: %2"_s.arg(path, file_.errorString()));
}

QString CallRecord::displayText(const char* text) {
    const std::optional<QString> given = textIn(text);
    if (!given)
        return u"null"_s;
    QString line = *given;
    line.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s).replace(u'\r', u"\\r"_s).replace(u'\n', u"\\n"_s);
    return u'"' + line + u'"';
}

QString CallRecord::displayText(float number) {
    return digitsOf(number);
}

QString CallRecord::displayText(const std::vector<float>& numbers) {
    QStringList words;
    for (const float number : numbers)
        words += digitsOf(number);
    return u'[' + words.join(u", "_s) + u']';
}

void CallRecord::write(const char* operation, const QStringList& values, qint16 status) {
    file_.write(
        u"%1(%2) = %3\n"_s.arg(QLatin1StringView(operation), values.join(u", "_s)).arg(status).toUtf8());
}

} // namespace kelvane::simulators
