#pragma once

#include "simulators/fluke702/codes.h"
#include "simulators/fluke702/memory.h"

#include <QSet>

#include <optional>

namespace kelvane::simulators::fluke702 {

/// The image of the calibrator's memory in the workstation's process, with the checks that the calibrator
/// makes of what is put into it. Ids count from 1.
class Image {
  public:
    const Contents& contents() const { return contents_; }
    void clear();

    Code defineStrategy(const QString& name, const std::vector<float>& points, qint32& id);
    Code definePrompt(const QString& key, const QString& text);

    // A task: prompts, one template, prompts.
    Code startTask(const QString& tag);
    Code placePrompt(const QString& key);
    Code placeTemplate(qint32 strategy, qint16 byHand, const QString& tag, const QString& serial,
                       qint32 state);
    Code endTask();
    bool isTaskStarted() const { return started_.has_value(); }

    /// The current setup state.
    State& state() { return state_; }
    /// The pressure module that belongs to it.
    const QString& module() const { return module_; }
    void newState();
    Code saveState(qint32& id);
    /// Makes the state of a stored run the current one.
    Code selectStateOf(qint32 record);

    /// The run at a place that counts from 0; null when there is none.
    const Run* run(qint32 record) const;

    // What comes from the calibrator.
    void fill(const Contents& definitions);
    void add(const Task& task) { contents_.tasks.push_back(task); }
    void add(const Run& run) { contents_.runs.push_back(run); }

  private:
    Contents contents_;
    QSet<QString> keys_;
    QSet<qint32> statesInUse_;
    State state_;
    QString module_;
    std::optional<Task> started_;
};

} // namespace kelvane::simulators::fluke702
