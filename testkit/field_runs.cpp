#include "testkit/field_runs.h"

using namespace Qt::StringLiterals;

namespace kelvane::demo {

QString planLine(const FieldRun& run, const QDate& day) {
    const auto& record = run.record;
    return QStringList{record.asset, record.state == u"AS-LEFT" ? u"as-left"_s : u"as-found"_s,
                       run.deviations,
                       // A calibrator without a technician's name: it is who took it along.
                       record.technician == u"jdoe" ? QString() : record.technician, run.module,
                       day.toString(u"yyyy-MM-dd "_s) + (run.storedAt.isEmpty() ? record.time : run.storedAt)}
               .join(u"; "_s) +
           u'\n';
}

QString disagreementTitle(const FieldRun& run) {
    return run.disagreement == Disagreement::calibratorPassedIt ? u"Instrument Failed Calibration!"_s
                                                                : u"Instrument Passed Calibration!"_s;
}

QString disagreementText(const FieldRun& run) {
    const auto verdict =
        run.disagreement == Disagreement::calibratorPassedIt
            ? u"The above listed instrument failed calibration, but the calibrator reported that the instrument was not out of tolerance."_s
            : u"the above listed instrument passed calibration, but the calibrator reported that the instrument was out of tolerance."_s;
    return u"Instrument: %1\r\n\r\n%2 This condition is caused by the inability of the calibrator to handle complex error calculations."_s
        .arg(run.record.asset, verdict);
}

QStringList assetsOf(const QList<FieldRun>& runs) {
    QStringList assets;
    for (const auto& run : runs) {
        if (!assets.contains(run.record.asset))
            assets << run.record.asset;
    }
    return assets;
}

ExpectedRecords recordsAfterRuns(const QString& serial, const QList<FieldRun>& runs,
                                 const QList<FieldRun>& earlier) {
    ExpectedRecords after{.records = {}, .serial = serial, .registered = assetsOf(runs)};
    for (const auto& run : earlier + runs)
        after.records << run.record;
    after.registered.sort();
    return after;
}

} // namespace kelvane::demo
