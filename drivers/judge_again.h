#pragma once

#include "data/journal/journal.h"
#include "data/parameters/cal_params.h"
#include "data/records/cal_record.h"

namespace kelvane {

/// What judging an entry of the journal again starts with: the fields of the new record from the site's
/// dictionary, the instrument's parameters as they are now, and its test points.
struct Rejudgement {
    CalParamRecord instrument = {};
    QList<float> points = {};
};
Rejudgement beginRejudgement(Session& session, CalRecord& record, const QString& asset);

/// Empty when there is a reading for each point; otherwise why they can't be judged.
QString countMismatch(const QString& asset, qsizetype readings, qsizetype points);

/// Puts the standards of an entry into the new record: those that were found then, and behind them what
/// stands in the record now, which counts for an entry whose preparation failed alone.
void takeStandardsOf(CalRecord& record, const JournalEntry& entry);

} // namespace kelvane
