#include "simulators/torquestar/faults.h"

#include "simulators/common/failure.h"
#include "simulators/torquestar/line.h"
#include "simulators/torquestar/messages.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

enum class Value { None, Place, Count, Milliseconds, Code, Byte, Bytes };

struct Description {
    FaultKind kind;
    const char* name;
    Value value;
    bool linkStart; ///< comes before a message is known
    const char* words;
};

constexpr Description descriptions[] = {
    {FaultKind::Silent, "silent", Value::None, true, "a link start is not answered"},
    {FaultKind::WrongLinkAck, "wrong-link-ack", Value::Byte, true,
     "a link start is answered by another byte"},
    {FaultKind::LateLinkAck, "late-link-ack", Value::Milliseconds, true, "a link start is answered late"},
    {FaultKind::LinkNoise, "link-noise", Value::None, true, "a link start is answered by endless noise"},
    {FaultKind::NoFrameAck, "no-frame-ack", Value::None, false, "a message is not acknowledged"},
    {FaultKind::WrongAck, "wrong-ack", Value::Byte, false, "a message is acknowledged by another byte"},
    {FaultKind::LateFrameAck, "late-frame-ack", Value::Milliseconds, false, "a message is acknowledged late"},
    {FaultKind::NoAnnouncement, "no-announcement", Value::None, false, "no reply is announced"},
    {FaultKind::WrongAnnouncement, "wrong-announcement", Value::Byte, false, "another byte stands for STX"},
    {FaultKind::LateAnnouncement, "late-announcement", Value::Milliseconds, false,
     "the reply is announced late"},
    {FaultKind::ErrorCode, "error-code", Value::Code, false, "a T1A or T2B is refused with this code"},
    {FaultKind::OtherReply, "reply", Value::Bytes, false, "the reply holds these bytes instead"},
    {FaultKind::NoReply, "no-reply", Value::None, false, "the announced reply does not come"},
    {FaultKind::Late, "late", Value::Milliseconds, false, "the reply comes late"},
    {FaultKind::BadChecksum, "bad-checksum", Value::None, false, "the reply's check bytes are wrong"},
    {FaultKind::DropByte, "drop-byte", Value::Place, false, "the N-th byte of the frame is missing"},
    {FaultKind::AddByte, "add-byte", Value::Place, false, "a byte stands before the N-th of the frame"},
    {FaultKind::FlipByte, "flip-byte", Value::Place, false, "a bit of the N-th byte of the frame is turned"},
    {FaultKind::Split, "split", Value::Count, false, "the frame pauses 200 ms behind its N-th byte"},
    {FaultKind::Noise, "noise", Value::None, false, "endless noise comes instead of the reply"},
    {FaultKind::StartOver, "start-over", Value::None, false, "the reply ends in STX and is sent again"},
    {FaultKind::VanishAfter, "vanish-after", Value::Count, false, "gone after N bytes of the frame"},
};

const char* signOf(Value value) {
    switch (value) {
    case Value::Place:
    case Value::Count:
        return ":N";
    case Value::Milliseconds:
        return ":MS";
    case Value::Code:
        return ":CODE";
    case Value::Byte:
        return "[:HH]";
    case Value::Bytes:
        return ":HEX";
    case Value::None:
        break;
    }
    return "";
}

int numberOf(const QString& digits, int low, int high, const QString& fault) {
    bool read = false;
    const int number = digits.toInt(&read);
    if (!read || number < low || number > high)
        throw Failure(u"The fault \"%1\" needs a number from %2 to %3."_s.arg(fault).arg(low).arg(high));
    return number;
}

QByteArray bytesOf(const QString& digits, const QString& fault) {
    QByteArray bytes = QByteArray::fromHex(digits.toLatin1());
    if (bytes.isEmpty() || QString::fromLatin1(bytes.toHex()) != digits.toLower())
        throw Failure(u"The fault \"%1\" needs bytes in pairs of hexadecimal digits."_s.arg(fault));
    return bytes;
}

void readValue(Fault& fault, Value kind, const QString& value, const QString& text) {
    switch (kind) {
    case Value::None:
        if (!value.isEmpty())
            throw Failure(u"The fault \"%1\" takes no value."_s.arg(text));
        return;
    case Value::Place:
        fault.number = numberOf(value, 1, 100'000, text);
        return;
    case Value::Count:
        fault.number = numberOf(value, 0, 100'000, text);
        return;
    case Value::Milliseconds:
        fault.number = numberOf(value, 0, 600'000, text);
        return;
    case Value::Code:
        fault.number = numberOf(value, 0, 255, text);
        return;
    case Value::Byte:
        fault.bytes = value.isEmpty() ? QByteArray(1, Nak) : bytesOf(value, text);
        return;
    case Value::Bytes:
        fault.bytes = bytesOf(value, text);
        return;
    }
}

} // namespace

QString faultHelp() {
    QString help;
    for (const Description& description : descriptions) {
        const QString form =
            QString::fromLatin1(description.name) + QString::fromLatin1(signOf(description.value));
        help += u"  %1 %2\n"_s.arg(form, -24).arg(QString::fromLatin1(description.words));
    }
    return help;
}

void Faults::add(const QString& text) {
    static const QRegularExpression form(
        u"^([a-z-]+)(?::([0-9A-Fa-f]+))?(?:@([A-Za-z0-9]{3}))?(?:\\+([0-9]+))?(?:\\*([0-9]+))?$"_s);
    const QRegularExpressionMatch parts = form.match(text);
    const auto* const description =
        std::find_if(std::begin(descriptions), std::end(descriptions), [&](const Description& entry) {
            return parts.hasMatch() && parts.captured(1) == QLatin1StringView(entry.name);
        });
    if (description == std::end(descriptions))
        throw Failure(
            u"\"%1\" is no fault. A fault is KIND[:VALUE][@MESSAGE][+AFTER][*TIMES]; see --help."_s.arg(
                text));

    Fault fault;
    fault.kind = description->kind;
    readValue(fault, description->value, parts.captured(2), text);
    fault.identifier = parts.captured(3).toLatin1();
    if (!fault.identifier.isEmpty() && description->linkStart)
        throw Failure(u"The fault \"%1\" comes before a message is known and takes no \"@\"."_s.arg(text));
    if (!fault.identifier.isEmpty() && !Messages::knows(fault.identifier))
        throw Failure(u"The fault \"%1\" names a message that the calibrator does not know."_s.arg(text));
    if (!parts.captured(4).isEmpty())
        fault.after = numberOf(parts.captured(4), 1, 1'000'000, text);
    if (!parts.captured(5).isEmpty())
        fault.left = numberOf(parts.captured(5), 1, 1'000'000, text);
    faults_.push_back(fault);
}

bool Faults::isMeant(const Fault& fault, FaultKind kind, const QByteArray& identifier) {
    return fault.kind == kind && fault.left != 0 &&
           (fault.identifier.isEmpty() || fault.identifier == identifier);
}

std::optional<Fault> Faults::take(FaultKind kind, const QByteArray& identifier) {
    for (Fault& fault : faults_) {
        if (!isMeant(fault, kind, identifier))
            continue;
        if (fault.after > 0) {
            --fault.after;
            continue;
        }
        if (fault.left > 0)
            --fault.left;
        return fault;
    }
    return {};
}

} // namespace kelvane::simulators
