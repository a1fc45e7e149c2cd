#include "tests/end_to_end/fluke702_end_to_end.h"

#include "simulators/fluke702/field_work.h"
#include "testkit/difference.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace simulated = simulators::fluke702;

Fluke702EndToEnd::Fluke702EndToEnd() : EndToEndTest(u"Fluke 702"_s, u"6841207"_s) {
    qputenv("KELVANE_FLUKE702_MEMORY", QFile::encodeName(simulatorFolder.memory()));
    qputenv("KELVANE_FLUKE702_RECORD", QFile::encodeName(simulatorFolder.record()));
}

Fluke702EndToEnd::~Fluke702EndToEnd() {
    for (const char* const name :
         {"KELVANE_FLUKE702_MEMORY", "KELVANE_FLUKE702_RECORD", "KELVANE_FLUKE702_FAULTS"})
        qunsetenv(name);
}

void Fluke702EndToEnd::list(const QStringList& assets) {
    for (const auto& asset : assets)
        EndToEndTest::list(asset, {});
}

void Fluke702EndToEnd::expectCantMeasure(const QString& asset) {
    ui.expectBox(
        asset +
            u": Output of device cannot be measured by the calibrator. The calibrator will prompt you for a reading that may not be in the same units of measure as the device under test. Please ignore the calibrator units of measure; the proper units and range will be used during the upload process."_s,
        downloadTitle, box::information);
}

void Fluke702EndToEnd::listManualRuns() {
    list({u"LI-402"_s});
    expectCantMeasure(u"TCS-802"_s);
    EndToEndTest::list(u"TCS-802"_s, u"DMM-87V"_s);
}

void Fluke702EndToEnd::carryOut(const QList<demo::FieldRun>& runs) {
    QString plan;
    for (const auto& run : runs)
        plan += demo::planLine(run, QDate::fromString(workDay(), Qt::ISODate));
    carryOutPlan(plan);
}

void Fluke702EndToEnd::carryOutPlan(const QString& plan) {
    simulated::MemoryFile(simulatorFolder.memory()).use([&](simulated::Memory& memory) {
        simulated::carryOut(memory, simulated::jobsOf(plan), {});
        return true;
    });
}

void Fluke702EndToEnd::expectRuns(const QList<demo::FieldRun>& runs) {
    for (const auto& run : runs) {
        expectRecord(run.record.asset);
        if (run.disagreement != demo::Disagreement::none)
            ui.expectBox(demo::disagreementText(run), demo::disagreementTitle(run), box::warning);
    }
}

void Fluke702EndToEnd::expectRefusedRuns(const QList<demo::FieldRun>& runs) {
    for (const auto& run : runs) {
        expectRecord(run.record.asset);
        expectRefusal();
    }
}

void Fluke702EndToEnd::upload(const QList<demo::FieldRun>& runs, const QString& message) {
    expectChoice();
    expectRuns(runs);
    pressUpload(message);
}

void Fluke702EndToEnd::expectRecords(const QList<demo::FieldRun>& runs) {
    auto expectedRecords = demo::recordsAfterRuns(runs);
    expectedRecords.registered = registered();
    expectRecordsAfter(expectedRecords);
}

void Fluke702EndToEnd::expectRecordsAfter(const demo::ExpectedRecords& expectedRecords) {
    try {
        demo::checkRecords(*session.SharedConnection, QDate::fromString(workDay(), Qt::ISODate),
                           expectedRecords);
    } catch (const demo::Difference& difference) {
        ADD_FAILURE() << difference.what();
    }
}

void Fluke702EndToEnd::fault(const QString& faults) {
    qputenv("KELVANE_FLUKE702_FAULTS", faults.toLatin1());
}

simulated::Memory Fluke702EndToEnd::held() const {
    simulated::Memory copy;
    simulated::MemoryFile(simulatorFolder.memory()).use([&](const simulated::Memory& memory) {
        copy = memory;
        return false;
    });
    return copy;
}

QStringList Fluke702EndToEnd::storedTags() const {
    QStringList tags;
    for (const auto& task : held().contents.tasks)
        tags << task.tag;
    return tags;
}

QStringList Fluke702EndToEnd::takeHeard() {
    QStringList operations;
    for (const auto& line : simulatorFolder.contentOf(u"record"_s).split('\n')) {
        if (!line.isEmpty())
            operations << QString::fromLatin1(line).section(u'(', 0, 0);
    }
    simulatorFolder.put(u"record"_s, {});
    return operations;
}

const QStringList& Fluke702EndToEnd::singleInstrument() {
    static const QStringList assets{u"PT-101"_s};
    return assets;
}

} // namespace kelvane::testing
