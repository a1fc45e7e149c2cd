#pragma once

#include <QDateEdit>

#include <optional>

namespace kelvane {

/// A field for a day, written as in all lists: "2018-06-15". It is typed with or without its separators. What
/// is no day is refused as soon as it is typed: the day before it stands there again, and typing begins anew.
class DateField final : public QDateEdit {
    Q_OBJECT
  public:
    DateField();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void takeDigit(QKeyEvent* event);
    void takeSeparator();
    void paste();
    /// True when the selection is more than one of year, month and day.
    bool selectsSeveralParts() const;
    void refuse();
    void endTyping();

    /// The day that stood there before the digits that are typed.
    std::optional<QDate> dayBefore_;
    /// The last digit completed its part, so that the next part is selected already.
    bool hasAdvanced_ = false;
};

} // namespace kelvane
