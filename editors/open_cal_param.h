#pragma once

#include <QString>

#include <functional>

namespace kelvane {

/// What the other editors have to do with the calibration parameter editor while it is open with an
/// instrument: they keep its lists in step with what they add and rename.
class OpenCalParam {
  public:
    virtual ~OpenCalParam() = default;
    /// The text of its `ComboTSName`.
    virtual QString strategy() const = 0;
    /// Adds a new strategy to its `ComboTSName`.
    virtual void addStrategy(const QString& name) = 0;
    /// Gives a strategy that has been renamed its new name there; one that bears it already absorbs it. It is
    /// no change of the instrument.
    virtual void renameStrategy(const QString& from, const QString& to) = 0;
    /// Adds a new test message to its `ListPreAvail` and `ListPostAvail`.
    virtual void addMessage(const QString& name) = 0;
};

/// Gives the open parameter editor, or null while it is not open with an instrument.
using FindCalParam = std::function<OpenCalParam*()>;

} // namespace kelvane
