#pragma once

#include "data/history/pass_rate.h"
#include "records/records_page.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

namespace kelvane {

class DateField;
class PlotView;

/// How often instruments were in tolerance as they were found, since a day: as bars, and as a table.
class FormPassRate final : public RecordsPage {
    Q_OBJECT
  public:
    /// The session has to outlive it.
    explicit FormPassRate(Session& session, QWidget* parent = nullptr);

    /// It reads when it is in sight, and else when it comes there.
    void readAgain() override;
    void focusTable() override;
    /// After log out: shows nothing.
    void forget();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void layOut();
    void read();
    void showRates();
    void showTable();

    Session& session_;
    std::optional<PassRates> rates_;
    bool isRead_ = false;

    QComboBox* ComboBy;
    DateField* DateSince;
    QPushButton* CommandReadAgain;
    QLabel* LabelState;
    PlotView* view_;
    QTableWidget* TableRates;
    QPushButton* CommandSavePicture;
};

} // namespace kelvane
