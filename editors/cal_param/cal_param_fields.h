#pragma once

#include "editors/cal_param/cal_param_controls.h"
#include "resources/strings.h"

#include <QHash>
#include <QString>

#include <optional>

class QGridLayout;
class QWidget;

namespace kelvane {

/// The fields of the calibration parameter editor, made with their names, labels, tool-tips, rows and what
/// they start as, for the pages to lay out.
class CalParamFields {
  public:
    explicit CalParamFields(CalParamControls& controls);

    /// Puts a field into a row of a grid, with its label left of it and its unit, by id (0: none), right of
    /// it. A row has room for two such fields side by side, 0 and 1.
    void put(QGridLayout& grid, int row, int side, QWidget* field, std::optional<TextId> unit = {}) const;
    /// The columns that a row of two fields takes.
    static constexpr int columns = 7;

  private:
    void makeTextBoxes(CalParamControls& controls);
    void makeLists(CalParamControls& controls);
    void makeOptions(CalParamControls& controls);
    void addLabel(QWidget* field, TextId caption);

    QHash<const QWidget*, QLabel*> labels_;
};

} // namespace kelvane
