#pragma once

#include "simulators/fluke74x/memory.h"

#include <QHash>

#include <optional>

namespace kelvane::simulators::fluke74x {

enum AtomKind : qint16 { RunResults = 4, StepOfRun = 5, InstrumentTag = 11, ResultReference = 18 };
/// For a call that takes each of them.
inline constexpr qint16 AnyAtom = 0;

struct Atom {
    qint16 kind = 0;
    qint32 reference = 0;
    std::size_t run = 0; ///< its place in the list of runs
    qint32 results = 0;  ///< the reference of the run's results
};

/// The list of results as it is read: a group for each instrument that has any, in the order of their first
/// runs. A group has these atoms of each run: the reference to the results, the results, one for each step,
/// the tag. Groups and atoms count from 0.
class Results {
  public:
    /// The next run of the memory.
    void add(const Run& run);

    std::size_t groups() const { return groups_.size(); }
    /// How many the group has; 0 when there is no such group.
    std::size_t atoms(qint32 group) const;
    std::optional<Atom> atom(qint32 group, qint32 place) const;

  private:
    struct Stored {
        std::size_t run = 0;
        std::size_t atoms = 0;
        std::size_t before = 0; ///< atoms of all the runs before it
    };

    const std::vector<Stored>* runsOf(qint32 group) const;

    std::vector<std::vector<Stored>> groups_;
    QHash<std::pair<QString, QString>, std::size_t> instruments_; ///< groups by tag and serial number
    std::size_t runs_ = 0;
    std::size_t atoms_ = 0;
};

} // namespace kelvane::simulators::fluke74x
