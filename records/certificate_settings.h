#pragma once

#include "platform/workstation.h"

namespace kelvane {

/// How readings are judged on a certificate, after ILAC-G8.
enum class DecisionRule {
    /// No statement of conformity is made.
    none,
    /// A reading within its limits conforms.
    simpleAcceptance,
    /// The limits are drawn in by a part of the tolerance first.
    guardBand,
};

/// What the database does not know of a certificate, as the user has entered it. What is empty is not known.
struct CertificateSettings {
    QString laboratory = {};
    /// In lines.
    QString address = {};
    QString accreditation = {};
    QString customer = {};
    QString method = {};
    /// The sentence on the traceability of the standards.
    QString traceability = {};
    /// The sentence on the measurement uncertainty.
    QString uncertainty = {};
    QString authorizedBy = {};
    DecisionRule rule = DecisionRule::none;
    /// Percent of the tolerance, 0 to 100.
    double guardBand = 0;
    /// "A4" or "Letter"; empty for what is usual where the machine stands.
    QString paper = {};
    /// The name of a certificate's file (`records/certificate_names.h`).
    QString fileName = {};

    friend bool operator==(const CertificateSettings&, const CertificateSettings&) = default;
};

/// Reads section "Certificate" of the settings. A paper or a rule that is none counts as not entered, and a
/// guard band without a percentage from 0 to 100 as no rule.
CertificateSettings certificateSettings(const Workstation& workstation);
void storeCertificateSettings(const Workstation& workstation, const CertificateSettings& settings);

} // namespace kelvane
