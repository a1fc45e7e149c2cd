#pragma once

#include "ui/child_window.h"
#include "workflow/download_list.h"

#include <functional>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace kelvane {

/// The screen of the download list: the instruments that go out with a calibrator. Its rules stand in
/// `workflow/download_list.h`.
class FormDockingDown final : public ChildWindow, private DownloadListScreen {
    Q_OBJECT
  public:
    FormDockingDown(Session& session, Calibrators& calibrators);

    /// The name of the chosen calibrator; empty until it has been chosen.
    QString calibrator() const override;
    void takeCalibrator(const QString& name);
    /// Runs a command that works on this screen: its buttons are disabled and it stays open meanwhile. Does
    /// nothing while another one runs.
    void run(const std::function<void()>& command);
    /// True while a command runs, with whatever question that has on the screen.
    bool isRunning() const { return running_; }

  private:
    void layOut();
    void connectCommands();
    void setButtonsEnabled(bool enabled);
    bool mayClose() override;

    QStringList rows() const override;
    void addRow(const QString& asset) override;
    void removeRow(int row) override;
    void clearEntry() override;
    void focusEntry() override;
    void closeScreen() override { unload(); }

    Calibrators& calibrators_;
    QString calibrator_;
    QLabel* SSPanelCalibrator;
    QLineEdit* TextAdd;
    QPushButton* CommandAdd;
    QListWidget* ListCal;
    QPushButton* CommandRemove;
    QPushButton* CommandDownload;
    bool running_ = false;
};

} // namespace kelvane
