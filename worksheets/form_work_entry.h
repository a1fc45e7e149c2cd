#pragma once

#include "ui/child_window.h"
#include "worksheets/worksheet_entry.h"

#include <functional>

class QLineEdit;
class QListWidget;
class QPushButton;
class QTreeWidget;

namespace kelvane {

/// The screen on which results come back from paper worksheets. Its rules stand in
/// `worksheets/worksheet_entry.h`.
class FormWorkEntry final : public ChildWindow, private WorksheetEntryScreen {
    Q_OBJECT
  public:
    explicit FormWorkEntry(Session& session);

    /// Asks for the first instrument, once the screen is shown.
    void begin();

  Q_SIGNALS:
    /// An entry of the journal has stayed without a whole record.
    void resultsLeft();

  private:
    void layOut();
    void connectCommands();
    /// Runs a command that may ask questions: the buttons are disabled and the screen stays open meanwhile.
    /// Does nothing while another one runs or a question of another screen is open.
    void run(const std::function<void()>& command);
    void showButtons();
    void removeStandard(int row);
    bool mayClose() override;

    QString asset() const override;
    void showAsset(const QString& asset) override;
    void clearFields() override;
    void addField(const QString& title, const QString& value) override;
    QString fieldTitle(int row) const override;
    void showValue(int row, const QString& value) override;
    QStringList standards() const override;
    void addStandard(const QString& asset) override;
    void endRecord() override;
    void offerUnfinishedResult() override { resultsLeft_ = true; }

    WorksheetEntry entry_;
    QLineEdit* TextCalAsset;
    QTreeWidget* ListViewData;
    QListWidget* ListStandards;
    QTreeWidget* ListViewResults;
    QPushButton* CommandAddSTD;
    QPushButton* CommandSave;
    QPushButton* CommandNewAsset;
    bool running_ = false;
    bool recordOpen_ = true;
    bool mayBeginAnother_ = false;
    bool resultsLeft_ = false;
};

} // namespace kelvane
