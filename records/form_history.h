#pragma once

#include "records/certified_calibration.h"
#include "records/records_page.h"

class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class QSplitter;
class QTabWidget;
class QTableWidget;

namespace kelvane {

class RecordPane;
class RecordPictures;

/// The records of an instrument, the newest first; the points of the chosen calibration as found and as left
/// side by side, or of two records; what else these records say; and pictures of them.
class FormHistory final : public RecordsPage {
    Q_OBJECT
  public:
    /// Reads the records. The session has to outlive it.
    FormHistory(Session& session, const InstrumentSummary& instrument, QWidget* parent = nullptr);

    const QString& asset() const { return instrument_.asset; }
    /// What was read stays when it fails.
    void readAgain() override;
    void focusTable() override;

  Q_SIGNALS:
    /// The user wants to see what a standard was used for, with the calibration of a day; no day when no
    /// record that is shown has one.
    void usesWanted(const QString& standard, const QDate& day);
    /// The user wants to see the certificate of the chosen calibration.
    void certificateWanted(const kelvane::CertifiedCalibration& calibration);

  private:
    void layOut();
    void connectControls();
    /// The numbers of the chosen record and of the one that it is compared with; empty without one.
    struct Place {
        QString chosen;
        QString compared;
    };
    Place place() const;
    /// Returns to the place as far as its records are still there.
    void showRecords(const Place& place);
    void fillComparing(const QString& compared);
    /// Where the record of that number stands; -1 when there is none.
    qsizetype indexOf(const QString& ctag) const;
    /// The record whose row is chosen; -1 without one.
    qsizetype chosen() const;
    void showChosen();
    void askCertificate();
    void showPair(qsizetype record);
    void showPane(RecordPane& pane, std::optional<qsizetype> record, const QString& note);
    /// Offers the standards of the records that are shown.
    void offerStandards(std::optional<qsizetype> left, std::optional<qsizetype> right);
    void showDetails(std::optional<qsizetype> left, std::optional<qsizetype> right);
    void showErrors(std::optional<qsizetype> left, std::optional<qsizetype> right);

    Session& session_;
    InstrumentSummary instrument_;
    QList<CalibrationRecord> records_;

    QLabel* LabelInstrument;
    QTableWidget* TableRecords;
    QLabel* LabelState;
    QComboBox* ComboCompare;
    QPushButton* CommandUses;
    QPushButton* CommandCertificate;
    QMenu* standards_;
    RecordPane* left_;
    RecordPane* right_;
    QTableWidget* TableDetails;
    RecordPictures* pictures_;
    QTabWidget* parts_;
    QSplitter* splitter_;
};

} // namespace kelvane
