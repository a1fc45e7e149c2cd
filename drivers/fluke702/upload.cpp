#include "data/assets.h"
#include "data/field_dictionary.h"
#include "data/in_use.h"
#include "data/routine.h"
#include "data/small_routines.h"
#include "drivers/fluke702/fluke702.h"
#include "drivers/fluke702/link.h"
#include "drivers/fluke702/stored_run.h"
#include "drivers/fluke_judgement.h"
#include "drivers/new_record.h"
#include "platform/numbers.h"
#include "platform/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane::Module702Interface {

namespace {

constexpr Dpclnk::Status noTagSaved = 2026;

constexpr qint16 firstRun = 1;
constexpr qint16 asLeftRun = 2;

/// A tag of this length may be the beginning of a longer asset number.
constexpr int longestTag = 29;

/// A run of which a record is made.
struct Run {
    qint32 record = 0;
    qint16 kind = 0;
    Moment moment;
    QString technician;
};

/// One upload. Steps give false when the library has failed, which ends the upload.
class Upload {
  public:
    explicit Upload(Fluke702& driver) : driver_(driver), session_(driver.session), link_(driver.link) {}

    QString run();

  private:
    bool takeRun(qint32 record);
    QString assetOf(const RunTag& tag);
    bool recordRun(const Run& run);
    bool judgeEntries(qint32 record, const CalParamRecord& instrument, int points, RunJudgement& judgement);
    void fillRecord(const Run& run, const CalParamRecord& instrument, const PointCounts& counts);
    QString roundOf(const Run& run, bool passed);
    bool comesAgainAfter(qint32 record);
    bool fillStandards();

