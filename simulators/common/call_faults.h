#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace kelvane::simulators {

/// The statuses that operations are to give, whatever they would say themselves: faults with semicolons
/// between, OPERATION[+AFTER][*TIMES]=STATUS, such as "MEMtemplate+2*1=2012;DPCdnlStep=100". The first one
/// spares two calls and comes once.
class CallFaults {
  public:
    CallFaults() = default;
    /// `operations` are the names of the library's operations. Throws `Failure` on anything that it doesn't
    /// understand.
    CallFaults(const QString& text, std::span<const char* const> operations);

    /// The status of this call, if one is asked for; counts the call.
    std::optional<qint16> take(const char* operation);

  private:
    struct Fault {
        QByteArray operation;
        int after = 0; ///< how many calls it still lets pass
        int left = -1; ///< how often it still comes; below 0 without end
        qint16 status = 0;
    };

    static Fault faultOf(const QString& text, std::span<const char* const> operations);

    std::vector<Fault> faults_;
};

} // namespace kelvane::simulators
