#pragma once

#include <QStringList>
#include <QTime>

namespace kelvane::testing {

// What workstations write that record one instrument at once, and what has to come out.

inline const QString togetherAsset = QStringLiteral("TW-101");

inline QString togetherTime(int number) {
    return QTime(6, 0).addSecs(number * 60).toString(QStringLiteral("HH:mm:ss"));
}

/// The lines of a record: from twelve to fifteen, most of the time that a record takes.
inline QStringList togetherLines(const QString& name, int number) {
    QStringList lines;
    for (int line = 0; line < 12 + number % 4; ++line)
        lines << QStringLiteral("%1 %2 line %3").arg(name).arg(number).arg(line);
    return lines;
}

/// The standards of a record, sorted: one or two, and never those that the other workstation gives to its
/// record of that number.
inline QStringList togetherStandards(const QString& name, int number) {
    const bool both = (number + (name == QLatin1String("first") ? 0 : 1)) % 2 == 0;
    const auto own = QStringLiteral("TT-0300F");
    return both ? QStringList{QStringLiteral("TS-0001"), own} : QStringList{own};
}

} // namespace kelvane::testing
