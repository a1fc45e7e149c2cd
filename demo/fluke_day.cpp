#include "demo/fluke_day.h"

#include "demo/technician.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

void FlukeDay::list(const FieldRun& run, const QString& overdue) {
    const auto& asset = run.record.asset;
    if (run.standard.isEmpty()) {
        station_.add(u"add "_s + asset, asset);
        return;
    }
    expectStandards(run, overdue);
    station_.add(u"add %1 with a standard%2"_s.arg(
                     asset, overdue.isEmpty() ? QString() : u"; the first one is overdue and refused"_s),
                 asset);
}

void FlukeDay::expectStandards(const FieldRun& run, const QString& overdue) {
    const auto& asset = run.record.asset;
    auto& simulatedOperator = station_.simulatedOperator;
    simulatedOperator.expectBox(asset + u": "_s + text(TextId::outputNotMeasurable), downloadTitle(),
                                box::information);
    if (!overdue.isEmpty()) {
        station_.expectStandard(asset, overdue);
        simulatedOperator.expectBox(text(TextId::standardOverdue), text(TextId::externalStandardRequired),
                                    box::warning);
    }
    station_.expectStandard(asset, run.standard);
    station_.expectStandard(asset, {});
}

void FlukeDay::listMeasured() {
    openDownloadList();
    const auto assets = assetsOf(runs_.measured);
    for (const auto& asset : assets)
        station_.add(u"add "_s + asset, asset);
    station_.simulatedOperator.expectBox(u"AC-604: "_s + text(TextId::cannotSourceAcVoltage), downloadTitle(),
                                         box::warning);
    station_.add(u"add AC-604: the calibrator can't take it"_s, u"AC-604"_s);
}

void FlukeDay::calibrate(const QString& description, const QList<FieldRun>& runs) {
    station_.expectList(assetsOf(runs));
    station_.download();
    station_.step(u"carry out in the plant"_s, [&] {
        QByteArray plan;
        for (const auto& run : runs)
            plan += planLine(run, day_).toUtf8();
        carryOut(memory_, plan);
    });
    station_.expectChoice(uploadTitle(), calibrator_);
    for (const auto& run : runs) {
        station_.expectRecord(run.record.asset);
        if (run.disagreement != Disagreement::none)
            station_.simulatedOperator.expectBox(disagreementText(run), disagreementTitle(run), box::warning);
    }
    station_.upload(description);
    check(runs);
    earlier_ += runs;
}

void FlukeDay::uploadAgain(const QList<FieldRun>& runs) {
    station_.expectChoice(uploadTitle(), calibrator_);
    for (const auto& run : runs) {
        station_.expectRecord(run.record.asset);
        station_.simulatedOperator.expectBox(text(TextId::recordAlreadyExists), recordTitle(), box::stop);
    }
    station_.upload(u"upload again: every record is there already"_s);
    earlier_.resize(earlier_.size() - runs.size());
    check(runs);
    earlier_ += runs;
}

void FlukeDay::check(const QList<FieldRun>& runs) {
    checkRecords(*station_.program.session.SharedConnection, day_,
                 recordsAfterRuns(runs_.serial, runs, earlier_));
}

} // namespace kelvane::demo
