#pragma once

#include "drivers/fluke702/fluke702.h"
#include "drivers/torquestar/torquestar.h"

namespace kelvane {

/// The calibrators of the program, by their names (`calibratorName`). A driver is chosen by comparing the
/// name, in the order Fluke 702, Crane TorqueStar IVc, Fluke 743/744; a name that matches none leaves the
/// result empty or false.
struct Calibrators {
    Session& session;
    TorqueStar torqueStar;
    Fluke702 fluke702;
};

/// What a user reads for a calibrator; a name that is none stands for itself.
QString calibratorCaption(const QString& name);

/// Asks which calibrator is meant, in a dialog of that title; the name chosen last time, kept in section
/// "Defaults" under the key `remembered`, is proposed. Empty when the operator gave up.
QString chooseCalibrator(Session& session, const QString& title, const QString& remembered);

/// Empty, or the reason why the calibrator can't take this instrument.
QString calibratorAcceptable(Calibrators& calibrators, const QString& calibrator, const QString& asset);
/// True when an external standard must be named for this instrument.
bool calibratorRequiresStandard(Calibrators& calibrators, const QString& calibrator, const QString& asset);
/// Empty on success, else the failure. `tag` is the task package that carries the list.
QString calibratorDownload(Calibrators& calibrators, const QString& calibrator, const QString& tag);
/// Empty on success, else the failure.
QString calibratorUpload(Calibrators& calibrators, const QString& calibrator);
/// Judges an entry of the journal again by the instrument's present parameters,
/// into `record`. Empty, or the reason why it can't be judged.
QString judgeAgain(Session& session, JournalEntry& entry, CalRecord& record);

namespace ModuleGlobals {

/// The upload command: asks which calibrator has results and hands over to its driver. What it could make no
/// record of is listed by `unfinishedResults` when it returns.
void UploadFromCalibrator(Calibrators& calibrators);

} // namespace ModuleGlobals
} // namespace kelvane
