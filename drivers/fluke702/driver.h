#pragma once

#include "data/journal/journal.h"
#include "data/records/cal_record.h"
#include "drivers/calibrator_identity.h"
#include "drivers/fluke702/dpclnk.h"

namespace kelvane {

/// The state of the Fluke 702 driver: the session, the link library, and what the last contact said of the
/// calibrator.
struct Fluke702 {
    Session& session;
    Dpclnk& link;
    QString Calibrator702Model = {};
    /// Its serial number, the key of the in-use registry.
    QString Calibrator702Serial = {};
    QString Calibrator702Text = {};
    qint32 Calibrator702Number = 0;
    /// Its asset number; empty when the database doesn't know the calibrator.
    QString Calibrator702Asset = {};
};

namespace Module702Interface {

inline constexpr CalibratorIdentity identity{
    .name = u"Fluke 702", .caption = TextId::calibratorFluke702, .journalWord = u"fluke702"};

/// Whether an instrument can be calibrated with a Fluke 702: empty, or the reason why not. A box shows what
/// the calibrator can't read by itself; that is no reason.
QString Fluke702_acceptable(Fluke702& driver, const QString& asset);
/// True when an external standard has to supply the reading of the output.
bool Fluke702_requires_standard(Fluke702& driver, const QString& asset);
/// Loads the instruments of a task package (by its tag) onto the calibrator and registers them as in use:
/// empty on success, else the failure.
QString Fluke702_download(Fluke702& driver, const QString& task);
/// Reads all results and writes the calibration records: empty on success, else the failure.
QString Fluke702_upload(Fluke702& driver);
/// Judges a run out of the journal again by the instrument's present parameters, into `record`. The entry's
/// own date and time count; its asset is found again for a tag that was cut. Empty, or the reason why it
/// can't be judged. Errors are reported.
QString Fluke702_judge_again(Session& session, JournalEntry& entry, CalRecord& record);

} // namespace Module702Interface
} // namespace kelvane
