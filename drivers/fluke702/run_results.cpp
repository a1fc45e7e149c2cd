#include "drivers/fluke702/run_results.h"

#include "data/assets/assets.h"
#include "drivers/new_record.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QJsonArray>
#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

/// A tag of this length may be the beginning of a longer asset number.
constexpr int longestTag = 29;

/// Every 32-bit number, infinite ones and those that are none included.
QString written(float value) {
    return QString::number(double{value}, 'g', QLocale::FloatingPointShortest);
}

/// For the operator: as short as it can be.
QString shown(float value) {
    return std::isfinite(value) ? plainText(value) : written(value);
}

float readFloat(const QJsonValue& value) {
    return static_cast<float>(value.toString().toDouble());
}

/// A first run that passes is also the last; one that fails waits for its as-left run.
QString roundOf(const RunResults& run, bool passed) {
    if (run.kind != firstRun)
        return u"AS-LEFT"_s;
    return run.comesAgain || !passed ? u"AS-FOUND"_s : u"FOUND-LEFT"_s;
}

} // namespace

QString assetOf(Session& session, const RunTag& tag) {
    if (tag.tag.size() != longestTag)
        return tag.tag;
    return ModuleGlobals::AssetfromSerial(session, tag.serial, tag.tag);
}

QJsonObject toJson(const RunResults& run) {
    QJsonArray entries;
    for (const auto& entry : run.entries)
        entries << QJsonArray{written(entry.applied), written(entry.reading), written(entry.calibratorError)};
    return {{"kind"_L1, run.kind},
            {"date"_L1, run.date},
            {"time"_L1, run.time},
            {"tag"_L1, run.tag.tag},
            {"serial"_L1, run.tag.serial},
            {"technician"_L1, run.tag.technician},
            {"comesAgain"_L1, run.comesAgain},
            {"pressureModule"_L1, run.pressureModule},
            {"inUseTech"_L1, run.inUseTech},
            {"entries"_L1, entries}};
}

RunResults runOf(const QJsonObject& json) {
    RunResults run;
    run.kind = static_cast<qint16>(json["kind"_L1].toInt());
    run.date = json["date"_L1].toString();
    run.time = json["time"_L1].toString();
    run.tag = {json["tag"_L1].toString(), json["serial"_L1].toString(), json["technician"_L1].toString()};
    run.comesAgain = json["comesAgain"_L1].toBool();
    run.pressureModule = json["pressureModule"_L1].toString();
    run.inUseTech = json["inUseTech"_L1].toString();
    const auto entries = json["entries"_L1].toArray();
    for (const auto& entry : entries)
        run.entries << RunEntry{readFloat(entry[1]), readFloat(entry[0]), readFloat(entry[2])};
    return run;
}

QStringList readingsOf(const RunResults& run) {
    QStringList readings;
    for (const auto& entry : run.entries)
        readings << text(TextId::appliedAndRead)
                        .arg(QString::number(readings.size() + 1), shown(entry.applied),
                             shown(entry.reading));
    return readings;
}

void judge(RunJudgement& judgement, const CalParamRecord& instrument, const QList<RunEntry>& entries) {
    for (int i = 0; i < entries.size(); ++i) {
        const auto entry = inUnitsOf(instrument, entries[i]);
        judgement.take(i, double{entry.applied}, double{entry.reading}, 100 * double{entry.calibratorError});
    }
}

void fillFields(CalRecord& record, const CalParamRecord& instrument, const PointCounts& counts,
                const RunResults& run, const QString& serial) {
    // A calibrator without a technician's name gives its own number. Only digits are alike in both cases.
    const bool isUnnamed = lowerCased(run.tag.technician) == upperCased(serial);
    const FieldValue values[] = {
        {u"C2301", run.date},
        {u"C2333", run.time},
        {u"C2323", counts.passed() ? u"Y"_s : u"N"_s},
        {u"C2352", plainText(counts.failures)},
        {u"C2320", instrument.tp_name},
        {u"C2308", roundOf(run, counts.passed())},
        {u"C2307", isUnnamed ? run.inUseTech : run.tag.technician},
        {u"C2350", plainText(counts.marginals)},
    };
    kelvane::fillFields(record, values);
}

RunStandards::RunStandards(Session& session, CalRecord& record, const QString& calibratorSerial)
    : session_(session), record_(record) {
    record.RecordStandards.erase();
    record.RecordStandards[0] = ModuleGlobals::AssetfromSerial(session, calibratorSerial);
}

int RunStandards::add(const QString& pressureModule, const QString& asset) {
    int row = 1;
    if (!pressureModule.isEmpty())
        record_.RecordStandards[row++] = ModuleGlobals::AssetfromSerial(session_, pressureModule);
    return takeStandardsInUse(session_, record_, asset, row);
}

} // namespace kelvane::Module702Interface
