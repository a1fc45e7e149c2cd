#pragma once

#include "simulators/fluke74x/codes.h"
#include "simulators/fluke74x/values.h"

namespace kelvane::simulators::fluke74x {

/// An item of a setup state as the calibrator's maps describe it.
struct Item {
    QStringView name;
    Value initial;                  ///< the calibrator's default; it says what kind of item it is
    std::vector<QStringView> words; ///< of a unit or a mapped item; none: any text
    qint32 highest = 0;             ///< of an integer, which begins at 0
};

/// All items, in the calibrator's order.
const std::vector<Item>& items();

/// Whether the item takes the value: one of its kind, a number, a word that the maps have.
Code check(const Item& item, const Value& value);

/// A setup state: a value for each item, in their order. A new one has the calibrator's defaults.
class State {
  public:
    State();

    /// What is refused leaves the state as it was.
    Code set(const QString& item, const Value& value);
    /// 0 for an item that holds no float.
    float number(QStringView item) const;
    /// Of a unit or a mapped item; empty for any other.
    QString word(QStringView item) const;

    const std::vector<Value>& values() const { return values_; }

    bool operator==(const State&) const = default;

  private:
    const Value* find(QStringView item) const;

    std::vector<Value> values_;
};

} // namespace kelvane::simulators::fluke74x
