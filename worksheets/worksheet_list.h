#pragma once

#include "data/session.h"
#include "worksheets/report_control.h"

#include <QStringList>

namespace kelvane {

/// What the routines of the worksheet list need of the screen that shows it.
class WorksheetListScreen {
  public:
    virtual ~WorksheetListScreen() = default;
    /// The asset numbers of `ListCal`.
    virtual QStringList rows() const = 0;
    virtual void addRow(const QString& asset) = 0;
    virtual void removeRow(int row) = 0;
    /// Empties `TextAdd` without moving the focus.
    virtual void clearEntry() = 0;
    /// Puts the focus into `TextAdd`; what stands there is selected.
    virtual void focusEntry() = 0;
};

/// `CommandAdd`: takes an instrument that has its configuration into the list, as it was typed; one that is
/// listed already stands there twice. Another entry gets a warning and stays. Reported as
/// "FormWorksheetPrint,CommandAdd".
void addToWorksheetList(Session& session, WorksheetListScreen& screen, const QString& entry);
/// `CommandRemove`: takes a row (from 0; -1 for none selected) off the list.
void removeFromWorksheetList(WorksheetListScreen& screen, int row);
/// `CommandChkStandard`: asks for a standard and tells whether it may not be used for one of the instruments;
/// a standard that may be used for all of them gets no message. The screen is not used once the question
/// stands.
void checkStandardForWorksheets(Session& session, const WorksheetListScreen& screen);
/// `CommandPrint`: puts the list into a task package, shows the report of it, and removes the package when
/// the report's window has closed, or whatever has failed. The screen is used only before the report runs, so
/// it may go while the window stands. Reported as "FormWorksheetPrint,CommandPrint".
void printWorksheets(Session& session, const WorksheetListScreen& screen, ReportControl& reports);

} // namespace kelvane
