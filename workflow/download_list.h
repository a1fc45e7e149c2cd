#pragma once

#include "workflow/calibrators.h"

#include <QStringList>

namespace kelvane {

/// What the routines of the download list need of the screen that shows it.
class DownloadListScreen {
  public:
    virtual ~DownloadListScreen() = default;
    /// The calibrator's name, the caption of `SSPanelCalibrator`.
    virtual QString calibrator() const = 0;
    /// The asset numbers of `ListCal`.
    virtual QStringList rows() const = 0;
    virtual void addRow(const QString& asset) = 0;
    virtual void removeRow(int row) = 0;
    /// Empties `TextAdd` without moving the focus.
    virtual void clearEntry() = 0;
    /// Puts the focus into `TextAdd`.
    virtual void focusEntry() = 0;
    virtual void closeScreen() = 0;
};

/// `CommandAdd`: takes an instrument or the members of a task package into the list, with all checks and the
/// question for their standards; the word "Download" starts the download instead. Reported as
/// "FormDockingDown,CommandAdd".
void addToDownloadList(Calibrators& calibrators, DownloadListScreen& screen, const QString& entry);
/// `CommandRemove`: takes a row (from 0; -1 for none selected) off the list.
void removeFromDownloadList(Calibrators& calibrators, DownloadListScreen& screen, int row);
/// Passes the list to the calibrator's driver as a temporary task package.
void downloadList(Calibrators& calibrators, DownloadListScreen& screen);

} // namespace kelvane
