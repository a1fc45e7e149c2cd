#pragma once

#include "editors/cal_param_controls.h"

#include <QHash>
#include <QString>

class QBoxLayout;
class QGridLayout;
class QWidget;

namespace kelvane {

/// The fields of the calibration parameter editor, made with their names, labels, tool-tips, rows and what
/// they start as, for the pages to lay out.
class CalParamFields {
  public:
    explicit CalParamFields(CalParamControls& controls);

    /// Puts a field and its label, which stands left of it, into two columns of a grid. `unit` is the id of
    /// the unit behind the field, 0 for none.
    void put(QGridLayout& grid, int row, int column, QWidget* field, int unit = 0) const;

  private:
    void makeTextBoxes(CalParamControls& controls);
    void makeLists(CalParamControls& controls);
    void makeOptions(CalParamControls& controls);
    void addLabel(QWidget* field, int caption);

    QHash<const QWidget*, QLabel*> labels_;
};

/// A field with the unit that stands behind it.
QBoxLayout* withUnit(QWidget* field, int unit);

} // namespace kelvane
