#pragma once

#include "ui/child_window.h"
#include "workflow/unfinished_results.h"

#include <functional>

class QListWidget;
class QTreeWidget;

namespace kelvane {

/// The results that uploads have read and no calibration record has been made of: a list of them, the
/// readings of the chosen one, and what can be done with it. No menu opens it: it appears after an upload
/// that left such results, and after a login while there are some.
class FormUnfinishedResults final : public ChildWindow {
    Q_OBJECT
  public:
    explicit FormUnfinishedResults(Session& session);

    /// Reads the list anew; the chosen result stays chosen while it is there.
    void refresh();

  private:
    void layOut();
    void connectCommands();
    /// Runs a command. While one runs, any open question included, another one does nothing and the window
    /// stays open. A question of another screen only comes forward.
    void run(const std::function<void()>& command);
    bool mayClose() override { return !running_; }

    /// The chosen result, or null.
    const UnfinishedResult* chosenResult() const;
    void choose(qsizetype row);
    void showReadings();
    void makeRecord();
    void discard();
    /// Shows what is left; the row behind the one that has gone is chosen. Closes when nothing is left.
    void showRest();

    QList<UnfinishedResult> results_;
    QTreeWidget* ListResults;
    QListWidget* ListReadings;
    QPushButton* CommandMakeRecord;
    QPushButton* CommandDiscard;
    QPushButton* CommandClose;
    bool running_ = false;
};

} // namespace kelvane
