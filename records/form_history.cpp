#include "records/form_history.h"

#include "platform/values/texts.h"
#include "records/calibration_pair.h"
#include "records/colors.h"
#include "records/lists.h"
#include "records/reading_table.h"
#include "records/record_pane.h"
#include "records/record_pictures.h"
#include "resources/captions.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/panels.h"
#include "ui/whole_text.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QSplitter>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Pixels between the points and the frame around them.
constexpr int margin = 6;

constexpr TextId listedTitles[] = {
    TextId::listDate,       TextId::listTime,         TextId::listState,          TextId::listResult,
    TextId::listTechnician, TextId::listFailedPoints, TextId::listMarginalPoints, TextId::listResultLines,
};

QTableWidget* historyTable(const QString& name, TextId accessibleName, const QStringList& titles) {
    auto* table = readingTable(name, accessibleName, titles);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return table;
}

/// One particular of a record; standards, and the lines of a remark, stand in lines of their own.
QString particular(const CalibrationRecord& record, const ListColumn<CalibrationRecord>& column) {
    if (column.title != TextId::standardsUsed)
        return column.value(record);
    QStringList standards;
    for (const auto& standard : record.standards) {
        QStringList words{standardText(standard)};
        if (!standard.description.isEmpty())
            words << standard.description;
        standards << words.join(u", "_s);
    }
    return standards.join(u'\n');
}

QString instrumentCaption(const InstrumentSummary& instrument) {
    QStringList words{withoutBlanksAtEnd(instrument.asset),
                      instrument.description,
                      instrument.manufacturer,
                      instrument.model,
                      instrument.serial,
                      instrument.location};
    words.removeAll(QString());
    return words.join(u", "_s);
}

} // namespace

FormHistory::FormHistory(Session& session, const InstrumentSummary& instrument, QWidget* parent)
    : RecordsPage(session.ui, parent),
      session_(session),
      instrument_(instrument),
      LabelInstrument(nameControl(new ElidedLabel, u"LabelInstrument"_s, text(TextId::recordsHistory))),
      TableRecords(historyTable(u"TableRecords"_s, TextId::historyRecordsTip, captionsOf(listedTitles))),
      LabelState(label(u"LabelState"_s, TextId::historyRecords)),
      ComboCompare(dropDown(u"ComboCompare"_s, text(TextId::historyCompare), TextId::historyCompareTip)),
      CommandUses(button(u"CommandUses"_s, TextId::usesTab, TextId::usesTip)),
      CommandCertificate(
          button(u"CommandCertificate"_s, TextId::certificatePreview, TextId::certificatePreviewTip)),
      standards_(new QMenu(this)),
      left_(new RecordPane(session, u"Left"_s)),
      right_(new RecordPane(session, u"Right"_s)),
      TableDetails(historyTable(u"TableDetails"_s, TextId::historyDetailsTip,
                                {text(TextId::historyDetails), QString(), QString()})),
      pictures_(new RecordPictures(session, withoutBlanksAtEnd(instrument.asset))),
      parts_(tabControl(u"TabsHistory"_s, TextId::recordsHistory)),
      splitter_(new QSplitter(Qt::Vertical)) {
    setObjectName(u"FormHistory"_s);
    LabelInstrument->setText(instrumentCaption(instrument));
    LabelState->setWordWrap(true);
    layOut();
    connectControls();
    readAgain();
}

void FormHistory::layOut() {
    keepWidth(ComboCompare);
    ComboCompare->setMinimumContentsLength(30);
    TableRecords->setSelectionMode(QAbstractItemView::SingleSelection);
    TableDetails->setWordWrap(true);

    auto* comparing = new QHBoxLayout;
    comparing->addWidget(labelFor(ComboCompare, u"Label1"_s, TextId::historyCompare));
    comparing->addWidget(ComboCompare);
    comparing->addStretch(1);
    comparing->addWidget(CommandUses);
    comparing->addWidget(CommandCertificate);
    CommandUses->setMenu(standards_);
    auto* sides = new QSplitter(Qt::Horizontal);
    sides->setChildrenCollapsible(false);
    sides->addWidget(left_);
    sides->addWidget(right_);
    left_->standBeside(*right_);
    sides->setContentsMargins(margin, margin, margin, margin);
    // Both sides are as wide, whatever they show.
    sides->setSizes({1, 1});
    parts_->addTab(sides, text(TextId::listResultLines));
    parts_->addTab(TableDetails, text(TextId::historyDetails));
    parts_->setTabToolTip(parts_->addTab(pictures_, text(TextId::picturesTab)), text(TextId::picturesTip));
    // All parts show the two records that are compared.
    auto* compared = new QWidget;
    auto* comparedColumn = new QVBoxLayout(compared);
    comparedColumn->setContentsMargins(0, 0, 0, 0);
    comparedColumn->addLayout(comparing);
    comparedColumn->addWidget(parts_, 1);

    splitter_->setChildrenCollapsible(false);
    splitter_->addWidget(TableRecords);
    splitter_->addWidget(compared);
    splitter_->setStretchFactor(0, 2);
    splitter_->setStretchFactor(1, 5);
    splitter_->setSizes({200, 500});
    auto* column = new QVBoxLayout(this);
    column->addWidget(LabelInstrument);
    column->addWidget(LabelState);
    column->addWidget(splitter_, 1);
}

