#pragma once

#include "data/session.h"
#include "editors/cal_param_controls.h"

#include <QStringList>

namespace kelvane {

/// A column of `mt.hvm_kv_tag_config` and what is written into it, quotes included.
struct SavedColumn {
    QLatin1StringView name;
    QString value;
};

/// All columns of an instrument's parameters in the order in which they are written. Every control counts,
/// whether its sub-tab is shown or not; texts are quoted as they stand.
QList<SavedColumn> savedColumns(const CalParamControls& controls, const QString& instrument);

/// The statements that replace what is stored for an instrument, in order.
QStringList savingStatements(const Session& session, const CalParamControls& controls,
                             const QString& instrument);

} // namespace kelvane
