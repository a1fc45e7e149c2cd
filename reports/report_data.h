#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>

namespace kelvane {

/// What a report shows: values of the whole report, and its groups in their order, each with values and lists
/// of rows of its own. All values are texts as they are to be printed. Groups are kept compressed: a report
/// of hundreds takes no more memory than one of a few.
class ReportData {
  public:
    /// The values of the whole report.
    QJsonObject values;

    void add(const QJsonObject& group);
    qsizetype groupCount() const { return groups_.size(); }
    /// A group, counted from 0.
    QJsonObject group(qsizetype index) const;

  private:
    QList<QByteArray> groups_;
};

} // namespace kelvane
