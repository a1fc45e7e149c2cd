#pragma once

#include "data/routine.h"

namespace kelvane {

// The task package in which a list of instruments goes to a calibrator or a report. It exists only as long as
// these need it. All statements run under the routine that is given; what fails is thrown.

/// A new tag: the name of the package, too.
QString newPackageTag(Session& session);
/// Makes the package, in the name of the session's user.
void insertPackage(Session& session, Routine& routine, const QString& tag);
/// Puts an instrument into the package; the asset number is inserted unchanged.
void insertPackageMember(Session& session, Routine& routine, const QString& tag, const QString& asset);
/// Removes the package with its members.
void removePackage(Routine& routine, const QString& tag);

} // namespace kelvane
