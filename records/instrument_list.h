#pragma once

#include "data/history/instruments.h"
#include "platform/values/csv.h"

#include <QList>

namespace kelvane {

class InstrumentModel;

/// Rows as they are shown, under the titles of these columns: cells with a tab between them and between
/// quotes where they need it, lines that end with CR LF.
QString copiedInstruments(InstrumentModel& model, const QList<int>& rows, const QList<int>& columns);

/// Reads all instruments of a query and writes these columns of them to a file, which is replaced as a whole
/// or stays as it was. Gives what to tell the user.
QString saveInstruments(Session& session, const InstrumentQuery& query, const QList<int>& columns,
                        const QString& path, const CsvForm& form);

} // namespace kelvane
