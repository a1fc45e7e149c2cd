#pragma once

#include "data/session.h"
#include "ui/login_refusals.h"

#include <QDialog>

#include <functional>

class QLabel;
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
        /// Another user, for a change that the session's own may not make; his name is not kept.
        editing,
    };

    LoginDialog(Session& session, LogIn logIn, Purpose purpose, QWidget* parent);

    /// A note below the fields.
    void setNote(const QString& note);

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
    Purpose purpose_;
    LoginRefusals refusals_;
    QLineEdit* TextUsername;
    QLineEdit* TextPassword;
    QLabel* LabelNote;
    QPushButton* CommandConnect;
    QPushButton* CommandCancel;
};

} // namespace kelvane
