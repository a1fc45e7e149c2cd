#pragma once

#include "data/routine.h"

#include <QMap>
#include <QStringList>

namespace kelvane {

/// What a calibration record of an instrument has to hold.
struct RecordContents {
    QString asset;
    QString mtag;
    /// "YYYY-MM-DD", and "HH:NN:SS" or nothing where the site's records have no time.
    QString date;
    QString time;
    QStringList lines;
    QStringList standards;
};

/// A record of the database that was begun of such contents.
struct StoredRecord {
    /// Its key.
    QString ctag;
    /// The server has marked it as the instrument's current one.
    bool isCurrent = false;
    bool passed = false;
    /// Its result lines, by their numbers.
    QMap<int, QString> lines;
    /// The keys of its standards, ignoring those that the inventory doesn't know, and the number of these.
    QStringList standards;
    int unknownStandards = 0;
};

namespace ModuleGlobals {

/// The instrument's records of that date and time. Throws the errors of the database.
QList<StoredRecord> recordsOf(Session& session, Routine& routine, const RecordContents& contents);

/// False for a record that holds another line where the contents have one, or more lines: it is not theirs.
bool mayBecome(const StoredRecord& record, const RecordContents& contents);

/// Writes what the record lacks: standards, lines and, as long as it is the current one, the copies of its
/// fields. Deletes nothing. Throws the errors of the database.
void complete(Session& session, Routine& routine, const StoredRecord& record, const RecordContents& contents);

/// True when the record has exactly the lines, and each of the standards. Throws the errors of the database.
bool isWhole(Session& session, const StoredRecord& record, const RecordContents& contents);

} // namespace ModuleGlobals
} // namespace kelvane
