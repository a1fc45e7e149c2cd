#pragma once

#include "testkit/download_fixture.h"
#include "testkit/fluke74x_fixture.h"

namespace kelvane::testing {

/// What the two halves of a download call that need no steps.
inline const QStringList firstHalfCalls{QStringLiteral("DPC3close()"),
                                        QStringLiteral("DPC3open(9600, \"COM1\", 1000, 5)"),
                                        QStringLiteral("DPC3get74X()"), QStringLiteral("DPC3mapStart()")};
inline const QStringList lastHalfCalls{QStringLiteral("DPC3dnlStart()"), QStringLiteral("DPC3close()")};

class Fluke74xDownload : public DownloadOf<Fluke74xFixture> {
  protected:
    /// The items of the n-th instrument's state, from 1, in their order: operation, item and value, such as
    /// "Mapped mcMode Current".
    QStringList stateItems(int n = 1) const {
        static const QRegularExpression form(
            QStringLiteral("^STA3set(\\w+)Op\\(\"root\", \"(\\w+)\", (.*)\\)$"));
        QStringList items;
        int state = 0;
        for (const auto& call : link.calls) {
            if (call == QStringLiteral("STA3initOp()"))
                ++state;
            const auto found = form.match(call);
            if (found.hasMatch() && state == n)
                items << found.captured(1) + u' ' + found.captured(2) + u' ' + found.captured(3).remove(u'"');
        }
        return items;
    }
    /// The value of an item in the n-th instrument's state; "-" without it.
    QString item(const QString& name, int n = 1) const {
        for (const auto& line : stateItems(n)) {
            if (line.section(u' ', 1, 1) == name)
                return line.section(u' ', 2);
        }
        return QStringLiteral("-");
    }
    /// The arguments of the n-th instrument's template.
    QStringList templateOf(int n = 1) const {
        return argumentsOf(QStringLiteral("MEM3instrCalTemplate")).value(n - 1).split(QStringLiteral(", "));
    }
    /// Its two flags: measured by hand, sourced by hand.
    QString flags(int n = 1) const { return templateOf(n).value(8) + templateOf(n).value(9); }

    /// The instrument with sensors on both sides.
    static CalParamRecord withSensors(CalParamRecord record, const QString& in, const QString& out,
                                      qint16 wires = 3) {
        record.temp_sens_type_in = in;
        record.temp_sens_type_out = out;
        record.temp_sens_wires_in = record.temp_sens_wires_out = wires;
        return record;
    }

    const QString listUnread =
        QStringLiteral("The instruments of the download could not be read from the database. The calibrator "
                       "was not changed.");
    const QString instrumentUnread = QStringLiteral(
        "I-1: The calibration parameters, test messages or tolerance could not be read from the "
        "database. The download ended there.");
    const QString unknownCalibrator = QStringLiteral(
        "Asset Number for Calibrator NOT Found In Database! A record for the calibrator must be "
        "created before uploading results.");
};

} // namespace kelvane::testing
