#pragma once

#include "ui/editor_window.h"

class QCheckBox;
class QListWidget;
class QPushButton;

namespace kelvane {

struct SaveFailure;

/// The configuration of calibration records: which fields the operator is asked for, and in which order; and
/// whether overdue standards and those of too low a trace level may be used.
class FormWorkConfig final : public EditorWindow {
    Q_OBJECT
  public:
    explicit FormWorkConfig(Session& session);

  private:
    void layOut();
    QWidget* fieldsFrame();
    QWidget* standardsFrame();
    void connectCommands();
    /// Fills both lists and both boxes. When the database fails, the screen keeps what it shows.
    void LoadLists();
    /// Makes both lists as wide as the longest row, which may come to stand in either.
    void widenLists();
    /// The counterpart of `LoadLists`: replaces what is stored.
    void CommandSave_Click();
    /// Goes to the field that kept a save from being stored, where the failure names it.
    void refuse(const SaveFailure& failure);
    void CommandCancel_Click();
    double Form_CheckSum() override;

    QListWidget* ListAvail;
    QListWidget* ListRequest;
    QPushButton* CommandMoveUp;
    QPushButton* CommandMoveDown;
    QCheckBox* CheckOOC;
    QCheckBox* CheckTrace;
    QPushButton* CommandSave;
    QPushButton* CommandCancel;
};

} // namespace kelvane
