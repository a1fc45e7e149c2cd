#include "records/login_dialog.h"

#include "platform/error_report.h"
#include "platform/reason_log.h"
#include "platform/values/numbers.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"

#include <QGridLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int charactersInField = 24;
const auto userSetting = u"Username"_s;

/// The last one here, or at the workstation.
QString lastUser(const Session& session) {
    const auto here = ModuleGlobals::GetRegSetting(session, u"Records"_s, userSetting);
    return here.isEmpty() ? ModuleGlobals::GetRegSetting(session, u"Defaults"_s, userSetting) : here;
}

/// How the second button of a purpose is told.
struct Leaving {
    TextId caption;
    TextId toolTip;
};

Leaving leavingOf(LoginDialog::Purpose purpose) {
    switch (purpose) {
    case LoginDialog::Purpose::logIn:
        return {TextId::loginExit, TextId::loginExitTip};
    case LoginDialog::Purpose::connectAgain:
        return {TextId::cancel, TextId::stayUnconnectedTip};
    case LoginDialog::Purpose::editing:
        break;
    }
    return {TextId::cancel, TextId::cancelEntryTip};
}

} // namespace

LoginDialog::LoginDialog(Session& session, LogIn logIn, Purpose purpose, QWidget* parent)
    : QDialog(parent),
      session_(session),
      logIn_(std::move(logIn)),
      purpose_(purpose),
      TextUsername(
          nameControl(new QLineEdit, u"TextUsername"_s, text(TextId::userName), TextId::userNameTip)),
      TextPassword(
          nameControl(new QLineEdit, u"TextPassword"_s, text(TextId::password), TextId::passwordTip)),
      LabelNote(label(u"LabelNote"_s, TextId::loginPrompt)),
      CommandConnect(button(u"CommandConnect"_s, TextId::connectCommand, TextId::connectTip)),
      CommandCancel(button(u"CommandCancel"_s, leavingOf(purpose).caption, leavingOf(purpose).toolTip)) {
    setObjectName(u"LoginDialog"_s);
    setWindowTitle(text(TextId::loginTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    TextPassword->setEchoMode(QLineEdit::Password);
    // A plain star for each character, whatever the style would draw.
    TextPassword->setStyleSheet(u"lineedit-password-character: 42"_s);
    if (purpose == Purpose::logIn) {
        runGuarded(session.ui, [&] { TextUsername->setText(lastUser(session)); });
        TextUsername->selectAll();
    } else if (purpose == Purpose::connectAgain) {
        TextUsername->setText(session.SessionUser);
        TextUsername->setReadOnly(true);
        TextUsername->setFocusPolicy(Qt::ClickFocus);
    }
    layOut();
    CommandConnect->setDefault(true);
    CommandCancel->setAutoDefault(false);
    (TextUsername->text().isEmpty() ? TextUsername : TextPassword)->setFocus();
    connectGuarded(CommandConnect, &QPushButton::clicked, this, session_.ui,
                   [this] { CommandConnect_Click(); });
    connectGuarded(CommandCancel, &QPushButton::clicked, this, session_.ui, [this] { reject(); });
}

void LoginDialog::layOut() {
    for (auto* field : {TextUsername, TextPassword})
        field->setMinimumWidth(field->fontMetrics().averageCharWidth() * charactersInField);
    auto* grid = new QGridLayout(this);
    grid->addWidget(label(u"Label1"_s, TextId::loginPrompt), 0, 0);
    grid->addWidget(labelFor(TextUsername, u"Label2"_s, TextId::userName), 0, 1);
    grid->addWidget(TextUsername, 0, 2);
    grid->addWidget(labelFor(TextPassword, u"Label3"_s, TextId::password), 1, 1);
    grid->addWidget(TextPassword, 1, 2);
    grid->addWidget(CommandConnect, 0, 3);
    grid->addWidget(CommandCancel, 1, 3);
    grid->addWidget(LabelNote, 2, 0, 1, 4);
    grid->setColumnStretch(2, 1);
    LabelNote->setWordWrap(true);
    LabelNote->hide();
    kelvane::setTabOrder({TextUsername, TextPassword, CommandConnect, CommandCancel});
}

void LoginDialog::setNote(const QString& note) {
    LabelNote->setText(note);
    LabelNote->setAccessibleName(note);
    LabelNote->show();
}

void LoginDialog::setButtonsEnabled(bool enabled) {
    CommandConnect->setEnabled(enabled);
    CommandCancel->setEnabled(enabled);
}

void LoginDialog::CommandConnect_Click() {
    if (TextPassword->text().isEmpty() || TextUsername->text().isEmpty()) {
        session_.ui.messageBox(text(TextId::userNameAndPasswordRequired), text(TextId::applicationName),
                               box::warning);
        (TextUsername->text().isEmpty() ? TextUsername : TextPassword)->setFocus();
        return;
    }
    const auto failure = connectUser();
    if (failure.isEmpty()) {
        if (purpose_ != Purpose::editing)
            runGuarded(session_.ui, [this] {
                ModuleGlobals::SaveRegSetting(session_, u"Records"_s, userSetting, TextUsername->text());
            });
        accept();
        return;
    }
    session_.ui.messageBox(failure, text(TextId::applicationName), box::stop);
    TextPassword->clear();
    setButtonsEnabled(true);
    TextPassword->setFocus();
}

QString LoginDialog::connectUser() {
    const BusyPointer busy(session_.ui);
    setButtonsEnabled(false);
    session_.ui.processEvents();
    try {
        logIn_(TextUsername->text(), TextPassword->text());
        return {};
    } catch (const Error& error) {
        logReason(session_, text(TextId::loginFailed).arg(plainText(error.number), error.description));
        if (session_.SessionConnected)
            refusals_.forget();
        else
            refusals_.addAndWait(session_);
        // The next attempt begins with a closed connection, however far this one came.
        closeConnection(session_);
        session_.SessionConnected = false;
        return text(TextId::databaseConnectionFailed);
    }
}

void LoginDialog::reject() {
    if (CommandCancel->isEnabled())
        QDialog::reject();
}

} // namespace kelvane
