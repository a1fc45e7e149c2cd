#pragma once

#include "data/assets/in_use.h"
#include "data/journal/journal.h"
#include "testkit/database_session.h"

#include <QRegularExpression>

namespace kelvane::testing {

/// The demonstration laboratory, whose site asks for no fields that the operator fills in.
///
/// PT-101 (key 1401) is made an instrument of round numbers: 0 to 100 V in, 0 to 100 V out, 3.125 V to either
/// side, which is 3.125 % of span, and its strategy "ROUND" has the points 0, 50 and 100 %. PT-102 (1402) is
/// the same.
class UploadLab : public DatabaseSession {
  protected:
    UploadLab();

    void addStrategy(const QString& name, const QList<double>& points);
    /// Makes an instrument the round one, but for `changes`, such as "repetitions = 3".
    void configure(const QString& mtag, const QString& changes = {});

    /// The first column of a query, in its order; "(null)" for a null.
    QStringList column(const QString& query);
    /// An expression over the records that were made, in their order.
    QStringList records(const QString& expression);
    /// The round, the pass mark, failures and marginals of each record.
    QStringList verdicts();
    /// The lines of all records that were made, blanks drawn together.
    QStringList lines();
    /// The keys of the standards of all records that were made.
    QStringList standards();

    /// A box about an instrument of which an upload or a download speaks.
    void expectFailureBox(const QString& words, const QString& name);
    void expectDisagreement(bool instrumentPassed, const QString& asset = QStringLiteral("PT-101"));
    void expectRefusal();

    int firstRecord = 0;
};

} // namespace kelvane::testing
