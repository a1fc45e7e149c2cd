#pragma once

#include <QString>

#include <stdexcept>

namespace kelvane::simulators {

/// Something outside the simulator that it can't go on without; the text is for the person who started it.
class Failure : public std::runtime_error {
  public:
    explicit Failure(const QString& text) : std::runtime_error(text.toStdString()) {}
    QString text() const { return QString::fromUtf8(what()); }
};

} // namespace kelvane::simulators
