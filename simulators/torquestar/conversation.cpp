#include "simulators/torquestar/conversation.h"

#include <algorithm>

namespace kelvane::simulators {

namespace {

using namespace std::chrono_literals;

// A reply that did not come over well is announced again, until it was sent this often.
constexpr int mostTransmissions = 3;
constexpr std::chrono::milliseconds splitPause = 200ms;
constexpr char addedByte = 'U';

QByteArray byteOf(char byte) {
    return QByteArray(1, byte);
}

} // namespace

Conversation::Conversation(char acknowledge, Faults& faults, Record& record, VirtualLine& line,
                           Messages& messages)
    : m_acknowledge(acknowledge), m_faults(faults), m_record(record), m_line(line), m_messages(messages) {}

void Conversation::hear(char byte, const QByteArray& following) {
    if (m_step == Step::Message) {
        hearMessage(byte);
        return;
    }
    m_lastHeard = m_lastHeard.right(2) + byte;
    if (m_lastHeard == linkStart()) {
        startLink();
        return;
    }
    // The first byte of a link start may be the acknowledge character: the two behind it tell.
    if (byte == Dle && following.startsWith(linkStart().sliced(1)))
        return;
    if (m_step == Step::Announced && byte == m_acknowledge)
        reply();
    else if (m_step == Step::Replied && byte == Nak && m_transmissions < mostTransmissions)
        announce();
    else if (m_step == Step::Replied && (byte == Nak || byte == m_acknowledge))
        m_step = Step::Idle;
}

void Conversation::startLink() {
    m_line.drop();
    m_reader.restart();
    m_lastHeard.clear();
    m_message.clear();
    m_step = Step::Idle;
    if (fault(FaultKind::Silent))
        return;
    if (fault(FaultKind::LinkNoise)) {
        m_line.noise();
    } else if (const std::optional<Fault> wrong = fault(FaultKind::WrongLinkAck)) {
        m_line.send(wrong->bytes);
    } else {
        m_line.send(byteOf(m_acknowledge), delayOf(FaultKind::LateLinkAck));
        m_step = Step::Message;
    }
}

void Conversation::hearMessage(char byte) {
    switch (m_reader.take(byte)) {
    case FrameReader::Heard::More:
        return;
    case FrameReader::Heard::LinkStart:
        startLink();
        return;
    case FrameReader::Heard::Refused:
        m_record.refused(m_reader.heard());
        m_line.send(byteOf(Nak));
        m_step = Step::Idle;
        return;
    case FrameReader::Heard::Message:
        takeMessage(m_reader.message());
        return;
    }
}

void Conversation::takeMessage(const QByteArray& message) {
    m_message = message;
    m_reply.reset();
    m_transmissions = 0;
    m_step = Step::Idle;
    m_record.heard(message);
    if (fault(FaultKind::NoFrameAck))
        return;
    if (const std::optional<Fault> wrong = fault(FaultKind::WrongAck)) {
        m_line.send(wrong->bytes);
        return;
    }
    m_line.send(byteOf(m_acknowledge), delayOf(FaultKind::LateFrameAck));
    // There is nothing to say about a message that the calibrator does not know.
    if (Messages::knows(message))
        announce();
}

void Conversation::announce() {
    m_step = Step::Idle;
    if (fault(FaultKind::NoAnnouncement))
        return;
    if (const std::optional<Fault> wrong = fault(FaultKind::WrongAnnouncement)) {
        m_line.send(wrong->bytes);
        return;
    }
    m_line.send(byteOf(Stx), delayOf(FaultKind::LateAnnouncement));
    m_step = Step::Announced;
}

void Conversation::reply() {
    if (!m_reply) {
        m_reply = replyBody();
        m_record.sent(*m_reply);
    }
    transmit();
}

QByteArray Conversation::replyBody() {
    if (const std::optional<Fault> other = fault(FaultKind::OtherReply))
        return other->bytes;
    const bool roundRefused = m_message.startsWith("T2B");
    if (roundRefused || m_message.startsWith("T1A"))
        if (const std::optional<Fault> refusal = fault(FaultKind::ErrorCode))
            return (roundRefused ? QByteArrayLiteral("t2B") : QByteArray("t1A\0", 4)) +
                   static_cast<char>(refusal->number);
    return m_messages.answer(m_message);
}

void Conversation::transmit() {
    ++m_transmissions;
    m_step = Step::Replied;
    if (fault(FaultKind::NoReply))
        return;
    QByteArray out = frame(*m_reply);
    if (fault(FaultKind::BadChecksum))
        out[out.size() - 2] = static_cast<char>(out[out.size() - 2] ^ 1);
    if (const std::optional<Fault> flip = fault(FaultKind::FlipByte); flip && flip->number <= out.size())
        out[flip->number - 1] = static_cast<char>(out[flip->number - 1] ^ 1);
    if (const std::optional<Fault> drop = fault(FaultKind::DropByte))
        out.remove(drop->number - 1, 1);
    if (const std::optional<Fault> add = fault(FaultKind::AddByte))
        out.insert(std::min<qsizetype>(add->number - 1, out.size()), addedByte);
    if (!transmitBroken(out))
        m_line.send(out, delayOf(FaultKind::Late));
}

/// The ways of sending that are not one whole frame; false when none of them is asked for.
bool Conversation::transmitBroken(const QByteArray& out) {
    if (fault(FaultKind::Noise)) {
        m_line.noise();
    } else if (fault(FaultKind::StartOver)) {
        m_line.send(out + Stx);
        m_step = Step::Announced;
    } else if (const std::optional<Fault> split = fault(FaultKind::Split)) {
        m_line.send(out.first(std::min<qsizetype>(split->number, out.size())));
        m_line.send(out.sliced(std::min<qsizetype>(split->number, out.size())), splitPause);
    } else if (const std::optional<Fault> vanish = fault(FaultKind::VanishAfter)) {
        m_line.send(out.left(vanish->number));
        m_line.vanish();
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
