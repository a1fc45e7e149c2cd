#pragma once

#include "editors/open_cal_param.h"
#include "resources/strings.h"
#include "ui/editor_window.h"

#include <optional>

class QComboBox;
class QListWidget;
class QPushButton;

namespace kelvane {

struct SaveFailure;

/// The editor of test strategies: named, ordered lists of test points, each a percentage of the instrument's
/// range. The lists on the screen are the only working copy. The screen and its loading stand in
/// form_strategies.cpp, what the buttons do in form_strategies_commands.cpp.
class FormStrategies final : public EditorWindow {
    Q_OBJECT
  public:
    FormStrategies(Session& session, FindCalParam findCalParam);

  private:
    /// What the screen is busy with; decides which controls are enabled.
    enum class State { idle = 0, added = 2, deleting = 3, renaming = 4 };

    void layOut();
    void connectCommands();
    void load();
    /// Reads all names, and the points of the strategy `name`, or of the first one when that is empty or
    /// does not exist. When the database fails, the screen keeps what it shows; then the result is false.
    bool LoadStrategyList(const QString& name);
    void SetButtons(State state);
    /// `LoadStrategyList`, and the buttons that fit what it found.
    void openStrategy(const QString& name);
    /// Replaces the points by those of the chosen pre-defined row.
    void LoadPreDefinedPoints();
    double Form_CheckSum() override;

    void CommandAdd_Click();
    void CommandRename_Click();
    void CommandDeleteTS_Click();
    void CommandSave_Click();
    void CommandCancel_Click();
    void CommandAddTP_Click();
    void CommandModify_Click();
    void CommandDeletePoint_Click();
    void movePoint(int direction);

    /// Asks for a required entry.
    QString ask(TextId title, TextId prompt, qint16 maxLength, FieldKind kind, const QString& proposed);
    /// Ends a command during which nothing could be used.
    void comeBackTo(QPushButton* button);
    /// A point as it was typed, unless the user cancels.
    std::optional<QString> askPoint(TextId prompt, const QString& proposed);
    /// Renames a strategy here, in the database and in the open parameter editor.
    std::optional<SaveFailure> rename(const QString& from, const QString& to);
    /// Says that the strategy on the screen is not stored any more, and lets it be saved again.
    void keepVanished();
    /// Puts a strategy that is not stored yet on the screen.
    void takeNew(const QString& name);
    void showStrategy(int row);
    void enableSaving();

    FindCalParam findCalParam_;
    QComboBox* ComboTSNames;
    QPushButton* CommandAdd;
    QPushButton* CommandRename;
    QPushButton* CommandDeleteTS;
    QPushButton* CommandSave;
    QComboBox* ComboPreDef;
    QListWidget* ListPoints;
    QPushButton* CommandAddTP;
    QPushButton* CommandModify;
    QPushButton* CommandDeletePoint;
    QPushButton* CommandMoveUp;
    QPushButton* CommandMoveDown;
    QPushButton* CommandCancel;
    /// The row of the strategy whose points are on the screen, -1 without one.
    int shownRow_ = -1;
};

} // namespace kelvane
