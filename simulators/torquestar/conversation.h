#pragma once

#include "simulators/torquestar/faults.h"
#include "simulators/torquestar/line.h"
#include "simulators/torquestar/messages.h"
#include "simulators/torquestar/pace.h"
#include "simulators/torquestar/record.h"

namespace kelvane::simulators {

/// The calibrator's part in an exchange: it answers a link start, acknowledges a message, announces its
/// reply, sends it when the workstation has acknowledged that, and receives its acknowledge. A link start
/// begins anew at any time. A message takes effect when its announcement is acknowledged, so that a
/// workstation that has to repeat it before that does not find it carried out twice.
class Conversation {
  public:
    /// `acknowledge`: DLE or ACK.
    Conversation(char acknowledge, Faults& faults, Record& record, VirtualLine& line, Messages& messages);

    /// One byte of the workstation; `following` are those already seen behind it.
    void receive(char byte, const QByteArray& following);

  private:
    enum class Step { Idle, Message, Announced, Replied };

    void startLink();
    void receiveMessage(char byte);
    void takeMessage(const QByteArray& message);
    void announce();
    void reply();
    QByteArray replyBody();
    void transmit();
    bool transmitBroken(const QByteArray& frame);
    std::optional<Fault> fault(FaultKind kind) { return faults_.take(kind, message_.left(3)); }
    std::chrono::milliseconds delayOf(FaultKind kind);

    char acknowledge_;
    Faults& faults_;
    Record& record_;
    VirtualLine& line_;
    Messages& messages_;

    Step step_ = Step::Idle;
    QByteArray lastReceived_;
    FrameReader reader_;
    QByteArray message_;
    std::optional<QByteArray> reply_;
    int transmissions_ = 0;
};

} // namespace kelvane::simulators
