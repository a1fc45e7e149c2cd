#pragma once

#include "records/instrument_model.h"
#include "records/records_page.h"
#include "records/saved_columns.h"

#include <QTimer>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace kelvane {

class GrowingColumns;
class InstrumentChoice;

/// The list of instruments: a filter as it is typed, a choice of filters, the table, and what can be done
/// with its rows.
class FormInstruments final : public RecordsPage {
    Q_OBJECT
  public:
    /// The session has to outlive it.
    explicit FormInstruments(Session& session, QWidget* parent = nullptr);

    void readAgain() override;
    void focusTable() override;
    /// Gives the keyboard to the filter.
    void focusFilter();
    /// Says in the line below the table what has become of a command.
    void tell(const QString& outcome);
    /// After log out: shows nothing, and all instruments next time.
    void forget();
    /// Stores the columns as they are now.
    void storeLayout();

  Q_SIGNALS:
    /// The user wants to see the history of an instrument.
    void historyWanted(const kelvane::InstrumentSummary& instrument);
    /// The user wants a task package of these instruments.
    void packageWanted(const QStringList& assets);
    /// The user wants the certificates of these instruments.
    void certificatesWanted(const QStringList& assets);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void layOut();
    void setUpTable();
    void connectControls();
    void connectHeader();
    /// Runs the query of what is chosen and typed.
    void ask();
    void growColumns();
    void keepPlace();
    void returnToPlace();
    void showState();
    /// What stands below the table.
    QString state() const;
    void clickHeader(int column);
    void sort(int column, bool isDescending);
    void showOrder();
    void openHistory();
    void copy();
    void save();
    QStringList selectedAssets() const;
    void askPackage();
    void askCertificates();

    Session& session_;
    InstrumentModel* model_;
    QTimer typing_;
    GrowingColumns* columns_;
    InstrumentQuery query_;
    /// The asset numbers that were selected, and that of the current row.
    QStringList selected_;
    QString current_;
    int sortColumn_ = 0;
    /// Since the login.
    bool isAsked_ = false;
    /// The choice of the last time.
    bool isRestored_ = false;

    QLineEdit* TextFilter;
    InstrumentChoice* choice_;
    QTableView* TableInstruments;
    QLabel* LabelShown;
    QLabel* LabelOutcome;
    QPushButton* CommandHistory;
    QPushButton* CommandCopy;
    QPushButton* CommandSave;
    QPushButton* CommandPackage;
    QPushButton* CommandCertificates;
    QPushButton* CommandColumns;
    QPushButton* CommandReadAgain;
};

} // namespace kelvane
