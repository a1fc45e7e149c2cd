#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace kelvane::simulators {

/// The ways in which a calibrator misbehaves, in the order of an exchange.
enum class FaultKind {
    Silent,            ///< a link start is not answered
    WrongLinkAck,      ///< a link start is answered by another byte
    LateLinkAck,       ///< a link start is answered late
    LinkNoise,         ///< a link start is answered by noise without end
    NoFrameAck,        ///< a message is not acknowledged
    WrongAck,          ///< a message is acknowledged by another byte
    LateFrameAck,      ///< a message is acknowledged late
    NoAnnouncement,    ///< no reply is announced
    WrongAnnouncement, ///< another byte stands in the place of the announcement
    LateAnnouncement,  ///< the reply is announced late
    ErrorCode,         ///< a T1A or T2B is refused with this code
    OtherReply,        ///< the reply holds these bytes
    NoReply,           ///< the announced reply does not come
    Late,              ///< the reply comes late
    BadChecksum,       ///< the check bytes are wrong
    DropByte,          ///< the n-th byte of the frame is missing
    AddByte,           ///< a byte stands before the n-th one of the frame
    FlipByte,          ///< the lowest bit of the n-th byte of the frame is turned over
    Split,             ///< the frame pauses behind its n-th byte
    Noise,             ///< noise without end comes in the place of the reply
    StartOver,         ///< the reply breaks off into a new announcement
    VanishAfter,       ///< the calibrator is gone after n bytes of the frame
};

struct Fault {
    FaultKind kind{};
    int number = 0;        ///< a count of bytes, milliseconds or an error code
    QByteArray bytes;      ///< what a wrong acknowledge, announcement or reply holds
    QByteArray identifier; ///< the message it is meant for; empty for all
    int after = 0;         ///< how many occasions it still lets pass
    int left = -1;         ///< how often it still comes; below 0 without end
};

/// What `--fault` takes, one kind a line.
QString faultHelp();

class Faults {
  public:
    /// Such as "drop-byte:3@T1D+2*1". Throws `Failure` on anything that it doesn't understand.
    void add(const QString& text);
    /// The first fault of this kind that is meant for the message, and counts it; `identifier` is empty while
    /// the link starts.
    std::optional<Fault> take(FaultKind kind, const QByteArray& identifier = {});

  private:
    static bool isMeant(const Fault& fault, FaultKind kind, const QByteArray& identifier);

    std::vector<Fault> faults_;
};

} // namespace kelvane::simulators
