#include "data/assets.h"
#include "data/cal_params.h"
#include "data/field_dictionary.h"
#include "data/in_use.h"
#include "data/routine.h"
#include "drivers/asset_entries.h"
#include "drivers/judgement.h"
#include "drivers/new_record.h"
#include "drivers/torquestar/control_characters.h"
#include "drivers/torquestar/fields.h"
#include "drivers/torquestar/messages.h"
#include "drivers/torquestar/protocol.h"
#include "drivers/torquestar/torquestar.h"
#include "platform/numbers.h"
#include "platform/texts.h"
#include "resources/strings.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

/// What the calibrator holds of one instrument, judged.
struct Findings {
    QString date;
    QString time;
    QString comment;
    PointCounts counts;
};

using Samples = FixedList<double, 100>;

/// The samples of a result, which fill it from position 12 to its end.
Samples samplesOf(Session& session, const QByteArray& reply) {
    Samples samples;
    for (int k = 0; k <= Samples::last && 4 * k + 12 <= reply.size(); ++k)
        samples[k] = Conv2Double(session, part(reply, 4 * k + 12, 4));
    return samples;
}

/// The mean of the first samples, as many as the instrument wants; samples that did not come count as 0.
double meanOf(const Samples& samples, int count) {
    if (count == 0)
        throw makeError(ErrorNumber::divisionByZero);
    double sum = 0;
    for (int k = 0; k < count; ++k)
        sum += samples[k];
    return sum / count;
}

/// The nominal input at a fraction of the range.
double nominalInput(const CalParamRecord& instrument, double fraction) {
    const double low = instrument.input_low;
    return (instrument.input_high - low) * fraction + low;
}

/// Reads and judges one result; false when the link failed. The characteristic is selected anew before each.
bool readPoint(TorqueStar& driver, const QByteArray& name, const CalParamRecord& instrument, int point,
               double fraction, Findings& findings) {
    auto& session = driver.session;
    ProcessMessageProtocol(driver, "T1C" + name);
    const auto reply = ProcessMessageProtocol(driver, "T1D");
    if (!driver.TSError.isEmpty())
        return false;
    findings.date = Conv2Date(session, part(reply, 4, 4));
    findings.time = Conv2Time(session, part(reply, 8, 4));
    const double reading = meanOf(samplesOf(session, reply), instrument.repetitions);
    const auto result = judged(session, instrument, nominalInput(instrument, fraction), reading, point + 1);
    takePoint(session, findings.counts, result, point + 1);
    return true;
}

/// The comment of the selected characteristic. Error 5 for a reply without a last character to leave out.
bool readComment(TorqueStar& driver, Findings& findings) {
    const auto reply = ProcessMessageProtocol(driver, "T1F");
    if (!driver.TSError.isEmpty())
        return false;
    if (reply.size() < 4)
        throw makeError(ErrorNumber::invalidArgument);
    findings.comment = fromCalibratorBytes(part(reply, 4, reply.size() - 4));
    return true;
}

/// Reads all results of an instrument; nothing when the link failed.
std::optional<Findings> readFindings(TorqueStar& driver, const QByteArray& name,
                                     const CalParamRecord& instrument, const QList<double>& fractions) {
    Findings findings;
    for (int point = 0; point < fractions.size(); ++point) {
        if (!readPoint(driver, name, instrument, point, fractions[point], findings))
            return {};
    }
    if (!readComment(driver, findings))
        return {};
    return findings;
}

/// Puts what was found into the fields of the new record, as far as the site's dictionary has them.
void fillRecord(Session& session, const CalParamRecord& instrument, const Findings& findings,
                const QString& tech) {
    using Value = std::optional<QString>;
    const bool passed = findings.counts.passed();
    const bool remarked = session.CommandLineFlag;
    const auto remark = !remarked                    ? Value(findings.comment)
                        : findings.comment.isEmpty() ? Value(text(1059))
                                                     : Value();
    const FieldValue values[] = {
        {u"C2301", findings.date},
        {u"C2333", findings.time},
        {u"C2326", remark},
        {u"C2323", passed ? u"Y"_s : u"N"_s},
        {u"C2352", plainText(findings.counts.failures)},
        {u"C2350", plainText(findings.counts.marginals)},
        {u"C2320", instrument.tp_name},
        {u"C2308", passed ? u"FOUND-LEFT"_s : u"AS-FOUND"_s},
        {u"C2329", remarked && passed ? Value(text(1060)) : Value()},
        {u"C2307", tech},
    };
    fillFields(session, values);
}

QList<double> testPoints(Session& session, const QString& asset) {
    const int count = ModuleGlobals::GetTestPointList(session, asset);
    QList<double> fractions;
    for (int i = 0; i < count; ++i)
        fractions << double{std::as_const(session.TestPointList)[i]};
    return fractions;
}

/// Writes the calibration record of one instrument and takes it off the calibrator, also when the record was
/// refused; false when the link failed before that.
bool finishInstrument(TorqueStar& driver, const AssetEntry& entry, const QString& serial) {
    auto& session = driver.session;
    const auto name = nameField(characteristicName(entry.asset));
    const auto instrument = ModuleGlobals::GetCalParams(session, entry.asset);
    ModuleGlobals::SetCalDataFields(session, entry.asset);
    session.RecordStandards.erase();
    session.RecordResults.erase();
    const auto findings = readFindings(driver, name, instrument, testPoints(session, entry.asset));
    if (!findings)
        return false;

    const auto inUse = ModuleGlobals::GetInUseData(session, serial, entry.mtag);
    fillRecord(session, instrument, *findings, inUse.tech);
    takeStandardsInUse(session, entry.asset, 0);
    driver.TSError = makeRecord(session, entry.asset);

    ProcessMessageProtocol(driver, "T1C" + name);
    ProcessMessageProtocol(driver, "T1J");
    return true;
}

QString upload(TorqueStar& driver) {
    auto& session = driver.session;
    const auto lineBreak = u"\r\n"_s;
    if (auto failure = testLink(driver); !failure.isEmpty())
        return failure;
    const auto serial = askSerialNumber(driver);
    if (!driver.TSError.isEmpty())
        return driver.TSError;
    if (ModuleGlobals::AssetfromSerial(session, serial).isEmpty())
        return text(423) + lineBreak;

    QString withoutData;
    for (const auto& entry :
         assetEntries(session, ModuleGlobals::GetAssetsInUseWithStandard(session, serial))) {
        const auto name = characteristicName(entry.asset);
        const auto reply = ProcessMessageProtocol(driver, "T1C" + nameField(name));
        if (!driver.TSError.isEmpty())
            return driver.TSError;
        if (reply.startsWith('t') && reply.endsWith(STX))
            withoutData += u", "_s + name;
        else if (!finishInstrument(driver, entry, serial))
            return driver.TSError;
    }
    ModuleGlobals::ClearInUse(session, serial);
    ProcessMessageProtocol(driver, "T2E" + nameField(roundName));
    return withoutData.isEmpty() ? QString() : text(1061) + lineBreak + withoutData;
}

} // namespace

QString TorqueStar_upload(TorqueStar& driver) {
    QString result;
    const BusyPointer busy(driver.session.ui);
    Routine routine(driver.session, u"ModuleTSInterface,TorqueStar_upload"_s);
    routine.run([&] { result = upload(driver); });
    return result;
}

} // namespace kelvane::ModuleTSInterface
