#include "simulators/fluke74x/step_buckets.h"

#include "simulators/common/field_work.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

// What its own sensor reads.
constexpr float roomTemperature = 23.5F;

Scale scaleOf(const State& state, QStringView high, QStringView low) {
    return {state.number(high), state.number(low)};
}

/// What lies at the calibrator's terminals when the user enters the value: the same place on the scale of the
/// channel.
float channelValue(const Scale& entered, const Scale& channel, float entry) {
    return static_cast<float>(onScale(channel, fractionOn(entered, static_cast<double>(entry))));
}

Seconds secondsOf(const ClockTime& time) {
    const QDateTime moment(QDate(time.year, time.month, time.day), QTime(time.hour, time.minute, time.second),
                           Qt::UTC);
    return {moment.isValid() ? static_cast<qint32>(moment.toSecsSinceEpoch()) : 0};
}

Range rangeOf(const Scale& scale) {
    return {scale.low, scale.high};
}

} // namespace

Scale sourceScale(const State& state, const ByHand& byHand) {
    return byHand.source ? scaleOf(state, u"sCustomFS", u"sCustomZero")
                         : scaleOf(state, u"sUutFS", u"sUutZero");
}

Scale measureScale(const State& state, const ByHand& byHand) {
    return byHand.measure ? scaleOf(state, u"mCustomFS", u"mCustomZero")
                          : scaleOf(state, u"mUutFS", u"mUutZero");
}

double fractionOn(const Scale& scale, double value) {
    const double low = static_cast<double>(scale.low);
    const double span = static_cast<double>(scale.high) - low;
    return span == 0 ? 0 : (value - low) / span;
}

std::vector<Bucket> bucketsOf(const State& state) {
    std::vector<Bucket> buckets;
    for (std::size_t place = 0; place < items().size(); ++place)
        buckets.push_back({items()[place].name.toString(), state.values()[place]});
    return buckets;
}

std::vector<Bucket> bucketsOf(const State& state, const Run& run, const Entry& step) {
    std::vector<Bucket> buckets = bucketsOf(state);
    const Scale source = sourceScale(state, run.byHand);
    const Scale measure = measureScale(state, run.byHand);
    buckets.push_back({u"time"_s, secondsOf(run.time)});
    buckets.push_back({u"srange"_s, rangeOf(source)});
    if (run.byHand.source)
        buckets.push_back({u"suev"_s, step.applied});
    buckets.push_back(
        {u"sprimary"_s, run.byHand.source
                            ? channelValue(source, scaleOf(state, u"sFS", u"sZero"), step.applied)
                            : step.applied});
    buckets.push_back({u"mrange"_s, rangeOf(measure)});
    if (run.byHand.measure)
        buckets.push_back({u"muev"_s, step.reading});
    buckets.push_back(
        {u"mprimary"_s, run.byHand.measure
                            ? channelValue(measure, scaleOf(state, u"mFS", u"mZero"), step.reading)
                            : step.reading});
    buckets.push_back({u"error"_s, step.error});
    if (!run.measureModule.isEmpty())
        buckets.push_back({u"mpserial"_s, run.measureModule});
    if (!run.sourceModule.isEmpty())
        buckets.push_back({u"spserial"_s, run.sourceModule});
    buckets.push_back({u"exttemp"_s, roomTemperature});
    return buckets;
}

} // namespace kelvane::simulators::fluke74x