void FormHistory::connectControls() {
    connectGuarded(TableRecords->selectionModel(), &QItemSelectionModel::selectionChanged, this, session_.ui,
                   [this] { showChosen(); });
    connectGuarded(ComboCompare, &QComboBox::currentIndexChanged, this, session_.ui,
                   [this] { showChosen(); });
    connectGuarded(CommandCertificate, &QPushButton::clicked, this, session_.ui,
                   [this] { askCertificate(); });
}

void FormHistory::readAgain() {
    std::optional<QList<CalibrationRecord>> read;
    if (session_.SessionConnected)
        runGuarded(session_.ui, [&] { read = calibrationsOf(session_, instrument_.asset); });
    const bool isRead = read.has_value();
    const auto before = place();
    if (read)
        records_ = *read;
    LabelState->setText(text(isRead                      ? TextId::historyNone
                             : session_.SessionConnected ? TextId::historyNotRead
                                                         : TextId::connectionLost));
    LabelState->setVisible(!isRead || records_.isEmpty());
    if (isRead)
        showRecords(before);
    splitter_->setVisible(!records_.isEmpty());
}

void FormHistory::focusTable() {
    TableRecords->setFocus();
}

FormHistory::Place FormHistory::place() const {
    return {records_.value(chosen()).ctag, records_.value(ComboCompare->currentIndex() - 1).ctag};
}

qsizetype FormHistory::indexOf(const QString& ctag) const {
    const auto found = std::ranges::find(records_, ctag, &CalibrationRecord::ctag);
    return found == records_.cend() ? -1 : found - records_.cbegin();
}

