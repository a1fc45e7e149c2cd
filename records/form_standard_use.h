#pragma once

#include "records/records_page.h"
#include "records/standard_use_report.h"
#include "reports/open_previews.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QStringListModel;
class QTableView;

namespace kelvane {

class DateField;
class StandardUseModel;

/// Which calibrations were carried out with a standard since a day: what to look at when it turns out to be
/// wrong. Its previews close with it.
class FormStandardUse final : public RecordsPage {
    Q_OBJECT
  public:
    /// Layouts of reports are looked for in these folders first. The session has to outlive it.
    FormStandardUse(Session& session, const QStringList& layoutFolders, QWidget* parent = nullptr);

    /// Shows what a standard was used for, with the calibrations of a day among them, if one is given.
    void showUses(const QString& standard, const QDate& day = {});
    void readAgain() override;
    void focusTable() override;
    /// After log out: shows nothing, and closes the previews.
    void forget();

  Q_SIGNALS:
    /// The user wants to see the history of an instrument.
    void historyWanted(const QString& asset);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void layOut();
    void setUpTable();
    void connectControls();
    /// Offers the standards of the database while one is typed. False after an error.
    bool offerStandards();
    /// Looks for what is typed.
    void ask();
    void tell(const QString& state, bool isAlarming);
    void enableCommands();
    void openHistory();
    void save();
    void print();

    Session& session_;
    QStringList layoutFolders_;
    /// What the table shows; without a standard it shows nothing.
    StandardUseList list_;
    StandardUseModel* model_;
    QStringListModel* standards_;
    OpenPreviews previews_;
    bool areOffered_ = false;

    QLineEdit* TextStandard;
    DateField* DateSince;
    QPushButton* CommandShow;
    QTableView* TableUses;
    QLabel* LabelUses;
    QLabel* LabelOutcome;
    QPushButton* CommandHistory;
    QPushButton* CommandCopy;
    QPushButton* CommandSave;
    QPushButton* CommandPrint;
};

} // namespace kelvane
