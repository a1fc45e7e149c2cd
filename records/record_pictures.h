#pragma once

#include "data/history/point_history.h"

#include <QWidget>

class QComboBox;
class QPushButton;

namespace kelvane {

class PlotView;

/// The pictures of an instrument's records: the errors of the chosen ones, and the drift of each point.
class RecordPictures final : public QWidget {
    Q_OBJECT
  public:
    RecordPictures(Session& session, const QString& asset);

    /// Shows pictures of other records. Their lines are read when the widget comes into sight.
    void setRecords(const QList<CalibrationRecord>& records);
    /// The numbers of the records whose errors are shown.
    void setChosen(const QList<qsizetype>& chosen);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void layOut();
    void readPoints();
    void showPicture();
    void showMethod();

    Session& session_;
    QString asset_;
    QList<CalibrationRecord> records_;
    QList<qsizetype> chosen_;
    PointHistory points_;
    bool areRead_ = false;

    QComboBox* ComboPicture;
    PlotView* view_;
    QPushButton* CommandMethod;
    QPushButton* CommandSavePicture;
};

} // namespace kelvane
