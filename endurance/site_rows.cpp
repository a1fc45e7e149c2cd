#include "endurance/site_rows.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

namespace {

/// Rows with their keys first.
QStringList readRows(Connection& connection, const QString& query, int columns, const QSet<QString>& own) {
    QStringList found;
    for (const auto set = connection.select(query, Rows::all); set->next();) {
        QStringList row;
        for (int column = 0; column < columns; ++column)
            row << set->value(column).value_or(u"null"_s);
        if (!own.contains(row.first()))
            found << row.join(u" | "_s);
    }
    found.sort();
    return found;
}

QStringList without(const QStringList& rows, const QStringList& others) {
    QStringList rest;
    std::ranges::set_difference(rows, others, std::back_inserter(rest));
    return rest;
}

} // namespace

SiteRows readSiteRows(Connection& connection, const QSet<QString>& own) {
    return {
        .records = readRows(connection, u"select ctag,mtag,c2301,c2333 from mt.calibration"_s, 4, own),
        .lines = readRows(connection, u"select ctag,c2502,c2501 from mt.calresults"_s, 3, own),
        .standards = readRows(connection, u"select ctag,c2430 from mt.standards"_s, 2, own),
    };
}

QStringList faultsOfSiteRows(const SiteRows& before, const SiteRows& after) {
    QStringList faults;
    const auto compare = [&](const QString& what, const QStringList& rowsBefore,
                             const QStringList& rowsAfter) {
        for (const auto& row : without(rowsBefore, rowsAfter))
            faults << u"the site's own %1 is gone: %2"_s.arg(what, row);
        for (const auto& row : without(rowsAfter, rowsBefore)) {
            const auto key = row.section(u" | "_s, 0, 0) + u" |"_s;
            const bool hasRecord = std::ranges::any_of(
                after.records, [&](const QString& record) { return record.startsWith(key); });
            faults << (hasRecord ? u"a %1 has come that no station has made: %2"_s
                                 : u"a %1 is left without its record: %2"_s)
                          .arg(what, row);
        }
    };
    compare(u"record"_s, before.records, after.records);
    compare(u"line"_s, before.lines, after.lines);
    compare(u"standard"_s, before.standards, after.standards);
    return faults;
}

} // namespace kelvane::endure
