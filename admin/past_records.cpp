#include "admin/past_records.h"

#include "admin/failure.h"
#include "data/records/field_dictionary.h"
#include "data/tolerances/tolerances.h"
#include "drivers/fluke_run.h"
#include "drivers/new_record.h"
#include "platform/values/numbers.h"

#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;

namespace kelvane::admin {

namespace {

constexpr QStringView technicians[] = {u"jdoe", u"bkowalski", u"cnguyen", u"dsantos"};
/// Enters what another laboratory has certified.
constexpr QStringView clerk = u"dsantos";

/// The titles that the site has given to the fields that are asked for.
const QString placeTitle = u"Place of Calibration"_s;
const QString temperatureTitle = u"Ambient Temperature (C)"_s;

constexpr QStringView remarks[] = {u"Terminals cleaned and tightened.", u"Cable gland replaced.",
                                   u"Impulse line flushed.", u"Label renewed.", u"Cover gasket replaced."};
/// Every so many records of instruments within tolerance have a remark.
constexpr int recordsPerRemark = 6;
constexpr QStringView foundOut = u"Out of tolerance as found.";
constexpr QStringView adjusted = u"Zero and span adjusted.";
constexpr QStringView beyondAdjustment = u"Zero and span adjusted as far as they go; to be replaced.";

/// Colder in winter where an instrument stands, the same all year in a laboratory.
double temperatureAt(QStringView place, const QDate& day, PastRandom& random) {
    if (place != u"IN PLACE")
        return 20 + random.between(-0.5, 0.5);
    constexpr int warmest = 200; // day of the year
    const double season = std::cos(2 * std::numbers::pi * (day.dayOfYear() - warmest) / 365);
    return 21 + 7 * season + random.between(-3, 3);
}

} // namespace

BoxAnswer PastOperator::messageBox(const QString& text, const QString&, BoxStyle style) {
    faults << text.simplified();
    return style.buttons == BoxButtons::ok ? BoxAnswer::ok : BoxAnswer::cancel;
}

QString PastOperator::askOneField(const DialogQuestion& question) {
    for (auto answer = answers.cbegin(); answer != answers.cend(); ++answer) {
        if (question.prompt.endsWith(u' ' + answer.key()))
            return answer.value();
    }
    faults << question.prompt;
    return cancelled;
}

PastRecords::Known& PastRecords::known(const PastInstrument& instrument) {
    auto& found = known_[&instrument];
    if (!found) {
        const auto asset = instrument.asset.toString();
        found = std::make_shared<Known>(Known{ModuleGlobals::GetCalParams(session_, asset),
                                              ModuleGlobals::GetTestPointList(session_, asset),
                                              ModuleGlobals::TranslateSpanTestTolSingle(session_, asset),
                                              PastErrors(instrument.behaviour, day_)});
    }
    return *found;
}

void PastRecords::add(const PastCalibration& calibration) {
    PastRandom random(calibration.seed);
    const auto& way = *calibration.instrument->way;
    const auto day = calibration.moment.date;
    const auto technician = technicians[random.whole(0, std::size(technicians) - 1)];
    clock_.set(calibration.moment);
    session_.SessionUser = (way.technician.isEmpty() ? technician : clerk).toString();
    auto& instrument = known(*calibration.instrument);
    instrument.errors.begin(day, random);
    const auto temperature = QString::number(temperatureAt(way.place, day, random), 'f', 1);
    const auto humidity = QString::number(random.whole(35, 60));
    if (addRun({calibration, instrument, firstRun, calibration.moment, random, temperature, humidity}))
        return;
    instrument.errors.adjust(random);
    const Moment second{day, calibration.moment.time.addSecs(random.whole(15 * 60, 50 * 60))};
    clock_.set(second);
    addRun({calibration, instrument, asLeftRun, second, random, temperature, humidity});
}

bool PastRecords::addRun(const Run& run) {
    const auto& instrument = *run.calibration.instrument;
    const auto asset = instrument.asset.toString();
    const int reports = session_.reportCount;
    CalRecord record;
    ModuleGlobals::SetCalDataFields(session_, record, asset);
    const auto counts = judge(run, record);
    RunResults results{.kind = run.kind};
    setMoment(results, run.moment);
    const auto& way = *instrument.way;
    results.tag.technician = way.technician.isEmpty() ? session_.SessionUser : way.technician.toString();
    fillFields(record, run.known.parameters, counts, results, RunRules{nullptr, nullptr}, {});
    fillOwnFields(run, counts.hasPassed(), record);
    int row = 0;
    for (const auto standard : way.standards)
        record.RecordStandards[row++] = standard.toString();
    ui_.answers = {{placeTitle, way.place.toString()}, {temperatureTitle, run.temperature}};
    const auto refusal = ModuleGlobals::CreateCalRecord(session_, record, asset);
    requireNoFault(instrument, session_.reportCount == reports ? refusal : u"an error was reported"_s);
    return counts.hasPassed();
}

/// What a record shows is what was read: everything that is told of a point can be found again from its line.
double PastRecords::shown(double value, const CalParamRecord& parameters) const {
    return numericValue(ModuleGlobals::DecimalFormat(session_, value, plainText(parameters.resolution)));
}

PointCounts PastRecords::judge(const Run& run, CalRecord& record) {
    const auto& parameters = run.known.parameters;
    const double span = double{parameters.input_high} - double{parameters.input_low};
    const double outputSpan = double{parameters.output_high} - double{parameters.output_low};
    const double spread = run.calibration.instrument->way->applied * span;
    RunJudgement judgement(session_, record, parameters, run.known.tolerance);
    int entry = 0;
    for (const double point : run.known.points) {
        const double aimed = ModuleGlobals::inputAt(parameters, point);
        // Without pressure a pump is open: that point is met.
        const double off = point > 0 ? run.random.between(-spread, spread) : 0;
        const double applied = shown(aimed + off, parameters);
        const auto expected = ModuleGlobals::expectedResult(session_, parameters, applied);
        const double error = run.known.errors.at(point, run.random);
        const double width =
            error < 0 ? expected.nominal - expected.lower_limit : expected.upper_limit - expected.nominal;
        const double reading = shown(expected.nominal + error * width, parameters);
        judgement.take(entry++, applied, reading, (reading - expected.nominal) / outputSpan * 100);
    }
    return judgement.counts();
}

void PastRecords::fillOwnFields(const Run& run, bool passed, CalRecord& record) const {
    const auto& way = *run.calibration.instrument->way;
    const bool isAsLeft = run.kind == asLeftRun;
    QStringView remark = foundOut;
    if (isAsLeft)
        remark = passed ? adjusted : beyondAdjustment;
    else if (passed)
        remark = run.random.whole(1, recordsPerRemark) == 1
                     ? remarks[run.random.whole(0, std::size(remarks) - 1)]
                     : QStringView();
    const auto order = u"WO-%1-%2"_s.arg(run.moment.date.toString(u"yyMM"_s)).arg(run.calibration.seed);
    const FieldValue values[] = {
        {u"C2306", way.laboratory.toString()},
        {u"C2309", way.procedure.toString()},
        {u"C2313", run.humidity},
        {u"C2315", way.place.toString()},
        {u"C2316", way.technician.isEmpty() ? order : QString()},
        {u"C2326", remark.toString()},
    };
    fillFields(record, values);
}

void PastRecords::requireNoFault(const PastInstrument& instrument, const QString& refusal) const {
    auto reasons = ui_.faults;
    if (!refusal.isEmpty())
        reasons << refusal;
    if (!reasons.isEmpty())
        throw Failure{u"no record of %1 of %2: %3"_s.arg(
            instrument.asset, clock_.moment().date.toString(Qt::ISODate), reasons.join(u"; "_s))};
}

} // namespace kelvane::admin
