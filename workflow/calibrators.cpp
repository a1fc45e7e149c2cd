#include "workflow/calibrators.h"

#include "data/custom_dialog.h"
#include "drivers/fluke702/logged_dpclnk.h"
#include "drivers/fluke74x/logged_dpclnk3.h"
#include "drivers/line_settings.h"
#include "drivers/torquestar/logged_serial_port.h"
#include "drivers/torquestar/protocol.h"
#include "drivers/worksheet_results.h"
#include "platform/error_report.h"
#include "resources/strings.h"

#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

using namespace Module702Interface;
using namespace Module74xInterface;
using namespace ModuleTSInterface;

namespace {

/// An operation of a driver, called with that driver's own state.
template <auto state, auto operation>
constexpr auto call = [](Calibrators& calibrators, const auto&... arguments) {
    return operation(calibrators.*state, arguments...);
};

int portOfLink(const QString&, const QString& port) {
    return portNumber(linkPort(port));
}

constexpr Calibrator calibrators[] = {
    {.identity = ModuleTSInterface::identity,
     .hasLineFormat = true,
     .log = &Calibrators::torqueStarLog,
     .port = linePort,
     .listEnd = 48,
     .standardNeedsParameters = true,
     .acceptable = call<&Calibrators::torqueStar, TorqueStar_acceptable>,
     .requiresStandard = call<&Calibrators::torqueStar, TorqueStar_requires_standard>,
     .download = call<&Calibrators::torqueStar, TorqueStar_download>,
     .upload = call<&Calibrators::torqueStar, TorqueStar_upload>,
     .judgeAgain = TorqueStar_judge_again},
    {.identity = Module702Interface::identity,
     .log = &Calibrators::fluke702Log,
     .port = portOfLink,
     .acceptable = call<&Calibrators::fluke702, Fluke702_acceptable>,
     .requiresStandard = call<&Calibrators::fluke702, Fluke702_requires_standard>,
     .download = call<&Calibrators::fluke702, Fluke702_download>,
     .upload = call<&Calibrators::fluke702, Fluke702_upload>,
     .judgeAgain = Fluke702_judge_again},
    {.identity = Module74xInterface::identity,
     .log = &Calibrators::fluke74xLog,
     .port = portOfLink,
     .acceptable = call<&Calibrators::fluke74x, Fluke74x_acceptable>,
     .requiresStandard = call<&Calibrators::fluke74x, Fluke74x_requires_standard>,
     .download = call<&Calibrators::fluke74x, Fluke74x_download>,
     .upload = call<&Calibrators::fluke74x, Fluke74x_upload>,
     .judgeAgain = Fluke74x_judge_again},
};

constexpr Calibrator noCalibrator{};

const Calibrator* find(QStringView name) {
    const auto* found = std::ranges::find(
        calibrators, name, [](const Calibrator& calibrator) { return calibrator.identity.name; });
    return found == std::end(calibrators) ? nullptr : found;
}

} // namespace

Calibrators::Calibrators(Session& workstation, const CalibratorLinks& links)
    : session(workstation),
      ports(workstation.settings, links.devices),
      torqueStarLog(workstation, ModuleTSInterface::identity.name.toString(), links.logFolder),
      fluke702Log(workstation, Module702Interface::identity.name.toString(), links.logFolder),
      fluke74xLog(workstation, Module74xInterface::identity.name.toString(), links.logFolder),
      line_(loggedSerialPort(links.torqueStar, torqueStarLog, ports)),
      dpclnk_(loggedDpclnk(links.fluke702, {fluke702Log, ports})),
      dpclnk3_(loggedDpclnk3(links.fluke74x, {fluke74xLog, ports})),
      torqueStar{workstation, *line_},
      fluke702{workstation, *dpclnk_},
      fluke74x{workstation, *dpclnk3_} {}

CommunicationLog& Calibrators::log(const QString& calibrator) {
    return this->*calibratorNamed(calibrator).log;
}

std::span<const Calibrator> allCalibrators() {
    return calibrators;
}

const Calibrator& calibratorNamed(const QString& name) {
    const auto* found = find(name);
    return found ? *found : noCalibrator;
}

QString downloadTo(Calibrators& drivers, const QString& calibrator, const QString& tag) {
    const QScopedValueRollback communicating(drivers.communicating, true);
    return calibratorNamed(calibrator).download(drivers, tag);
}

QString uploadFrom(Calibrators& drivers, const QString& calibrator) {
    const QScopedValueRollback communicating(drivers.communicating, true);
    return calibratorNamed(calibrator).upload(drivers);
}

QString calibratorCaption(const QString& name) {
    const auto* found = find(name);
    return found ? text(found->identity.caption) : name;
}

QString chooseCalibrator(Session& session, const QString& title, const QString& remembered) {
    QStringList captions;
    for (const auto& calibrator : calibrators)
        captions << text(calibrator.identity.caption);
    const auto proposed = ModuleGlobals::GetRegSetting(session, u"Defaults"_s, remembered);
    const auto answer = ModuleGlobals::CustomDialog(session, title, text(TextId::selectCalibratorToUse), true,
                                                    1, 30, 0, calibratorCaption(proposed), captions);
    if (answer == cancelled)
        return {};
    const auto* chosen = std::ranges::find(
        calibrators, answer, [](const Calibrator& calibrator) { return text(calibrator.identity.caption); });
    return chosen == std::end(calibrators) ? answer : chosen->identity.name.toString();
}

QString judgeAgain(Session& session, JournalEntry& entry, CalRecord& record) {
    if (entry.driver == worksheetWord)
        return judgeWorksheetAgain(session, entry, record);
    const auto* found = std::ranges::find_if(calibrators, [&](const Calibrator& calibrator) {
        return calibrator.identity.journalWord == entry.driver;
    });
    return found == std::end(calibrators) ? text(TextId::entryDriverUnknown)
                                          : found->judgeAgain(session, entry, record);
}

} // namespace kelvane
