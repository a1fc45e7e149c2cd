#include "tests/road/fluke702_road.h"

#include "demo/difference.h"
#include "simulators/fluke702/field_work.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace simulated = simulators::fluke702;

Fluke702Road::Fluke702Road() : Road(u"Fluke 702"_s, u"6841207"_s) {
    qputenv("KELVANE_FLUKE702_MEMORY", QFile::encodeName(workshop.memory()));
    qputenv("KELVANE_FLUKE702_RECORD", QFile::encodeName(workshop.record()));
}

Fluke702Road::~Fluke702Road() {
    for (const char* const name :
         {"KELVANE_FLUKE702_MEMORY", "KELVANE_FLUKE702_RECORD", "KELVANE_FLUKE702_FAULTS"})
        qunsetenv(name);
}

void Fluke702Road::list(const QStringList& assets) {
    for (const auto& asset : assets)
        Road::list(asset, {});
}

void Fluke702Road::expectCantMeasure(const QString& asset) {
    ui.expectBox(
        asset +
            u": Output of device cannot be measured by the calibrator. The calibrator will prompt you for a reading that may not be in the same units of measure as the device under test. Please ignore the calibrator units of measure; the proper units and range will be used during the upload process."_s,
        downloadTitle, box::information);
}

void Fluke702Road::listByEye() {
    list({u"LI-402"_s});
    expectCantMeasure(u"TCS-802"_s);
    Road::list(u"TCS-802"_s, u"DMM-87V"_s);
}

void Fluke702Road::carryOut(const QList<demo::FieldRun>& runs) {
    QString plan;
    for (const auto& run : runs)
        plan += demo::planLine(run, QDate::fromString(workDay(), Qt::ISODate));
    carryOutPlan(plan);
}

void Fluke702Road::carryOutPlan(const QString& plan) {
    simulated::MemoryFile(workshop.memory()).use([&](simulated::Memory& memory) {
        simulated::carryOut(memory, simulated::errandsOf(plan), {});
        return true;
    });
}

void Fluke702Road::expectRuns(const QList<demo::FieldRun>& runs) {
    for (const auto& run : runs) {
        expectRecord(run.record.asset);
        if (run.disagreement != demo::Disagreement::none)
            ui.expectBox(demo::disagreementText(run), demo::disagreementTitle(run), box::warning);
    }
}

void Fluke702Road::expectRefusedRuns(const QList<demo::FieldRun>& runs) {
    for (const auto& run : runs) {
        expectRecord(run.record.asset);
        expectRefusal();
    }
}

void Fluke702Road::upload(const QList<demo::FieldRun>& runs, const QString& message) {
    expectChoice();
    expectRuns(runs);
    pressUpload(message);
}

void Fluke702Road::expectRecords(const QList<demo::FieldRun>& runs) {
    auto aftermath = demo::afterRuns(runs);
    aftermath.registered = registered();
    expectAftermath(aftermath);
}

void Fluke702Road::expectAftermath(const demo::Aftermath& aftermath) {
    try {
        demo::checkRecords(*session.SharedConnection, QDate::fromString(workDay(), Qt::ISODate), aftermath);
    } catch (const demo::Difference& difference) {
        ADD_FAILURE() << difference.what();
    }
}

void Fluke702Road::fault(const QString& faults) {
    qputenv("KELVANE_FLUKE702_FAULTS", faults.toLatin1());
}

simulated::Memory Fluke702Road::held() const {
    simulated::Memory copy;
    simulated::MemoryFile(workshop.memory()).use([&](const simulated::Memory& memory) {
        copy = memory;
        return false;
    });
    return copy;
}

QStringList Fluke702Road::heldTags() const {
    QStringList tags;
    for (const auto& task : held().contents.tasks)
        tags << task.tag;
    return tags;
}

QStringList Fluke702Road::takeHeard() {
    QStringList operations;
    for (const auto& line : workshop.contentOf(u"record"_s).split('\n')) {
        if (!line.isEmpty())
            operations << QString::fromLatin1(line).section(u'(', 0, 0);
    }
    workshop.put(u"record"_s, {});
    return operations;
}

const QStringList& Fluke702Road::oneInstrument() {
    static const QStringList one{u"PT-101"_s};
    return one;
}

} // namespace kelvane::testing
