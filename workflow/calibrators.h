#pragma once

#include "drivers/calibrator_identity.h"
#include "drivers/fluke702/driver.h"
#include "drivers/fluke74x/driver.h"
#include "drivers/torquestar/driver.h"

#include <limits>
#include <span>

namespace kelvane {

/// By what the drivers reach their calibrators: a serial line, and link libraries.
struct CalibratorLinks {
    SerialPort& torqueStar;
    Dpclnk& fluke702;
    Dpclnk3& fluke74x;
};

/// The drivers, each with its state.
struct Calibrators {
    Calibrators(Session& workstation, const CalibratorLinks& links)
        : session(workstation),
          torqueStar{workstation, links.torqueStar},
          fluke702{workstation, links.fluke702},
          fluke74x{workstation, links.fluke74x} {}

    Session& session;
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

/// What a user reads for a calibrator; a name that none has stands for itself.
QString calibratorCaption(const QString& name);

/// Asks which calibrator is meant, in a dialog of that title; the name chosen last time, kept in section
/// "Defaults" under the key `remembered`, is proposed. Empty when the operator gave up.
QString chooseCalibrator(Session& session, const QString& title, const QString& remembered);

/// Has an entry of the journal judged again by the driver that has read it, or as the worksheet that it is.
QString judgeAgain(Session& session, JournalEntry& entry, CalRecord& record);

} // namespace kelvane
