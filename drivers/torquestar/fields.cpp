#include "drivers/torquestar/fields.h"

#include "data/routine.h"
#include "platform/values/moments.h"
#include "platform/values/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

constexpr int scale = 10000;

QByteArray bigEndian(quint32 number, int width) {
    QByteArray bytes;
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(number >> shift & 0xFFU));
    return bytes;
}

quint32 digitsOf(double value) {
    return static_cast<quint32>(roundToLong(value));
}

/// `scaled` is the value times 10000, in the width of the caller's number.
QByteArray encode(Session& session, double value, double scaled, int kind) {
    QByteArray field;
    Routine routine(session, u"ModuleTSInterface,Conv2Hex"_s);
    routine.run([&] {
        if (kind == 2) {
            const auto digits = digitsOf(value);
            if (digits > 0xFFFFU)
                throw makeError(ErrorNumber::overflow);
            field = bigEndian(digits, 2);
        } else if (kind == 3) {
            field = bigEndian(digitsOf(value), 4);
        } else if (kind == 4) {
            field = bigEndian(digitsOf(scaled), 4);
        }
    });
    return field;
}

/// The number in a field's first four bytes, read over their hexadecimal digits: 10 to 15 give one digit, all
/// others two, so that those bytes move what stands before them by four bits only.
qint32 toNumber(const QByteArray& field) {
    if (field.size() < 4)
        throw makeError(ErrorNumber::invalidArgument);
    quint32 number = 0;
    for (int i = 0; i < 4; ++i) {
        const auto byte = static_cast<quint8>(field[i]);
        number = number << (byte >= 10 && byte <= 15 ? 4U : 8U) | byte;
    }
    return static_cast<qint32>(number);
}

QString joinNumbers(int first, int second, int third, QChar separator) {
    return QStringList{plainText(first), plainText(second), plainText(third)}.join(separator);
}

QString dateText(qint32 number) {
    const int year = number / 10000;
    const int month = number / 100 - year * 100;
    const int day = number - year * 10000 - month * 100;
    if (year < 100 || year > 9999 || !QDate::isValid(year, month, day))
        return joinNumbers(year, month, day, u'-');
    return formatMoment({QDate(year, month, day), QTime(0, 0)}, u"YYYY-MM-DD");
}

QString timeText(qint32 number) {
    const int hour = std::min(number / 10000, 23);
    const int minute = std::min(number / 100 - hour * 100, 59);
    const int second = std::min(number - hour * 10000 - minute * 100, 59);
    const QTime time(hour, minute, second);
    return time.isValid() ? time.toString(u"HH:mm:ss"_s) : joinNumbers(hour, minute, second, u':');
}

/// Runs a decoder under its own name; a field that is too short is reported and gives the default result.
template <class Read>
auto decode(Session& session, const QString& routineName, const QByteArray& field, Read read) {
    decltype(read(0)) result{};
    Routine routine(session, routineName);
    routine.run([&] { result = read(toNumber(field)); });
    return result;
}

} // namespace

QByteArray Conv2Hex(Session& session, double value, int kind) {
    return encode(session, value, value * double{scale}, kind);
}

QByteArray Conv2Hex(Session& session, float value, int kind) {
    const float scaled = value * float{scale};
    return encode(session, double{value}, double{scaled}, kind);
}

QByteArray Conv2Hex(Session& session, qint32 value, int kind) {
    return Conv2Hex(session, static_cast<double>(value), kind);
}

qint32 Conv2Real(Session&, const QByteArray& field) {
    return field.size() == 4 ? toNumber(field) : 0;
}

double Conv2Double(Session& session, const QByteArray& field) {
    return decode(session, u"ModuleTSInterface,Conv2Double"_s, field,
                  [](qint32 number) { return number / double{scale}; });
}

QString Conv2Date(Session& session, const QByteArray& field) {
    return decode(session, u"ModuleTSInterface,Conv2Date"_s, field, dateText);
}

QString Conv2Time(Session& session, const QByteArray& field) {
    return decode(session, u"ModuleTSInterface,Conv2Time"_s, field, timeText);
}

} // namespace kelvane::ModuleTSInterface
