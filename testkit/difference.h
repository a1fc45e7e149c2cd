#pragma once

#include <QString>

#include <stdexcept>

namespace kelvane::demo {

/// What the demonstration met instead of what has to be.
class Difference : public std::runtime_error {
  public:
    explicit Difference(const QString& told) : std::runtime_error(told.toStdString()) {}
};

} // namespace kelvane::demo
