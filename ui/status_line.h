#pragma once

#include "data/session.h"

#include <QStatusBar>

#include <functional>

class QPushButton;

namespace kelvane {

class ElidedLabel;

/// The line at the foot of the main window: what runs without a window of its own, who is logged in, and to
/// which data source. While the connection is lost it has a button that offers to make it again.
class StatusLine final : public QStatusBar {
    Q_OBJECT
  public:
    explicit StatusLine(const Session& session);

    /// From now on `refresh` shows the button while `offersConnecting` is true; `caption` is its text, with a
    /// mnemonic.
    void setConnecting(std::function<bool()> offersConnecting, const QString& caption);
    QPushButton& connectButton() const { return *CommandConnectAgain; }
    /// The flat button at the right end, which has the program's name and version; empty until they are set.
    QPushButton& aboutButton() const { return *ButtonAbout; }

    /// Shows who is logged in now, and where.
    void refresh();
    /// Shows at once what runs; empty: nothing does.
    void showActivity(const QString& text);

  Q_SIGNALS:
    /// What depends on the session may have to be shown anew.
    void refreshed();

  private:
    const Session& session_;
    std::function<bool()> offersConnecting_;
    QPushButton* CommandConnectAgain;
    ElidedLabel* LabelActivity;
    ElidedLabel* LabelUser;
    ElidedLabel* LabelDataSource;
    QPushButton* ButtonAbout;
};

} // namespace kelvane
