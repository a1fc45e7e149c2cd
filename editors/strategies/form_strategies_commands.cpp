#include "editors/strategies/form_strategies.h"

#include "data/custom_dialog.h"
#include "editors/asking.h"
#include "editors/refusal.h"
#include "platform/values/numbers.h"
#include "procedures/strategies.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/list_rows.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qint16 longestName = 30;

} // namespace

QString FormStrategies::ask(TextId title, TextId prompt, qint16 maxLength, FieldKind kind,
                            const QString& proposed) {
    // The dialog leaves this window usable: no other list may be chosen under the question.
    const auto restore =
        qScopeGuard([this, names = ComboTSNames->isEnabled(), predefined = ComboPreDef->isEnabled()] {
            ComboTSNames->setEnabled(names);
            ComboPreDef->setEnabled(predefined);
        });
    ComboTSNames->setEnabled(false);
    ComboPreDef->setEnabled(false);
    return ModuleGlobals::CustomDialog(session_, text(title), text(prompt), true, 0, maxLength,
                                       static_cast<qint16>(kind), proposed);
}

void FormStrategies::comeBackTo(QPushButton* button) {
    SetButtons(State::idle);
    (button->isEnabled() ? button : CommandAdd)->setFocus();
}

void FormStrategies::CommandAdd_Click() {
    const auto points = rowsOf(*ListPoints);
    // Without an answer from the database the screen is what it was before.
    auto undo = qScopeGuard([&] {
        ListPoints->addItems(points);
        SetButtons(State::idle);
    });
    ComboTSNames->setEnabled(false);
    ListPoints->clear();
    const auto name = askOutOfReach(*widget(), session_, askStrategyName);
    if (!name)
        return;
    if (*name != cancelled)
        takeNew(*name);
    else if (LoadStrategyList(ComboTSNames->currentText()))
        SetButtons(State::idle);
    else
        return;
    undo.dismiss();
}

void FormStrategies::takeNew(const QString& name) {
    ComboTSNames->addItem(name);
    showStrategy(ComboTSNames->count() - 1);
    if (auto* calParam = findCalParam_())
        calParam->addStrategy(name);
    SetButtons(State::added);
    ComboPreDef->setFocus();
}

void FormStrategies::CommandRename_Click() {
    SetButtons(State::renaming);
    const auto idle = qScopeGuard([this] { comeBackTo(CommandRename); });
    const auto newName =
        ask(TextId::renameStrategy, TextId::renameStrategyPrompt, longestName, FieldKind::free, {});
    if (newName == cancelled)
        return;
    const auto failure = rename(ComboTSNames->currentText(), newName);
    if (failure && failure->vanished)
        keepVanished();
}

std::optional<SaveFailure> FormStrategies::rename(const QString& from, const QString& to) {
    const BusyPointer busy(session_.ui);
    auto failure = renameStrategy(session_, from, to);
    if (!failure) {
        if (auto* calParam = findCalParam_())
            calParam->renameStrategy(from, to);
        LoadStrategyList(to);
    }
    return failure;
}

void FormStrategies::keepVanished() {
    markUnsaved();
    session_.ui.messageBox(text(TextId::strategyNoLongerExists), text(TextId::applicationName), box::warning);
    enableSaving();
}

void FormStrategies::CommandDeleteTS_Click() {
    const auto name = ComboTSNames->currentText();
    if (name.isEmpty())
        return;
    SetButtons(State::deleting);
    const auto idle = qScopeGuard([this] { comeBackTo(CommandDeleteTS); });
    if (deleteStrategy(session_, name))
        LoadStrategyList({});
}

void FormStrategies::CommandSave_Click() {
    const Strategy strategy{ComboTSNames->currentText(), rowsOf(*ListPoints)};
    markUnsaved();
    if (const auto failure = saveStrategy(session_, strategy)) {
        if (namesColumn(failure->error, "test_point_pct"_L1)) {
            ListPoints->setCurrentRow(failure->row);
            ListPoints->setFocus();
        }
        return;
    }
    // What is stored stands on the screen, even when it can't be read back.
    if (!LoadStrategyList(strategy.name))
        saveCheckSum();
    SetButtons(State::idle);
    CommandCancel->setEnabled(false);
}

void FormStrategies::CommandCancel_Click() {
    if (!confirms({TextId::confirmDiscardSinceSave, box::question, TextId::applicationName}))
        return;
    LoadStrategyList(ComboTSNames->currentText());
    CommandSave->setEnabled(false);
    SetButtons(State::idle);
}

std::optional<QString> FormStrategies::askPoint(TextId prompt, const QString& proposed) {
    for (;;) {
        const auto point = ask(TextId::applicationName, prompt, 0, FieldKind::number, proposed);
        if (point == cancelled)
            return {};
        if (numberOf(point))
            return point;
        if (session_.ui.messageBox(text(TextId::testPointNotPercentage), text(TextId::applicationName),
                                   box::warningRetryCancel) != BoxAnswer::retry)
            return {};
    }
}

void FormStrategies::CommandAddTP_Click() {
    const auto point = askPoint(TextId::newTestPointPrompt, u"0.0"_s);
    if (!point)
        return;
    ListPoints->addItem(*point);
    ListPoints->scrollToBottom();
    enableSaving();
}

void FormStrategies::CommandModify_Click() {
    const int row = selectedRow(*ListPoints);
    if (row < 0)
        return;
    const auto point = askPoint(TextId::modifiedTestPointPrompt, ListPoints->item(row)->text());
    if (!point)
        return;
    ListPoints->item(row)->setText(*point);
    enableSaving();
}

void FormStrategies::CommandDeletePoint_Click() {
    const int row = selectedRow(*ListPoints);
    if (row < 0)
        return;
    takeRow(*ListPoints, row);
    enableSaving();
}

void FormStrategies::movePoint(int direction) {
    if (moveSelectedRow(*ListPoints, direction))
        enableSaving();
}

} // namespace kelvane
