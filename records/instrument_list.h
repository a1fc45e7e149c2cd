#pragma once

#include "data/history/instruments.h"
#include "records/list_file.h"

#include <QList>

namespace kelvane {

/// Reads all instruments of a query and writes these columns of them to a file, which is replaced as a whole
/// or stays as it was. Gives what to tell the user.
QString saveInstruments(Session& session, const InstrumentQuery& query, const QList<int>& columns,
                        const ListFile& file);

} // namespace kelvane
