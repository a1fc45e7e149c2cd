#pragma once

#include "drivers/judgement.h"

#include <QJsonObject>
#include <QStringList>

namespace kelvane::ModuleTSInterface {

/// What the calibrator holds of one instrument, as it was read.
struct ToolResults {
    /// The reply for each test point.
    QList<QByteArray> points = {};
    /// The reply that holds the comment; empty when it was not read.
    QByteArray comment = {};
    /// Who has downloaded the instrument.
    QString tech = {};
};

/// The form in which they stand in the journal.
QJsonObject toJson(const ToolResults& results);
ToolResults resultsOf(const QJsonObject& json);
/// The readings for the operator, a line each: the samples of a point.
QStringList readingsOf(Session& session, const ToolResults& results);

/// What the replies say, judged.
struct Findings {
    /// Of the last point; empty without points.
    QString date = {};
    QString time = {};
    QString comment = {};
    PointCounts counts = {};
};

/// Date and time of the last reply that has them; nothing is reported.
void readMoment(Session& session, const ToolResults& results, QString& date, QString& time);

/// Reads and judges the replies at these fractions of the range; the lines go into the results of the
/// record. A reply that can't be read is reported, or thrown as error 5.
Findings findingsOf(Session& session, CalRecord& record, const CalParamRecord& instrument,
                    const QList<float>& fractions, const ToolResults& results);

/// Puts what was found into the fields of the new record, as far as the site's dictionary has them.
void fillFields(Session& session, CalRecord& record, const CalParamRecord& instrument,
                const Findings& findings, const QString& tech);

} // namespace kelvane::ModuleTSInterface
