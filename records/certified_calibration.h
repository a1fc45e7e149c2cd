#pragma once

#include "data/history/calibrations.h"
#include "data/history/instruments.h"

#include <functional>

namespace kelvane {

/// The calibration that a certificate is of: one record, or one as found and one as left.
struct CertifiedCalibration {
    InstrumentSummary instrument = {};
    /// A record that is neither as found nor as left stands here, too.
    std::optional<CalibrationRecord> asFound = {};
    std::optional<CalibrationRecord> asLeft = {};
    /// What the database names (`readCustomer`); empty when it names none.
    QString customer = {};
};

/// The calibration that one of an instrument's records, which are the newest first, belongs to (`pairOf`).
CertifiedCalibration certifiedCalibration(const InstrumentSummary& instrument,
                                          const QList<CalibrationRecord>& records, qsizetype chosen);

/// The last calibration of an instrument: that of the newest record whose date is not in the future. Nothing
/// without one.
std::optional<CertifiedCalibration> lastCalibration(const Session& session,
                                                    const InstrumentSummary& instrument,
                                                    QList<CalibrationRecord> records);

/// Reads the customer of the calibration's instrument. False after an error, which is reported
/// (`customerOf`).
bool readCustomer(Session& session, CertifiedCalibration& calibration);

/// The certificate's number: the owner and the number of the record, or of both records, "MT-1401" or
/// "MT-1401/1402". No other calibration has it, and the same one always.
QString certificateNumber(const Session& session, const CertifiedCalibration& calibration);

/// The date of the calibration, "YYYY-MM-DD", that of the last record; as it is stored when it is no date.
QString certificateDate(const CertifiedCalibration& calibration);

/// What the records say in one text: once when they say the same, else each with its name. Empty when neither
/// says it.
QString ofBothRecords(const CertifiedCalibration& calibration,
                      const std::function<QString(const CalibrationRecord& record)>& value);

/// The same for sentences, each in a line behind its name.
QString sentencesOfBoth(const CertifiedCalibration& calibration,
                        const std::function<QString(const CalibrationRecord& record)>& value);

/// "value (as found)", or "value (as left)".
QString asFoundOrLeft(const QString& value, bool isAsLeft);

} // namespace kelvane
