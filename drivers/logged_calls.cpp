#include "drivers/logged_calls.h"

#include "platform/values/numbers.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

QString withoutControlCharacters(const QString& text) {
    QString shown;
    for (const auto character : text) {
        if (character < u' ' || character == u'\x7f')
            shown += u"\\x"_s + QString::number(character.unicode(), 16).rightJustified(2, u'0');
        else
            shown += character;
    }
    return shown;
}

} // namespace

QString loggedText(const QString& text) {
    // A library reads and writes up to the zero.
    auto reaching = fromCalibratorBytes(toCalibratorBytes(text.section(QChar(0), 0, 0)));
    reaching.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
    reaching.replace(u'\r', u"\\r"_s).replace(u'\n', u"\\n"_s);
    return u'"' + withoutControlCharacters(reaching) + u'"';
}

QString loggedText(float number) {
    return plainText(number);
}

QString loggedText(qint32 number) {
    return QString::number(number);
}

QString loggedText(const float* points, qint16 count) {
    QStringList fractions;
    for (qint16 i = 0; i < count; ++i)
        fractions << plainText(points[i]);
    return u'[' + fractions.join(u", "_s) + u']';
}

QString loggedNumbers(const QList<qint32>& numbers) {
    QStringList digits;
    for (const auto number : numbers)
        digits << QString::number(number);
    return u'{' + digits.join(u", "_s) + u'}';
}

} // namespace kelvane
