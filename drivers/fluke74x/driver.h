#pragma once

#include "data/journal/journal.h"
#include "data/records/cal_record.h"
#include "drivers/calibrator_identity.h"
#include "drivers/fluke74x/dpclnk3.h"

namespace kelvane {

/// The state of the driver of the Fluke 743 and 744: the session, the link library, and what the last contact
/// said of the calibrator.
struct Fluke74x {
    Session& session;
    Dpclnk3& link;
    QString Calibrator74xModel = {};
    /// Its serial number, the key of the in-use registry.
    QString Calibrator74xSerial = {};
    QString Calibrator74xText = {};
    qint32 Calibrator74xNumber = 0;
    /// Its asset number; empty when the database doesn't know the calibrator.
    QString Calibrator74xAsset = {};
};

namespace Module74xInterface {

inline constexpr CalibratorIdentity identity{
    .name = u"Fluke 743/744", .caption = TextId::calibratorFluke74x, .journalWord = u"fluke74x"};

/// Whether an instrument can be calibrated with a Fluke 743 or 744: empty, or the reason why not. A box shows
/// what the calibrator can't do by itself; that is no reason.
QString Fluke74x_acceptable(Fluke74x& driver, const QString& asset);
/// True when an external standard has to supply a reading on either side.
bool Fluke74x_requires_standard(Fluke74x& driver, const QString& asset);
/// Loads the instruments of a task package (by its tag) onto the calibrator and registers them as in use:
/// empty on success, else the failure.
QString Fluke74x_download(Fluke74x& driver, const QString& task);
/// Reads all results and writes a calibration record for each stored run: empty on success, else the failure.
QString Fluke74x_upload(Fluke74x& driver);
/// Judges a run out of the journal again by the instrument's present parameters, into `record`. The entry's
/// own date and time count. Empty, or the reason why it can't be judged. Errors are reported.
QString Fluke74x_judge_again(Session& session, JournalEntry& entry, CalRecord& record);

} // namespace Module74xInterface
} // namespace kelvane