    Fluke702& driver_;
    Session& session_;
    Dpclnk& link_;
    qint32 count_ = 0;
    /// The tag read last.
    QString tag_;
    /// Serves the points, the rows of the field table and the standards in turn. What it holds when a call
    /// fails is what the operator is told instead of the status.
    qint16 counter_ = 0;
};

QString Upload::run() {
    link_.MEMclear();
    if (auto failure = Communicate702(driver_, modeUpload); !failure.isEmpty())
        return failure;
    qint32 unused = 0;
    link_.MEMstats(unused, count_);
    for (qint32 record = 0; record < count_; ++record) {
        if (!takeRun(record))
            return DPCStatusText(session_, counter_, tag_);
    }
    return {};
}

bool Upload::takeRun(qint32 record) {
    RunHeader header;
    if (readHeader(link_, record, header) != 0)
        return false;
    if (!header.isDated() || header.kind <= 0)
        return true;
    const auto moment = momentOf(header);
    if (header.kind != firstRun && header.kind != asLeftRun)
        return true;

    qint32 unused1 = 0;
    Dpclnk::Open unused2 = 0;
    Dpclnk::Open unused3 = 0;
    if (link_.MEMasflInfo(record, unused1, unused2, unused3) != 0 || link_.MEMbaseState(record) != 0)
        return false;
    RunTag tag;
    const auto status = readTag(link_, record, tag);
    if (status != 0 && status != noTagSaved)
        return false;
    tag_ = assetOf(tag);
    return trimBlanks(tag_).isEmpty() || recordRun({record, header.kind, moment, tag.technician});
}

/// The asset that a tag stands for; empty for one that was renamed since it was cut.
QString Upload::assetOf(const RunTag& tag) {
    if (tag.tag.size() != longestTag)
        return tag.tag;
    return ModuleGlobals::AssetfromSerial(session_, tag.serial, tag.tag);
}

bool Upload::recordRun(const Run& run) {
    ModuleGlobals::SetCalDataFields(session_, tag_);
    session_.RecordResults.erase();
    const auto instrument = ModuleGlobals::GetCalParams(session_, tag_);
    qint16 entries = 0;
    if (link_.MEMcalResult(run.record, entries) != 0)
        return false;
    const int points = ModuleGlobals::GetTestPointList(session_, tag_);
    RunJudgement judgement(session_, instrument, ModuleGlobals::TranslateSpanTestTolSingle(session_, tag_));
    if (!judgeEntries(run.record, instrument, points, judgement))
        return false;
    fillRecord(run, instrument, judgement.counts());
    if (!fillStandards())
        return false;
    if (makeRecord(session_, tag_).isEmpty())
        judgement.tellDisagreements(tag_);
    return true;
}

bool Upload::judgeEntries(qint32 record, const CalParamRecord& instrument, int points,
                          RunJudgement& judgement) {
    for (counter_ = 0; counter_ < points; ++counter_) {
        RunEntry entry;
        if (readEntry(link_, record, counter_, entry) != 0)
            return false;
        entry = inUnitsOf(instrument, entry);
        judgement.take(counter_, double{entry.applied}, double{entry.reading},
                       100 * double{entry.calibratorError});
    }
    return true;
}

void Upload::fillRecord(const Run& run, const CalParamRecord& instrument, const PointCounts& counts) {
    const auto& serial = driver_.Calibrator702Serial;
    const auto inUse = ModuleGlobals::GetInUseData(session_, serial, instrument.mtag);
    // A calibrator without a technician's name gives its own number. Only digits are alike in both cases.
    const bool isUnnamed = lowerCased(run.technician) == upperCased(serial);
    const FieldValue values[] = {
        {u"C2301", formatMoment(run.moment, ModuleGlobals::statementForm.date)},
        {u"C2333", formatMoment(run.moment, ModuleGlobals::statementForm.time)},
        {u"C2323", counts.passed() ? u"Y"_s : u"N"_s},
        {u"C2352", plainText(counts.failures)},
        {u"C2320", instrument.tp_name},
        {u"C2308", roundOf(run, counts.passed())},
        {u"C2307", isUnnamed ? inUse.tech : run.technician},
        {u"C2350", plainText(counts.marginals)},
    };
    fillFields(session_, values);
    counter_ = session_.CalFieldTable.last + 1;
}

/// A first run that passes is also the last; one that fails waits for its as-left run.
QString Upload::roundOf(const Run& run, bool passed) {
    if (run.kind != firstRun)
        return u"AS-LEFT"_s;
    return comesAgainAfter(run.record) || !passed ? u"AS-FOUND"_s : u"FOUND-LEFT"_s;
}

/// Asks for every later run, and so costs most in an upload of many: it reads nothing but their tags.
bool Upload::comesAgainAfter(qint32 record) {
    const auto own = lowerCased(tag_);
    for (qint32 later = record + 1; later < count_; ++later) {
        if (lowerCased(tagOf(link_, later)) == own)
            return true;
    }
    return false;
}

/// The calibrator, its pressure module, and what is in use with the instrument. A module that the inventory
/// doesn't know leaves its row empty, which ends the list.
bool Upload::fillStandards() {
    auto& standards = session_.RecordStandards;
    standards.erase();
    standards[0] = ModuleGlobals::AssetfromSerial(session_, driver_.Calibrator702Serial);
    QString model(16, u' ');
    QString serial(10, u' ');
    Dpclnk::Open unused = 0;
    if (link_.STAgetPressure(model, serial, unused) != 0)
        return false;
    int row = 1;
    serial = ModuleGlobals::CleanDLLString(serial);
    if (!serial.isEmpty())
        standards[row++] = ModuleGlobals::AssetfromSerial(session_, serial);
    counter_ = static_cast<qint16>(takeStandardsInUse(session_, tag_, row));
    return true;
}

} // namespace

QString Fluke702_upload(Fluke702& driver) {
    QString result = driver.link.missing();
    if (!result.isEmpty())
        return result;
    const BusyPointer busy(driver.session.ui);
    Routine routine(driver.session, u"Module702Interface,Fluke702_upload"_s);
    routine.run([&] { result = Upload(driver).run(); });
    return result;
}

} // namespace kelvane::Module702Interface
