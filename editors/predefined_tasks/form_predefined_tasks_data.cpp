#include "editors/predefined_tasks/form_predefined_tasks.h"

#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/parameters/cal_params.h"
#include "data/small_routines.h"
#include "editors/new_name.h"
#include "editors/refusal.h"
#include "platform/values/texts.h"
#include "procedures/column_values.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/list_rows.h"
#include "ui/text_box.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr qint16 tagLength = 30;

Sql packageOf(const QString& name) {
    return u"select taskname from mt.hvm_kv_task_packages where taskname = " +
           sqlText(ModuleGlobals::SQLSafe(name));
}

constexpr NewName newPackage{.title = TextId::newPackageTitle,
                             .prompt = TextId::newStrategyNamePrompt,
                             .taken = TextId::packageAlreadyExists,
                             .maxLength = 30,
                             .recordOf = packageOf};

} // namespace

double FormPredefinedTasks::Form_CheckSum() {
    double sum = 0;
    routine(u"Form_CheckSum", [&](Routine&) {
        const BusyPointer busy(session_.ui);
        sum = ModuleGlobals::CheckSum(session_, currentName_ + TextNotes->text() +
                                                    kindOf(chosen()).letter.toString() + value() +
                                                    package().assets.join(QString()));
    });
    return sum;
}

EditorWindow::Question FormPredefinedTasks::closeQuestion() const {
    return {TextId::confirmDiscardSinceSave, box::warningYesNo, TextId::predefinedTaskPackages};
}

QString FormPredefinedTasks::value() const {
    const auto& kind = kindOf(chosen());
    if (kind.choices)
        return ComboSelectList->currentText();
    return kind.definition == Definition::sql ? TextSQL->text() : QString();
}

TaskPackage FormPredefinedTasks::package() const {
    return {.name = ComboTPName->currentText(),
            .definition = chosen(),
            .value = value(),
            .notes = TextNotes->text(),
            .assets = chosen() == Definition::assetList ? rowsOf(*ListAssets) : QStringList()};
}

void FormPredefinedTasks::LoadTasks() {
    routine(u"LoadTasks", [this](Routine& guard) {
        const BusyPointer busy(session_.ui);
        const Loading loading(*this);
        const QScopedValueRollback tasks(loadingTasks_, true);
        ComboTPName->clear();
        ClearAll();
        const auto names =
            columnValues(guard, u"select taskname from mt.hvm_kv_task_packages where tptype = 'PDEF'");
        ComboTPName->addItems(names);
        if (!names.value(0).isEmpty()) {
            ComboTPName->setCurrentIndex(0);
            LoadPackage(names.first());
        }
    });
    SetButtons(Editing::idle);
    DisplayEdit();
    currentName_ = ComboTPName->currentText();
    saveCheckSum();
}

void FormPredefinedTasks::LoadPackage(const QString& name) {
    unread_ = false;
    const bool read = routine(u"LoadPackage", [&](Routine& guard) {
        const BusyPointer busy(session_.ui);
        const Loading loading(*this);
        ClearAll();
        showPackage(guard, name);
    });
    if (!read)
        unread_ = true;
    // The sum is taken under the name that the screen now shows: a package is not changed by being chosen.
    currentName_ = ComboTPName->currentText();
    saveCheckSum();
    SetButtons(Editing::idle);
}

void FormPredefinedTasks::showPackage(Routine& guard, const QString& name) {
    // The name goes in as it stands.
    const auto row =
        guard.select(u"select tptag,tptype,notes,task_sql,tp_definition,segregate,model,description from "
                     "mt.hvm_kv_task_packages where taskname = " +
                         sqlText(name),
                     Rows::first);
    if (!row->next()) {
        // A name that is listed and not found would otherwise be listed again without end.
        if (!loadingTasks_)
            LoadTasks();
        return;
    }
    const auto tptag = row->value(0).value_or(QString());
    TextNotes->setText(row->value(2).value_or(QString()));
    TextSQL->setText(row->value(3).value_or(QString()));
    const auto letter = row->value(4).value_or(QString());
    const auto segregate = row->value(5);
    const auto model = row->value(6);
    const auto description = row->value(7);

    const auto* kind = std::ranges::find(definitionKinds(), letter, &DefinitionKind::letter);
    if (kind != definitionKinds().end()) {
        if (kind->definition == Definition::assetList)
            ListAssets->addItems(columnValues(
                guard,
                u"select i4201 from " + sqlName(session_.SessionOwner) +
                    u".inventory where mtag in (select mtag from mt.hvm_kv_task_assets where tptag = " +
                    sqlText(tptag) + u")"));
        if (kind->choices)
            setSelectList((kind->definition == Definition::segregate ? segregate
                           : kind->definition == Definition::model   ? model
                                                                     : description)
                              .value_or(QString()));
        options_[static_cast<std::size_t>(kind->definition)]->setChecked(true);
        Option_Click(kind->definition);
    }
    DisplayEdit();
}

