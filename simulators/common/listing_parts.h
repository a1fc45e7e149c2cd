#pragma once

#include "simulators/common/stored_parts.h"

#include <QHash>
#include <QStringList>

namespace kelvane::simulators {

// The lines of a list of what a calibrator holds.

/// "PT-103 (serial number V88103): 3 POINT UP at 0 50 100 percent".
QString headLine(const QString& tag, const QString& serial, const Strategy& strategy);
QHash<QString, QString> promptTexts(const std::vector<Prompt>& prompts);
/// The prompts that are shown `when`, each in one line, whatever line ends it has.
QStringList promptLines(const QString& when, const std::vector<QString>& keys,
                        const QHash<QString, QString>& prompts);
/// "2026-11-20 09:15:30 by J. Doe".
QString whenAndWho(const ClockTime& time, const QString& technician);
QStringList entryLines(const std::vector<Entry>& entries);

} // namespace kelvane::simulators
