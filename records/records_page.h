#pragma once

#include <QWidget>

namespace kelvane {

class UserInterface;

/// A page of the window of the records.
class RecordsPage : public QWidget {
    Q_OBJECT
  public:
    /// Reads what is shown again; F5 does it while the page is in sight.
    virtual void readAgain() = 0;
    /// Gives the keyboard to the table that the page is for.
    virtual void focusTable() = 0;

  protected:
    RecordsPage(UserInterface& ui, QWidget* parent);
};

} // namespace kelvane