void FormPredefinedTasks::ComboTPName_Click() {
    if (isLoading())
        return;
    if (mayDiscard({TextId::confirmDiscardChanges, box::question, TextId::predefinedTaskPackages})) {
        LoadPackage(ComboTPName->currentText());
        return;
    }
    const Loading loading(*this);
    ComboTPName->setCurrentIndex(ComboTPName->findText(currentName_));
}

void FormPredefinedTasks::CommandAddTP_Click() {
    const auto before = entered();
    ComboTPName->setEnabled(false);
    ClearAll();
    for (auto* one : {CommandAddTP, CommandRemoveTP, CommandAdd, CommandRemove, CommandSave, CommandCancel})
        one->setEnabled(false);
    std::optional<QString> name;
    // The name that this command has from the screen of the strategies.
    Routine guard(session_, u"FormStrategies,CommandAdd"_s);
    const bool answered = guard.run([&] { name = askNewName(session_, guard, *widget(), newPackage); });
    if (name) {
        showNew(*name);
        return;
    }
    ComboTPName->setEnabled(true);
    if (answered) {
        LoadPackage(ComboTPName->currentText());
        SetButtons(Editing::idle);
    } else {
        putBack(before);
    }
    CommandAddTP->setFocus();
}

FormPredefinedTasks::Entered FormPredefinedTasks::entered() const {
    QStringList choices;
    for (int row = 0; row < ComboSelectList->count(); ++row)
        choices << ComboSelectList->itemText(row);
    return {.notes = TextNotes->text(),
            .asset = TextListEnter->text(),
            .assets = rowsOf(*ListAssets),
            .sql = TextSQL->text(),
            .value = ComboSelectList->currentText(),
            .choices = choices,
            .mayBeSaved = CommandSave->isEnabled(),
            .mayBeCancelled = CommandCancel->isEnabled()};
}

void FormPredefinedTasks::putBack(const Entered& before) {
    const Loading loading(*this);
    TextNotes->setText(before.notes);
    TextListEnter->setText(before.asset);
    ListAssets->addItems(before.assets);
    TextSQL->setText(before.sql);
    ComboSelectList->addItems(before.choices);
    setSelectList(before.value);
    SetButtons(Editing::idle);
    CommandSave->setEnabled(before.mayBeSaved);
    CommandCancel->setEnabled(before.mayBeCancelled);
}

void FormPredefinedTasks::showNew(const QString& name) {
    {
        const Loading loading(*this);
        ComboTPName->addItem(name);
        ComboTPName->setCurrentIndex(ComboTPName->findText(name));
    }
    unread_ = false;
    SetButtons(Editing::newPackage);
    DisplayEdit();
    currentName_ = name;
    TextNotes->setFocus();
}

std::optional<TextId> FormPredefinedTasks::faultOfInstrument(const QString& asset) {
    const auto listed = rowsOf(*ListAssets);
    const bool twice = std::ranges::any_of(
        listed, [wanted = upperCased(asset)](const QString& row) { return upperCased(row) == wanted; });
    if (twice)
        return TextId::instrumentAlreadyListed;
    if (ModuleGlobals::CheckAsset(session_, asset).isEmpty())
        return TextId::instrumentNumberInvalid;
    return ModuleGlobals::HasConfigData(session_, asset) ? std::nullopt
                                                         : std::optional(TextId::configurationDataIncomplete);
}

