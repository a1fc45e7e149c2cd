#pragma once

#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QList>

#include <functional>

QT_FORWARD_DECLARE_CLASS(QPainter)
QT_FORWARD_DECLARE_CLASS(QRectF)

namespace kelvane {

/// Paints into its place. Lengths are design units (`reports/design_unit.h`) whatever the device is, so that
/// a font needs its size in pixels of them. The painter's state is put back afterwards.
using ReportDrawing = std::function<void(QPainter& painter, const QRectF& place)>;
/// Drawings by the names that a layout has for them.
using ReportDrawings = QHash<QString, ReportDrawing>;

/// What a report shows: values of the whole report, and its groups in their order, each with values and lists
/// of rows of its own. All values are texts as they are to be printed. Groups are kept compressed: a report
/// of hundreds takes no more memory than one of a few.
class ReportData {
  public:
    /// The values of the whole report.
    QJsonObject values;

    void add(const QJsonObject& group, const ReportDrawings& drawings = {});
    qsizetype groupCount() const { return groups_.size(); }
    /// A group, counted from 0.
    QJsonObject group(qsizetype index) const;
    ReportDrawings drawings(qsizetype index) const { return drawings_.value(index); }

  private:
    QList<QByteArray> groups_;
    /// Of the groups that have any.
    QHash<qsizetype, ReportDrawings> drawings_;
};

} // namespace kelvane
