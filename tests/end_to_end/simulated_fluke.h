#pragma once

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/field_runs.h"
#include "workflow/calibrators.h"

namespace kelvane::testing {

/// What a simulated calibrator holds.
struct HeldTasks {
    /// Of its tasks.
    QStringList tags = {};
    /// Those of them of which a side is read or applied manually.
    QStringList byHand = {};
    std::size_t runs = 0;
    /// All of it.
    QByteArray text = {};

    bool operator==(const HeldTasks&) const = default;
    friend void PrintTo(const HeldTasks& held, std::ostream* out) { *out << held.text.constData(); }
};

/// A status, and the message and the name that a user gets for it.
struct StatusWords {
    int status = 0;
    TextId message;
    QString name;

    QString words() const { return text(message) + QStringLiteral(" (%1)").arg(name); }
};

/// A simulated calibrator that carries tasks out, and what the tests of all such calibrators need of it.
struct SimulatedFluke {
    const demo::CalibratorRuns& runs;
    QString name;
    /// How the names of its variables begin.
    QByteArray variables;
    HeldTasks (*held)(const QString& memory);
    /// The technician's work by a plan.
    void (*carryOut)(const QString& memory, const QString& plan);
    void (*closeLink)(const CalibratorLinks& links);

    /// What it takes of the plant, in the order of the inventory.
    QStringList accepted;
    /// When its memory can't be read.
    StatusWords noAnswer;
    /// Errors of its library.
    QList<StatusWords> errors;
    /// The calls of a download whose status does not matter, as faults of a status of 0.
    QStringList ignoredCalls;

    // The steps of transfers, by their operations: of an upload of one run, and of a download until the image
    // goes, and then.
    QStringList uploadSteps;
    QStringList stepsBeforeImage;
    QString imageStep;
};

/// `byHand` says of a task whether a side of it is read or applied manually.
template <class MemoryFile, auto byHand>
HeldTasks heldIn(const QString& path) {
    HeldTasks held;
    MemoryFile(path).use([&](const auto& memory) {
        for (const auto& task : memory.contents.tasks) {
            held.tags << task.tag;
            if (byHand(task))
                held.byHand << task.tag;
        }
        held.runs = memory.contents.runs.size();
        held.text = textOf(memory);
        return false;
    });
    return held;
}

/// `carryOut` is the calibrator's own, of jobs that `jobsOf` reads.
template <class MemoryFile, auto jobsOf, auto carryOut>
void carryOutPlan(const QString& path, const QString& plan) {
    MemoryFile(path).use([&](auto& memory) {
        carryOut(memory, jobsOf(plan), {});
        return true;
    });
}

/// The calibrator that this test program is about.
const SimulatedFluke& flukeUnderTest();

} // namespace kelvane::testing
