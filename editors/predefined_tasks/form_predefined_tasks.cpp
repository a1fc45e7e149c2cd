#include "editors/predefined_tasks/form_predefined_tasks.h"

#include "procedures/task_packages.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/list_rows.h"
#include "ui/panels.h"
#include "ui/text_box.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// How a way to name instruments looks on the screen.
struct DefinitionOption {
    QStringView name;
    TextId caption;
    TextId toolTip;
    /// What `LabelDefinition` says.
    TextId entry;
};

/// In the order of `Definition`.
constexpr std::array<DefinitionOption, definitionCount> definitionOptions{{
    {u"OptionAssetList", TextId::packageAssetList, TextId::packageAssetListTip,
     TextId::packageInstrumentEntry},
    {u"OptionSQL", TextId::packageSql, TextId::packageSqlTip, TextId::packageSqlEntry},
    {u"OptionSegregate", TextId::packageSegregate, TextId::packageSegregateTip,
     TextId::packageSegregateEntry},
    {u"OptionDescription", TextId::packageDescription, TextId::packageDescriptionTip,
     TextId::packageDescriptionEntry},
    {u"OptionModel", TextId::packageModel, TextId::packageModelTip, TextId::packageModelEntry},
}};

/// The controls of a panel, one below the other.
QVBoxLayout* columnIn(QGroupBox* made) {
    auto* column = new QVBoxLayout(made);
    column->setContentsMargins(10, 6, 10, 8);
    column->setSpacing(4);
    return column;
}

} // namespace

FormPredefinedTasks::FormPredefinedTasks(Session& session)
    : EditorWindow(session, u"FormPredefinedTasks"_s, {.width = 4935, .height = 7245}),
      ComboTPName(dropDown(u"ComboTPName"_s, text(TextId::packageName), TextId::packageNameTip)),
      TextNotes(
          nameControl(new TextBox, u"TextNotes"_s, text(TextId::packageNotes), TextId::packageNotesTip)),
      CommandAddTP(button(u"CommandAddTP"_s, TextId::addPackage, TextId::addPackageTip)),
      CommandRemoveTP(button(u"CommandRemoveTP"_s, TextId::removePackage, TextId::removePackageTip)),
      LabelDefinition(label(u"LabelDefinition"_s, TextId::packageInstrumentEntry)),
      TextListEnter(nameControl(new QLineEdit, u"TextListEnter"_s, text(TextId::packageInstrumentEntry),
                                TextId::packageInstrumentEntryTip)),
      CommandAdd(button(u"CommandAdd"_s, TextId::addCommand, TextId::addPackageInstrumentTip)),
      ListAssets(nameControl(new QListWidget, u"ListAssets"_s, text(TextId::instrumentsToCalibrate),
                             TextId::packageInstrumentsTip)),
      Label3(labelFor(ListAssets, u"Label3"_s, TextId::instrumentsToCalibrate)),
      CommandRemove(button(u"CommandRemove"_s, TextId::removeInstrument, TextId::removePackageInstrumentTip)),
      TextSQL(
          nameControl(new TextBox, u"TextSQL"_s, text(TextId::packageSqlEntry), TextId::packageSqlEntryTip)),
      ComboSelectList(
          dropDown(u"ComboSelectList"_s, text(TextId::packageSegregateEntry), TextId::packageValueEntryTip)),
      CommandSave(button(u"CommandSave"_s, TextId::saveCommand, TextId::savePackageTip)),
      CommandCancel(button(u"CommandCancel"_s, TextId::cancel, TextId::discardPackageChangesTip)) {
    setWindowTitle(text(TextId::predefinedTaskPackages));
    ComboSelectList->setEditable(true);
    ComboSelectList->setInsertPolicy(QComboBox::NoInsert);
    // What is typed is taken as it stands, and not completed to a value that was not meant.
    ComboSelectList->setCompleter(nullptr);
    // Of a long value nothing is cut off in silence.
    for (auto* line : {TextListEnter, ComboSelectList->lineEdit()})
        line->setMaxLength(std::numeric_limits<int>::max());
    ListAssets->setUniformItemSizes(true);
    layOut();
    connectCommands();
    connectChanges();
    setDefaultButton(CommandSave);
    setCancelButton(CommandCancel);
    LoadTasks();
    setFirstFocus(ComboTPName->isEnabled() ? static_cast<QWidget*>(ComboTPName) : CommandAddTP);
}

