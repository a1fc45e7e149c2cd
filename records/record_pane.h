#pragma once

#include "data/history/calibrations.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QTableWidget;

namespace kelvane {

/// The points of one record: what its result lines say, and the lines themselves where they don't say it for
/// certain.
class RecordPane final : public QWidget {
    Q_OBJECT
  public:
    /// `name` stands before the names of its controls.
    RecordPane(Session& session, const QString& name);

    void showRecord(const CalibrationRecord& record, const QString& note = {});
    /// Nothing but a note.
    void showNote(const QString& note);
    /// Lets the tables of both panes begin and end on one line.
    void standBeside(RecordPane& other);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void align();
    /// Of a label above or below the tables.
    void align(QLabel* RecordPane::*part);
    bool hasTable() const;
    void addLine(const QString& line);
    void addText(const QString& line);
    /// Makes room for a stored line that is wider than its columns.
    void widen();

    Session& session_;
    QPointer<RecordPane> beside_;
    /// Pixels that the widest line as it is stored needs.
    int widestText_ = 0;
    int unreadable_ = 0;
    bool isWithoutTemplate_ = false;

    QLabel* LabelRecord;
    QTableWidget* TableLines;
    QLabel* LabelNote;
};

} // namespace kelvane
