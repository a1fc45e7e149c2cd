#include "records/record_pane.h"

#include "data/history/stored_lines.h"
#include "records/colors.h"
#include "records/lists.h"
#include "records/reading_table.h"
#include "ui/panels.h"
#include "ui/whole_text.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

struct PointColumn {
    TextId title;
    LineField field;
    Qt::AlignmentFlag alignment;
};

constexpr PointColumn pointColumns[] = {
    {TextId::historyPoint, LineField::number, Qt::AlignRight},
    {TextId::historyNominal, LineField::nominal, Qt::AlignRight},
    {TextId::historyReading, LineField::reading, Qt::AlignRight},
    {TextId::historyError, LineField::deviation, Qt::AlignRight},
    {TextId::historyLowLimit, LineField::lowLimit, Qt::AlignRight},
    {TextId::historyHighLimit, LineField::highLimit, Qt::AlignRight},
    {TextId::historyVerdict, LineField::verdict, Qt::AlignLeft},
};
constexpr int pointColumnCount = static_cast<int>(std::size(pointColumns));

QString failedVerdict() {
    return u"FAIL"_s;
}

QTableWidget* linesTable(const QString& name) {
    QStringList titles;
    for (const auto& column : pointColumns)
        titles << text(column.title);
    auto* table = readingTable(name, TextId::historyLinesTip, titles);
    table->horizontalHeaderItem(pointColumnCount - 1)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return table;
}

QLabel* noteFromTop(const QString& name, TextId accessibleName) {
    auto* made = changingNote(name, accessibleName);
    made->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return made;
}

} // namespace

RecordPane::RecordPane(Session& session, const QString& name)
    : session_(session),
      LabelRecord(noteFromTop(u"LabelRecord"_s + name, TextId::listRecord)),
      TableLines(linesTable(u"TableLines"_s + name)),
      LabelNote(noteFromTop(u"LabelNote"_s + name, TextId::listResultLines)) {
    setObjectName(u"Pane"_s + name);
    auto font = LabelRecord->font();
    font.setBold(true);
    LabelRecord->setFont(font);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(LabelRecord);
    column->addWidget(TableLines, 1);
    column->addWidget(LabelNote);
}

void RecordPane::showRecord(const CalibrationRecord& record, const QString& note) {
    TableLines->clearSpans();
    TableLines->setRowCount(0);
    widestText_ = 0;
    unreadable_ = 0;
    isWithoutTemplate_ = false;
    for (const auto& line : record.lines)
        addLine(line);
    // Switched on again, it measures what is left for the last column anew.
    TableLines->horizontalHeader()->setStretchLastSection(false);
    TableLines->resizeColumnsToContents();
    widen();
    TableLines->show();

    LabelRecord->setText(recordCaption(record));
    LabelRecord->setAccessibleName(LabelRecord->text());
    QStringList notes;
    if (TableLines->rowCount() == 0)
        notes << text(TextId::historyNoLines);
    else if (isWithoutTemplate_)
        notes << text(TextId::historyNoTemplate);
    else if (unreadable_ > 0)
        notes << text(TextId::historyUnreadable).arg(unreadable_).arg(TableLines->rowCount());
    if (!note.isEmpty())
        notes << note;
    LabelNote->setText(notes.join(u'\n'));
    align();
}

void RecordPane::showNote(const QString& note) {
    LabelRecord->clear();
    TableLines->hide();
    LabelNote->setText(note);
    align();
}

void RecordPane::standBeside(RecordPane& other) {
    beside_ = &other;
    other.beside_ = this;
}

void RecordPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    align();
}

bool RecordPane::hasTable() const {
    return !TableLines->isHidden();
}

void RecordPane::align() {
    align(&RecordPane::LabelRecord);
    align(&RecordPane::LabelNote);
    // At once, so that nothing moves a second time.
    for (auto* pane : {this, beside_.data()}) {
        if (pane != nullptr)
            pane->layout()->activate();
    }
}

void RecordPane::align(QLabel* RecordPane::*part) {
    QList<RecordPane*> panes{this};
    if (beside_)
        panes << beside_;
    int height = 0;
    for (const auto* pane : std::as_const(panes)) {
        const auto& label = *(pane->*part);
        if (pane->hasTable() && !label.text().isEmpty())
            height = std::max(height, label.heightForWidth(pane->width()));
    }
    for (const auto* pane : std::as_const(panes)) {
        auto& label = *(pane->*part);
        label.setMinimumHeight(pane->hasTable() ? height : 0);
        label.setVisible(pane->hasTable() ? height > 0 : !label.text().isEmpty());
    }
}

void RecordPane::addLine(const QString& line) {
    const auto stored = readStoredLine(session_, line);
    switch (stored.reading) {
    case StoredLine::Reading::blank:
        return;
    case StoredLine::Reading::withoutTemplate:
        isWithoutTemplate_ = true;
        addText(line);
        return;
    case StoredLine::Reading::unreadable:
        ++unreadable_;
        addText(line);
        return;
    case StoredLine::Reading::readable:
        break;
    }
    const int row = TableLines->rowCount();
    TableLines->insertRow(row);
    const bool hasFailed = stored.field(LineField::verdict) == failedVerdict();
    for (int at = 0; at < pointColumnCount; ++at) {
        const auto& column = pointColumns[at];
        auto* item = new QTableWidgetItem(stored.field(column.field));
        item->setTextAlignment(Qt::Alignment(column.alignment | Qt::AlignVCenter));
        if (hasFailed && column.field == LineField::verdict)
            item->setForeground(alarmColor());
        TableLines->setItem(row, at, item);
    }
}

void RecordPane::addText(const QString& line) {
    const int row = TableLines->rowCount();
    TableLines->insertRow(row);
    auto* item = new QTableWidgetItem(line);
    auto font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(TableLines->font().pointSizeF());
    item->setFont(font);
    item->setToolTip(wholeTextTip(line));
    TableLines->setItem(row, 0, item);
    TableLines->setSpan(row, 0, 1, pointColumnCount);
    widestText_ = qMax(widestText_, QFontMetrics(item->font()).horizontalAdvance(line));
}

void RecordPane::widen() {
    auto* header = TableLines->horizontalHeader();
    // What a line takes must not make the first column as wide.
    if (widestText_ > 0)
        header->resizeSection(0, header->sectionSizeHint(0));
    const int margin = 4 * TableLines->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 2;
    const int missing = widestText_ + margin - header->length();
    header->setStretchLastSection(missing <= 0);
    if (missing > 0)
        header->resizeSection(pointColumnCount - 1, header->sectionSize(pointColumnCount - 1) + missing);
}

} // namespace kelvane
