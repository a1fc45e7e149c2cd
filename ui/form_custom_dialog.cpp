#include "ui/form_custom_dialog.h"

#include "platform/values/moments.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane {

std::optional<TextId> faultOfEntry(const QString& entry, int dataFormat, const QString& sessionDateFormat) {
    switch (static_cast<FieldKind>(dataFormat)) {
    case FieldKind::date: {
        const auto moment = momentOf(entry, sessionDateFormat);
        return moment && moment->date.isValid() ? std::nullopt : std::optional(TextId::dateInvalid);
    }
    case FieldKind::number:
        return numberOf(entry) ? std::nullopt : std::optional(TextId::numberInvalid);
    case FieldKind::time:
        return momentOf(entry, sessionDateFormat) ? std::nullopt : std::optional(TextId::timeInvalid);
    case FieldKind::free:
        break;
    }
    return {};
}

int rowOfDefault(const QStringList& rows, const QString& defaultText) {
    const auto wanted = toUpperCase(defaultText);
    for (int row = 0; row < rows.size(); ++row) {
        if (toUpperCase(rows[row].left(defaultText.size())) == wanted)
            return row;
    }
    return -1;
}

FormCustomDialog::FormCustomDialog(Session& session, const DialogQuestion& question, Answered answered)
    : ChildWindow(session, u"FormCustomDialog"_s, {.left = 1995, .top = 2505, .width = 4020, .height = 2355}),
      LabelCustomDialog(nameControl(new QLabel, u"LabelCustomDialog"_s, question.prompt)),
      TextCustomDialog(nameControl(new QLineEdit, u"TextCustomDialog"_s, question.prompt, TextId::entryTip)),
      ComboCustomDialog(dropDown(u"ComboCustomDialog"_s, question.prompt, TextId::entryTip)),
      CommandCustomDialogOK(button(u"CommandCustomDialogOK"_s, TextId::ok, TextId::acceptEntryTip)),
      CommandCustomDialogCancel(
          button(u"CommandCustomDialogCancel"_s, TextId::cancel, TextId::cancelEntryTip)),
      LabelAlways(nameControl(new QLabel, u"LabelAlways"_s, {})),
      LabelDataFormat(nameControl(new QLabel, u"LabelDataFormat"_s, {})),
      answered_(std::move(answered)) {
    setWindowTitle(question.caption);
    LabelCustomDialog->setTextFormat(Qt::PlainText);
    LabelCustomDialog->setText(question.prompt);
    LabelCustomDialog->setWordWrap(true);
    LabelAlways->setText(question.required ? u"1"_s : u"0"_s);
    LabelDataFormat->setText(plainText(question.fieldType));
    TextCustomDialog->setMaxLength(question.maxLength > 0 ? question.maxLength
                                                          : std::numeric_limits<int>::max());
    layOut();
    TextCustomDialog->setHidden(question.fromList);
    ComboCustomDialog->setHidden(!question.fromList);
    if (question.fromList)
        takeList(question);
    else
        takeText(question);

    setDefaultButton(CommandCustomDialogOK);
    setCancelButton(CommandCustomDialogCancel);
    setFirstFocus(entryControl());
    connectGuarded(CommandCustomDialogOK, &QPushButton::clicked, this, session_.ui,
                   [this] { CommandCustomDialogOK_Click(); });
    connectGuarded(CommandCustomDialogCancel, &QPushButton::clicked, this, session_.ui,
                   [this] { CommandCustomDialogCancel_Click(); });
}

void FormCustomDialog::layOut() {
    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(12, 8, 12, 10);
    column->addWidget(LabelCustomDialog, 1);
    column->addWidget(TextCustomDialog);
    column->addWidget(ComboCustomDialog);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(CommandCustomDialogOK);
    buttons->addWidget(CommandCustomDialogCancel);
    column->addLayout(buttons);
    for (auto* carrier : {LabelAlways, LabelDataFormat}) {
        carrier->setParent(body);
        carrier->hide();
    }
    setBody(body);
}

void FormCustomDialog::takeText(const DialogQuestion& question) {
    TextCustomDialog->setText(question.defaultText);
    TextCustomDialog->selectAll();
}

void FormCustomDialog::takeList(const DialogQuestion& question) {
    ComboCustomDialog->addItems(question.choices);
    keepWidth(ComboCustomDialog);
    ComboCustomDialog->setCurrentIndex(rowOfDefault(question.choices, question.defaultText));
    // With nothing to choose from, the answer is typed.
    ComboCustomDialog->setEditable(question.choices.isEmpty());
    ComboCustomDialog->setInsertPolicy(QComboBox::NoInsert);
}

QWidget* FormCustomDialog::entryControl() const {
    if (TextCustomDialog->isHidden())
        return ComboCustomDialog;
    return TextCustomDialog;
}

void FormCustomDialog::stayOpen(TextId message) {
    session_.ui.messageBox(text(message), text(TextId::applicationName), box::warning);
    entryControl()->setFocus();
}

void FormCustomDialog::answer(const QString& result) {
    if (const auto answered = std::exchange(answered_, {}))
        answered(result);
}

void FormCustomDialog::CommandCustomDialogOK_Click() {
    const bool required = numericValue(LabelAlways->text()) != 0;
    const auto typed = TextCustomDialog->text();
    const auto chosen = ComboCustomDialog->currentText();
    if (required && typed.isEmpty() && chosen.isEmpty()) {
        stayOpen(TextId::fieldRequired);
        return;
    }
    const auto entry = trimBlanks(typed.isEmpty() ? chosen : typed);
    const auto format = static_cast<int>(numericValue(LabelDataFormat->text()));
    if (const auto fault = faultOfEntry(entry, format, session_.SessionDateFormat)) {
        stayOpen(*fault);
        return;
    }
    answer(entry);
    unload();
}

bool FormCustomDialog::askToCancel() {
    if (session_.ui.messageBox(text(TextId::confirmCancel), text(TextId::applicationName),
                               box::warningYesNo) != BoxAnswer::yes) {
        entryControl()->setFocus();
        return false;
    }
    answer(cancelled);
    return true;
}

void FormCustomDialog::CommandCustomDialogCancel_Click() {
    if (askToCancel())
        unload();
}

} // namespace kelvane
