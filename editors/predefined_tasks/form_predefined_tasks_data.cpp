#include "editors/predefined_tasks/form_predefined_tasks.h"

#include "data/assets/in_use.h"
#include "editors/asking.h"
#include "editors/refusal.h"
#include "procedures/task_packages.h"
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

double FormPredefinedTasks::Form_CheckSum() {
    const BusyPointer busy(session_.ui);
    return checkSum(u"FormPredefinedTasks,Form_CheckSum"_s, currentName_ + TextNotes->text() +
                                                                kindOf(chosenDefinition()).letter.toString() +
                                                                value() + package().assets.join(QString()));
}

EditorWindow::Question FormPredefinedTasks::closeQuestion() const {
    return {TextId::confirmDiscardSinceSave, box::warningYesNo, TextId::predefinedTaskPackages};
}

QString FormPredefinedTasks::value() const {
    if (hasValues(chosenDefinition()))
        return ComboSelectList->currentText();
    return chosenDefinition() == Definition::sql ? TextSQL->text() : QString();
}

TaskPackage FormPredefinedTasks::package() const {
    return {.name = ComboTPName->currentText(),
            .definition = chosenDefinition(),
            .value = value(),
            .notes = TextNotes->text(),
            .assets = chosenDefinition() == Definition::assetList ? rowsOf(*ListAssets) : QStringList()};
}

void FormPredefinedTasks::LoadTasks() {
    {
        const BusyPointer busy(session_.ui);
        const Loading loading(*this);
        const QScopedValueRollback tasks(loadingTasks_, true);
        ComboTPName->clear();
        ClearAll();
        const auto names = packageNames(session_).value_or(QStringList());
        ComboTPName->addItems(names);
        if (!names.value(0).isEmpty()) {
            ComboTPName->setCurrentIndex(0);
            LoadPackage(names.first());
        }
    }
    SetButtons(Editing::idle);
    DisplayEdit();
    currentName_ = ComboTPName->currentText();
    saveCheckSum();
}

void FormPredefinedTasks::LoadPackage(const QString& name) {
    unread_ = false;
    {
        const BusyPointer busy(session_.ui);
        const Loading loading(*this);
        ClearAll();
        const auto stored = loadPackage(session_, name);
        showPackage(stored);
        if (!stored.isComplete)
            unread_ = true;
    }
    // The sum is taken under the name that the screen now shows: a package is not changed by being chosen.
    currentName_ = ComboTPName->currentText();
    saveCheckSum();
    SetButtons(Editing::idle);
}

void FormPredefinedTasks::showPackage(const StoredPackage& stored) {
    if (stored.isComplete && !stored.exists) {
        // A name that is listed and not found would otherwise be listed again without end.
        if (!loadingTasks_)
            LoadTasks();
        return;
    }
    TextNotes->setText(stored.notes);
    TextSQL->setText(stored.sql);
    if (!stored.isComplete)
        return;
    if (stored.definition) {
        ListAssets->addItems(stored.assets);
        if (hasValues(*stored.definition))
            setSelectList(stored.value);
        options_[static_cast<std::size_t>(*stored.definition)]->setChecked(true);
        Option_Click(*stored.definition);
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
    const auto before = currentEntries();
    ComboTPName->setEnabled(false);
    ClearAll();
    for (auto* button :
         {CommandAddTP, CommandRemoveTP, CommandAdd, CommandRemove, CommandSave, CommandCancel})
        button->setEnabled(false);
    const auto name = askOutOfReach(*widget(), session_, askPackageName);
    if (name && *name != cancelled) {
        showNew(*name);
        return;
    }
    ComboTPName->setEnabled(true);
    if (name) {
        LoadPackage(ComboTPName->currentText());
        SetButtons(Editing::idle);
    } else {
        putBack(before);
    }
    CommandAddTP->setFocus();
}

FormPredefinedTasks::Entered FormPredefinedTasks::currentEntries() const {
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

void FormPredefinedTasks::CommandAdd_Click() {
    routine(u"CommandAdd", [this] {
        const auto asset = TextListEnter->text();
        if (asset.isEmpty())
            return;
        if (const auto fault = faultOfInstrument(session_, rowsOf(*ListAssets), asset)) {
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
    routine(u"VerifyEntries", [&] {
        const auto fault = faultOfPackage(package());
        good =
            !fault || refuse(*fault, chosenDefinition() == Definition::assetList ? TextListEnter
                                     : chosenDefinition() == Definition::sql ? static_cast<QWidget*>(TextSQL)
                                                                             : ComboSelectList);
    });
    return good;
}

void FormPredefinedTasks::CommandSave_Click() {
    if (!VerifyEntries())
        return;
    markUnsaved();
    ModuleGlobals::ClearSystemTables(session_);
    const auto failure = save();
    if (failure)
        focusRefusedField(*failure);
}

std::optional<SaveFailure> FormPredefinedTasks::save() {
    const BusyPointer busy(session_.ui);
    auto failure = savePackage(session_, package());
    if (!failure) {
        saveCheckSum();
        SetButtons(Editing::idle);
    }
    return failure;
}

void FormPredefinedTasks::focusRefusedField(const SaveFailure& failure) {
    if (const auto* asset = ListAssets->item(failure.row)) {
        const bool missing = saysMissing(failure.error, "mtag"_L1);
        if (missing)
            session_.ui.messageBox(text(TextId::instrumentNoLongerKnown).arg(asset->text()),
                                   text(TextId::predefinedTaskPackages), box::warning);
        if (missing || !isConfined(asset->text())) {
            ListAssets->setCurrentRow(failure.row);
            ListAssets->setFocus();
        }
        return;
    }
    if (auto* field = refusedField(failure.error, {{"notes"_L1, TextNotes},
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
    if (removePackage(session_, ComboTPName->currentText()))
        LoadTasks();
}

void FormPredefinedTasks::CommandCancel_Click() {
    if (isChanged() &&
        confirms({TextId::confirmDiscardChanges, box::question, TextId::predefinedTaskPackages}))
        LoadPackage(ComboTPName->currentText());
}

} // namespace kelvane
