#include "drivers/torquestar/tool_results.h"

#include "drivers/new_record.h"
#include "drivers/torquestar/fields.h"
#include "drivers/torquestar/messages.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QJsonArray>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

using Samples = FixedList<double, 100>;

/// Where a result's date, time and samples begin, and the length of each.
constexpr int datePosition = 4;
constexpr int timePosition = 8;
constexpr int samplePosition = 12;
constexpr int width = 4;

// Remarks of a record: stored, so the same in every language.
constexpr QStringView passesVerification = u"UNIT PASSES PERFORMANCE VERIFICATION";
constexpr QStringView receivedInTolerance = u"UNIT WAS RECEIVED IN TOLERANCE";

QByteArray dateField(const QByteArray& reply) {
    return part(reply, datePosition, width);
}

QByteArray timeField(const QByteArray& reply) {
    return part(reply, timePosition, width);
}

/// The samples of a result, which fill it from position 12 to its end.
Samples samplesOf(Session& session, const QByteArray& reply) {
    Samples samples;
    for (int k = 0; k <= Samples::last && width * k + samplePosition <= reply.size(); ++k)
        samples[k] = Conv2Double(session, part(reply, width * k + samplePosition, width));
    return samples;
}

/// The mean of the first samples, as many as the instrument requires; samples that did not come count as 0.
double meanOf(const Samples& samples, int count) {
    if (count == 0)
        throw makeError(ErrorNumber::divisionByZero);
    double sum = 0;
    for (int k = 0; k < count; ++k)
        sum += samples[k];
    return sum / count;
}

/// Error 5 for a reply without a last character to leave out.
QString commentOf(const QByteArray& reply) {
    if (reply.size() < 4)
        throw makeError(ErrorNumber::invalidArgument);
    return fromCalibratorBytes(part(reply, 4, reply.size() - 4));
}

} // namespace

QJsonObject toJson(const ToolResults& results) {
    QJsonArray points;
    for (const auto& reply : results.points)
        points << QString::fromLatin1(reply.toHex());
    return {{"points"_L1, points},
            {"comment"_L1, QString::fromLatin1(results.comment.toHex())},
            {"inUseTech"_L1, results.tech}};
}

ToolResults resultsOf(const QJsonObject& json) {
    ToolResults results;
    const auto points = json["points"_L1].toArray();
    for (const auto& reply : points)
        results.points << QByteArray::fromHex(reply.toString().toLatin1());
    results.comment = QByteArray::fromHex(json["comment"_L1].toString().toLatin1());
    results.tech = json["inUseTech"_L1].toString();
    return results;
}

QStringList readingsOf(Session& session, const ToolResults& results) {
    QStringList readings;
    for (const auto& reply : results.points) {
        QStringList samples;
        for (int at = samplePosition; at + width - 1 <= reply.size(); at += width)
            samples << plainText(Conv2Double(session, part(reply, at, width)));
        readings
            << text(TextId::pointReadings).arg(QString::number(readings.size() + 1), samples.join(u"; "_s));
    }
    return readings;
}

void readMoment(Session& session, const ToolResults& results, QString& date, QString& time) {
    for (const auto& reply : results.points) {
        if (dateField(reply).size() == width)
            date = Conv2Date(session, dateField(reply));
        if (timeField(reply).size() == width)
            time = Conv2Time(session, timeField(reply));
    }
}

Findings findingsOf(Session& session, CalRecord& record, const CalParamRecord& instrument,
                    const QList<float>& fractions, const ToolResults& results) {
    Findings findings;
    for (int i = 0; i < results.points.size(); ++i) {
        const auto& reply = results.points[i];
        findings.date = Conv2Date(session, dateField(reply));
        findings.time = Conv2Time(session, timeField(reply));
        const double reading = meanOf(samplesOf(session, reply), instrument.repetitions);
        const double applied = ModuleGlobals::inputAt(instrument, double{fractions.value(i)});
        takePoint(record, findings.counts, judgePoint(session, instrument, applied, reading, i + 1), i + 1);
    }
    findings.comment = commentOf(results.comment);
    return findings;
}

void fillFields(Session& session, CalRecord& record, const CalParamRecord& instrument,
                const Findings& findings, const QString& tech) {
    using Value = std::optional<QString>;
    const bool passed = findings.counts.hasPassed();
    const bool remarked = session.CommandLineFlag;
    const auto remark = !remarked                    ? Value(findings.comment)
                        : findings.comment.isEmpty() ? Value(passesVerification.toString())
                                                     : Value();
    kelvane::fillFields(record, instrument, findings.counts,
                        {findings.date, findings.time, passed ? u"FOUND-LEFT"_s : u"AS-FOUND"_s, tech});
    const FieldValue remarks[] = {
        {u"C2326", remark}, {u"C2329", remarked && passed ? Value(receivedInTolerance.toString()) : Value()}};
    kelvane::fillFields(record, remarks);
}

} // namespace kelvane::ModuleTSInterface
