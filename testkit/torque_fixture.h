#pragma once

#include "drivers/torquestar/driver.h"
#include "testkit/lab.h"
#include "testkit/line_peer.h"

#include <QHash>

namespace kelvane::testing {

/// A lab with torque tools, and a scripted calibrator on the line that takes
/// everything and holds no data, until a test puts other answers into `replies`.
class TorqueFixture : public Lab {
  protected:
    TorqueFixture();

    static constexpr qint32 serialNumber = 12345678;

    /// The calibrator's own row in the inventory: TS-01, key 900.
    void addCalibrator();
    /// The instruments that are registered with the calibrator.
    void addInUse(const QStringList& assets);
    /// The wrenches "W-1" to "W-n" with the transducer "X-1", as a package.
    QStringList addWrenches(const QString& tag, int count);

    /// A click wrench of 100 ft/lb, 4 % of reading, three samples a point.
    static CalParamRecord wrench();
    /// A transducer of 250 ft/lb.
    static CalParamRecord transducer();
    static CalParamRecord serialTransducer();

    /// The identifiers of what went over the line, "T1A W-1" with the name where there is one.
    QStringList conversation() const;
    /// The next replies to a message, by its three characters; nothing: it is not acknowledged.
    QHash<QByteArray, QList<std::optional<QByteArray>>> replies;

    ScriptedSerialPort port;
    LinePeer peer;
    TorqueStar driver{session, port};

  private:
    std::optional<QByteArray> replyTo(const QByteArray& body);
};

/// Four bytes of a number, most significant first.
QByteArray integer32(qint32 number);
/// The reply to "who are you".
QByteArray identity(qint32 serial);
/// A result: date, time, and samples in tens of thousandths.
QByteArray result(qint32 date, qint32 time, const QList<double>& samples);

} // namespace kelvane::testing