void FormHistory::showRecords(const Place& place) {
    {
        const QSignalBlocker quiet(TableRecords->selectionModel());
        TableRecords->setRowCount(static_cast<int>(records_.size()));
        for (int row = 0; row < TableRecords->rowCount(); ++row) {
            for (int column = 0; column < TableRecords->columnCount(); ++column) {
                const auto title = listedTitles[column];
                auto* item = new QTableWidgetItem(calibrationText(records_[row], title));
                if (title == TextId::listResult && records_[row].passed == u"N")
                    item->setForeground(alarmColor());
                TableRecords->setItem(row, column, item);
            }
        }
        // Switched on again, it measures what is left for the last column anew.
        TableRecords->horizontalHeader()->setStretchLastSection(false);
        TableRecords->resizeColumnsToContents();
        TableRecords->horizontalHeader()->setStretchLastSection(true);
        fillComparing(place.compared);
        pictures_->setRecords(records_);
    }
    if (!records_.isEmpty())
        TableRecords->setCurrentCell(static_cast<int>(std::max<qsizetype>(0, indexOf(place.chosen))), 0,
                                     QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    showChosen();
}

void FormHistory::fillComparing(const QString& compared) {
    const QSignalBlocker quiet(ComboCompare);
    ComboCompare->clear();
    ComboCompare->addItem(text(TextId::historyPair));
    for (const auto& record : std::as_const(records_))
        ComboCompare->addItem(recordCaption(record));
    ComboCompare->setCurrentIndex(static_cast<int>(indexOf(compared)) + 1);
}

qsizetype FormHistory::chosen() const {
    const auto rows = TableRecords->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.constFirst().row();
}

void FormHistory::askCertificate() {
    const auto record = chosen();
    if (record >= 0 && record < records_.size())
        Q_EMIT certificateWanted(certifiedCalibration(instrument_, records_, record));
}

void FormHistory::showChosen() {
    const auto record = chosen();
    if (record < 0 || record >= records_.size())
        return;
    if (ComboCompare->currentIndex() <= 0) {
        showPair(record);
        return;
    }
    const qsizetype other = ComboCompare->currentIndex() - 1;
    showPane(*left_, record, {});
    showPane(*right_, other, {});
    offerStandards(record, other);
    showDetails(record, other);
    showErrors(record, other);
}

void FormHistory::showPair(qsizetype record) {
    const auto pair = pairOf(records_, record);
    const auto run = records_[record].run;
    showPane(*left_, pair.asFound, pair.asFound ? QString() : text(TextId::historyNoAsFound));
    const auto missing = run == CalibrationRun::foundLeft ? TextId::historyFoundLeft
                         : run == CalibrationRun::other   ? TextId::historyAlone
                                                          : TextId::historyNoAsLeft;
    QString note;
    if (!pair.asLeft)
        note = text(missing);
    else if (pair.asFound)
        note = text(TextId::historyPairedByOrder);
    showPane(*right_, pair.asLeft, note);
    offerStandards(pair.asFound, pair.asLeft);
    showDetails(pair.asFound, pair.asLeft);
    showErrors(pair.asFound, pair.asLeft);
}

void FormHistory::showPane(RecordPane& pane, std::optional<qsizetype> record, const QString& note) {
    if (record)
        pane.showRecord(records_[*record], note);
    else
        pane.showNote(note);
}

/// One that the inventory has lost can't be looked for. Of two records that name it, the earlier one counts.
void FormHistory::offerStandards(std::optional<qsizetype> left, std::optional<qsizetype> right) {
    standards_->clear();
    QMap<QString, QDate> offered;
    for (const auto& record : {left, right}) {
        if (!record)
            continue;
        const auto day = records_[*record].date.moment.date;
        for (const auto& standard : records_[*record].standards) {
            const auto& asset = standard.asset;
            if (asset.isEmpty())
                continue;
            if (auto& first = offered[asset]; !first.isValid() || (day.isValid() && day < first))
                first = day;
        }
    }
    for (const auto& [asset, first] : offered.asKeyValueRange()) {
        auto* action = standards_->addAction(withoutBlanksAtEnd(asset).replace(u'&', u"&&"_s));
        QObject::connect(action, &QAction::triggered, this,
                         [this, asset = asset, first = first] { Q_EMIT usesWanted(asset, first); });
    }
    CommandUses->setEnabled(!offered.isEmpty());
}

void FormHistory::showErrors(std::optional<qsizetype> left, std::optional<qsizetype> right) {
    QList<qsizetype> chosen;
    for (const auto& record : {left, right}) {
        if (record && !chosen.contains(*record))
            chosen << *record;
    }
    pictures_->setChosen(chosen);
}

/// What neither record says has no row. Where the two differ, their values are bold.
void FormHistory::showDetails(std::optional<qsizetype> left, std::optional<qsizetype> right) {
    const auto captionOf = [&](std::optional<qsizetype> record) {
        return record ? recordCaption(records_[*record]) : QString();
    };
    TableDetails->setHorizontalHeaderLabels(
        {text(TextId::historyDetails), captionOf(left), captionOf(right)});
    TableDetails->setColumnHidden(1, !left);
    TableDetails->setColumnHidden(2, !right);
    TableDetails->setRowCount(0);
    for (const auto& column : calibrationColumns()) {
        const auto first = left ? particular(records_[*left], column) : QString();
        const auto second = right ? particular(records_[*right], column) : QString();
        if (first.isEmpty() && second.isEmpty())
            continue;
        const int row = TableDetails->rowCount();
        TableDetails->insertRow(row);
        TableDetails->setItem(row, 0, new QTableWidgetItem(text(column.title)));
        int at = 1;
        for (const auto& value : {first, second}) {
            auto* item = new QTableWidgetItem(value);
            if (left && right && first != second) {
                auto font = TableDetails->font();
                font.setBold(true);
                item->setFont(font);
            }
            TableDetails->setItem(row, at++, item);
        }
    }
    auto* header = TableDetails->horizontalHeader();
    header->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(1, QHeaderView::Stretch);
    header->setSectionResizeMode(2, QHeaderView::Stretch);
    TableDetails->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

} // namespace kelvane
