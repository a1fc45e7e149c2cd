#include "demo/fluke702_road.h"

#include "demo/field_runs.h"
#include "demo/technician.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

namespace {

const QString fluke702 = u"Fluke 702"_s;

/// The boxes in which the operator is told where the calibrator has judged otherwise.
QList<Person::Box> disagreementsIn(const QList<FieldRun>& runs) {
    QList<Person::Box> boxes;
    for (const auto& run : runs) {
        if (run.disagreement != Disagreement::none)
            boxes << Person::Box{disagreementTitle(run), disagreementText(run)};
    }
    return boxes;
}

QList<Person::Box> refusalsOf(const QList<FieldRun>& runs) {
    return QList<Person::Box>(
        runs.size(),
        {recordTitle,
         u"A calibration record for this UUT with the same calibration date and time already exists! Aborting calibration record creation for this UUT."_s});
}

void listMeasured(Desk& desk) {
    desk.openDownloadList(fluke702);
    const auto assets = assetsOf(measuredRuns());
    for (const auto& asset : assets)
        desk.person.step(u"add "_s + asset, {}, {}, [&] { desk.add(asset); });
    desk.person.step(u"add AC-604: a Fluke 702 can't take it"_s,
                     {{downloadTitle, u"AC-604: Fluke 702 cannot source AC Volts!"_s}}, {},
                     [&] { desk.add(u"AC-604"_s); });
    desk.expectList(assets);
}

/// The isolator's output is a thermocouple like its input: someone reads it with a standard.
void listByEye(Desk& desk) {
    desk.openDownloadList(fluke702);
    desk.person.step(u"add LI-402, whose scale is read"_s, {}, {}, [&] { desk.add(u"LI-402"_s); });
    QStringList standards{u"PM-030"_s, u"DMM-87V"_s, QString()};
    desk.person.step(
        u"add TCS-802 with a standard for its output; the first one is overdue and refused"_s,
        {{downloadTitle,
          u"TCS-802: Output of device cannot be measured by the calibrator. The calibrator will prompt you for a reading that may not be in the same units of measure as the device under test. Please ignore the calibrator units of measure; the proper units and range will be used during the upload process."_s},
         {u"External Standard Required"_s, u"Standard is overdue for calibration!"_s}},
        [&](const QString& caption, const QString& prompt) -> std::optional<QString> {
            if (caption != u"TCS-802: External Standard Required" ||
                prompt != u"Standard to be used for this calibration:" || standards.isEmpty())
                return {};
            return standards.takeFirst();
        },
        [&] { desk.add(u"TCS-802"_s); });
    desk.expectList(assetsOf(runsByEye()));
}

void workInPlant(Desk& desk, const QString& memory, const QList<FieldRun>& runs, const QDate& day) {
    desk.person.step(u"carry out in the plant"_s, {}, {}, [&] {
        QByteArray plan;
        for (const auto& run : runs)
            plan += planLine(run, day).toUtf8();
        carryOut(memory, plan);
    });
}

} // namespace

void goFluke702Road(Desk& desk, const QString& memory, const QDate& day) {
    auto& connection = *desk.program.session.SharedConnection;
    listMeasured(desk);
    desk.download();
    workInPlant(desk, memory, measuredRuns(), day);
    desk.upload(u"upload; of one record the calibrator thinks worse"_s, fluke702,
                disagreementsIn(measuredRuns()));
    checkRecords(connection, day, afterRuns(measuredRuns()));
    desk.upload(u"upload again: every record is there already"_s, fluke702, refusalsOf(measuredRuns()));
    checkRecords(connection, day, afterRuns(measuredRuns()));

    listByEye(desk);
    desk.download();
    workInPlant(desk, memory, runsByEye(), day);
    desk.upload(u"upload; of one record the calibrator thinks better"_s, fluke702,
                disagreementsIn(runsByEye()));
    checkRecords(connection, day, afterRuns(runsByEye(), measuredRuns()));
}

} // namespace kelvane::demo
