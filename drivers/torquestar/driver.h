#pragma once

#include "data/journal/journal.h"
#include "data/records/cal_record.h"
#include "drivers/calibrator_identity.h"
#include "drivers/torquestar/serial_port.h"

namespace kelvane {

/// The state of the TorqueStar driver: the session, the port it borrows from the main window, and its two
/// strings.
struct TorqueStar {
    Session& session;
    SerialPort& MSCommSerialShared;
    /// The long message being composed by a caller.
    QByteArray TSMessage = {};
    /// The text of the last failure; empty after a completed exchange.
    QString TSError = {};
};

namespace ModuleTSInterface {

inline constexpr CalibratorIdentity identity{
    .name = u"Crane TorqueStar IVc", .caption = TextId::calibratorTorqueStar, .journalWord = u"torquestar"};

/// Whether an instrument can be calibrated with a TorqueStar: empty, or the reason why not.
QString TorqueStar_acceptable(TorqueStar& driver, const QString& asset);
/// An external standard (the transducer) must always be named.
bool TorqueStar_requires_standard(TorqueStar& driver, const QString& asset);
/// Loads the instruments of a task package (by its tag) onto the calibrator: empty on success, else the
/// failure.
QString TorqueStar_download(TorqueStar& driver, const QString& tag);
/// Reads all results, writes the calibration records and clears the calibrator: empty on success, else the
/// failure.
QString TorqueStar_upload(TorqueStar& driver);
/// Judges the results of a tool out of the journal again by the instrument's present parameters, into
/// `record`. The entry's own date and time count. Empty, or the
/// reason why they can't be judged. Errors are reported.
QString TorqueStar_judge_again(Session& session, JournalEntry& entry, CalRecord& record);

} // namespace ModuleTSInterface
} // namespace kelvane
