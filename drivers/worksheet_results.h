#pragma once

#include "data/journal/journal.h"
#include "data/records/cal_record.h"

namespace kelvane {

/// What stands for the driver in the journal's entries of paper worksheets.
inline constexpr QStringView worksheetWord = u"worksheet";

/// Writes what has been entered from a paper worksheet into an entry of the journal: who it is from, date and
/// time of the calibration, fields and standards, and a line for each field. `isDictionaryRead` is false when
/// the fields could not be read completely.
void takeWorksheet(const Session& session, const CalRecord& record, bool isDictionaryRead,
                   JournalEntry& entry);

/// Puts the fields and standards of such an entry into a new record, over those of the site's dictionary of
/// now. It has no result lines. Empty: there is nothing that could keep it from being judged.
QString judgeWorksheetAgain(Session& session, JournalEntry& entry, CalRecord& record);

} // namespace kelvane
