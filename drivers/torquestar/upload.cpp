#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/parameters/cal_params.h"
#include "data/records/field_dictionary.h"
#include "data/routine.h"
#include "drivers/activity.h"
#include "drivers/instrument_work.h"
#include "drivers/new_record.h"
#include "drivers/torquestar/control_characters.h"
#include "drivers/torquestar/driver.h"
#include "drivers/torquestar/messages.h"
#include "drivers/torquestar/protocol.h"
#include "drivers/torquestar/tool_results.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

const QString routineName = u"ModuleTSInterface,TorqueStar_upload"_s;

/// One upload. Steps give false when it ends, with `failure_`, which may be empty.
class Upload {
  public:
    explicit Upload(TorqueStar& driver) : driver_(driver), session_(driver.session) {}

    QString run();

  private:
    bool identify();
    bool listInstruments(QList<AssetEntry>& entries);
    bool takeInstrument(const AssetEntry& entry);
    bool finishInstrument(const AssetEntry& entry);
    bool prepare(const AssetEntry& entry, ToolResults& results, InstrumentWork& work);
    bool readResults(const QByteArray& name, qsizetype points, ToolResults& results);
    bool fail(const QString& failure) {
        failure_ = failure;
        return false;
    }

    TorqueStar& driver_;
    Session& session_;
    QString serial_;
    QString withoutData_;
    /// An instrument has no record and stays on the calibrator.
    bool hasLeftAny_ = false;
    QString failure_;
};

QString Upload::run() {
    const auto lineBreak = u"\r\n"_s;
    QList<AssetEntry> entries;
    if (!identify() || !listInstruments(entries))
        return failure_;
    Activity activity(session_.ui);
    for (qsizetype i = 0; i < entries.size(); ++i) {
        activity.show(text(TextId::readingResultsProgress)
                          .arg(entries[i].asset, QString::number(i + 1), QString::number(entries.size())));
        if (!takeInstrument(entries[i]))
            return failure_;
    }
    // What stays on the calibrator must come up again with the next upload.
    if (!hasLeftAny_) {
        const ReportWatch clearing(session_);
        ModuleGlobals::ClearInUse(session_, serial_);
        if (clearing.sawReport() && hasLostConnection(session_))
            return text(TextId::connectionLostAdvice);
        ProcessMessageProtocol(driver_, "T2E" + nameField(roundName));
    }
    return withoutData_.isEmpty() ? QString() : text(TextId::assetsWithoutData) + lineBreak + withoutData_;
}

bool Upload::identify() {
    if (const auto failure = testLink(driver_); !failure.isEmpty())
        return fail(failure);
    serial_ = askSerialNumber(driver_);
    if (!driver_.TSError.isEmpty())
        return fail(driver_.TSError);
    const ReportWatch watch(session_);
    if (!ModuleGlobals::AssetfromSerial(session_, serial_).isEmpty())
        return true;
    return fail(watch.sawReport() && hasLostConnection(session_)
                    ? text(TextId::connectionLostAdvice)
                    : text(TextId::calibratorAssetNotFound) + u"\r\n"_s);
}

bool Upload::listInstruments(QList<AssetEntry>& entries) {
    const ReportWatch watch(session_);
    entries = ModuleGlobals::GetAssetsInUseWithStandard(session_, serial_);
    if (!watch.sawReport())
        return true;
    return fail(
        text(hasLostConnection(session_) ? TextId::connectionLostAdvice : TextId::uploadListUnreadable));
}

bool Upload::takeInstrument(const AssetEntry& entry) {
    const auto name = characteristicName(entry.asset);
    const auto reply = ProcessMessageProtocol(driver_, "T1C" + nameField(name));
    if (!driver_.TSError.isEmpty())
        return fail(driver_.TSError);
    if (!reply.startsWith('t') || !reply.endsWith(STX))
        return finishInstrument(entry);
    withoutData_ += u", "_s + name;
    return true;
}

/// Has the calibration record of one instrument made and takes it off the calibrator, also when the record
/// was refused. Without a whole preparation it stays there.
bool Upload::finishInstrument(const AssetEntry& entry) {
    ToolResults results;
    InstrumentWork work(session_, routineName);
    bool goesOn = true;
    work.attempt([&] { goesOn = prepare(entry, results, work); });
    if (!goesOn)
        return fail(driver_.TSError);
    work.entry = {.driver = identity.journalWord.toString(),
                  .calibrator = text(identity.caption),
                  .serial = serial_,
                  .asset = entry.asset,
                  .mtag = entry.mtag,
                  .raw = toJson(results),
                  .readings = readingsOf(session_, results)};
    readMoment(session_, results, work.entry.date, work.entry.time);
    const auto outcome = work.finish();
    if (!outcome.failure.isEmpty())
        return fail(outcome.failure);
    // Where nothing was read, what the calibrator holds is all that there is.
    const bool isUnread = outcome.end == RecordOutcome::End::unfinished && work.entry.readings.isEmpty();
    if (outcome.end == RecordOutcome::End::unprepared || isUnread) {
        hasLeftAny_ = true;
        return true;
    }
    ProcessMessageProtocol(driver_, "T1C" + nameField(characteristicName(entry.asset)));
    ProcessMessageProtocol(driver_, "T1J");
    return true;
}

/// False when the link failed.
bool Upload::prepare(const AssetEntry& entry, ToolResults& results, InstrumentWork& work) {
    const auto instrument = ModuleGlobals::GetCalParams(session_, entry.asset);
    ModuleGlobals::SetCalDataFields(session_, work.record, entry.asset);
    const auto fractions = ModuleGlobals::GetTestPointList(session_, entry.asset);
    if (!readResults(nameField(characteristicName(entry.asset)), fractions.size(), results))
        return false;
    Findings findings;
    if (work.isPrepared())
        work.attempt([&] { findings = findingsOf(session_, work.record, instrument, fractions, results); });
    results.tech = ModuleGlobals::GetInUseData(session_, serial_, entry.mtag).tech;
    fillFields(session_, work.record, instrument, findings, results.tech);
    takeStandardsInUse(session_, work.record, entry.asset, 0);
    return true;
}

/// The reply for each point, and then the comment. The characteristic is selected anew before each result.
bool Upload::readResults(const QByteArray& name, qsizetype points, ToolResults& results) {
    for (qsizetype point = 0; point < points; ++point) {
        ProcessMessageProtocol(driver_, "T1C" + name);
        const auto reply = ProcessMessageProtocol(driver_, "T1D");
        if (!driver_.TSError.isEmpty())
            return false;
        results.points << reply;
    }
    results.comment = ProcessMessageProtocol(driver_, "T1F");
    return driver_.TSError.isEmpty();
}

} // namespace

QString TorqueStar_upload(TorqueStar& driver) {
    QString result;
    const BusyPointer busy(driver.session.ui);
    Routine routine(driver.session, routineName);
    routine.run([&] { result = Upload(driver).run(); });
    return result;
}

} // namespace kelvane::ModuleTSInterface
