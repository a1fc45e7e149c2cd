#include "simulators/torquestar/listing.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

template <std::size_t Count>
QString word(const std::array<const char*, Count>& words, std::optional<qint32> code, qint32 first = 0) {
    if (!code)
        return u"not given"_s;
    const qint32 place = *code - first;
    if (place < 0 || place >= static_cast<qint32>(Count))
        return u"code %1"_s.arg(*code);
    return QString::fromLatin1(words.at(static_cast<std::size_t>(place)));
}

constexpr std::array transducerTypes = {"High Output", "Industry Standard", "Serial", "UTA"};
constexpr std::array units = {"in/oz", "in/lb", "ft/lb", "N/cm", "N/m", "Kg/cm", "Kg/m", "Klb/ft", "KN/m"};
constexpr std::array directions = {"either way", "Right", "Left"};
constexpr std::array measureModes = {"Click Dip", "Peak", "Impulse"};
constexpr std::array cycleEnds = {"0.1", "0.2", "0.5", "1.0", "2.0", "5.0", "10.0"};
constexpr std::array responses = {"6144", "3686", "2304", "1676", "1317", "1024", "996", "737", "527",
                                  "376",  "302",  "252",  "200",  "150",  "100",  "75",  "72"};
constexpr std::array bauds = {"300", "600", "1200", "2400", "4800", "9600", "19200"};
constexpr std::array parities = {"Even", "Odd", "None"};
constexpr std::array resolutions = {"1", "0.1", "0.01", "0.001"};

QString torque(std::optional<qint32> value) {
    return value ? QString::number(*value / scale, 'f', 4) : u"not given"_s;
}

QString number(std::optional<qint32> value) {
    return value ? QString::number(*value) : u"not given"_s;
}

QString transducerLine(const Fields& fields) {
    if (fields[TransducerType] == serialTransducer)
        return u"  Serial transducer, resolution %1, %2 baud, %3 data bits, %4 stop bits, parity %5"_s.arg(
            word(resolutions, fields[SerialFormat], 1), word(bauds, fields[BaudRate], 1),
            number(fields[CycleEnd]), number(fields[MeasureMode]),
            word(parities, fields[FrequencyResponse], 1));
    return u"  %1 transducer %2, span %3 %4, cycle end %5 s, frequency response %6 Hz"_s.arg(
        word(transducerTypes, fields[TransducerType], 1), number(fields[TransducerNumber]),
        torque(fields[Span]), word(units, fields[UnitsOfSpan], 1), word(cycleEnds, fields[CycleEnd], 1),
        word(responses, fields[FrequencyResponse]));
}

QString torqueLine(const Fields& fields) {
    const QString unit = fields[UnitsOfDisplay] ? u" "_s + word(units, fields[UnitsOfDisplay], 1) : QString();
    return u"  torque %1 to %2%3, threshold %4, click dip threshold %5"_s.arg(
        torque(fields[MinimumTorque]), torque(fields[MaximumTorque]), unit, torque(fields[ThresholdTorque]),
        torque(fields[ClickDipThreshold]));
}

QString headLine(const Characteristic& characteristic) {
    const Fields& fields = characteristic.fields;
    QString line = u"%1: %2 samples"_s.arg(characteristic.name, number(fields[Samples]));
    if (fields[TransducerType] != serialTransducer)
        line +=
            u", %1, %2"_s.arg(word(measureModes, fields[MeasureMode]), word(directions, fields[Direction]));
    return line;
}

QString resultLine(const Result& result) {
    QString line = u"  %1-%2-%3 %4:%5:%6 "_s.arg(result.date / 10000, 4, 10, QChar(u'0'))
                       .arg(result.date / 100 % 100, 2, 10, QChar(u'0'))
                       .arg(result.date % 100, 2, 10, QChar(u'0'))
                       .arg(result.time / 10000, 2, 10, QChar(u'0'))
                       .arg(result.time / 100 % 100, 2, 10, QChar(u'0'))
                       .arg(result.time % 100, 2, 10, QChar(u'0'));
    for (const qint32 sample : result.samples)
        line += u" "_s + torque(sample);
    return line;
}

} // namespace

QStringList listing(const Memory& memory) {
    QStringList lines;
    for (const Round& round : memory.rounds)
        lines += u"Round %1: %2"_s.arg(
            round.name,
            QStringList(round.characteristics.begin(), round.characteristics.end()).join(u", "_s));
    for (const Characteristic& characteristic : memory.characteristics) {
        lines += headLine(characteristic);
        lines += transducerLine(characteristic.fields);
        lines += torqueLine(characteristic.fields);
        if (!characteristic.comment.isEmpty())
            lines += u"  comment: "_s + characteristic.comment;
        for (const Result& result : characteristic.results)
            lines += resultLine(result);
        if (characteristic.results.empty())
            lines += u"  no results"_s;
    }
    if (lines.isEmpty())
        lines += u"The calibrator is empty."_s;
    return lines;
}

} // namespace kelvane::simulators
