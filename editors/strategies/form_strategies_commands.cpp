#include "editors/strategies/form_strategies.h"

#include "data/custom_dialog.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "editors/new_name.h"
#include "editors/refusal.h"
#include "platform/values/numbers.h"
#include "procedures/statement_parts.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/list_rows.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace kelvane {

using ModuleGlobals::SQLSafe;

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
    Routine routine(session_, u"FormStrategies,CommandAdd"_s);
    routine.run([&] {
        const NewName newStrategy{.title = TextId::addStrategy,
                                  .prompt = TextId::newStrategyNamePrompt,
                                  .taken = TextId::strategyAlreadyExists,
                                  .maxLength = longestName,
                                  .recordOf = recordOf};
        if (const auto name = askNewName(session_, routine, *widget(), newStrategy)) {
            takeNew(*name);
            undo.dismiss();
            return;
        }
        if (LoadStrategyList(ComboTSNames->currentText())) {
            SetButtons(State::idle);
            undo.dismiss();
        }
    });
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
    const auto name = ComboTSNames->currentText();
    bool exists = true;
    Routine routine(session_, u"FormStrategies,CommandRename"_s);
    routine.run([&] {
        const auto newName =
            ask(TextId::renameStrategy, TextId::renameStrategyPrompt, longestName, FieldKind::free, {});
        if (newName == cancelled)
            return;
        const BusyPointer busy(session_.ui);
        const auto rename = [&](const Sql& table) {
            return routine.execute(u"update " + table + u" set tp_name = " + sqlText(SQLSafe(newName)) +
                                   u" where tp_name = " + sqlText(SQLSafe(name)) + u";commit");
        };
        Transaction renaming(session_);
        exists = rename(u"mt.hvm_kv_proc_points") != 0;
        rename(u"mt.hvm_kv_tag_config");
        if (!exists)
            return;
        renaming.commit();
        if (auto* calParam = findCalParam_())
            calParam->renameStrategy(name, newName);
        LoadStrategyList(newName);
    });
    if (!exists)
        keepVanished();
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
    Routine routine(session_, u"FormStrategies,CommandDeleteTS"_s);
    routine.run([&] {
        const auto uses = routine.select(u"select count(tp_name) from mt.hvm_kv_tag_config where tp_name = " +
                                             sqlText(SQLSafe(name)),
                                         Rows::first);
        uses->next();
        if (numericValue(notNull(uses->value(0))) > 0) {
            session_.ui.messageBox(text(TextId::strategyStillUsed), text(TextId::applicationName),
                                   box::warning);
            return;
        }
        if (!confirms({TextId::confirmStrategyDeletion, box::question, TextId::applicationName}))
            return;
        routine.execute(u"delete from mt.hvm_kv_proc_points where tp_name = " + sqlText(SQLSafe(name)) +
                        u";commit");
        LoadStrategyList({});
    });
}

void FormStrategies::CommandSave_Click() {
    const auto name = ComboTSNames->currentText();
    const auto points = rowsOf(*ListPoints);
    int sequence = 0;
    Routine routine(session_, u"FormStrategies,CommandSave"_s);
    const auto save = [&] {
        // The name goes into the statements as it stands: one with a quote fails and is reported.
        const auto stored = sqlText(name);
        Transaction saving(session_);
        if (routine.hasRow(u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = " + stored))
            routine.execute(u"delete from mt.hvm_kv_proc_points where tp_name = " + stored + u";commit");
        for (; sequence < points.size(); ++sequence)
            routine.execute(
                u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values (" +
                commaJoined({stored, sqlText(plainText(sequence)), sqlText(points[sequence])}) + u");commit");
        saving.commit();
    };
    const auto refused = [&](const Error& error) {
        if (!namesColumn(error, "test_point_pct"_L1))
            return;
        ListPoints->setCurrentRow(sequence);
        ListPoints->setFocus();
    };
    if (!runSave(routine, save, refused))
        return;
    // What is stored stands on the screen, even when it can't be read back.
    if (!LoadStrategyList(name))
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
