#pragma once

#include "records/certificate_report.h"

namespace kelvane {

/// What has become of a run over many certificates.
struct CertificateRun {
    qsizetype wanted = 0;
    qsizetype written = 0;
    /// The user has ended it, or the records could not be read any more.
    bool isEnded = false;
    /// What could not be written, in sentences.
    QStringList failures = {};
};

/// Told before each certificate, counted from 0; false ends the run.
using CertificateProgress = std::function<bool(qsizetype number, const QString& asset)>;

/// Writes the certificate of the last calibration of each instrument (`lastCalibration`) into a folder. Each
/// file is there as a whole or stays as it was; within a run none replaces another. One that fails does not
/// end the run, but an error of the database does, which its routine has reported. Memory does not grow with
/// the number of certificates.
CertificateRun writeCertificates(Session& session, const QStringList& assets, const CertificateForm& form,
                                 const QString& folder, const CertificateProgress& onNext);

/// A run in words for its user.
QString runText(const CertificateRun& run);

} // namespace kelvane
