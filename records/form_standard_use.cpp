#include "records/form_standard_use.h"

#include "platform/values/texts.h"
#include "records/keys.h"
#include "records/list_file.h"
#include "records/lists.h"
#include "records/reading_table.h"
#include "records/selected_rows.h"
#include "records/since_field.h"
#include "records/standard_use_model.h"
#include "records/table_copy.h"
#include "reports/report_error.h"
#include "reports/report_preview.h"
#include "ui/controls.h"
#include "ui/date_field.h"
#include "ui/guarded.h"
#include "ui/panels.h"

#include <QCompleter>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStringListModel>
#include <QTableView>
#include <QVBoxLayout>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Longer than any asset number.
constexpr int longestEntry = 100;
constexpr int charactersInField = 20;
constexpr int widestColumn = 40; // characters

} // namespace

FormStandardUse::FormStandardUse(Session& session, const QStringList& layoutFolders, QWidget* parent)
    : RecordsPage(session.ui, parent),
      session_(session),
      layoutFolders_(layoutFolders),
      model_(new StandardUseModel(this)),
      standards_(new QStringListModel(this)),
      TextStandard(
          nameControl(new QLineEdit, u"TextStandard"_s, text(TextId::usesStandard), TextId::usesStandardTip)),
      DateSince(sinceField(session, TextId::usesSinceTip)),
      CommandShow(button(u"CommandShow"_s, TextId::usesShow, TextId::usesShowTip)),
      TableUses(nameControl(new QTableView, u"TableUses"_s, text(TextId::usesTip))),
      LabelUses(changingNote(u"LabelUses"_s, TextId::usesTab)),
      LabelOutcome(changingNote(u"LabelOutcome"_s, TextId::recordsSave)),
      CommandHistory(button(u"CommandHistory"_s, TextId::recordsHistory, TextId::recordsHistoryTip)),
      CommandCopy(button(u"CommandCopy"_s, TextId::aboutCopy, TextId::recordsCopyTip)),
      CommandSave(button(u"CommandSave"_s, TextId::recordsSave, TextId::recordsSaveTip)),
      CommandPrint(button(u"CommandPrint"_s, TextId::usesReport, TextId::usesReportTip)) {
    setObjectName(u"FormStandardUse"_s);
    setUpTable();
    layOut();
    connectControls();
    enableCommands();
}

void FormStandardUse::setUpTable() {
    TableUses->setModel(model_);
    setUpForReading(*TableUses);
    TableUses->installEventFilter(this);
    auto* header = TableUses->horizontalHeader();
    header->setSortIndicator(StandardUseModel::dateColumn(), Qt::DescendingOrder);
    TableUses->setSortingEnabled(true);
}

