#pragma once

#include "records/certified_calibration.h"
#include "testkit/fixtures.h"
#include "tests/data/tolerances/tolerance_points.h"

namespace kelvane::testing {

/// Calibrations with lines that the workstation has judged: 0 to 100 psig in, 4 to 20 mA out, within 0.040
/// mA.
class CertificateSession : public RecordedSession {
  protected:
    CertificateSession() {
        session.ResultTemplateLine = QStringLiteral(
            "TN$ FN$           FVA$          FRE$          TT$         DE$          ET$  TU$ CO$         FLL$"
            "        FUL$          TR$");
    }

    /// The line of a point whose reading is off by so many percent of the tolerance.
    QString line(double input, double percent, qint16 number = 1) {
        Point point{input,
                    4 + 0.16 * input + 0.0004 * percent,
                    0,
                    100,
                    20,
                    4,
                    QStringLiteral("0.001"),
                    QStringLiteral("psig"),
                    QStringLiteral("mA"),
                    0.001F};
        point.pos.units = 0.04F;
        point.neg.units = 0.04F;
        return calculate(session, point, number).result_line;
    }
    static CalibrationRecord record(const QString& ctag, const QString& day, const QString& state,
                                    const QString& passed, const QStringList& lines) {
        CalibrationRecord made;
        made.ctag = ctag;
        made.date = storedMomentOf(day);
        made.state = state;
        made.run = calibrationRunOf(state);
        made.passed = passed;
        made.lines = lines;
        return made;
    }
    /// One that was found out of its limits, and adjusted.
    CertifiedCalibration adjusted() {
        CertifiedCalibration calibration;
        calibration.instrument = {.mtag = QStringLiteral("1401"),
                                  .asset = QStringLiteral("PT-101"),
                                  .description = QStringLiteral("PRESSURE TRANSMITTER"),
                                  .manufacturer = QStringLiteral("VALTEC"),
                                  .model = QStringLiteral("X-10"),
                                  .serial = QStringLiteral("S 77")};
        calibration.asFound =
            record(QStringLiteral("501"), QStringLiteral("2026-03-17"), QStringLiteral("AS-FOUND"),
                   QStringLiteral("N"), {line(0, 25, 1), line(50, 150, 2)});
        calibration.asLeft =
            record(QStringLiteral("502"), QStringLiteral("2026-03-17"), QStringLiteral("AS-LEFT"),
                   QStringLiteral("Y"), {line(0, 0, 1), line(50, -85, 2)});
        return calibration;
    }
    /// Without anything that may be missing.
    static CertifiedCalibration blank() {
        CertifiedCalibration calibration;
        calibration.asFound = CalibrationRecord{};
        return calibration;
    }
};

} // namespace kelvane::testing
