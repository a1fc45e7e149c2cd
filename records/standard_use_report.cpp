#include "records/standard_use_report.h"

#include "data/worksheets/worksheet_data.h"
#include "platform/values/texts.h"
#include "records/lists.h"
#include "records/report_parts.h"

#include <QJsonArray>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto layoutName = u"kvuses.rpt"_s;

/// The columns of the list by their names in the layout; their titles are "assetTitle" and so on.
constexpr struct {
    QLatin1StringView name;
    TextId title;
} fields[] = {
    {"asset"_L1, TextId::listAsset},   {"description"_L1, TextId::packageDescription},
    {"date"_L1, TextId::listDate},     {"time"_L1, TextId::listTime},
    {"state"_L1, TextId::listState},   {"result"_L1, TextId::listResult},
    {"record"_L1, TextId::listRecord},
};

QString valueOf(const StandardUse& use, TextId title) {
    const auto column = std::ranges::find(standardUseColumns(), title, &ListColumn<StandardUse>::title);
    return column->value(use);
}

QJsonObject groupOf(const StandardUseList& list) {
    QJsonArray rows;
    for (const auto& use : list.uses) {
        QJsonObject row;
        for (const auto& field : fields)
            row[field.name] = valueOf(use, field.title);
        if (use.passed == u"N")
            row["failed"_L1] = text(TextId::resultFailed);
        rows << row;
    }
    QJsonObject group{{"standard"_L1, withoutBlanksAtEnd(list.standard.asset)},
                      {"description"_L1, list.standard.description},
                      {"serial"_L1, list.standard.serial},
                      {"since"_L1, list.since.toString(Qt::ISODate)},
                      {"count"_L1, standardUseCounts(list)},
                      {"standardTitle"_L1, text(TextId::usesStandard)},
                      {"serialTitle"_L1, text(TextId::listSerialNumber)},
                      {"sinceTitle"_L1, text(TextId::recordsSince)},
                      {"uses"_L1, rows}};
    for (const auto& field : fields)
        group[field.name + "Title"_L1] = text(field.title);
    return group;
}

} // namespace

qsizetype undatedUses(const QList<StandardUse>& uses) {
    return std::ranges::count_if(uses, [](const StandardUse& use) { return !use.date.hasDate(); });
}

QString standardUseCounts(const StandardUseList& list) {
    const auto asset = withoutBlanksAtEnd(list.standard.asset);
    const auto since = list.since.toString(Qt::ISODate);
    if (list.uses.isEmpty())
        return text(TextId::usesNone).arg(asset, since);
    QSet<QString> instruments;
    for (const auto& use : list.uses)
        instruments << use.mtag;
    auto counts =
        text(TextId::usesFound)
            .arg(asset, since, QString::number(list.uses.size()), QString::number(instruments.size()));
    if (const auto undated = undatedUses(list.uses); undated > 0)
        counts += u". "_s + text(TextId::usesUndated).arg(undated);
    return counts;
}

QString standardUseTitle(const StandardUseList& list) {
    return text(TextId::usesReportTitle)
        .arg(withoutBlanksAtEnd(list.standard.asset), list.since.toString(Qt::ISODate));
}

Report standardUseReport(const Session& session, const StandardUseList& list, const QStringList& folders) {
    ReportData data;
    data.values = worksheetValues(session, standardUseTitle(list));
    addPageWords(data.values);
    data.add(groupOf(list));
    return {readLayout(siteLayout(layoutName, folders)), std::move(data)};
}

} // namespace kelvane
