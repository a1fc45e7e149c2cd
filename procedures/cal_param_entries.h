#pragma once

#include "data/parameters/cal_param_columns.h"

#include <QList>

namespace kelvane {

/// What a screen holds of each parameter, as the text that is stored.
class CalParamEntries {
  public:
    CalParamEntries();
    /// The values of a record.
    explicit CalParamEntries(const CalParamRecord& record);

    QString& operator[](CalParamMember member);
    const QString& operator[](CalParamMember member) const;
    /// The value of a number; 0 when it is empty or no number.
    double number(CalParamMember member) const;

  private:
    QList<QString> texts_;
};

/// Takes the signs from the scales of the sides that are an alternating voltage, which has none; gives the
/// parameters that this concerns.
QList<CalParamMember> makeAlternatingScalesPositive(CalParamEntries& entries);

} // namespace kelvane
