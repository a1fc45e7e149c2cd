#include "records/form_unrecorded.h"

#include "resources/captions.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/panels.h"
#include "ui/whole_text.h"

#include <QDir>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QListWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int widestColumn = 40; // characters

constexpr TextId columnHeadings[] = {TextId::columnInstrument, TextId::columnCalibrated,
                                     TextId::columnCalibrator, TextId::listTechnician, TextId::columnReason};

QTreeWidgetItem* rowOf(const JournalEntry& entry) {
    const auto calibrated = QString(entry.date + u' ' + entry.time).trimmed();
    auto* row = new QTreeWidgetItem({entry.asset, calibrated, entry.calibrator, entry.user, entry.why});
    for (int column = 0; column < row->columnCount(); ++column)
        row->setToolTip(column, wholeTextTip(row->text(column)));
    return row;
}

} // namespace

FormUnrecorded::FormUnrecorded(Session& session, const QStringList& folders, QWidget* parent)
    : RecordsPage(session.ui, parent),
      session_(session),
      folders_(folders),
      LabelFound(changingNote(u"LabelFound"_s, TextId::unrecordedTab)),
      ListResults(nameControl(new QTreeWidget, u"ListResults"_s, text(TextId::unrecordedTip))),
      ListReadings(nameControl(new QListWidget, u"ListReadings"_s, text(TextId::resultReadings),
                               TextId::resultReadingsTip)),
      LabelJournal(changingNote(u"LabelJournal"_s, TextId::unrecordedTab)),
      CommandReadAgain(button(u"CommandReadAgain"_s, TextId::recordsReadAgain, TextId::recordsReadAgainTip)) {
    setObjectName(u"FormUnrecorded"_s);
    ListResults->setHeaderLabels(captionsOf(columnHeadings));
    ListResults->setRootIsDecorated(false);
    ListResults->setAllColumnsShowFocus(true);
    ListResults->setAlternatingRowColors(true);
    ListReadings->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layOut();
    connectGuarded(ListResults, &QTreeWidget::currentItemChanged, this, session.ui,
                   [this] { showReadings(); });
    connectGuarded(CommandReadAgain, &QPushButton::clicked, this, session.ui, [this] { readAgain(); });
    forget();
}

void FormUnrecorded::layOut() {
    auto* commands = new QHBoxLayout;
    commands->addWidget(CommandReadAgain);
    commands->addStretch(1);
    auto* column = new QVBoxLayout(this);
    column->addWidget(LabelFound);
    column->addWidget(ListResults, 1);
    column->addWidget(labelFor(ListReadings, u"Label1"_s, TextId::resultReadings));
    column->addWidget(ListReadings, 1);
    column->addWidget(LabelJournal);
    column->addLayout(commands);
    kelvane::setTabOrder({ListResults, ListReadings, CommandReadAgain});
}

/// The workstation may have made records meanwhile.
void FormUnrecorded::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (session_.SessionConnected)
        runGuarded(session_.ui, [this] { readAgain(); });
}

void FormUnrecorded::readAgain() {
    const auto kept = keptResults(session_, folders_);
    if (kept)
        showResults(*kept);
    else
        // What was read stays, since the workstation may have it still.
        tell(text(TextId::historyNotRead), true);
}

void FormUnrecorded::tell(const QString& state, bool isAlarming) {
    LabelFound->setText(state);
    LabelFound->setAccessibleName(state);
    auto font = LabelFound->font();
    font.setBold(isAlarming);
    LabelFound->setFont(font);
}

void FormUnrecorded::focusTable() {
    ListResults->setFocus();
}

void FormUnrecorded::forget() {
    entries_.clear();
    ListResults->clear();
    ListReadings->clear();
    LabelFound->clear();
    LabelJournal->clear();
}

void FormUnrecorded::showResults(const KeptResults& kept) {
    const int before = ListResults->indexOfTopLevelItem(ListResults->currentItem());
    const auto chosen = entries_.value(before).id;
    entries_ = kept.unfinished;
    QStringList found;
    if (!kept.exists)
        found << text(TextId::unrecordedNoJournal);
    else if (!entries_.isEmpty())
        found << text(TextId::unrecordedFound).arg(entries_.size());
    else if (kept.unreadable == 0) // what a line that can't be read is of, nobody knows
        found << text(TextId::unrecordedNone);
    if (kept.unreadable > 0)
        found << text(TextId::unrecordedUnreadable).arg(kept.unreadable);
    tell(found.join(u'\n'), kept.unreadable > 0);
    LabelJournal->setText(text(TextId::unrecordedJournal).arg(QDir::toNativeSeparators(kept.path)));

    ListResults->clear();
    for (const auto& entry : std::as_const(entries_))
        ListResults->addTopLevelItem(rowOf(entry));
    const int widest = widestColumn * fontMetrics().averageCharWidth();
    for (int column = 0; column + 1 < ListResults->columnCount(); ++column) {
        ListResults->resizeColumnToContents(column);
        ListResults->setColumnWidth(column, std::min(ListResults->columnWidth(column), widest));
    }
    const auto& entries = std::as_const(entries_);
    const auto same = std::ranges::find(entries, chosen, &JournalEntry::id);
    const auto row = same == entries.cend() ? 0 : same - entries.cbegin();
    ListResults->setCurrentItem(ListResults->topLevelItem(static_cast<int>(row)));
    showReadings();
}

void FormUnrecorded::showReadings() {
    ListReadings->clear();
    const int row = ListResults->indexOfTopLevelItem(ListResults->currentItem());
    if (row < 0 || row >= entries_.size())
        return;
    const auto& entry = entries_.at(row);
    ListReadings->addItems(entry.lines.isEmpty() ? entry.readings : entry.lines);
}

} // namespace kelvane
