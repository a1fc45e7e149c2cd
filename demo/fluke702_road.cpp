#include "demo/fluke702_road.h"

#include "demo/field_runs.h"
#include "demo/technician.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString fluke702 = u"Fluke 702"_s;

void listMeasured(Desk& desk) {
    desk.openDownloadList(fluke702);
    const auto assets = assetsOf(measuredRuns());
    for (const auto& asset : assets)
        desk.add(u"add "_s + asset, asset);
    desk.person.expectBox(u"AC-604: Fluke 702 cannot source AC Volts!"_s, downloadTitle, box::warning);
    desk.add(u"add AC-604: a Fluke 702 can't take it"_s, u"AC-604"_s);
    desk.expectList(assets);
}

/// The isolator's output is a thermocouple like its input: someone reads it with a standard.
void listByEye(Desk& desk) {
    const auto isolator = u"TCS-802"_s;
    desk.openDownloadList(fluke702);
    desk.add(u"add LI-402, whose scale is read"_s, u"LI-402"_s);
    desk.person.expectBox(
        u"TCS-802: Output of device cannot be measured by the calibrator. The calibrator will prompt you for a reading that may not be in the same units of measure as the device under test. Please ignore the calibrator units of measure; the proper units and range will be used during the upload process."_s,
        downloadTitle, box::information);
    desk.expectStandard(isolator, u"PM-030"_s);
    desk.person.expectBox(u"Standard is overdue for calibration!"_s, u"External Standard Required"_s,
                          box::warning);
    desk.expectStandard(isolator, u"DMM-87V"_s);
    desk.expectStandard(isolator, {});
    desk.add(u"add TCS-802 with a standard for its output; the first one is overdue and refused"_s, isolator);
    desk.expectList(assetsOf(runsByEye()));
}

void workInPlant(Desk& desk, const QString& memory, const QList<FieldRun>& runs, const QDate& day) {
    desk.step(u"carry out in the plant"_s, [&] {
        QByteArray plan;
        for (const auto& run : runs)
            plan += planLine(run, day).toUtf8();
        carryOut(memory, plan);
    });
}

/// The operator is told where the calibrator has judged otherwise.
void uploadRuns(Desk& desk, const QString& told, const QList<FieldRun>& runs) {
    desk.expectChoice(uploadTitle, fluke702);
    for (const auto& run : runs) {
        desk.expectRecord(run.record.asset);
        if (run.disagreement != Disagreement::none)
            desk.person.expectBox(disagreementText(run), disagreementTitle(run), box::warning);
    }
    desk.upload(told);
}

void uploadAgain(Desk& desk, const QList<FieldRun>& runs) {
    desk.expectChoice(uploadTitle, fluke702);
    for (const auto& run : runs) {
        desk.expectRecord(run.record.asset);
        desk.person.expectBox(
            u"A calibration record for this UUT with the same calibration date and time already exists! Aborting calibration record creation for this UUT."_s,
            recordTitle, box::stop);
    }
    desk.upload(u"upload again: every record is there already"_s);
}

} // namespace

void goFluke702Road(Desk& desk, const QString& memory, const QDate& day) {
    auto& connection = *desk.program.session.SharedConnection;
    listMeasured(desk);
    desk.download();
    workInPlant(desk, memory, measuredRuns(), day);
    uploadRuns(desk, u"upload; of one record the calibrator thinks worse"_s, measuredRuns());
    checkRecords(connection, day, afterRuns(measuredRuns()));
    uploadAgain(desk, measuredRuns());
    checkRecords(connection, day, afterRuns(measuredRuns()));

    listByEye(desk);
    desk.download();
    workInPlant(desk, memory, runsByEye(), day);
    uploadRuns(desk, u"upload; of one record the calibrator thinks better"_s, runsByEye());
    checkRecords(connection, day, afterRuns(runsByEye(), measuredRuns()));
}

} // namespace kelvane::demo
