#include "records/saved_columns.h"

#include "platform/error_report.h"

#include <QHeaderView>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto section = u"Records"_s;
constexpr int smallestWidth = 20; // pixels
constexpr int largestWidth = 2000;

QString layoutOf(const QList<SavedColumn>& columns, const QHeaderView& header, bool areWidthsSet) {
    QStringList entries;
    for (int place = 0; place < header.count(); ++place) {
        const int column = header.logicalIndex(place);
        const bool isHidden = header.isSectionHidden(column);
        auto entry = (isHidden ? u"-"_s : QString()) + columns[column].name;
        // A hidden column has no width of its own.
        if (areWidthsSet && !isHidden)
            entry += u'=' + QString::number(header.sectionSize(column));
        entries << entry;
    }
    return entries.join(u',');
}

} // namespace

bool restoreColumns(const Workstation& workstation, const QString& table, const QList<SavedColumn>& columns,
                    QHeaderView& header) {
    for (int column = 0; column < header.count(); ++column)
        header.setSectionHidden(column, !columns[column].isShownAtFirst);
    static const QRegularExpression form(u"^(-?)([A-Za-z]+)(?:=([0-9]{1,5}))?$"_s);
    const auto stored = ModuleGlobals::GetRegSetting(workstation, section, table).split(u',');
    int place = 0;
    bool areWidthsSet = false;
    for (const auto& entry : stored) {
        const auto match = form.match(entry);
        const auto found = std::ranges::find(columns, match.captured(2), &SavedColumn::name);
        const auto column = static_cast<int>(found - columns.cbegin());
        if (found == columns.cend() || header.visualIndex(column) < place)
            continue;
        header.moveSection(header.visualIndex(column), place++);
        if (match.hasCaptured(3)) {
            header.resizeSection(column, std::clamp(match.captured(3).toInt(), smallestWidth, largestWidth));
            areWidthsSet = true;
        }
        header.setSectionHidden(column, !match.captured(1).isEmpty());
    }
    // A table without columns could not be brought back by its header.
    if (header.hiddenSectionCount() == header.count())
        header.setSectionHidden(header.logicalIndex(0), false);
    return areWidthsSet;
}

void storeColumns(const Workstation& workstation, const QString& table, const QList<SavedColumn>& columns,
                  const QHeaderView& header, bool areWidthsSet) {
    const auto layout = layoutOf(columns, header, areWidthsSet);
    if (layout != ModuleGlobals::GetRegSetting(workstation, section, table))
        ModuleGlobals::SaveRegSetting(workstation, section, table, layout);
}

QList<int> shownColumns(const QHeaderView& header) {
    QList<int> shown;
    for (int place = 0; place < header.count(); ++place) {
        if (!header.isSectionHidden(header.logicalIndex(place)))
            shown << header.logicalIndex(place);
    }
    return shown;
}

} // namespace kelvane
