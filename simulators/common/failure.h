#pragma once

#include <QString>

#include <stdexcept>

namespace kelvane::simulators {

/// A failure of the environment that the simulator can't continue after; the text is for the user who started
/// it.
class Failure : public std::runtime_error {
  public:
    explicit Failure(const QString& text) : std::runtime_error(text.toStdString()) {}
    QString text() const { return QString::fromUtf8(what()); }
};

} // namespace kelvane::simulators
