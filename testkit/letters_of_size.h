#pragma once

#include <QApplication>
#include <QFont>

namespace kelvane::testing {

/// Letters of that size for a while. A window is made with the letters of its desktop.
class LettersOfSize {
  public:
    explicit LettersOfSize(int points) : before_(QApplication::font()) {
        QApplication::setFont(QFont(before_.family(), points));
        // Windows that are there already take them with their next events.
        QCoreApplication::processEvents();
    }
    ~LettersOfSize() { QApplication::setFont(before_); }

  private:
    QFont before_;
};

} // namespace kelvane::testing
