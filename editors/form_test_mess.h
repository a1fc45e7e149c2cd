#pragma once

#include "editors/open_cal_param.h"
#include "ui/editor_window.h"

class QComboBox;

namespace kelvane {

class TextBox;
struct MessageList;
struct SaveFailure;

/// The editor of the test messages: named texts that the operator sees before or after a test. Instruments
/// refer to them by name.
class FormTestMess final : public EditorWindow {
    Q_OBJECT
  public:
    FormTestMess(Session& session, FindCalParam findCalParam);

  private:
    void layOut();
    void connectCommands();

    double Form_CheckSum() override;
    /// Shows the message of that name, the first one for an empty or a vanished name. False when the database
    /// failed; the screen then stays as it was.
    bool LoadPrompts(const QString& name);
    void fill(const MessageList& messages);
    void SetButtons();

    void ComboMessageName_Click();
    void TextMessage_GotFocus();
    void CommandCreate_Click();
    void CommandSave_Click();
    void CommandDelete_Click();
    void CommandCancel_Click();
    void showNew(const QString& name);
    bool mayDelete();
    /// Stores the text; gives the failure, nothing when it is stored.
    std::optional<SaveFailure> save();
    /// Goes to the field that kept a save from being stored, where the error names it.
    void refuse(const Error& error);
    /// Says that the message on the screen does not exist any more; its text stays.
    void keepVanished();

    FindCalParam findCalParam_;
    /// The message that the screen shows.
    QString currentName_;
    QComboBox* ComboMessageName;
    TextBox* TextMessage;
    QPushButton* CommandCreate;
    QPushButton* CommandSave;
    QPushButton* CommandDelete;
    QPushButton* CommandCancel;
};

} // namespace kelvane
