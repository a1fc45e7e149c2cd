#include "workflow/form_unfinished_results.h"

#include "resources/captions.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QListWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr TextId columnHeadings[] = {TextId::columnInstrument, TextId::columnCalibrated,
                                     TextId::columnCalibrator, TextId::columnReason};

QTreeWidgetItem* rowOf(const UnfinishedResult& result) {
    auto* row = new QTreeWidgetItem({result.asset, result.date, result.calibrator, result.why});
    for (int column = 0; column < row->columnCount(); ++column)
        row->setToolTip(column, row->text(column));
    return row;
}

} // namespace

FormUnfinishedResults::FormUnfinishedResults(Session& session)
    : ChildWindow(session, u"FormUnfinishedResults"_s, {.width = 9000, .height = 5700}),
      ListResults(nameControl(new QTreeWidget, u"ListResults"_s, text(TextId::unfinishedResults),
                              TextId::unfinishedResultsTip)),
      ListReadings(nameControl(new QListWidget, u"ListReadings"_s, text(TextId::resultReadings),
                               TextId::resultReadingsTip)),
      CommandMakeRecord(button(u"CommandMakeRecord"_s, TextId::makeRecord, TextId::makeRecordTip)),
      CommandDiscard(button(u"CommandDiscard"_s, TextId::discardResult, TextId::discardResultTip)),
      CommandClose(button(u"CommandClose"_s, TextId::closeCommand, TextId::closeResultsTip)) {
    setWindowTitle(text(TextId::unfinishedResultsTitle));
    ListResults->setHeaderLabels(captionsOf(columnHeadings));
    ListResults->setRootIsDecorated(false);
    ListResults->setAllColumnsShowFocus(true);
    ListReadings->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layOut();
    connectCommands();
    setDefaultButton(CommandMakeRecord);
    setCancelButton(CommandClose);
    setFirstFocus(ListResults);
    refresh();
}

void FormUnfinishedResults::layOut() {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (auto* command : {CommandMakeRecord, CommandDiscard, CommandClose})
        buttons->addWidget(command);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->addWidget(labelFor(ListResults, u"Label1"_s, TextId::unfinishedResults));
    column->addWidget(ListResults, 1);
    column->addWidget(labelFor(ListReadings, u"Label2"_s, TextId::resultReadings));
    column->addWidget(ListReadings, 1);
    column->addLayout(buttons);
    setBody(body);
    kelvane::setTabOrder({ListResults, ListReadings, CommandMakeRecord, CommandDiscard, CommandClose});
}

void FormUnfinishedResults::connectCommands() {
    connectGuarded(ListResults, &QTreeWidget::currentItemChanged, this, session_.ui,
                   [this] { showReadings(); });
    connectGuarded(CommandMakeRecord, &QPushButton::clicked, this, session_.ui,
                   [this] { run([this] { makeRecord(); }); });
    connectGuarded(CommandDiscard, &QPushButton::clicked, this, session_.ui,
                   [this] { run([this] { discard(); }); });
    connectGuarded(CommandClose, &QPushButton::clicked, this, session_.ui, [this] { close(); });
}

void FormUnfinishedResults::run(const std::function<void()>& command) {
    if (running_ || session_.ui.bringQuestionForward())
        return;
    running_ = true;
    runGuarded(session_.ui, command);
    running_ = false;
    if (results_.isEmpty())
        unload();
}

const UnfinishedResult* FormUnfinishedResults::chosenResult() const {
    const auto row = ListResults->indexOfTopLevelItem(ListResults->currentItem());
    return row < 0 ? nullptr : &results_.at(row);
}

void FormUnfinishedResults::choose(qsizetype row) {
    const auto last = results_.size() - 1;
    ListResults->setCurrentItem(ListResults->topLevelItem(static_cast<int>(std::min(row, last))));
    showReadings();
}

void FormUnfinishedResults::refresh() {
    const auto* before = chosenResult();
    const auto id = before ? before->id : QString();
    results_ = unfinishedResults(session_);
    ListResults->clear();
    for (const auto& result : std::as_const(results_))
        ListResults->addTopLevelItem(rowOf(result));
    for (int column = 0; column < ListResults->columnCount(); ++column)
        ListResults->resizeColumnToContents(column);
    const auto& results = std::as_const(results_);
    const auto same = std::ranges::find(results, id, &UnfinishedResult::id);
    choose(same == results.end() ? 0 : same - results.begin());
}

void FormUnfinishedResults::showReadings() {
    const auto* result = chosenResult();
    ListReadings->clear();
    if (result)
        ListReadings->addItems(result->readings);
    for (auto* command : {CommandMakeRecord, CommandDiscard})
        command->setEnabled(result != nullptr);
}

void FormUnfinishedResults::showRest() {
    const auto row = ListResults->indexOfTopLevelItem(ListResults->currentItem());
    const auto count = results_.size();
    refresh();
    if (results_.size() < count)
        choose(row);
}

void FormUnfinishedResults::makeRecord() {
    const auto* result = chosenResult();
    if (!result)
        return;
    const auto outcome = makeRecordOf(session_, result->id);
    const bool made = outcome.end == MakeRecordOutcome::End::made;
    session_.ui.messageBox(outcome.message, text(TextId::unfinishedResultsTitle),
                           made ? box::information : box::warning);
    showRest();
}

void FormUnfinishedResults::discard() {
    const auto* result = chosenResult();
    if (!result)
        return;
    const auto question = text(TextId::confirmResultDiscard).arg(result->asset);
    if (session_.ui.messageBox(question, text(TextId::unfinishedResultsTitle), box::question) !=
        BoxAnswer::yes)
        return;
    if (discardResult(session_, result->id))
        showRest();
}

} // namespace kelvane
