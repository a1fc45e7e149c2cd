#include "simulators/torquestar/conversation.h"

#include <algorithm>

namespace kelvane::simulators {

namespace {

using namespace std::chrono_literals;

// A reply that did not come over well is announced again, until it was sent this often.
constexpr int maxTransmissions = 3;
constexpr std::chrono::milliseconds splitPause = 200ms;
constexpr char addedByte = 'U';

QByteArray byteOf(char byte) {
    return QByteArray(1, byte);
}

} // namespace

Conversation::Conversation(char acknowledge, Faults& faults, Record& record, VirtualLine& line,
                           Messages& messages)
    : acknowledge_(acknowledge), faults_(faults), record_(record), line_(line), messages_(messages) {}

void Conversation::receive(char byte, const QByteArray& following) {
    if (step_ == Step::Message) {
        receiveMessage(byte);
        return;
    }
    lastReceived_ = lastReceived_.right(2) + byte;
    if (lastReceived_ == linkStart()) {
        startLink();
        return;
    }
    // The first byte of a link start may be the acknowledge character: the two bytes after it decide.
    if (byte == Dle && following.startsWith(linkStart().sliced(1)))
        return;
    if (step_ == Step::Announced && byte == acknowledge_)
        reply();
    else if (step_ == Step::Replied && byte == Nak && transmissions_ < maxTransmissions)
        announce();
    else if (step_ == Step::Replied && (byte == Nak || byte == acknowledge_))
        step_ = Step::Idle;
}

void Conversation::startLink() {
    line_.drop();
    reader_.restart();
    lastReceived_.clear();
    message_.clear();
    step_ = Step::Idle;
    if (fault(FaultKind::Silent))
        return;
    if (fault(FaultKind::LinkNoise)) {
        line_.noise();
    } else if (const std::optional<Fault> wrong = fault(FaultKind::WrongLinkAck)) {
        line_.send(wrong->bytes);
    } else {
        line_.send(byteOf(acknowledge_), delayOf(FaultKind::LateLinkAck));
        step_ = Step::Message;
    }
}

void Conversation::receiveMessage(char byte) {
    switch (reader_.take(byte)) {
    case FrameReader::Received::More:
        return;
    case FrameReader::Received::LinkStart:
        startLink();
        return;
    case FrameReader::Received::Refused:
        record_.recordRefused(reader_.receivedFrame());
        line_.send(byteOf(Nak));
        step_ = Step::Idle;
        return;
    case FrameReader::Received::Message:
        takeMessage(reader_.message());
        return;
    }
}

void Conversation::takeMessage(const QByteArray& message) {
    message_ = message;
    reply_.reset();
    transmissions_ = 0;
    step_ = Step::Idle;
    record_.recordReceived(message);
    if (fault(FaultKind::NoFrameAck))
        return;
    if (const std::optional<Fault> wrong = fault(FaultKind::WrongAck)) {
        line_.send(wrong->bytes);
        return;
    }
    line_.send(byteOf(acknowledge_), delayOf(FaultKind::LateFrameAck));
    // There is nothing to say about a message that the calibrator does not know.
    if (Messages::knows(message))
        announce();
}

void Conversation::announce() {
    step_ = Step::Idle;
    if (fault(FaultKind::NoAnnouncement))
        return;
    if (const std::optional<Fault> wrong = fault(FaultKind::WrongAnnouncement)) {
        line_.send(wrong->bytes);
        return;
    }
    line_.send(byteOf(Stx), delayOf(FaultKind::LateAnnouncement));
    step_ = Step::Announced;
}

void Conversation::reply() {
    if (!reply_) {
        reply_ = replyBody();
        record_.recordSent(*reply_);
    }
    transmit();
}

QByteArray Conversation::replyBody() {
    if (const std::optional<Fault> other = fault(FaultKind::OtherReply))
        return other->bytes;
    const bool roundRefused = message_.startsWith("T2B");
    if (roundRefused || message_.startsWith("T1A"))
        if (const std::optional<Fault> refusal = fault(FaultKind::ErrorCode))
            return (roundRefused ? QByteArrayLiteral("t2B") : QByteArray("t1A\0", 4)) +
                   static_cast<char>(refusal->number);
    return messages_.answer(message_);
}

void Conversation::transmit() {
    ++transmissions_;
    step_ = Step::Replied;
    if (fault(FaultKind::NoReply))
        return;
    QByteArray out = frame(*reply_);
    if (fault(FaultKind::BadChecksum))
        out[out.size() - 2] = static_cast<char>(out[out.size() - 2] ^ 1);
    if (const std::optional<Fault> flip = fault(FaultKind::FlipByte); flip && flip->number <= out.size())
        out[flip->number - 1] = static_cast<char>(out[flip->number - 1] ^ 1);
    if (const std::optional<Fault> drop = fault(FaultKind::DropByte))
        out.remove(drop->number - 1, 1);
    if (const std::optional<Fault> add = fault(FaultKind::AddByte))
        out.insert(std::min<qsizetype>(add->number - 1, out.size()), addedByte);
    if (!transmitBroken(out))
        line_.send(out, delayOf(FaultKind::Late));
}

/// The ways of sending that are not one whole frame; false when none of them is asked for.
bool Conversation::transmitBroken(const QByteArray& out) {
    if (fault(FaultKind::Noise)) {
        line_.noise();
    } else if (fault(FaultKind::StartOver)) {
        line_.send(out + Stx);
        step_ = Step::Announced;
    } else if (const std::optional<Fault> split = fault(FaultKind::Split)) {
        line_.send(out.first(std::min<qsizetype>(split->number, out.size())));
        line_.send(out.sliced(std::min<qsizetype>(split->number, out.size())), splitPause);
    } else if (const std::optional<Fault> vanish = fault(FaultKind::VanishAfter)) {
        line_.send(out.left(vanish->number));
        line_.vanish();
    } else {
        return false;
    }
    return true;
}

std::chrono::milliseconds Conversation::delayOf(FaultKind kind) {
    const std::optional<Fault> late = fault(kind);
    return std::chrono::milliseconds(late ? late->number : 0);
}

} // namespace kelvane::simulators
