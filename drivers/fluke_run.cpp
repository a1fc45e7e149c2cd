#include "drivers/fluke_run.h"

#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/records/record_columns.h"
#include "data/tolerances/tolerances.h"
#include "drivers/judge_again.h"
#include "drivers/new_record.h"
#include "platform/error.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "resources/strings.h"

#include <QJsonArray>
#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int lastYear = 9999;
constexpr qsizetype maxTagLength = 29;

/// Every 32-bit number, infinite ones and those that are none included.
QString exactText(float value) {
    return QString::number(double{value}, 'g', QLocale::FloatingPointShortest);
}

/// For the operator: as short as it can be.
QString displayText(float value) {
    return std::isfinite(value) ? plainText(value) : exactText(value);
}

float readFloat(const QJsonValue& value) {
    return static_cast<float>(value.toString().toDouble());
}

/// A first run that passes is also the last; one that fails waits for its as-left run.
QString roundOf(const RunResults& run, bool passed) {
    if (run.kind != firstRun)
        return u"AS-LEFT"_s;
    return run.hasLaterRun || !passed ? u"AS-FOUND"_s : u"FOUND-LEFT"_s;
}

/// The lines go into the results of the record. Error 6 for a reading that is no number.
void judge(RunJudgement& judgement, const CalParamRecord& instrument, const QList<RunEntry>& entries,
           ReadingOf readingOf) {
    for (int i = 0; i < entries.size(); ++i) {
        const auto reading = readingOf(instrument, entries[i]);
        judgement.take(i, reading.applied, reading.reading, reading.calibratorError);
    }
}

QString judgeAgain(Session& session, const JournalEntry& entry, CalRecord& record, RunResults& run,
                   const RunRules& rules) {
    const auto [instrument, points] = beginRejudgement(session, record, entry.asset);
    if (rules.hasReadingForEachPoint) {
        if (auto reason = countMismatch(entry.asset, run.entries.size(), points.size()); !reason.isEmpty())
            return reason;
    } else if (run.entries.size() != run.steps) {
        return text(TextId::runIncomplete)
            .arg(entry.asset, QString::number(run.entries.size()), QString::number(run.steps));
    }
    JudgedRun judged{.instrument = instrument};
    judged.judgement.emplace(session, record, judged.instrument,
                             ModuleGlobals::TranslateSpanTestTolSingle(session, entry.asset));
    judge(*judged.judgement, judged.instrument, run.entries, rules.readingOf);
    if (!entry.prepared) {
        run.inUseTech = ModuleGlobals::GetInUseData(session, entry.serial, judged.instrument.mtag).tech;
        rules.standards(session, record, run, entry.serial).addInUse(entry.asset);
    }
    fillFields(record, judged.instrument, judged.judgement->counts(), run, rules, entry.serial);
    takeStandardsOf(record, entry);
    return {};
}

} // namespace

Moment momentOfRun(int year, int month, int day, const QTime& time) {
    const int whole = year < 100 ? fullYear(year) : year;
    const QDate date(whole, month, day);
    if (whole > lastYear || !date.isValid() || !time.isValid())
        throw makeError(ErrorNumber::typeMismatch);
    return {date, time};
}

void setMoment(RunResults& run, const Moment& moment) {
    run.date = formatMoment(moment, ModuleGlobals::statementForm.date);
    run.time = formatMoment(moment, ModuleGlobals::statementForm.time);
}

QJsonObject toJson(const RunResults& run) {
    QJsonArray entries;
    for (const auto& entry : run.entries)
        entries << QJsonArray{exactText(entry.applied), exactText(entry.reading),
                              exactText(entry.calibratorError)};
    QJsonObject json{{"kind"_L1, run.kind},
                     {"date"_L1, run.date},
                     {"time"_L1, run.time},
                     {"tag"_L1, run.tag.tag},
                     {"serial"_L1, run.tag.serial},
                     {"technician"_L1, run.tag.technician},
                     {"comesAgain"_L1, run.hasLaterRun},
                     {"pressureModule"_L1, run.pressureModule},
                     {"inUseTech"_L1, run.inUseTech},
                     {"entries"_L1, entries}};
    // Results are compared with those of older entries, which don't have what their calibrator doesn't give.
    if (!run.sourceModule.isEmpty())
        json["sourceModule"_L1] = run.sourceModule;
    if (run.steps != 0)
        json["steps"_L1] = run.steps;
    return json;
}

