#include "app/form_connect.h"

#include "app/login.h"
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

/// At least so much of a name can be read, however long the captions beside it are.
constexpr int charactersInField = 12;

} // namespace

FormConnect::FormConnect(Session& session, Menu& menu, std::function<void()> exitQuestion, Purpose purpose)
    : ChildWindow(session, u"FormConnect"_s, {.width = 8235, .height = 1575}),
      menu_(menu),
      exitQuestion_(std::move(exitQuestion)),
      purpose_(purpose),
      TextUsername(
          nameControl(new QLineEdit, u"TextUsername"_s, text(TextId::userName), TextId::userNameTip)),
      TextPassword(
          nameControl(new QLineEdit, u"TextPassword"_s, text(TextId::password), TextId::passwordTip)),
      CommandConnect(button(u"CommandConnect"_s, TextId::connectCommand, TextId::connectTip)),
      CommandCancel(purpose == Purpose::logIn
                        ? button(u"CommandCancel"_s, TextId::loginExit, TextId::loginExitTip)
                        : button(u"CommandCancel"_s, TextId::cancel, TextId::stayUnconnectedTip)) {
    setWindowTitle(text(TextId::loginTitle));
    for (auto* field : {TextUsername, TextPassword})
        field->setMinimumWidth(field->fontMetrics().averageCharWidth() * charactersInField);
    TextPassword->setEchoMode(QLineEdit::Password);
    if (purpose == Purpose::logIn) {
        runGuarded(session.ui, [&] {
            TextUsername->setText(ModuleGlobals::GetRegSetting(session, u"Defaults"_s, u"Username"_s));
        });
        TextUsername->selectAll();
    } else {
        // Owner and level of the open screens are those of this user.
        TextUsername->setText(session.SessionUser);
        TextUsername->setReadOnly(true);
        TextUsername->setFocusPolicy(Qt::ClickFocus);
    }
    layOut();

    setDefaultButton(CommandConnect);
    setCancelButton(CommandCancel);
    setFirstFocus(purpose == Purpose::logIn ? TextUsername : TextPassword);
    connectGuarded(CommandConnect, &QPushButton::clicked, this, session_.ui,
                   [this] { CommandConnect_Click(); });
    connectGuarded(CommandCancel, &QPushButton::clicked, this, session_.ui,
                   [this] { CommandCancel_Click(); });
}

void FormConnect::layOut() {
    auto* body = new QWidget;
    auto* grid = new QGridLayout(body);
    grid->setContentsMargins(12, 6, 12, 6);
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(10);
    grid->addWidget(label(u"Label1"_s, TextId::loginPrompt), 0, 0);
    grid->addWidget(labelFor(TextUsername, u"Label2"_s, TextId::userName), 0, 1);
    grid->addWidget(TextUsername, 0, 2);
    grid->addWidget(labelFor(TextPassword, u"Label3"_s, TextId::password), 1, 1);
    grid->addWidget(TextPassword, 1, 2);
    grid->addWidget(CommandConnect, 0, 3);
    grid->addWidget(CommandCancel, 1, 3);
    grid->setColumnStretch(2, 1);
    setBody(body);
    kelvane::setTabOrder({TextUsername, TextPassword, CommandConnect, CommandCancel});
}

void FormConnect::setButtonsEnabled(bool enabled) {
    CommandConnect->setEnabled(enabled);
    CommandCancel->setEnabled(enabled);
}

void FormConnect::CommandConnect_Click() {
    if (TextPassword->text().isEmpty() || TextUsername->text().isEmpty()) {
        session_.ui.messageBox(text(TextId::userNameAndPasswordRequired), text(TextId::applicationName),
                               box::warning);
        (TextUsername->text().isEmpty() ? TextUsername : TextPassword)->setFocus();
        return;
    }
    const auto failure = connectUser();
    if (failure.isEmpty()) {
        unload();
        Q_EMIT loggedIn();
        return;
    }
    session_.ui.messageBox(failure, text(TextId::applicationName), box::stop);
    TextPassword->clear();
    setButtonsEnabled(true);
    TextPassword->setFocus();
}

void FormConnect::CommandCancel_Click() {
    if (purpose_ == Purpose::connectAgain)
        unload();
    else
        exitQuestion_();
}

QString FormConnect::connectUser() {
    const BusyPointer busy(session_.ui);
    setButtonsEnabled(false);
    session_.ui.processEvents();
    try {
        if (purpose_ == Purpose::logIn)
            logIn(session_, menu_, TextUsername->text(), TextPassword->text());
        else if (!logInAgain(session_, menu_, TextPassword->text()))
            return text(TextId::accountChanged).arg(session_.SessionUser);
        return {};
    } catch (const Error& error) {
        logReason(session_, text(TextId::loginFailed).arg(plainText(error.number), error.description));
        if (session_.SessionConnected)
            refusals_.forget();
        else
            refusals_.addAndWait(session_);
        return text(TextId::databaseConnectionFailed);
    }
}

bool FormConnect::mayClose() {
    // While the login runs its buttons are disabled, and so is closing the screen.
    if (!CommandCancel->isEnabled())
        return false;
    if (purpose_ == Purpose::connectAgain)
        return true;
    exitQuestion_();
    return false;
}

void FormConnect::closeEvent(QCloseEvent* event) {
    ChildWindow::closeEvent(event);
    if (!isOpen())
        Q_EMIT closed();
}

} // namespace kelvane
