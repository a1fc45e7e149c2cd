#pragma once

#include "procedures/task_package.h"
#include "resources/strings.h"
#include "ui/editor_window.h"

#include <optional>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;

namespace kelvane {

class TextBox;
struct SaveFailure;
struct StoredPackage;

/// The editor of the predefined task packages: named sets of instruments, given by a list, a statement or a
/// value of the inventory, and expanded only when they are used. The screen itself stands in
/// form_predefined_tasks.cpp, what it does with the database in form_predefined_tasks_data.cpp.
class FormPredefinedTasks final : public EditorWindow {
    Q_OBJECT
  public:
    explicit FormPredefinedTasks(Session& session);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// What the buttons are for.
    enum class Editing { idle = 0, newPackage = 1 };
    /// All that a user may have entered, on the screen or behind another option.
    struct Entered {
        QString notes;
        QString asset;
        QStringList assets;
        QString sql;
        QString value;
        QStringList choices;
        bool mayBeSaved;
        bool mayBeCancelled;
    };

    void layOut();
    QGroupBox* identification();
    QGroupBox* definition();
    QLayout* options();
    void connectCommands();
    void connectChanges();
    /// Runs the body of a routine of this screen under its name.
    void routine(QStringView name, const std::function<void()>& body);

    void ClearAll();
    void DisplayEdit();
    void EnableControls();
    void DisableControls();
    void enableDefinition(bool enabled);
    void enableSaving();
    void SetButtons(Editing state);

    Definition chosenDefinition() const;
    /// A click on an option, or its being turned on by a load.
    void Option_Click(Definition definition);
    void showChoices(Definition definition);
    void setSelectList(const QString& value);

    double Form_CheckSum() override;
    Question closeQuestion() const override;
    bool VerifyEntries();
    bool refuse(TextId message, QWidget* entry);

    void LoadTasks();
    void LoadPackage(const QString& name);
    void showPackage(const StoredPackage& package);
    /// What stands on the screen.
    TaskPackage package() const;
    QString value() const;
    /// Stores what stands on the screen; gives the failure, nothing when it is stored.
    std::optional<SaveFailure> save();
    /// Goes to the field that kept a save from being stored, where the failure names it.
    void focusRefusedField(const SaveFailure& failure);

    void ComboTPName_Click();
    void CommandAddTP_Click();
    void CommandRemoveTP_Click();
    void CommandAdd_Click();
    void CommandRemove_Click();
    void CommandSave_Click();
    void CommandCancel_Click();
    Entered currentEntries() const;
    /// Undoes a `ClearAll`.
    void putBack(const Entered& before);
    void showNew(const QString& name);

    /// The package that the screen shows.
    QString currentName_;
    /// What `ComboSelectList` held for each kind that is chosen from it, and the kind that it held last.
    std::array<QString, definitionCount> lastValues_;
    Definition lastKind_ = Definition::segregate;
    bool loadingTasks_ = false;
    /// The package of the list could not be read: nothing may be entered over what it holds.
    bool unread_ = false;

    QComboBox* ComboTPName;
    TextBox* TextNotes;
    QPushButton* CommandAddTP;
    QPushButton* CommandRemoveTP;
    std::array<QRadioButton*, definitionCount> options_{};
    QLabel* LabelDefinition;
    QLineEdit* TextListEnter;
    QPushButton* CommandAdd;
    QListWidget* ListAssets;
    QLabel* Label3;
    QPushButton* CommandRemove;
    TextBox* TextSQL;
    QComboBox* ComboSelectList;
    QPushButton* CommandSave;
    QPushButton* CommandCancel;
};

} // namespace kelvane
