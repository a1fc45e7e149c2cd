#pragma once

#include "data/routine.h"

#include <QStringList>

namespace kelvane::ModuleGlobals {

/// The rows that belong to a calibration record of an instrument.
class RecordParts {
  public:
    /// `record` is the key of the record as an SQL expression.
    RecordParts(Session& session, Routine& routine, const QString& mtag, const Sql& record)
        : session_(session), routine_(routine), mtag_(sqlText(mtag)), record_(record) {}

    /// The key of the record that the server has marked as the instrument's current one.
    static Sql currentRecord(const Session& session, const QString& mtag);

    /// Writes a standard by its asset number; one that the inventory doesn't know becomes a null.
    void insertStandard(const QString& name) const;
    /// Writes the result line of that number, from 0. The line is inserted unchanged.
    void insertResult(const QString& line, int number) const;

  private:
    Session& session_;
    Routine& routine_;
    Sql mtag_;
    Sql record_;
};

/// The names without later copies of one, ignoring case.
QStringList distinctNames(const QStringList& names);

/// Copies fields of the instrument's current record as the site's dictionary asks: within the record, and to
/// other tables from database version 6 on.
void copyFields(Session& session, Routine& routine, const QString& asset);

/// Empties the fields of the inventory that a calibration ends, as far as the site has configured that.
void clearInventoryFields(Session& session, const QString& asset, bool passed);

} // namespace kelvane::ModuleGlobals
