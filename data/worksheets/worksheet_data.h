#pragma once

#include "data/session.h"

#include <QJsonObject>
#include <QStringList>

namespace kelvane {

/// The values of a whole worksheet report: its title, when and by whom it is printed.
QJsonObject worksheetValues(const Session& session, const QString& title);

/// The keys of the instruments in the package of that tag, one for each of its rows, in the order in which
/// the engine gives them; nothing after an error, which is reported.
std::optional<QStringList> worksheetInstruments(Session& session, const QString& tag);

/// Reads what the sheet of an instrument shows, all of it as texts: inventory, calibration parameters by the
/// names of their columns, test points, messages, fields and standards. "required" of a field is "Y" or
/// empty. False after an error, which is reported, or for an instrument that the inventory lacks, which a box
/// says: the sheet then holds what was read before.
bool readWorksheet(Session& session, const QString& mtag, QJsonObject& sheet);

} // namespace kelvane
