#pragma once

#include <QString>

namespace kelvane {

/// Around the making of the application: where the toolkit finds no display, or not the platform that was
/// asked for, the program ends with status 1 and one sentence on the standard error, in the place of the
/// toolkit's lines and an abort. What else the toolkit says meanwhile is written when this object goes.
class DisplayCheck {
  public:
    /// `program` is the name before that sentence.
    explicit DisplayCheck(const QString& program);
    ~DisplayCheck();
    DisplayCheck(const DisplayCheck&) = delete;
    DisplayCheck& operator=(const DisplayCheck&) = delete;
};

} // namespace kelvane
