#include "worksheets/worksheet_report.h"

#include "data/worksheets/worksheet_data.h"
#include "reports/report_error.h"
#include "reports/report_preview.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "worksheets/kept_messages.h"
#include "worksheets/worksheet_login.h"

#include <QScopeGuard>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The tag in "task_id='TAG'".
QString tagOf(const QString& formula) {
    constexpr QStringView beginning = u"task_id='";
    const auto tag = formula.mid(beginning.size()).chopped(formula.size() > beginning.size() ? 1 : 0);
    if (!formula.startsWith(beginning) || !formula.endsWith(u'\'') || tag.isEmpty() || tag.contains(u'\''))
        throw ReportError(text(TextId::formulaInvalid).arg(formula));
    return tag;
}

/// The two halves of the work on a report: its data, and its pages.
class Progress {
  public:
    explicit Progress(UserInterface& ui) : ui_(ui), window_(ui, text(TextId::preparingWorksheets)) {}

    void gathered(qsizetype sheet, qsizetype count) {
        ui_.setProgressText(text(TextId::sheetOfSheets).arg(sheet + 1).arg(count));
        reach(sheet, count, 0);
    }
    void painted(qsizetype sheet, qsizetype count) { reach(sheet, count, half); }

  private:
    static constexpr int half = 50;

    void reach(qsizetype sheet, qsizetype count, int from) {
        window_.reach(from + static_cast<int>(half * sheet / count));
        ui_.repaint();
    }

    UserInterface& ui_;
    ProgressWindow window_;
};

/// The data of the package's worksheets. What the routines have to say goes into the error.
ReportData gather(Session& session, const KeptMessages& messages, const QString& tag, Progress& progress) {
    const auto instruments = worksheetInstruments(session, tag);
    if (!instruments)
        throw ReportError(messages.texts.value(0));
    if (instruments->isEmpty())
        throw ReportError(text(TextId::packageEmpty).arg(tag));
    ReportData data;
    for (const auto& mtag : *instruments) {
        progress.gathered(data.groupCount(), instruments->size());
        QJsonObject sheet;
        if (!readWorksheet(session, mtag, sheet)) {
            const auto asset = sheet["asset"_L1].toString();
            const auto which =
                asset.isEmpty() ? QString() : text(TextId::worksheetUnreadable).arg(asset) + u"\r\n\r\n"_s;
            throw ReportError(which + messages.texts.value(0));
        }
        data.add(sheet);
    }
    return data;
}

} // namespace

WorksheetReport::WorksheetReport(const Workstation& workstation, ConnectionFactory connections)
    : workstation_(workstation), connections_(std::move(connections)) {}

int WorksheetReport::run(const ReportRequest& request) {
    lastErrorText_.clear();
    try {
        show(request);
        return 0;
    } catch (const ReportError& error) {
        lastErrorText_ = error.text();
    } catch (const Error& error) {
        lastErrorText_ = error.description; // the report of an error could not be written
    }
    return 1;
}

void WorksheetReport::show(const ReportRequest& request) {
    const auto login = reportLogin(request.connect);
    const auto tag = tagOf(request.formulas.value(0));
    auto layout = readLayout(request.reportFileName);

    const BusyPointer busy(workstation_.ui);
    Progress progress(workstation_.ui);
    KeptMessages messages;
    Session session({messages, workstation_.clock, workstation_.settings}, connections_);
    auto data = [&] {
        const auto closed = qScopeGuard([&session] { closeConnection(session); });
        logIn(session, login);
        return gather(session, messages, tag, progress);
    }();
    data.values = worksheetValues(session, request.windowTitle);
    const auto sheets = data.groupCount();
    auto preview = std::make_unique<ReportPreview>(
        workstation_.ui, Report(std::move(layout), std::move(data)), request.windowTitle);
    preview->open([&](qsizetype sheet) {
        progress.painted(sheet, sheets);
        return true;
    });
    previews_.add(std::move(preview));
}

} // namespace kelvane
