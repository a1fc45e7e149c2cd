#pragma once

#include "simulators/fluke74x/memory.h"
#include "simulators/fluke74x/results.h"
#include "simulators/fluke74x/setup.h"

#include <QHash>
#include <QSet>

#include <optional>

namespace kelvane::simulators::fluke74x {

/// What a calibration template says.
struct Template {
    qint32 strategy = 0; ///< 0: none
    References state;
    qint16 measureByHand = 0;
    qint16 sourceByHand = 0;
    QString tag;
    QString serial;
};

/// The references of a step's state; runs and steps count from 0.
References referencesOfStep(const Run& run, std::size_t place, qint16 step);

/// The image of the calibrator's memory in the workstation's process, with the checks that the calibrator
/// makes of what is put into it. Ids count from 1.
class Image {
  public:
    const Contents& contents() const { return contents_; }
    void clear();

    // A task: prompts, one template, prompts, and strategies anywhere. All but the first name its two
    // references.
    Code startTask(qint32& task, qint32& atom, const QString& tag);
    Code checkTask(qint32 task, qint32 atom) const;
    Code placePrompt(const References& prompt, qint32& place);
    Code placeTemplate(const Template& placed, qint32& place);
    Code endTask();
    bool isTaskStarted() const { return started_.has_value(); }

    /// A name that is there already takes the same points only, and keeps its id.
    Code defineStrategy(const QString& name, const std::vector<float>& points, qint32& id);
    /// 0 when there is none.
    qint32 findStrategy(const QString& name) const { return strategyIds_.value(name); }
    Code definePrompt(const Prompt& prompt, References& numbers);

    Setup& setup() { return setup_; }
    /// Keeps the state that was evaluated.
    Code saveState(References& state);
    /// Makes a state the current one: one that was saved, or that of a step.
    Code restore(const References& references);
    /// The current state, null while there is none.
    const std::vector<Bucket>* buckets() const { return current_ ? &*current_ : nullptr; }

    const Results& results() const { return results_; }
    /// The task of a run; 0 when there is none.
    qint32 taskOf(const Run& run) const;

    // What comes from the calibrator.
    void fill(const Contents& definitions);
    void add(const Task& task) { contents_.tasks.push_back(task); }
    void add(const Run& run);

  private:
    Contents contents_;
    Results results_;
    QSet<QString> keys_;
    QHash<QString, qint32> strategyIds_;
    Setup setup_;
    std::optional<std::vector<Bucket>> current_;
    std::optional<Task> started_;
};

} // namespace kelvane::simulators::fluke74x
