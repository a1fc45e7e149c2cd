#pragma once

#include "data/records/cal_record.h"
#include "testkit/fixtures.h"

namespace kelvane::testing {

/// Makes the record of the instrument A-1, whose key is 1301, from a field table as the dictionary would have
/// left it: a pass on a Monday morning, due after 12 months.
class RecordCreation : public RecordedSession {
  protected:
    RecordCreation();
    /// A further row of the field table.
    CalField& put(const QString& column, const QString& value, qint16 type = 0);
    /// A value that a caller puts into a row that is there already.
    void set(const QString& column, const QString& value);
    QString valueOf(const QString& column) const;

    QString create();
    /// The statement that has written the record; empty when none was written.
    QString insert() const;
    /// What the progress window has shown.
    QStringList progress() const;

    /// The operator's answer to the field of that title.
    void dialog(const QString& title, const QString& answer);
    void cancelDialog(const QString& title);

    static QString duplicateQuery(const QString& date, const QString& time);
    static QString standardInsert(const QString& name);
    static QString resultInsert(const QString& line, int number);

    static const QString copiesWithinQuery;
    static const QString copiesBackQuery;
    static const QString emptied4224;
    static const QString emptied4225;
    CalRecord record;
    /// What finds the instrument's key.
    QString keyQuery;
};

} // namespace kelvane::testing