void FormStandardUse::layOut() {
    TextStandard->setMaxLength(longestEntry);
    TextStandard->setMinimumWidth(TextStandard->fontMetrics().averageCharWidth() * charactersInField);
    TextStandard->setClearButtonEnabled(true);
    auto* completer = new QCompleter(standards_, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    TextStandard->setCompleter(completer);
    DateSince->installEventFilter(this);
    LabelUses->hide();
    LabelOutcome->hide();

    auto* question = new QHBoxLayout;
    question->addWidget(labelFor(TextStandard, u"Label1"_s, TextId::usesStandard));
    question->addWidget(TextStandard);
    question->addWidget(labelFor(DateSince, u"Label2"_s, TextId::recordsSince));
    question->addWidget(DateSince);
    question->addWidget(CommandShow);
    question->addStretch(1);
    auto* commands = new QHBoxLayout;
    for (auto* command : {CommandHistory, CommandCopy, CommandSave, CommandPrint})
        commands->addWidget(command);
    commands->addStretch(1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(question);
    column->addWidget(TableUses, 1);
    column->addWidget(LabelUses);
    column->addWidget(LabelOutcome);
    column->addLayout(commands);
    kelvane::setTabOrder({TextStandard, DateSince, CommandShow, TableUses, CommandHistory, CommandCopy,
                          CommandSave, CommandPrint});
}

void FormStandardUse::connectControls() {
    auto& ui = session_.ui;
    connectGuarded(TextStandard, &QLineEdit::returnPressed, this, ui, [this] { ask(); });
    connectGuarded(CommandShow, &QPushButton::clicked, this, ui, [this] { ask(); });
    connectGuarded(TableUses, &QTableView::doubleClicked, this, ui, [this] { openHistory(); });
    connectGuarded(TableUses->selectionModel(), &QItemSelectionModel::selectionChanged, this, ui,
                   [this] { enableCommands(); });
    connectGuarded(CommandHistory, &QPushButton::clicked, this, ui, [this] { openHistory(); });
    connectGuarded(CommandCopy, &QPushButton::clicked, this, ui, [this] { copySelectedRows(*TableUses); });
    connectGuarded(CommandSave, &QPushButton::clicked, this, ui, [this] { save(); });
    connectGuarded(CommandPrint, &QPushButton::clicked, this, ui, [this] { print(); });
    bindCopying(*TableUses);
    connectPageKeys(*this, QKeySequence::Find, ui, [this] {
        TextStandard->setFocus(Qt::ShortcutFocusReason);
        TextStandard->selectAll();
    });
}

/// Return opens the history, which the table itself would take for editing; in the field of the day it asks.
bool FormStandardUse::eventFilter(QObject* watched, QEvent* event) {
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    runGuarded(session_.ui, [&] {
        if (watched == TableUses)
            openHistory();
        else
            ask();
    });
    return true;
}

void FormStandardUse::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (session_.SessionConnected && !areOffered_)
        runGuarded(session_.ui, [this] { offerStandards(); });
}

bool FormStandardUse::offerStandards() {
    const BusyPointer busy(session_.ui);
    // Only once: a database that fails is told once.
    areOffered_ = true;
    QStringList assets;
    const auto standards = usedStandards(session_);
    for (const auto& standard : standards.value_or(QList<Standard>()))
        assets << withoutBlanksAtEnd(standard.asset);
    standards_->setStringList(assets);
    return standards.has_value();
}

void FormStandardUse::showUses(const QString& standard, const QDate& day) {
    TextStandard->setText(standard);
    if (day.isValid() && day < DateSince->date())
        DateSince->setDate(day);
    ask();
}

void FormStandardUse::readAgain() {
    areOffered_ = false;
    const bool isRead = !isVisible() || !session_.SessionConnected || offerStandards();
    // What has failed is told; of a connection that is lost the list says it without asking.
    if (!isRead && session_.SessionConnected)
        return;
    if (!list_.standard.asset.isEmpty())
        ask();
}

void FormStandardUse::focusTable() {
    TableUses->setFocus();
}

void FormStandardUse::ask() {
    const auto typed = TextStandard->text();
    const auto asset = trimBlanks(typed);
    LabelOutcome->hide();
    DateSince->interpretText();
    if (asset.isEmpty()) {
        TextStandard->setFocus();
        return;
    }
    const BusyPointer busy(session_.ui);
    const auto since = DateSince->date();
    if (!session_.SessionConnected && asset == withoutBlanksAtEnd(list_.standard.asset) &&
        since == list_.since) {
        tell(text(TextId::connectionLost), true);
        return;
    }
    const auto standard =
        session_.SessionConnected ? standardOf(session_, typed) : Lookup<Standard>{.hasFailed = true};
    std::optional<QList<StandardUse>> uses;
    if (standard.found)
        uses = usesOfStandard(session_, standard.found->asset, since);
    // Never the calibrations of another standard under the name that is typed now.
    list_ = uses ? StandardUseList{*standard.found, since, {}} : StandardUseList();
    model_->show(uses.value_or(QList<StandardUse>()));
    if (uses) {
        tell(standardUseCounts({list_.standard, since, *uses}), undatedUses(*uses) > 0);
        fitColumns(*TableUses, widestColumn);
    } else {
        tell(!session_.SessionConnected ? text(TextId::connectionLost)
             : standard.isAbsent()      ? text(TextId::usesUnknown).arg(asset)
                                        : text(TextId::historyNotRead),
             true);
    }
    enableCommands();
}

void FormStandardUse::tell(const QString& state, bool isAlarming) {
    kelvane::tell(*LabelUses, state, isAlarming);
    LabelUses->show();
}

void FormStandardUse::forget() {
    previews_.close();
    TextStandard->clear();
    DateSince->setDate(usualSince(session_));
    list_ = {};
    model_->show({});
    standards_->setStringList({});
    areOffered_ = false;
    LabelUses->hide();
    LabelOutcome->hide();
    enableCommands();
}

void FormStandardUse::enableCommands() {
    const auto selected = selectedRows(*TableUses);
    CommandHistory->setEnabled(selected.size() == 1);
    CommandCopy->setEnabled(!selected.isEmpty());
    CommandSave->setEnabled(!list_.standard.asset.isEmpty());
    CommandPrint->setEnabled(!list_.standard.asset.isEmpty());
}

/// A calibration of an instrument that the inventory has lost has no history.
void FormStandardUse::openHistory() {
    const auto row = rowToOpen(*TableUses);
    if (row && !model_->use(*row).asset.isEmpty())
        Q_EMIT historyWanted(model_->use(*row).asset);
}

void FormStandardUse::save() {
    const auto file =
        askListFile(session_, this, text(TextId::usesTab) + u' ' + withoutBlanksAtEnd(list_.standard.asset));
    if (!file)
        return;
    const BusyPointer busy(session_.ui);
    ListWriter writer(file->path);
    writer.write(csvOf(standardUseColumns(), model_->uses(), file->form));
    LabelOutcome->setText(writer.finish());
    LabelOutcome->show();
}

void FormStandardUse::print() {
    const BusyPointer busy(session_.ui);
    auto printed = list_;
    printed.uses = model_->uses();
    try {
        auto preview = std::make_unique<ReportPreview>(
            session_.ui, standardUseReport(session_, printed, layoutFolders_), standardUseTitle(printed));
        preview->open();
        previews_.add(std::move(preview));
    } catch (const ReportError& error) {
        session_.ui.messageBox(error.text(), text(TextId::usesTab), box::warning);
    }
}

} // namespace kelvane
