#pragma once

#include "data/session.h"
#include "editors/cal_param/cal_param_controls.h"
#include "platform/database/sql.h"

#include <QList>

class QWidget;

namespace kelvane {

/// A column of `mt.hvm_kv_tag_config`, what is written into it, and the control that this comes from (null
/// where it is none).
struct SavedColumn {
    QLatin1StringView name;
    Sql value;
    QWidget* control = nullptr;
};

/// All columns of an instrument's parameters in the order in which they are written. Every control counts,
/// whether its sub-tab is shown or not; texts are quoted as they stand.
QList<SavedColumn> savedColumns(const CalParamControls& controls, const QString& instrument);

/// The statements that replace what is stored for an instrument, in order.
QList<Sql> savingStatements(const Session& session, const CalParamControls& controls,
                            const QString& instrument);

} // namespace kelvane
