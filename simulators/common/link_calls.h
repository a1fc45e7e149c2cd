#pragma once

#include "simulators/common/call_faults.h"
#include "simulators/common/call_record.h"
#include "simulators/common/failure.h"

#include <exception>

namespace kelvane::simulators {

/// Where a link library's calibrator lies and how it misbehaves.
struct Environment {
    QString memory = {}; ///< the file of the calibrator's memory
    QString faults = {}; ///< see `CallFaults`
    QString record = {}; ///< the file of the received calls; empty: none

    bool operator==(const Environment&) const = default;
};

/// What the variables PREFIX_MEMORY, PREFIX_FAULTS and PREFIX_RECORD say; `memory` is for a memory that isn't
/// named.
Environment environmentOf(const QByteArray& prefix, const QString& memory);

/// The calls of a simulated link library, whatever its operations.
///
/// A fault with a status from 2000 on, or below 0, comes in the place of the operation; any other one is the
/// operation's status after it was carried out.
class LinkCalls {
  public:
    using Status = qint16;

    /// Another environment from now on: the file with the next opening of the link, faults and record at
    /// once; the faults begin anew. What can't be understood is reported on standard error, and no link can
    /// be opened.
    void setEnvironment(const Environment& environment);

  protected:
    /// `library` and `operations` are the names of the library and of its operations, `outOfStep` is the
    /// status of a call that fails where none can.
    LinkCalls(const char* library, std::span<const char* const> operations, Status outOfStep)
        : library_(library), operations_(operations), outOfStep_(outOfStep) {}
    ~LinkCalls() = default;

    /// The file of the calibrator's memory. Throws `Failure` when the environment can't be understood.
    const QString& memory() const;

    /// Carries out an operation. `unreachable` is its status when the work throws `Failure`; `values` are
    /// what goes into the operation, for the record.
    template <class Work, class... Values>
    Status carryOut(const char* operation, Status unreachable, Work work, const Values&... values) {
        const std::optional<Status> asked = faults_.take(operation);
        Status status = 0;
        if (!asked || (*asked >= 0 && *asked < firstError)) {
            try {
                status = work();
            } catch (const Failure& failure) {
                say(failure.text());
                status = unreachable;
            } catch (const std::exception& exception) {
                say(QString::fromLocal8Bit(exception.what()));
                status = outOfStep_;
            }
        }
        status = asked.value_or(status);
        record_.add(operation, status, values...);
        return status;
    }

  private:
    static constexpr Status firstError = 2000;

    void say(const QString& words) const;

    const char* library_;
    std::span<const char* const> operations_;
    Status outOfStep_;
    Environment environment_;
    CallFaults faults_;
    CallRecord record_;
    QString trouble_;
};

} // namespace kelvane::simulators
