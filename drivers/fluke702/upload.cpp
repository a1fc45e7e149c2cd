#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/parameters/cal_params.h"
#include "data/records/field_dictionary.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "drivers/fluke702/driver.h"
#include "drivers/fluke702/link.h"
#include "drivers/fluke702/stored_run.h"
#include "drivers/link_status.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

constexpr Dpclnk::Status noTagSaved = 2026;

const QString routineName = u"Module702Interface,Fluke702_upload"_s;

/// One upload. Steps give false when the upload ends: the library has failed, or there is a failure to
/// report.
class Upload {
  public:
    explicit Upload(Fluke702& driver) : driver_(driver), session_(driver.session), link_(driver.link) {}

    QString run();

  private:
    bool takeRun(qint32 record);
    bool recordRun(qint32 record, RunResults& run, InstrumentWork& work);
    bool prepare(qint32 record, RunResults& run, InstrumentWork& work, JudgedRun& judged);
    bool readEntries(qint32 record, int points, int stored, RunResults& run);
    bool hasLaterRun(qint32 record);
    bool fillStandards(RunResults& run, CalRecord& record);

    Fluke702& driver_;
    Session& session_;
    Dpclnk& link_;
    qint32 count_ = 0;
    /// The tag read last.
    QString tag_;
    /// Serves the points, the rows of the field table and the standards in turn. What it holds when a call
    /// fails is shown to the operator instead of the status.
    qint16 counter_ = 0;
    QString failure_;
};

QString Upload::run() {
    link_.MEMclear();
    const ReportWatch contact(session_);
    if (auto failure = Communicate702(driver_, modeUpload); !failure.isEmpty())
        return failureOfContact(session_, contact, failure);
    qint32 unused = 0;
    link_.MEMstats(unused, count_);
    for (qint32 record = 0; record < count_; ++record) {
        if (!takeRun(record))
            return failure_.isEmpty() ? DPCStatusText(session_, counter_, tag_) : failure_;
    }
    return {};
}

bool Upload::takeRun(qint32 record) {
    RunHeader header;
    if (readHeader(link_, record, header) != 0)
        return false;
    if (!header.isDated() || header.kind <= 0)
        return true;
    InstrumentWork work(session_, routineName);
    RunResults run{.kind = header.kind};
    work.attempt([&] { setMoment(run, momentOf(header)); });
    if (header.kind != firstRun && header.kind != asLeftRun)
        return true;

    qint32 unused1 = 0;
    Dpclnk::Open unused2 = 0;
    Dpclnk::Open unused3 = 0;
    if (link_.MEMasflInfo(record, unused1, unused2, unused3) != 0 || link_.MEMbaseState(record) != 0)
        return false;
    const auto status = readTag(link_, record, run.tag);
    if (status != 0 && status != noTagSaved)
        return false;
    tag_ = assetOf(session_, run.tag);
    // A tag that could not be looked up must not leave the run without an instrument.
    if (tag_.isEmpty() && !work.isPrepared())
        tag_ = run.tag.tag;
    return trimBlanks(tag_).isEmpty() || recordRun(record, run, work);
}

bool Upload::recordRun(qint32 record, RunResults& run, InstrumentWork& work) {
    bool goesOn = true;
    JudgedRun judged;
    work.attempt([&] { goesOn = prepare(record, run, work, judged); });
    if (!goesOn)
        return false;
    work.entry = entryOf(identity, driver_.Calibrator702Serial, tag_, judged.instrument.mtag, run);
    const auto outcome = finishRun(work, judged.judgement);
    failure_ = outcome.failure;
    return failure_.isEmpty();
}

bool Upload::prepare(qint32 record, RunResults& run, InstrumentWork& work, JudgedRun& judged) {
    ModuleGlobals::SetCalDataFields(session_, work.record, tag_);
    judged.instrument = ModuleGlobals::GetCalParams(session_, tag_);
    qint16 stored = 0;
    if (link_.MEMcalResult(record, stored) != 0)
        return false;
    const auto points = static_cast<int>(ModuleGlobals::GetTestPointList(session_, tag_).size());
    judged.judgement.emplace(session_, work.record, judged.instrument,
                             ModuleGlobals::TranslateSpanTestTolSingle(session_, tag_));
    if (!readEntries(record, points, work.isPrepared() || points > 0 ? 0 : stored, run))
        return false;
    const auto& serial = driver_.Calibrator702Serial;
    judgeRun(session_, work, judged, run, runRules, serial);
    run.hasLaterRun = run.kind == firstRun && hasLaterRun(record);
    fillFields(work.record, judged.instrument, judged.judgement->counts(), run, runRules, serial);
    counter_ = work.record.CalFieldTable.last + 1;
    return fillStandards(run, work.record);
}

/// As many readings as the instrument has points. Where these could not be found out, what the run holds is
/// still read, up to `stored`.
bool Upload::readEntries(qint32 record, int points, int stored, RunResults& run) {
    for (counter_ = 0; counter_ < points; ++counter_) {
        RunEntry entry;
        if (readEntry(link_, record, counter_, entry) != 0)
            return false;
        run.entries << entry;
    }
    for (int i = points; i < stored; ++i) {
        RunEntry entry;
        if (readEntry(link_, record, static_cast<qint16>(i), entry) != 0)
            break;
        run.entries << entry;
    }
    return true;
}

/// Asks for every later run, and so costs most in an upload of many: it reads nothing but their tags.
bool Upload::hasLaterRun(qint32 record) {
    const auto own = toLowerCase(tag_);
    for (qint32 later = record + 1; later < count_; ++later) {
        if (toLowerCase(tagOf(link_, later)) == own)
            return true;
    }
    return false;
}

bool Upload::fillStandards(RunResults& run, CalRecord& record) {
    RunStandards standards(session_, record, driver_.Calibrator702Serial);
    QString model(16, u' ');
    QString serial(10, u' ');
    Dpclnk::Open unused = 0;
    if (link_.STAgetPressure(model, serial, unused) != 0)
        return false;
    run.pressureModule = ModuleGlobals::CleanDLLString(serial);
    standards.addModule(run.pressureModule);
    counter_ = static_cast<qint16>(standards.addInUse(tag_));
    return true;
}

} // namespace

QString Fluke702_upload(Fluke702& driver) {
    QString result = driver.link.missing();
    if (!result.isEmpty())
        return result;
    const BusyPointer busy(driver.session.ui);
    Routine routine(driver.session, routineName);
    routine.run([&] { result = Upload(driver).run(); });
    return result;
}

} // namespace kelvane::Module702Interface
