#include "tests/end_to_end/fluke_end_to_end.h"

#include "testkit/difference.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

FlukeEndToEnd::FlukeEndToEnd() : EndToEndTest(flukeUnderTest().name, flukeUnderTest().runs.serial) {
    setVariable("_MEMORY", simulatorFolder.memory());
    setVariable("_RECORD", simulatorFolder.record());
}

FlukeEndToEnd::~FlukeEndToEnd() {
    for (const char* const name : {"_MEMORY", "_RECORD", "_FAULTS"})
        qunsetenv(calibrator.variables + name);
}

void FlukeEndToEnd::setVariable(const char* name, const QString& value) const {
    qputenv(calibrator.variables + name, QFile::encodeName(value));
}

void FlukeEndToEnd::list(const QStringList& assets) {
    for (const auto& asset : assets)
        EndToEndTest::list(asset, {});
}

void FlukeEndToEnd::listRuns(const QList<demo::FieldRun>& runs) {
    for (const auto& run : runs) {
        const auto& asset = run.record.asset;
        if (screen.list.contains(asset))
            continue;
        if (!run.standard.isEmpty())
            ui.expectBox(asset + u": "_s + text(TextId::outputNotMeasurable), downloadTitle(),
                         box::information);
        EndToEndTest::list(asset, run.standard);
    }
}

void FlukeEndToEnd::carryOut(const QList<demo::FieldRun>& runs) {
    QString plan;
    for (const auto& run : runs)
        plan += demo::planLine(run, QDate::fromString(workDay(), Qt::ISODate));
    carryOutPlan(plan);
}

void FlukeEndToEnd::expectRuns(const QList<demo::FieldRun>& runs) {
    for (const auto& run : runs) {
        expectRecord(run.record.asset);
        if (run.disagreement != demo::Disagreement::none)
            ui.expectBox(demo::disagreementText(run), demo::disagreementTitle(run), box::warning);
    }
}

void FlukeEndToEnd::expectRefusedRuns(const QList<demo::FieldRun>& runs) {
    for (const auto& run : runs) {
        expectRecord(run.record.asset);
        expectRefusal();
    }
}

void FlukeEndToEnd::upload(const QList<demo::FieldRun>& runs, const QString& message) {
    expectChoice();
    expectRuns(runs);
    pressUpload(message);
}

void FlukeEndToEnd::expectRecords(const QList<demo::FieldRun>& runs) {
    auto expectedRecords = demo::recordsAfterRuns(calibrator.runs.serial, runs);
    expectedRecords.registered = registered();
    expectRecords(expectedRecords);
}

void FlukeEndToEnd::expectRecordsAfter(const QList<demo::FieldRun>& runs) {
    expectRecords(demo::recordsAfterRuns(calibrator.runs.serial, runs));
}

void FlukeEndToEnd::expectRecords(const demo::ExpectedRecords& expectedRecords) {
    try {
        demo::checkRecords(*session.SharedConnection, QDate::fromString(workDay(), Qt::ISODate),
                           expectedRecords);
    } catch (const demo::Difference& difference) {
        ADD_FAILURE() << difference.what();
    }
}

QStringList FlukeEndToEnd::takeCalls() {
    QStringList calls;
    for (const auto& line : simulatorFolder.contentOf(u"record"_s).split('\n')) {
        if (!line.isEmpty())
            calls << QString::fromUtf8(line);
    }
    simulatorFolder.put(u"record"_s, {});
    return calls;
}

QStringList FlukeEndToEnd::takeHeard() {
    QStringList operations;
    for (const auto& call : takeCalls())
        operations << call.section(u'(', 0, 0);
    return operations;
}

const QStringList& FlukeEndToEnd::singleInstrument() {
    static const QStringList assets{u"PT-101"_s};
    return assets;
}

} // namespace kelvane::testing