void FormPredefinedTasks::layOut() {
    keepWidth(ComboTPName);
    keepWidth(ComboSelectList);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(CommandSave);
    buttons->addWidget(CommandCancel);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(10, 6, 10, 8);
    column->addWidget(identification());
    column->addWidget(definition(), 1);
    column->addLayout(buttons);
    setBody(body);
    kelvane::setTabOrder({ComboTPName, TextNotes, CommandAddTP, CommandRemoveTP, options_[0], options_[1],
                          options_[2], options_[3], options_[4], TextListEnter, CommandAdd, ListAssets,
                          CommandRemove, TextSQL, ComboSelectList, CommandSave, CommandCancel});
}

QGroupBox* FormPredefinedTasks::identification() {
    TextNotes->setLines(2);
    auto* notes = new QHBoxLayout;
    auto* notesLabel = labelFor(TextNotes, u"Label2"_s, TextId::packageNotes);
    // On the line of the first of them.
    notesLabel->setContentsMargins(0, 5, 0, 0);
    notes->addWidget(notesLabel, 0, Qt::AlignTop);
    notes->addWidget(TextNotes, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(CommandAddTP);
    buttons->addWidget(CommandRemoveTP);

    auto* made = panel(u"SSPanelIdentification"_s, TextId::packageIdentificationPanel);
    auto* column = columnIn(made);
    column->addWidget(labelFor(ComboTPName, u"Label1"_s, TextId::packageName));
    column->addWidget(ComboTPName);
    column->addLayout(notes);
    column->addLayout(buttons);
    return made;
}

QGroupBox* FormPredefinedTasks::definition() {
    auto* adding = new QHBoxLayout;
    adding->addWidget(TextListEnter, 1);
    adding->addWidget(CommandAdd);

    // What the other controls leave is theirs, and the panel wishes for no more.
    for (auto* rest : std::initializer_list<QWidget*>{ListAssets, TextSQL}) {
        rest->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
        rest->setMinimumHeight(60);
    }
    auto* made = panel(u"SSPanelDefinition"_s, TextId::packageDefinitionPanel);
    auto* column = columnIn(made);
    column->addLayout(options());
    column->addWidget(LabelDefinition);
    column->addLayout(adding);
    column->addWidget(Label3);
    column->addWidget(ListAssets, 1);
    column->addWidget(CommandRemove, 0, Qt::AlignRight);
    column->addWidget(TextSQL, 1);
    column->addWidget(ComboSelectList);
    column->addStretch();
    return made;
}

QLayout* FormPredefinedTasks::options() {
    constexpr int inARow = 3;
    auto* rows = new QGridLayout;
    for (int cell = 0; auto& option : options_) {
        const auto& polls = definitionOptions[static_cast<std::size_t>(cell)];
        option = nameControl(new QRadioButton(text(polls.caption)), polls.name.toString(),
                             text(polls.caption), polls.toolTip);
        rows->addWidget(option, cell / inARow, cell % inARow);
        ++cell;
    }
    options_.front()->setChecked(true);
    return rows;
}

void FormPredefinedTasks::connectCommands() {
    onClick(CommandAddTP, [this] { CommandAddTP_Click(); });
    onClick(CommandRemoveTP, [this] { CommandRemoveTP_Click(); });
    onClick(CommandAdd, [this] { CommandAdd_Click(); });
    onClick(CommandRemove, [this] { CommandRemove_Click(); });
    onClick(CommandSave, [this] { CommandSave_Click(); });
    onClick(CommandCancel, [this] { CommandCancel_Click(); });
    onCommand(ComboTPName, &QComboBox::activated, [this] { ComboTPName_Click(); });
    for (std::size_t place = 0; place < definitionCount; ++place)
        onCommand(options_[place], &QRadioButton::clicked,
                  [this, definition = static_cast<Definition>(place)] { Option_Click(definition); });
    onDelete(ListAssets, session_.ui, [this] { CommandRemove->click(); });
}

void FormPredefinedTasks::connectChanges() {
    const auto typed = [this] {
        if (!isLoading())
            enableSaving();
    };
    connectGuarded(TextListEnter, &QLineEdit::textChanged, this, session_.ui, typed);
    connectGuarded(TextNotes, &TextBox::textChanged, this, session_.ui, typed);
    connectGuarded(TextSQL, &TextBox::textChanged, this, session_.ui, typed);
    // The value enables nothing but saving.
    const auto valueChosen = [this] {
        if (!isLoading())
            CommandSave->setEnabled(true);
    };
    connectGuarded(ComboSelectList, &QComboBox::editTextChanged, this, session_.ui, valueChosen);
    connectGuarded(ComboSelectList, &QComboBox::activated, this, session_.ui, valueChosen);
}

void FormPredefinedTasks::enableSaving() {
    CommandSave->setEnabled(true);
    CommandCancel->setEnabled(true);
}

void FormPredefinedTasks::routine(QStringView name, const std::function<void()>& body) {
    Guard(session_, u"FormPredefinedTasks,"_s + name.toString()).run(body);
}

void FormPredefinedTasks::ClearAll() {
    routine(u"ClearAll", [this] {
        ListAssets->clear();
        ComboSelectList->clear();
        ComboSelectList->clearEditText();
        TextListEnter->clear();
        TextSQL->setText({});
        TextNotes->setText({});
    });
}

Definition FormPredefinedTasks::chosenDefinition() const {
    const auto* on = std::ranges::find_if(options_, &QRadioButton::isChecked);
    return static_cast<Definition>(on - options_.begin());
}

void FormPredefinedTasks::DisplayEdit() {
    routine(u"DisplayEdit", [this] {
        const auto definition = chosenDefinition();
        const bool isList = definition == Definition::assetList;
        TextSQL->setVisible(definition == Definition::sql);
        ComboSelectList->setVisible(hasValues(definition));
        for (auto* control :
             std::initializer_list<QWidget*>{TextListEnter, CommandAdd, CommandRemove, ListAssets, Label3})
            control->setVisible(isList);
        const auto entry = text(definitionOptions[static_cast<std::size_t>(definition)].entry);
        LabelDefinition->setText(entry);
        for (auto* control : std::initializer_list<QWidget*>{LabelDefinition, ComboSelectList})
            control->setAccessibleName(entry);
    });
}

void FormPredefinedTasks::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // In the entry of the list Return adds to it; elsewhere it saves.
    if (isReturn && TextListEnter->hasFocus())
        CommandAdd->click();
    else
        EditorWindow::keyPressEvent(event);
}

