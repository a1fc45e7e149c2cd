#pragma once

#include "data/journal/kept_results.h"
#include "records/records_page.h"

class QLabel;
class QListWidget;
class QPushButton;
class QSplitter;
class QTreeWidget;

namespace kelvane {

/// The results of this station's journal that have no calibration record: which they are, why, and their
/// readings. It only looks; the workstation makes the records.
class FormUnrecorded final : public RecordsPage {
    Q_OBJECT
  public:
    /// The journal is looked for in these folders. The session has to outlive it.
    FormUnrecorded(Session& session, const QStringList& folders, QWidget* parent = nullptr);

    /// It reads the journal.
    void readAgain() override;
    void focusTable() override;
    /// After log out: shows nothing.
    void forget();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void layOut();
    void showResults(const KeptResults& kept);
    void showReadings();
    void tell(const QString& state, bool isAlarming);

    Session& session_;
    QStringList folders_;
    QList<JournalEntry> entries_;

    QLabel* LabelFound;
    QTreeWidget* ListResults;
    QListWidget* ListReadings;
    QLabel* LabelJournal;
    QPushButton* CommandReadAgain;
};

} // namespace kelvane
