#include "testkit/field_runs.h"

#include "resources/strings.h"
#include "resources/text_id.h"

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
    return run.disagreement == Disagreement::calibratorPassedIt ? text(TextId::instrumentFailed)
                                                                : text(TextId::instrumentPassed);
}

QString disagreementText(const FieldRun& run) {
    const auto verdict = run.disagreement == Disagreement::calibratorPassedIt
                             ? text(TextId::calibratorReportedPass)
                             : text(TextId::calibratorReportedFail);
    return text(TextId::judgedInstrument) + u" %1\r\n\r\n%2"_s.arg(run.record.asset, verdict);
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
