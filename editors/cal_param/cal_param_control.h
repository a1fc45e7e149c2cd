#pragma once

#include <QString>

#include <memory>

class QGridLayout;
class QWidget;

namespace kelvane {

struct CalParamField;

/// The control of one parameter on the screen, or its group of options.
class CalParamControl {
  public:
    virtual ~CalParamControl() = default;
    /// Shows a value; one that a list or a group of options does not offer leaves it as it is.
    virtual void show(const QString& value) = 0;
    /// What stands in it, as it is stored.
    virtual QString entry() const = 0;
    /// What it adds to the checksum.
    virtual QString sumText() const { return entry(); }
    /// The control itself; of a group of options the one that is on.
    virtual QWidget* widget() const = 0;
    /// Puts it into a row of a grid, behind the column of its label. Without a label check boxes and options
    /// take that column too, options a row each.
    virtual void put(QGridLayout& grid, int row, int labelColumn) const;
};

/// Makes the control of a field with its names, tool-tips, rows and what it starts as.
std::unique_ptr<CalParamControl> makeCalParamControl(const CalParamField& field);

} // namespace kelvane
