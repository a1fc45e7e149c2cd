#pragma once

#include "data/session.h"
#include "ui/login_refusals.h"

#include <QDialog>

#include <functional>

class QLineEdit;
class QPushButton;

namespace kelvane {

/// Opens the session's connection for a user and fills the session values; throws the `Error` that stopped
/// it.
using LogIn = std::function<void(const QString& user, const QString& password)>;

/// Asks for user and password until a login succeeds, which accepts the dialog. Its second button, Escape and
/// its frame reject it.
class LoginDialog final : public QDialog {
    Q_OBJECT
  public:
    enum class Purpose {
        logIn,
        /// The user of a session that goes on stays.
        connectAgain,
    };

    LoginDialog(Session& session, LogIn logIn, Purpose purpose, QWidget* parent);

    /// Not while a login runs.
    void reject() override;

  private:
    void layOut();
    void CommandConnect_Click();
    /// Gives the message for the user; empty after a good login.
    QString connectUser();
    void setButtonsEnabled(bool enabled);

    Session& session_;
    LogIn logIn_;
    LoginRefusals refusals_;
    QLineEdit* TextUsername;
    QLineEdit* TextPassword;
    QPushButton* CommandConnect;
    QPushButton* CommandCancel;
};

} // namespace kelvane
