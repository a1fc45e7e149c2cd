#pragma once

#include "app/menu.h"
#include "ui/child_window.h"
#include "ui/login_refusals.h"

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvane {

/// The login screen. Closing it, by its button, Escape or its frame, asks whether to leave the program. Where
/// it makes a lost connection again, the user stays, and closing it leaves everything as it is.
class FormConnect final : public ChildWindow {
    Q_OBJECT
  public:
    /// What the screen is there for.
    enum class Purpose { logIn, connectAgain };

    /// `exitQuestion` asks whether to leave the program, and leaves it on Yes.
    FormConnect(Session& session, Menu& menu, std::function<void()> exitQuestion,
                Purpose purpose = Purpose::logIn);

  Q_SIGNALS:
    /// After a good login, when the screen has closed.
    void loggedIn();
    /// When the screen has closed.
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void layOut();
    void CommandConnect_Click();
    void CommandCancel_Click();
    /// Gives the message for the operator; empty after a good login.
    QString connectUser();
    void setButtonsEnabled(bool enabled);
    bool mayClose() override;

    Menu& menu_;
    std::function<void()> exitQuestion_;
    Purpose purpose_;
    LoginRefusals refusals_;
    QLineEdit* TextUsername;
    QLineEdit* TextPassword;
    QPushButton* CommandConnect;
    QPushButton* CommandCancel;
};

} // namespace kelvane
