#include "drivers/fluke74x/stored_run.h"

#include "data/small_routines.h"
#include "drivers/fluke74x/base_units.h"
#include "drivers/fluke74x/buckets.h"
#include "platform/error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::Module74xInterface {

namespace {

constexpr int tagLength = 33;
constexpr qint16 maxSteps = 101;

/// What the buckets of a step say of its two values: a user's entry and what the calibrator has sourced or
/// measured itself.
struct StepValues {
    float sourceEntry = 0;
    float sourced = 0;
    float measureEntry = 0;
    float measured = 0;
    float error = 0;
};

struct NumberBucket {
    QStringView name;
    float StepValues::*value;
};

constexpr NumberBucket numberBuckets[] = {
    {u"suev", &StepValues::sourceEntry},  {u"sprimary", &StepValues::sourced},
    {u"muev", &StepValues::measureEntry}, {u"mprimary", &StepValues::measured},
    {u"error", &StepValues::error},
};

struct TextBucket {
    QStringView name;
    QString RunResults::*value;
};

constexpr TextBucket textBuckets[] = {
    {u"mpserial", &RunResults::pressureModule},
    {u"spserial", &RunResults::sourceModule},
};

void take(const QString& name, const BucketValue& bucket, StepValues& values, RunResults& run) {
    const auto number = std::ranges::find(numberBuckets, name, &NumberBucket::name);
    if (number != std::end(numberBuckets) && bucket.number)
        values.*number->value = *bucket.number;
    const auto text = std::ranges::find(textBuckets, name, &TextBucket::name);
    if (text != std::end(textBuckets) && !bucket.text.value_or(QString()).isEmpty())
        run.*text->value = *bucket.text;
}

/// A bucket without a name can't be asked for.
bool readBuckets(Dpclnk3& link, StatusRule& rule, StepValues& values, RunResults& run) {
    qint32 count = 0;
    if (!rule.passes(link.STA3getBktListInfo(root, count)))
        return false;
    for (qint16 index = 0; index < count && index < maxNamedBuckets; ++index) {
        const auto name = BucketName(link, index);
        if (name.isEmpty())
            continue;
        BucketValue value;
        if (!readBucket(link, rule, name, value))
            return false;
        take(name, value, values, run);
    }
    return true;
}

double inOwnUnit(float value, const QString& unit, bool isIndicated) {
    return isIndicated ? double{value} : fromBaseUnit(baseUnits, double{value}, unit);
}

} // namespace

Moment momentOf(const Dpclnk3::RunTime& time, const RunResults& run) {
    const auto stored =
        momentOfRun(time.year, time.month, time.day, QTime(time.hour, time.minute, time.second));
    return run.kind > firstRun ? addInterval(u"n"_s, run.steps, stored) : stored;
}

bool readSteps(Dpclnk3& link, StatusRule& rule, const Place& place, RunResults& run) {
    run.steps = std::max(run.steps, qint16{0});
    for (qint16 step = 0; step < run.steps; ++step) {
        if (step == maxSteps)
            throw makeError(ErrorNumber::subscriptOutOfRange);
        Dpclnk3::State state;
        StepValues values;
        if (!rule.passes(
                link.MEM3instrCalResultStepInfo(Place::list, place.group, place.atom, step, state)) ||
            !rule.passes(link.STA3restore(state)) || !readBuckets(link, rule, values, run))
            return false;
        run.entries << RunEntry{.reading = values.measureEntry != 0 ? values.measureEntry : values.measured,
                                .applied = values.sourceEntry != 0 ? values.sourceEntry : values.sourced,
                                .calibratorError = values.error};
    }
    return true;
}

bool readTag(Dpclnk3& link, StatusRule& rule, const Place& place, RunTag& tag) {
    const QString blanks(tagLength, u' ');
    tag = {blanks, blanks, blanks};
    const bool passes = rule.passes(
        link.MEM3instrTagInfo(Place::list, place.group, place.atom, tag.tag, tag.serial, tag.technician));
    for (auto* text : {&tag.tag, &tag.serial, &tag.technician})
        *text = ModuleGlobals::CleanDLLString(*text);
    return passes;
}

RunReading readingOf(const CalParamRecord& instrument, const RunEntry& entry) {
    return {.applied = inOwnUnit(entry.applied, instrument.input_type, instrument.input_indicated),
            .reading = inOwnUnit(entry.reading, instrument.output_type, instrument.output_indicated),
            .calibratorError = double{entry.calibratorError}};
}

RunStandards standardsOf(Session& session, CalRecord& record, const RunResults& run, const QString&) {
    RunStandards standards(session, record);
    standards.addKnownModule(run.pressureModule);
    standards.addKnownModule(run.sourceModule);
    return standards;
}

} // namespace kelvane::Module74xInterface
