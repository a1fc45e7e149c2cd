#include "worksheets/worksheet_list.h"

#include "data/assets/assets.h"
#include "data/assets/worksheet_package.h"
#include "data/custom_dialog.h"
#include "data/parameters/cal_params.h"
#include "data/records/standards.h"
#include "data/routine.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// What keeps an entry off the list; nothing when it may stand there.
std::optional<TextId> faultOf(const Session& session, Routine& routine, const QString& entry) {
    if (!ModuleGlobals::isInInventory(session, routine, entry))
        return TextId::instrumentNumberInvalid;
    if (!ModuleGlobals::hasParameters(session, routine, entry))
        return TextId::configurationDataIncomplete;
    return {};
}

/// A verdict on a standard that gets a warning.
struct Refusal {
    qint16 verdict;
    TextId message;
    /// The verdict is one on this instrument alone: it is named, and the next one is looked at.
    bool ofInstrument = false;
};

constexpr Refusal refusals[] = {
    {standardRankTooLow, TextId::standardTraceLevelTooLow, true},
    {standardOverdue, TextId::standardOverdue},
    {standardUnknown, TextId::standardDoesNotExist},
};

const Refusal* refusalOf(qint16 verdict) {
    const auto* found = std::ranges::find(refusals, verdict, &Refusal::verdict);
    return found == std::end(refusals) ? nullptr : found;
}

ReportRequest requestFor(const Session& session, const QString& tag) {
    return {.connect = u"DSN = "_s + session.SessionDataSource + u";UID = "_s + session.SessionUser +
                       u";PWD = "_s + session.SessionPassword,
            .windowTitle = text(TextId::calibrationWorksheet),
            .reportFileName = u"kvwrksht.rpt"_s,
            .formulas = {u"task_id='"_s + tag + u'\''},
            .windowParentHandle = 0,
            .displaySetting = 1};
}

/// Fills the package and shows its report until the user closes that.
void showReport(Session& session, Routine& routine, ReportControl& reports, const QString& tag,
                const QStringList& assets) {
    insertPackage(session, routine, tag);
    for (const auto& asset : assets)
        insertPackageMember(session, routine, tag, asset);
    const auto request = requestFor(session, tag);
    if (reports.run(request) > 0)
        session.ui.messageBox(reports.lastErrorText(), text(TextId::worksheetPrintingError), box::stop);
    else
        session.ui.waitForWindow(request.windowTitle);
}

} // namespace

void addToWorksheetList(Session& session, WorksheetListScreen& screen, const QString& entry) {
    if (entry.isEmpty())
        return;
    Routine routine(session, u"FormWorksheetPrint,CommandAdd"_s);
    routine.run([&] {
        std::optional<TextId> fault;
        {
            const BusyPointer busy(session.ui);
            fault = faultOf(session, routine, entry);
            if (!fault) {
                screen.addRow(entry);
                screen.clearEntry();
            }
        }
        if (fault)
            session.ui.messageBox(text(*fault), text(TextId::printWorksheets), box::warning);
    });
    screen.focusEntry();
}

void removeFromWorksheetList(WorksheetListScreen& screen, int row) {
    if (row >= 0 && row < screen.rows().size())
        screen.removeRow(row);
}

void checkStandardForWorksheets(Session& session, const WorksheetListScreen& screen) {
    const auto assets = screen.rows();
    if (assets.isEmpty() || session.ui.bringQuestionForward())
        return;
    const auto title = text(TextId::checkStandard);
    const auto standard =
        ModuleGlobals::CustomDialog(session, title, text(TextId::standardToCheck), true, 0, 0, 0, {});
    if (standard == cancelled)
        return;
    for (const auto& asset : assets) {
        const auto* refusal = refusalOf(ModuleGlobals::CheckStandard(session, standard, asset));
        if (!refusal)
            continue;
        const auto message = text(refusal->message);
        session.ui.messageBox(refusal->ofInstrument ? message + u' ' + asset : message, title, box::warning);
        if (!refusal->ofInstrument)
            return;
    }
}

void printWorksheets(Session& session, const WorksheetListScreen& screen, ReportControl& reports) {
    const auto assets = screen.rows();
    if (assets.isEmpty())
        return;
    const auto tag = newPackageTag(session);
    Routine routine(session, u"FormWorksheetPrint,CommandPrint"_s);
    const auto remove = [&] { routine.run([&] { removePackage(routine, tag); }); };
    try {
        routine.run([&] { showReport(session, routine, reports, tag, assets); });
    } catch (const Error&) {
        // Not even the report of what has failed could be written.
        remove();
        throw;
    }
    remove();
}

} // namespace kelvane
