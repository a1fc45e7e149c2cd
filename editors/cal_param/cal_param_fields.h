#pragma once

#include "editors/cal_param/cal_param_control.h"
#include "editors/cal_param/cal_param_field_table.h"
#include "procedures/cal_param_entries.h"

#include <vector>

class QComboBox;
class QLabel;

namespace kelvane {

/// Adds rows to a list; what is selected stays so, be it nothing.
void addRows(QComboBox& list, const QStringList& rows);

/// The fields of the calibration parameter editor, one for each parameter that it shows. The pages lay them
/// out; then their controls belong to the window.
class CalParamFields {
  public:
    /// The columns that a row of two fields takes.
    static constexpr int columns = 7;

    CalParamFields();

    /// Puts the fields of a panel into its grid, each with its label left of it and its unit right of it.
    void fill(QGridLayout& grid, CalParamPanel panel) const;

    /// Shows what a record says.
    void show(const CalParamRecord& record) const;
    /// What stands in each field.
    CalParamEntries entries() const;
    /// What the fields add to the checksum.
    QString checkSumText() const;

    /// The control of a parameter; null for one that is not shown.
    CalParamControl* control(CalParamMember parameter) const;
    /// The drop-down of a parameter that has one.
    QComboBox* list(CalParamMember parameter) const;
    /// The label beside a field; null without one.
    QLabel* label(CalParamMember parameter) const;

  private:
    struct Field {
        const CalParamField& given;
        std::unique_ptr<CalParamControl> control;
        QLabel* label;
    };
    const Field* find(CalParamMember parameter) const;

    std::vector<Field> fields_;
};

} // namespace kelvane
