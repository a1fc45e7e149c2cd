#pragma once

#include "drivers/torquestar/driver.h"

namespace kelvane::ModuleTSInterface {

/// The name of the one round that the system keeps on a calibrator.
inline const QString roundName = QStringLiteral("KVTASK");

/// The name under which an instrument stands on the calibrator: the beginning of its asset number.
QString characteristicName(const QString& asset);
/// A name as a message field, with its suffix.
QByteArray nameField(const QString& name);
/// `count` characters of a message from `position`, counted from 1; fewer where the message ends.
QByteArray part(const QByteArray& message, qsizetype position, qsizetype count);
/// A byte field. Error 5 beyond 0 to 255.
QByteArray byteField(double value);

/// Tests the link: empty when the calibrator answers, otherwise the failure.
QString testLink(TorqueStar& driver);
/// Asks the calibrator for its serial number, as decimal text; "0" when it gave none.
QString askSerialNumber(TorqueStar& driver);

} // namespace kelvane::ModuleTSInterface
