#pragma once

#include "platform/error.h"
#include "procedures/cal_param_entries.h"
#include "procedures/cal_param_reading.h"

namespace kelvane {

/// Replaces what is stored for an instrument, all of it or nothing: its parameters, then the messages that it
/// displays. Texts are quoted as they stand. Gives the error, nothing when all is stored. Reported as
/// "FormCalParam,SaveData".
std::optional<Error> storeCalParams(Session& session, const QString& instrument,
                                    const CalParamEntries& entries, const MessageLists& displayed);

/// The parameter that kept an instrument from being saved: one whose value has left its place in the
/// statement, or the one whose column the error names. Nothing when neither is known.
std::optional<CalParamMember> refusedParameter(const QString& instrument, const CalParamEntries& entries,
                                               const Error& error);
/// The first message whose name would end its own quotes; -1 without one.
qsizetype refusedMessage(const QStringList& messages);

} // namespace kelvane
