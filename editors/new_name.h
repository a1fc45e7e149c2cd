#pragma once

#include "data/routine.h"
#include "resources/strings.h"

class QWidget;

namespace kelvane {

/// What the one-field dialog asks about the name of a new record.
struct NewName {
    /// Ids of the dialog's title, its prompt, and the warning that the name is in use.
    TextId title;
    TextId prompt;
    TextId taken;
    /// Greatest length, 0 for no limit.
    qint16 maxLength;
    /// The query for a record of a name, which it doubles the quotes of.
    Sql (*recordOf)(const QString& name);
};

/// Asks until the name is free; nothing when the dialog is cancelled. The screen's own controls are out of
/// reach meanwhile.
std::optional<QString> askNewName(Session& session, Routine& routine, QWidget& screen, const NewName& wanted);

} // namespace kelvane