RunResults runOf(const QJsonObject& json) {
    RunResults run;
    run.kind = static_cast<qint16>(json["kind"_L1].toInt());
    run.date = json["date"_L1].toString();
    run.time = json["time"_L1].toString();
    run.tag = {json["tag"_L1].toString(), json["serial"_L1].toString(), json["technician"_L1].toString()};
    run.hasLaterRun = json["comesAgain"_L1].toBool();
    run.pressureModule = json["pressureModule"_L1].toString();
    run.sourceModule = json["sourceModule"_L1].toString();
    run.steps = static_cast<qint16>(json["steps"_L1].toInt());
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
                        .arg(QString::number(readings.size() + 1), displayText(entry.applied),
                             displayText(entry.reading));
    return readings;
}

JournalEntry entryOf(const CalibratorIdentity& calibrator, const QString& serial, const QString& asset,
                     const QString& mtag, const RunResults& run) {
    return {.driver = calibrator.journalWord.toString(),
            .calibrator = text(calibrator.caption),
            .serial = serial,
            .asset = asset,
            .mtag = mtag,
            .date = run.date,
            .time = run.time,
            .raw = toJson(run),
            .readings = readingsOf(run)};
}

RunStandards::RunStandards(Session& session, CalRecord& record) : session_(session), record_(record) {
    record.RecordStandards.erase();
}

RunStandards::RunStandards(Session& session, CalRecord& record, const QString& calibratorSerial)
    : RunStandards(session, record) {
    record.RecordStandards[row_++] = ModuleGlobals::AssetfromSerial(session, calibratorSerial);
}

void RunStandards::addModule(const QString& serial) {
    if (!serial.isEmpty())
        record_.RecordStandards[row_++] = ModuleGlobals::AssetfromSerial(session_, serial);
}

void RunStandards::addKnownModule(const QString& serial) {
    if (serial.isEmpty())
        return;
    const auto asset = ModuleGlobals::AssetfromSerial(session_, serial);
    if (!asset.isEmpty())
        record_.RecordStandards[row_++] = asset;
}

int RunStandards::addInUse(const QString& asset) {
    return takeStandardsInUse(session_, record_, asset, row_);
}

QString assetOf(Session& session, const RunTag& tag) {
    if (tag.tag.size() != maxTagLength)
        return tag.tag;
    return ModuleGlobals::AssetfromSerial(session, tag.serial, tag.tag);
}

void judgeRun(Session& session, InstrumentWork& work, JudgedRun& judged, RunResults& run,
              const RunRules& rules, const QString& serial) {
    if (work.isPrepared())
        work.attempt([&] { judge(*judged.judgement, judged.instrument, run.entries, rules.readingOf); });
    run.inUseTech = ModuleGlobals::GetInUseData(session, serial, judged.instrument.mtag).tech;
}

void fillFields(CalRecord& record, const CalParamRecord& instrument, const PointCounts& counts,
                const RunResults& run, const RunRules& rules, const QString& serial) {
    // A calibrator without a technician's name gives its own number. Only digits are alike in both cases.
    const auto technician = toLowerCase(run.tag.technician);
    const bool isUnnamed = technician == toUpperCase(serial) ||
                           (!rules.noTechnician.isEmpty() && technician == rules.noTechnician);
    fillFields(record, instrument, counts,
               {run.date, run.time, roundOf(run, counts.hasPassed()),
                isUnnamed ? run.inUseTech : run.tag.technician});
}

RecordOutcome finishRun(InstrumentWork& work, const std::optional<RunJudgement>& judgement) {
    using End = RecordOutcome::End;
    auto outcome = work.finish();
    if (outcome.end == End::made || outcome.end == End::unfinished)
        judgement->showDisagreements(work.entry.asset);
    return outcome;
}

QString judgeRunAgain(Session& session, JournalEntry& entry, CalRecord& record, const RunRules& rules,
                      const QString& routineName) {
    QString reason;
    Routine routine(session, routineName);
    routine.run([&] {
        auto run = runOf(entry.raw);
        if (entry.asset == run.tag.tag)
            entry.asset = assetOf(session, run.tag);
        run.date = entry.date;
        run.time = entry.time;
        reason = judgeAgain(session, entry, record, run, rules);
    });
    return reason;
}

} // namespace kelvane
