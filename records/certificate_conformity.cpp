#include "records/certificate_conformity.h"

#include <algorithm>

namespace kelvane {

namespace {

/// The slack of comparing decimal figures in binary ones, as a part of the tolerance.
constexpr double slack = 1e-9;

std::optional<bool> storedVerdict(const QString& verdict, QStringView passed, QStringView failed) {
    if (verdict == passed)
        return true;
    return verdict == failed ? std::optional(false) : std::nullopt;
}

std::optional<bool> isWithin(const StoredLine& line, double guardBand) {
    const auto nominal = line.number(LineField::nominal);
    const auto reading = line.number(LineField::reading);
    const auto low = line.number(LineField::lowLimit);
    const auto high = line.number(LineField::highLimit);
    if (!nominal || !reading || !low || !high)
        return {};
    const double tolerance = *reading < *nominal ? *nominal - *low : *high - *nominal;
    const double acceptance = tolerance * (1 - guardBand / 100);
    return std::abs(*reading - *nominal) <= acceptance + slack * std::abs(tolerance);
}

} // namespace

std::optional<bool> isConforming(const StoredLine& line, const CertificateSettings& settings) {
    if (line.reading != StoredLine::Reading::readable || settings.rule == DecisionRule::none)
        return {};
    const auto verdict = storedVerdict(line.field(LineField::verdict), u"PASS", u"FAIL");
    if (settings.rule == DecisionRule::simpleAcceptance || verdict == false)
        return verdict;
    const auto within = isWithin(line, settings.guardBand);
    return verdict || within == false ? within : std::nullopt;
}

namespace {

std::optional<bool> areConforming(const QList<StoredLine>& lines, const CertificateSettings& settings) {
    bool conforms = true;
    bool hasPoint = false;
    for (const auto& line : lines) {
        if (line.reading == StoredLine::Reading::blank)
            continue;
        const auto ofLine = isConforming(line, settings);
        if (!ofLine)
            return {};
        hasPoint = true;
        conforms = conforms && *ofLine;
    }
    return hasPoint ? std::optional(conforms) : std::nullopt;
}

} // namespace

std::optional<bool> isConforming(const CalibrationRecord& record, const QList<StoredLine>& lines,
                                 const CertificateSettings& settings) {
    const auto ofLines = areConforming(lines, settings);
    const auto ofRecord = storedVerdict(record.passed, u"Y", u"N");
    const bool isContradicted = settings.rule == DecisionRule::simpleAcceptance
                                    ? ofRecord != ofLines
                                    : ofLines == true && ofRecord == false;
    return isContradicted ? std::nullopt : ofLines;
}

} // namespace kelvane
