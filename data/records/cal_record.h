#pragma once

#include "data/session.h"

#include <functional>

namespace kelvane {

/// A row of the calibration record that is being made. A row with an empty `column` ends the table.
struct CalField {
    QString column;
    QString title;
    /// "Y", "N", or empty when the dictionary says nothing.
    QString required;
    bool has_list = false;
    QString default_text;
    /// 0 text, 1 date, 2 number, 3 time.
    qint16 field_type = 0;
    QString copy_from;
    QString copy_to;
    qint16 max_length = 0;
    QString tooltip;
    bool on_worksheet = false;
    QString value;
};

/// A calibration record in the making, from the first reading of the results until it is written.
struct CalRecord {
    FixedList<CalField, 100> CalFieldTable;
    /// Asset numbers of its standards; the first empty entry ends the list.
    FixedList<QString, 100> RecordStandards;
    /// Its result lines; the first empty entry ends the list.
    FixedList<QString, 2000> RecordResults;
};

namespace ModuleGlobals {

/// A caller's decisions while a record is made.
struct RecordConsent {
    /// Asked before the operator is asked for anything: false abandons the record.
    std::function<bool()> mayAsk = {};
    /// Asked before the first statement that writes, when date and time are settled in `CalFieldTable`: false
    /// abandons the record. What it throws is reported like any error, and then nothing is written.
    std::function<bool()> mayWrite = {};
    /// Called when the instrument could not be locked (`InstrumentLock`), which is reported like any error:
    /// nothing is written then.
    std::function<void()> couldNotLock = {};
};

/// Writes a calibration record of the asset, asking the operator for fields that are missing. Empty when the
/// record was made (or after a reported error, or given up by the caller), otherwise the reason.
QString CreateCalRecord(Session& session, CalRecord& record, const QString& asset,
                        const RecordConsent& consent = {});

/// Asks for the field in row `index` of `CalFieldTable`; true when the operator gave a value.
bool PromptUser(Session& session, CalRecord& record, qint16 index, const QString& asset);

} // namespace ModuleGlobals
} // namespace kelvane
