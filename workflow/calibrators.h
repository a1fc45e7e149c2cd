#pragma once

#include "drivers/calibrator_identity.h"
#include "drivers/fluke702/driver.h"
#include "drivers/fluke74x/driver.h"
#include "drivers/serial_ports.h"
#include "drivers/torquestar/driver.h"
#include "platform/communication_log.h"

#include <limits>
#include <memory>
#include <span>

namespace kelvane {

/// By what the drivers reach their calibrators: a serial line, and link libraries.
struct CalibratorLinks {
    SerialPort& torqueStar;
    Dpclnk& fluke702;
    Dpclnk3& fluke74x;
    /// What the ports of the settings are found by.
    SerialDeviceSources devices = {};
    /// Where the communication logs stand.
    QString logFolder = communicationLogFolder();
};

/// The drivers, each with its state. They reach their calibrators through the links, whose traffic is logged
/// where the settings say so.
struct Calibrators {
    Calibrators(Session& workstation, const CalibratorLinks& links);

    /// The log of the calibrator of that name, which has to be one of `allCalibrators`.
    CommunicationLog& log(const QString& calibrator);

    Session& session;
    SerialPorts ports;
    /// True while a driver downloads or uploads; nothing may hold that up.
    bool communicating = false;
    CommunicationLog torqueStarLog;
    CommunicationLog fluke702Log;
    CommunicationLog fluke74xLog;

  private:
    std::unique_ptr<SerialPort> line_;
    std::unique_ptr<Dpclnk> dpclnk_;
    std::unique_ptr<Dpclnk3> dpclnk3_;

  public:
    TorqueStar torqueStar;
    Fluke702 fluke702;
    Fluke74x fluke74x;
};

/// A calibrator as the workflow knows it. An operation that it does not have is done with nothing: it accepts
/// every instrument, requires no standard, and downloads and uploads in success.
struct Calibrator {
    CalibratorIdentity identity;
    /// Parity, stop bits and data bits of its line are settings too; otherwise only baud rate and port are.
    bool hasLineFormat = false;
    /// What goes over its line.
    CommunicationLog Calibrators::*log = nullptr;
    /// The number of the port that its driver opens, by the stored baud rate and port.
    int (*port)(const QString& baudRate, const QString& port) = nullptr;
    /// A download list stays below so many rows.
    qsizetype listEnd = std::numeric_limits<qsizetype>::max();
    /// An external standard needs calibration parameters of its own.
    bool standardNeedsParameters = false;

    /// Empty, or the reason why the calibrator can't take this instrument.
    QString (*acceptable)(Calibrators&, const QString& asset) = [](Calibrators&, const QString&) {
        return QString();
    };
    /// True when an external standard must be named for this instrument.
    bool (*requiresStandard)(Calibrators&, const QString& asset) = [](Calibrators&, const QString&) {
        return false;
    };
    /// Empty on success, else the failure. `tag` is the task package that carries the list.
    QString (*download)(Calibrators&, const QString& tag) = [](Calibrators&, const QString&) {
        return QString();
    };
    /// Empty on success, else the failure.
    QString (*upload)(Calibrators&) = [](Calibrators&) { return QString(); };
    /// Judges an entry of the journal again by the instrument's present parameters, into the record. Empty,
    /// or the reason why it can't be judged.
    QString (*judgeAgain)(Session&, JournalEntry&, CalRecord&) = nullptr;
};

/// All calibrators, in the order in which they are offered.
std::span<const Calibrator> allCalibrators();

/// The calibrator of that name, compared exactly; for a name that none has, one that has no operations.
const Calibrator& calibratorNamed(const QString& name);

/// Have the calibrator of that name do its `download` or `upload`.
QString downloadTo(Calibrators& drivers, const QString& calibrator, const QString& tag);
QString uploadFrom(Calibrators& drivers, const QString& calibrator);

/// What a user reads for a calibrator; a name that none has stands for itself.
QString calibratorCaption(const QString& name);

/// Asks which calibrator is meant, in a dialog of that title; the name chosen last time, kept in section
/// "Defaults" under the key `remembered`, is proposed. Empty when the operator gave up.
QString chooseCalibrator(Session& session, const QString& title, const QString& remembered);

/// Has an entry of the journal judged again by the driver that has read it, or as the worksheet that it is.
QString judgeAgain(Session& session, JournalEntry& entry, CalRecord& record);

} // namespace kelvane
