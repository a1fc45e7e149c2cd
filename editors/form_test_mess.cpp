#include "editors/form_test_mess.h"

#include "editors/asking.h"
#include "editors/refusal.h"
#include "procedures/test_messages.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/text_box.h"

#include <QGridLayout>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

FormTestMess::FormTestMess(Session& session, FindCalParam findCalParam)
    : EditorWindow(session, u"FormTestMess"_s, {.width = 4800, .height = 5580}),
      findCalParam_(std::move(findCalParam)),
      ComboMessageName(dropDown(u"ComboMessageName"_s, text(TextId::testMessages), TextId::testMessagesTip)),
      TextMessage(
          nameControl(new TextBox, u"TextMessage"_s, text(TextId::messageText), TextId::messageTextTip)),
      CommandCreate(button(u"CommandCreate"_s, TextId::addMessage, TextId::addMessageTip)),
      CommandSave(button(u"CommandSave"_s, TextId::saveCommand, TextId::saveMessageTip)),
      CommandDelete(button(u"CommandDelete"_s, TextId::removeMessage, TextId::removeMessageTip)),
      CommandCancel(button(u"CommandCancel"_s, TextId::cancel, TextId::discardMessageChangesTip)) {
    setWindowTitle(text(TextId::editTestMessages));
    layOut();
    connectCommands();
    setDefaultButton(CommandSave);
    setCancelButton(CommandCancel);
    // Whatever the database says, nothing is there to be saved or cancelled yet.
    SetButtons();
    LoadPrompts({});
    setFirstFocus(ComboMessageName->count() > 0 ? static_cast<QWidget*>(ComboMessageName) : CommandCreate);
}

void FormTestMess::layOut() {
    keepWidth(ComboMessageName);
    auto* buttons = new QGridLayout;
    buttons->addWidget(CommandCreate, 0, 0);
    buttons->addWidget(CommandDelete, 0, 1);
    buttons->addWidget(CommandSave, 1, 0);
    buttons->addWidget(CommandCancel, 1, 1);

    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(12, 10, 12, 12);
    column->addWidget(labelFor(ComboMessageName, u"Label1"_s, TextId::testMessages));
    column->addWidget(ComboMessageName);
    column->addWidget(TextMessage, 1);
    column->addLayout(buttons);
    setBody(body);
    kelvane::setTabOrder(
        {ComboMessageName, TextMessage, CommandCreate, CommandDelete, CommandSave, CommandCancel});
}

void FormTestMess::connectCommands() {
    onClick(CommandCreate, [this] { CommandCreate_Click(); });
    onClick(CommandSave, [this] { CommandSave_Click(); });
    onClick(CommandDelete, [this] { CommandDelete_Click(); });
    onClick(CommandCancel, [this] { CommandCancel_Click(); });
    onCommand(ComboMessageName, &QComboBox::activated, [this] { ComboMessageName_Click(); });
    connectGuarded(TextMessage, &TextBox::textChanged, this, session_.ui,
                   [this] { CommandCancel->setEnabled(true); });
    connectGuarded(TextMessage, &TextBox::entered, this, session_.ui, [this] {
        // Asked once the click or key that brought the focus has been dealt with; what is typed from now on
        // is no unsaved text that was left behind.
        if (!isLoading() && isChanged())
            QTimer::singleShot(0, this, [this] { run([this] { TextMessage_GotFocus(); }); });
    });
}

double FormTestMess::Form_CheckSum() {
    return checkSum(u"FormTestMess,Form_CheckSum"_s, currentName_ + TextMessage->text());
}

bool FormTestMess::LoadPrompts(const QString& name) {
    const auto messages = loadMessages(session_, name);
    if (messages)
        fill(*messages);
    return messages.has_value();
}

void FormTestMess::fill(const MessageList& messages) {
    const Loading loading(*this);
    ComboMessageName->clear();
    ComboMessageName->addItems(messages.names);
    ComboMessageName->setCurrentIndex(static_cast<int>(messages.names.indexOf(messages.shown.name)));
    TextMessage->setText(messages.shown.prompt);
    SetButtons();
    CommandCancel->setEnabled(false);
    currentName_ = ComboMessageName->currentText();
    saveCheckSum();
}

void FormTestMess::SetButtons() {
    const bool rows = ComboMessageName->count() > 0;
    CommandSave->setEnabled(rows);
    CommandDelete->setEnabled(rows);
    if (!rows)
        CommandCancel->setEnabled(false);
}

void FormTestMess::ComboMessageName_Click() {
    if (isLoading())
        return;
    if (!mayDiscard(closeQuestion()) || !LoadPrompts(ComboMessageName->currentText())) {
        const Loading loading(*this);
        ComboMessageName->setCurrentIndex(ComboMessageName->findText(currentName_));
    }
}

void FormTestMess::TextMessage_GotFocus() {
    if (isChanged() && confirms(closeQuestion()))
        LoadPrompts(ComboMessageName->currentText());
}

void FormTestMess::CommandCreate_Click() {
    if (!mayDiscard(closeQuestion()))
        return;
    const auto name = askOutOfReach(*widget(), session_, askMessageName);
    if (name && *name != cancelled && createMessage(session_, *name))
        showNew(*name);
}

void FormTestMess::showNew(const QString& name) {
    {
        const Loading loading(*this);
        ComboMessageName->addItem(name);
        ComboMessageName->setCurrentIndex(ComboMessageName->count() - 1);
        currentName_ = name;
        TextMessage->setText({});
        saveCheckSum();
        SetButtons();
        TextMessage->setFocus();
    }
    if (auto* calParam = findCalParam_())
        calParam->addMessage(name);
}

void FormTestMess::CommandSave_Click() {
    const auto failure = save();
    if (failure && failure->vanished)
        keepVanished();
    else if (failure)
        refuse(failure->error);
}

std::optional<SaveFailure> FormTestMess::save() {
    markUnsaved();
    const BusyPointer busy(session_.ui);
    auto failure = saveMessage(session_, {ComboMessageName->currentText(), TextMessage->text()});
    if (!failure) {
        saveCheckSum();
        CommandCancel->setEnabled(false);
    }
    return failure;
}

void FormTestMess::refuse(const Error& error) {
    auto* field = refusedField(error, {{"prompt"_L1, TextMessage}, {"pname"_L1, ComboMessageName}});
    if (!isConfined(ComboMessageName->currentText()))
        field = ComboMessageName;
    if (!field)
        return;
    // The program's own step into the text is no return to a text that was left behind.
    const Loading loading(*this);
    field->setFocus();
}

void FormTestMess::keepVanished() {
    CommandCancel->setEnabled(true);
    session_.ui.messageBox(text(TextId::messageNoLongerExists), text(TextId::editTestMessages), box::warning);
}

bool FormTestMess::mayDelete() {
    return isChanged() ? confirms(closeQuestion())
                       : confirms({TextId::confirmMessageDeletion, box::question, TextId::editTestMessages});
}

void FormTestMess::CommandDelete_Click() {
    if (mayDelete() && deleteMessage(session_, ComboMessageName->currentText()))
        LoadPrompts({});
}

void FormTestMess::CommandCancel_Click() {
    if (isChanged() && confirms({TextId::confirmDiscardChanges, box::question, TextId::editTestMessages}))
        LoadPrompts(ComboMessageName->currentText());
}

} // namespace kelvane
