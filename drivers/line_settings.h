#pragma once

#include "data/session.h"
#include "drivers/calibrator_identity.h"

namespace kelvane {

/// The keys of a calibrator's line settings on this workstation, in the settings section of its name.
namespace lineKey {

inline constexpr QStringView baudRate = u"BaudRate";
inline constexpr QStringView parity = u"Parity";
inline constexpr QStringView stopBits = u"StopBits";
inline constexpr QStringView dataBits = u"DataBits";
inline constexpr QStringView port = u"Port";

} // namespace lineKey

/// A parity: its stored word, the letter of a serial line, and what a user reads.
struct Parity {
    QStringView word;
    QChar letter;
    TextId caption;
};

inline constexpr Parity parities[] = {{u"Even", u'E', TextId::parityEven},
                                      {u"Odd", u'O', TextId::parityOdd},
                                      {u"None", u'N', TextId::parityNone}};

/// A stored line setting; empty when there is none.
QString lineSetting(const Session& session, const CalibratorIdentity& calibrator, QStringView key);

/// The port that a link library is opened with, by the stored one: the first port where there is none.
QString linkPort(const QString& stored);

/// What a link library is opened with.
struct LinkLine {
    qint32 baudRate = 9600;
    /// Such as "COM1".
    QString port;
};

/// The stored baud rate and port; the usual ones where there is none, or a baud rate that is no number.
LinkLine linkLine(const Session& session, const CalibratorIdentity& calibrator);

} // namespace kelvane
