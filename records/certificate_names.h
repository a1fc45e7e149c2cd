#pragma once

#include "records/certified_calibration.h"

#include <QSet>

namespace kelvane {

/// What a rule for file names can say of a certificate.
struct CertificateNaming {
    QString asset = {};
    QString date = {};
    QString number = {};
    QString serial = {};
};

CertificateNaming certificateNaming(const Session& session, const CertifiedCalibration& calibration);

/// The names of certificates' files. A rule is a text in which {asset}, {date}, {number} and {serial} stand
/// for what the certificate says. What the name of a file can't have becomes "_", and a long name is cut.
class CertificateNames {
  public:
    explicit CertificateNames(QString rule) : rule_(std::move(rule)) {}

    /// The name of the next certificate, with ".pdf". One that was given already gets a number, "PT-101 (2)";
    /// capital and small letters count as the same. A name of nothing becomes the certificate's number.
    QString next(const CertificateNaming& naming);

  private:
    QString rule_;
    /// In small letters.
    QSet<QString> given_;
};

} // namespace kelvane