void FormPredefinedTasks::CommandAdd_Click() {
    routine(u"CommandAdd", [this](Routine&) {
        const auto asset = TextListEnter->text();
        if (asset.isEmpty())
            return;
        if (const auto fault = faultOfInstrument(asset)) {
            session_.ui.messageBox(text(*fault), text(TextId::predefinedTaskPackages), box::warning);
        } else {
            ListAssets->addItem(asset);
            enableSaving();
        }
        TextListEnter->clear();
        TextListEnter->setFocus();
    });
}

void FormPredefinedTasks::CommandRemove_Click() {
    const int row = selectedRow(*ListAssets);
    if (row < 0)
        return;
    takeRow(*ListAssets, row);
    enableSaving();
}

bool FormPredefinedTasks::refuse(TextId message, QWidget* entry) {
    session_.ui.messageBox(text(message), text(TextId::predefinedTaskPackages), box::warning);
    entry->setFocus();
    return false;
}

bool FormPredefinedTasks::VerifyEntries() {
    bool good = false;
    routine(u"VerifyEntries", [&](Routine&) {
        const auto shown = package();
        if (shown.definition == Definition::assetList)
            good = !shown.assets.isEmpty() || refuse(TextId::instrumentNumberInvalid, TextListEnter);
        else if (shown.definition == Definition::sql)
            good = !shown.value.isEmpty() || refuse(TextId::sqlStatementRequired, TextSQL);
        else
            good = !shown.value.isEmpty() || refuse(TextId::fieldRequired, ComboSelectList);
    });
    return good;
}

void FormPredefinedTasks::removeRows(Routine& guard) {
    for (const auto& statement : packageDeletes(ComboTPName->currentText()))
        guard.execute(statement);
}

void FormPredefinedTasks::CommandSave_Click() {
    if (!VerifyEntries())
        return;
    int row = -1;
    Routine guard(session_, u"FormPredefinedTasks,CommandSave"_s);
    const auto save = [&] {
        ModuleGlobals::ClearSystemTables(session_);
        const BusyPointer busy(session_.ui);
        const auto saved = package();
        Transaction saving(session_);
        removeRows(guard);
        const auto tptag = ModuleGlobals::RandomString(session_, tagLength);
        guard.execute(packageInsert(session_, saved, tptag));
        for (const auto& asset : saved.assets) {
            ++row;
            guard.execute(assetInsert(session_, tptag, asset));
        }
        saving.commit();
        saveCheckSum();
        SetButtons(Editing::idle);
    };
    runSave(guard, save, [&](const Error& error) { goToRefused(error, row); });
}

void FormPredefinedTasks::goToRefused(const Error& error, int row) {
    if (const auto* asset = ListAssets->item(row)) {
        const bool missing = saysMissing(error, "mtag"_L1);
        if (missing)
            session_.ui.messageBox(text(TextId::instrumentNoLongerKnown).arg(asset->text()),
                                   text(TextId::predefinedTaskPackages), box::warning);
        if (missing || !sqlText(asset->text()).isIntact()) {
            ListAssets->setCurrentRow(row);
            ListAssets->setFocus();
        }
        return;
    }
    if (auto* field = refusedField(error, {{"notes"_L1, TextNotes},
                                           {"task_sql"_L1, TextSQL},
                                           {"segregate"_L1, ComboSelectList},
                                           {"model"_L1, ComboSelectList},
                                           {"description"_L1, ComboSelectList}}))
        field->setFocus();
}

void FormPredefinedTasks::CommandRemoveTP_Click() {
    if (ComboTPName->currentText().isEmpty())
        return;
    // Unsaved changes replace the question about deletion.
    if (!confirms(
            isChanged()
                ? Question{TextId::confirmDiscardSinceSave, box::warningYesNo, TextId::applicationName}
                : Question{TextId::confirmPackageDeletion, box::question, TextId::predefinedTaskPackages}))
        return;
    routine(u"CommandRemoveTP", [this](Routine& guard) {
        {
            const BusyPointer busy(session_.ui);
            Transaction removing(session_);
            removeRows(guard);
            removing.commit();
        }
        LoadTasks();
    });
}

void FormPredefinedTasks::CommandCancel_Click() {
    if (isChanged() &&
        confirms({TextId::confirmDiscardChanges, box::question, TextId::predefinedTaskPackages}))
        LoadPackage(ComboTPName->currentText());
}

} // namespace kelvane
