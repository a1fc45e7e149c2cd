#include "demo/fluke702_day.h"

#include "demo/technician.h"
#include "drivers/fluke702/driver.h"
#include "testkit/field_runs.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString fluke702 = Module702Interface::identity.name.toString();

void listMeasured(DemoWorkstation& station) {
    station.openDownloadList(fluke702);
    const auto assets = assetsOf(measuredRuns());
    for (const auto& asset : assets)
        station.add(u"add "_s + asset, asset);
    station.simulatedOperator.expectBox(u"AC-604: Fluke 702 cannot source AC Volts!"_s, downloadTitle,
                                        box::warning);
    station.add(u"add AC-604: a Fluke 702 can't take it"_s, u"AC-604"_s);
    station.expectList(assets);
}

/// The isolator's output is a thermocouple like its input: someone reads it with a standard.
void listManualRuns(DemoWorkstation& station) {
    const auto isolator = u"TCS-802"_s;
    station.openDownloadList(fluke702);
    station.add(u"add LI-402, whose scale is read"_s, u"LI-402"_s);
    station.simulatedOperator.expectBox(
        u"TCS-802: Output of device cannot be measured by the calibrator. The calibrator will prompt you for a reading that may not be in the same units of measure as the device under test. Please ignore the calibrator units of measure; the proper units and range will be used during the upload process."_s,
        downloadTitle, box::information);
    station.expectStandard(isolator, u"PM-030"_s);
    station.simulatedOperator.expectBox(u"Standard is overdue for calibration!"_s,
                                        u"External Standard Required"_s, box::warning);
    station.expectStandard(isolator, u"DMM-87V"_s);
    station.expectStandard(isolator, {});
    station.add(u"add TCS-802 with a standard for its output; the first one is overdue and refused"_s,
                isolator);
    station.expectList(assetsOf(manualRuns()));
}

void calibrateInPlant(DemoWorkstation& station, const QString& memory, const QList<FieldRun>& runs,
                      const QDate& day) {
    station.step(u"carry out in the plant"_s, [&] {
        QByteArray plan;
        for (const auto& run : runs)
            plan += planLine(run, day).toUtf8();
        carryOut(memory, plan);
    });
}

/// The operator sees where the calibrator has judged otherwise.
void uploadRuns(DemoWorkstation& station, const QString& description, const QList<FieldRun>& runs) {
    station.expectChoice(uploadTitle, fluke702);
    for (const auto& run : runs) {
        station.expectRecord(run.record.asset);
        if (run.disagreement != Disagreement::none)
            station.simulatedOperator.expectBox(disagreementText(run), disagreementTitle(run), box::warning);
    }
    station.upload(description);
}

void uploadAgain(DemoWorkstation& station, const QList<FieldRun>& runs) {
    station.expectChoice(uploadTitle, fluke702);
    for (const auto& run : runs) {
        station.expectRecord(run.record.asset);
        station.simulatedOperator.expectBox(
            u"A calibration record for this UUT with the same calibration date and time already exists! Aborting calibration record creation for this UUT."_s,
            recordTitle, box::stop);
    }
    station.upload(u"upload again: every record is there already"_s);
}

} // namespace

void runFluke702Day(DemoWorkstation& station, const QString& memory, const QDate& day) {
    auto& connection = *station.program.session.SharedConnection;
    listMeasured(station);
    station.download();
    calibrateInPlant(station, memory, measuredRuns(), day);
    uploadRuns(station, u"upload; of one record the calibrator thinks worse"_s, measuredRuns());
    checkRecords(connection, day, recordsAfterRuns(measuredRuns()));
    uploadAgain(station, measuredRuns());
    checkRecords(connection, day, recordsAfterRuns(measuredRuns()));

    listManualRuns(station);
    station.download();
    calibrateInPlant(station, memory, manualRuns(), day);
    uploadRuns(station, u"upload; of one record the calibrator thinks better"_s, manualRuns());
    checkRecords(connection, day, recordsAfterRuns(manualRuns(), measuredRuns()));
}

} // namespace kelvane::demo
