#pragma once

#include "data/parameters/cal_params.h"
#include "editors/cal_param/cal_param_controls.h"
#include "platform/database/sql.h"

#include <QList>

namespace kelvane {

/// Adds rows to a list; what is selected stays so, be it nothing.
void addRows(QComboBox& list, const QStringList& rows);

/// Shows a record on the screen. A value that a list or a group of options does not offer leaves it as it is.
void showRecord(const CalParamRecord& record, const CalParamControls& controls);

/// A list of test messages and the query that fills it with its first column.
struct PromptQuery {
    QListWidget* list;
    Sql statement;
};
/// The four lists of an instrument, in the order in which they are filled.
QList<PromptQuery> promptQueries(const Session& session, const CalParamControls& controls,
                                 const QString& instrument);

/// Everything whose change counts as a change of the screen, in one text.
QString summedText(const CalParamControls& controls);

} // namespace kelvane
