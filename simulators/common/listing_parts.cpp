#include "simulators/common/listing_parts.h"

#include "simulators/common/c_text.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

QString headLine(const QString& tag, const QString& serial, const Strategy& strategy) {
    QStringList percents;
    for (const float point : strategy.points)
        percents += QString::number(static_cast<double>(point) * 100, 'g', 6);
    return u"%1 (serial number %2): %3 at %4 percent"_s.arg(tag, serial, strategy.name, percents.join(u' '));
}

QHash<QString, QString> promptTexts(const std::vector<Prompt>& prompts) {
    QHash<QString, QString> texts;
    for (const Prompt& prompt : prompts)
        texts[prompt.key] = prompt.text;
    return texts;
}

QStringList promptLines(const QString& when, const std::vector<QString>& keys,
                        const QHash<QString, QString>& prompts) {
    QStringList lines;
    for (const QString& key : keys)
        lines += u"  %1: %2"_s.arg(when, prompts[key].simplified());
    return lines;
}

QString whenAndWho(const ClockTime& time, const QString& technician) {
    return u"%1-%2-%3 %4:%5:%6 by %7"_s.arg(time.year, 4, 10, QChar(u'0'))
        .arg(time.month, 2, 10, QChar(u'0'))
        .arg(time.day, 2, 10, QChar(u'0'))
        .arg(time.hour, 2, 10, QChar(u'0'))
        .arg(time.minute, 2, 10, QChar(u'0'))
        .arg(time.second, 2, 10, QChar(u'0'))
        .arg(technician);
}

QStringList entryLines(const std::vector<Entry>& entries) {
    QStringList lines;
    for (const Entry& entry : entries)
        lines += u"    applied %1, read %2, error shown %3"_s.arg(
            digitsOf(entry.applied), digitsOf(entry.reading), digitsOf(entry.error));
    return lines;
}

} // namespace kelvane::simulators
