#include "data/assets/in_use.h"
#include "data/records/field_dictionary.h"
#include "data/routine.h"
#include "data/tolerances/checked_arithmetic.h"
#include "data/tolerances/tolerances.h"
#include "drivers/fluke74x/driver.h"
#include "drivers/fluke74x/link.h"
#include "drivers/fluke74x/stored_run.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

namespace {

const QString routineName = u"Module74xInterface,Fluke74x_upload"_s;

/// What the upload reads of a group.
enum AtomKind : qint16 { runAtom = 4, tagAtom = 11, referenceAtom = 18 };

/// A group has as many atoms besides the steps of its first run: its reference, its results, its tag.
constexpr qint32 atomsBesidesSteps = 3;

/// A run whose results were read and whose tag is still to come.
struct PendingRun {
    explicit PendingRun(Session& session) : work(session, routineName) {}

    InstrumentWork work;
    RunResults run = {};
    Dpclnk3::RunTime time = {};
};

/// One upload. Steps give false when the upload ends: the library has failed, or there is a failure to
/// report.
class Upload {
  public:
    explicit Upload(Fluke74x& driver)
        : driver_(driver), session_(driver.session), link_(driver.link), rule_(session_, DPC3StatusText) {}

    QString run();

  private:
    bool readImage();
    bool readGroup(qint32 group);
    bool readAtom(const Place& place);
    bool readReference(const Place& place);
    bool readResults(const Place& place);
    bool closeRun(const Place& place);
    bool makeRecord(const RunTag& tag);
    void prepare(JudgedRun& judged);

    /// False for a status that ends the upload.
    bool passes(Dpclnk3::Status status) { return rule_.passes(status); }
    void concern(const QString& asset);

    Fluke74x& driver_;
    Session& session_;
    Dpclnk3& link_;
    /// Statuses of an instrument whose tag was read stand under its asset number.
    StatusRule rule_;
    QString asset_;
    qint32 atoms_ = 0;
    qint16 runCount_ = 0;
    std::optional<PendingRun> pending_;
    QString failure_;
};

QString Upload::run() {
    if (!passes(link_.MEM3clear()))
        return rule_.failure();
    const ReportWatch contact(session_);
    if (auto failure = Communicate74x(driver_, modeUpload); !failure.isEmpty())
        return failureOfContact(session_, contact, failure);
    if (readImage())
        return {};
    return failure_.isEmpty() ? rule_.failure() : failure_;
}

bool Upload::readImage() {
    qint32 groups = 0;
    if (!passes(link_.MEM3ngroups(Place::list, groups)))
        return false;
    for (qint32 group = 0; group < groups; ++group) {
        if (!readGroup(group))
            return false;
    }
    return true;
}

bool Upload::readGroup(qint32 group) {
    concern({});
    pending_.reset();
    runCount_ = 0;
    atoms_ = 0;
    qint32 reference = 0;
    if (!passes(link_.MEM3natoms(Place::list, group, atoms_)) ||
        !passes(link_.MEM3groupDir(Place::list, group, reference)))
        return false;
    for (qint32 atom = 0; atom < atoms_; ++atom) {
        if (!readAtom({group, atom}))
            return false;
    }
    return true;
}

bool Upload::readAtom(const Place& place) {
    qint16 kind = 0;
    qint32 reference = 0;
    if (!passes(link_.MEM3atomDir(Place::list, place.group, place.atom, kind, reference)))
        return false;
    switch (kind) {
    case referenceAtom:
        return readReference(place);
    case runAtom:
        return readResults(place);
    case tagAtom:
        return closeRun(place);
    default:
        return true;
    }
}

bool Upload::readReference(const Place& place) {
    qint32 results = 0;
    qint32 task = 0;
    return passes(link_.MEM3taskResultRefInfo(Place::list, place.group, place.atom, results, task));
}

bool Upload::readResults(const Place& place) {
    auto& pending = pending_.emplace(session_);
    bool goesOn = true;
    pending.work.attempt([&] {
        goesOn = passes(link_.MEM3instrCalResultInfo(Place::list, place.group, place.atom, pending.run.steps,
                                                     pending.time)) &&
                 readSteps(link_, rule_, place, pending.run);
    });
    return goesOn;
}

/// A tag without results before it has nothing to evaluate.
bool Upload::closeRun(const Place& place) {
    RunTag tag;
    if (!readTag(link_, rule_, place, tag))
        return false;
    concern(tag.tag);
    if (!pending_)
        return true;
    ++runCount_;
    const bool goesOn = makeRecord(tag);
    pending_.reset();
    return goesOn;
}

bool Upload::makeRecord(const RunTag& tag) {
    auto& work = pending_->work;
    auto& run = pending_->run;
    run.kind = runCount_;
    run.tag = tag;
    work.attempt([&] { setMoment(run, momentOf(pending_->time, run)); });
    JudgedRun judged;
    work.attempt([&] { prepare(judged); });
    work.entry = entryOf(identity, driver_.Calibrator74xSerial, asset_, judged.instrument.mtag, run);
    failure_ = finishRun(work, judged.judgement).failure;
    return failure_.isEmpty();
}

void Upload::prepare(JudgedRun& judged) {
    auto& work = pending_->work;
    auto& run = pending_->run;
    const auto& serial = driver_.Calibrator74xSerial;
    ModuleGlobals::SetCalDataFields(session_, work.record, asset_);
    judged.instrument = ModuleGlobals::GetCalParams(session_, asset_);
    judged.judgement.emplace(session_, work.record, judged.instrument,
                             ModuleGlobals::TranslateSpanTestTolSingle(session_, asset_));
    judgeRun(session_, work, judged, run, runRules, serial);
    // A run without steps is error 11, whichever it is: nothing in it could fail.
    const auto runs = divide<double>(atoms_ - atomsBesidesSteps, run.steps);
    run.hasLaterRun = run.kind == firstRun && runs > 1;
    fillFields(work.record, judged.instrument, judged.judgement->counts(), run, runRules, serial);
    standardsOf(session_, work.record, run, serial).addInUse(asset_);
}

void Upload::concern(const QString& asset) {
    asset_ = asset;
    rule_.setAsset(asset);
}

} // namespace

QString Fluke74x_upload(Fluke74x& driver) {
    QString result = driver.link.missing();
    if (!result.isEmpty())
        return result;
    const BusyPointer busy(driver.session.ui);
    Routine routine(driver.session, routineName);
    routine.run([&] { result = Upload(driver).run(); });
    return result;
}

} // namespace kelvane::Module74xInterface