void FormPredefinedTasks::EnableControls() {
    routine(u"EnableControls", [this] { enableDefinition(true); });
}

void FormPredefinedTasks::DisableControls() {
    routine(u"DisableControls", [this] { enableDefinition(false); });
}

void FormPredefinedTasks::enableDefinition(bool enabled) {
    for (auto* option : options_)
        option->setEnabled(enabled);
    for (auto* widget :
         std::initializer_list<QWidget*>{TextNotes, TextListEnter, ListAssets, TextSQL, ComboSelectList,
                                         CommandAdd, CommandRemove, LabelDefinition, Label3})
        widget->setEnabled(enabled);
}

void FormPredefinedTasks::SetButtons(Editing state) {
    routine(u"SetButtons", [this, state] {
        const bool idle = state == Editing::idle;
        const bool named = !ComboTPName->currentText().isEmpty();
        const bool editable = !idle || (named && !unread_);
        if (editable)
            EnableControls();
        else
            DisableControls();
        ComboTPName->setEnabled(idle && named);
        CommandRemoveTP->setEnabled(idle && named);
        if (idle && editable)
            CommandRemove->setEnabled(ListAssets->count() > 0);
        CommandAddTP->setEnabled(idle);
        CommandSave->setEnabled(!idle);
        CommandCancel->setEnabled(!idle);
    });
}

void FormPredefinedTasks::Option_Click(Definition definition) {
    if (hasValues(definition)) {
        showChoices(definition);
        return;
    }
    DisplayEdit();
    if (!isLoading())
        (definition == Definition::sql ? static_cast<QWidget*>(TextSQL) : TextListEnter)->setFocus();
}

void FormPredefinedTasks::showChoices(Definition definition) {
    DisplayEdit();
    const BusyPointer busy(session_.ui);
    // A value that was loaded belongs to the kind that was loaded with it.
    const auto shown = isLoading() ? definition : lastKind_;
    lastValues_[static_cast<std::size_t>(shown)] = ComboSelectList->currentText();
    lastKind_ = definition;
    const auto& value = lastValues_[static_cast<std::size_t>(definition)];

    const Loading loading(*this);
    ComboSelectList->clear();
    setSelectList(value);
    if (const auto choices = packageValues(session_, definition)) {
        ComboSelectList->addItems(*choices);
        setSelectList(value);
    }
}

void FormPredefinedTasks::setSelectList(const QString& value) {
    ComboSelectList->setCurrentIndex(ComboSelectList->findText(value));
    ComboSelectList->setEditText(value);
}

} // namespace kelvane
