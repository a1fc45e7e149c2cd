#include "simulators/torquestar/field_work.h"

#include "simulators/common/failure.h"
#include "simulators/torquestar/messages.h"
#include "simulators/torquestar/pitfalls.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

qint32 readingOf(double nominal, double deviation, const QString& name) {
    const double counts = std::round(nominal * (1 + deviation / 100) * scale);
    if (!(std::abs(counts) <= std::numeric_limits<qint32>::max()))
        throw Failure(
            u"%1: the reading %2 is more than the calibrator can keep"_s.arg(name).arg(counts / scale));
    return static_cast<qint32>(counts);
}

void setMoment(Result& result, const QDateTime& moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    result.date = date.year() * 10000 + date.month() * 100 + date.day();
    result.time = time.hour() * 10000 + time.minute() * 100 + time.second();
}

/// Dates the result at the moment, or at the first later second that the workstation reads rightly. The
/// longest stretch of a day that it can't read is a quarter of an hour: from 13:36:32 to 13:51:59.
void dateResult(Result& result, QDateTime& moment) {
    setMoment(result, moment);
    while (losesDigit(result.time) || endsInAnnouncement(resultReply(result))) {
        moment = moment.addSecs(1);
        setMoment(result, moment);
    }
}

std::vector<Result> resultsOf(const Job& job, const Fields& fields, const FieldWork& work) {
    const int samples = fields[Samples].value_or(1);
    const int takes = work.takes.value_or(samples);
    std::vector<Result> results;
    QDateTime moment = job.from.value_or(work.now);
    for (std::size_t point = 0; point < job.nominals.size(); ++point) {
        const qint32 reading = readingOf(job.nominals[point], job.deviations.at(point), job.name);
        for (int take = 0; take < takes; ++take) {
            Result result{0, 0, std::vector<qint32>(static_cast<std::size_t>(samples), reading)};
            dateResult(result, moment);
            results.push_back(result);
            moment = moment.addSecs(work.seconds);
        }
    }
    return results;
}

QStringList summaryOf(const Characteristic& characteristic, std::size_t replaced) {
    QStringList lines{u"%1: %2 results taken"_s.arg(characteristic.name).arg(characteristic.results.size())};
    if (replaced > 0)
        lines.last() += u", in the place of %1"_s.arg(replaced);
    QStringList notes = pitfallsOfComment(characteristic.comment);
    for (const Result& result : characteristic.results)
        notes += pitfallsOfResult(result);
    notes.removeDuplicates();
    for (const QString& note : notes)
        lines += u"  note: "_s + note;
    return lines;
}

} // namespace

QStringList carryOut(Memory& memory, const std::vector<Job>& jobs, const FieldWork& work) {
    Memory changed = memory;
    QStringList lines;
    for (const Job& job : jobs) {
        Characteristic* const characteristic = changed.find(job.name);
        if (characteristic == nullptr)
            throw Failure(u"The calibrator holds no characteristic \"%1\"."_s.arg(job.name));
        const std::size_t replaced = characteristic->results.size();
        characteristic->results = resultsOf(job, characteristic->fields, work);
        characteristic->comment = job.comment;
        lines += summaryOf(*characteristic, replaced);
    }
    memory = changed;
    return lines;
}

} // namespace kelvane::simulators
