#pragma once

#include <QString>

#include <stdexcept>

namespace kelvane::demo {

/// What the demonstration found instead of the expected.
class Difference : public std::runtime_error {
  public:
    explicit Difference(const QString& message) : std::runtime_error(message.toStdString()) {}
};

} // namespace kelvane::demo
