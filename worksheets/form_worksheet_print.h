#pragma once

#include "ui/child_window.h"
#include "worksheets/worksheet_list.h"

#include <functional>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace kelvane {

/// The screen that collects instruments and prints their worksheets. Its rules stand in
/// `worksheets/worksheet_list.h`. It can't be closed while the report is open, which is brought forward
/// instead.
class FormWorksheetPrint final : public ChildWindow, private WorksheetListScreen {
    Q_OBJECT
  public:
    /// `reports` has to outlive every print.
    FormWorksheetPrint(Session& session, ReportControl& reports);

    /// True while a report is open, whose rows stand in the database.
    bool isPrinting() const { return printing_; }
    /// Closes the report; the print then ends.
    void closeReport();

  Q_SIGNALS:
    /// A print has ended; nothing of it is left in the database, unless that failed.
    void printed();

  private:
    void layOut();
    void connectCommands();
    /// Runs a command that others may not enter meanwhile; the screen may be gone when it has ended.
    void run(bool& running, const std::function<void()>& command);
    void checkStandard();
    void print();
    void enableButtons();
    bool mayClose() override;

    QStringList rows() const override;
    void addRow(const QString& asset) override;
    void removeRow(int row) override;
    void clearEntry() override;
    void focusEntry() override;

    ReportControl& reports_;
    QLineEdit* TextAdd;
    QPushButton* CommandAdd;
    QListWidget* ListCal;
    QPushButton* CommandRemove;
    QPushButton* CommandChkStandard;
    QPushButton* CommandPrint;
    bool checking_ = false;
    bool printing_ = false;
};

} // namespace kelvane
