// The torque calibrator's line: frames, number fields and whole exchanges with any bytes for a reply. The
// other side is the simulated calibrator's own reading of the protocol.

#include "drivers/torquestar/fields.h"
#include "drivers/torquestar/framing.h"
#include "drivers/torquestar/protocol.h"
#include "fuzz/input.h"
#include "fuzz/session.h"
#include "simulators/torquestar/line.h"

#include <QtEndian>

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;
using namespace kelvane;
using namespace kelvane::fuzz;

namespace {

/// Delivers the chunks of an input: a length and so many bytes, or, for the length 255, a good frame of the
/// next field. `beforeLast` is what was taken between the two last sendings.
class FuzzedPort final : public SerialPort {
  public:
    explicit FuzzedPort(Input& input) : input_(input) {}

    bool portOpen() const override { return open_; }
    void setPortOpen(bool open) override { open_ = open; }
    void setCommPort(int) override {}
    void setSettings(const QString&) override {}
    int inBufferCount() override {
        if (!input_.isEmpty())
            waiting_ += nextChunk();
        return static_cast<int>(waiting_.size());
    }
    QByteArray input() override {
        if (waiting_.isEmpty())
            inBufferCount();
        taken_ += waiting_;
        return std::exchange(waiting_, {});
    }
    void output(const QByteArray&) override { beforeLast = std::exchange(taken_, {}); }

    QByteArray beforeLast;

  private:
    QByteArray nextChunk() {
        const auto length = input_.byte();
        return length == 255 ? simulators::frame(input_.field()) : input_.bytes(length);
    }

    Input& input_;
    bool open_ = false;
    QByteArray waiting_;
    QByteArray taken_;
};

/// The message that the simulated calibrator reads out of a frame; nothing for a refused one.
std::optional<QByteArray> readFrame(const QByteArray& frame) {
    simulators::FrameReader reader;
    for (qsizetype at = 0; at < frame.size(); ++at) {
        const auto received = reader.take(frame[at]);
        if (received == simulators::FrameReader::Received::More)
            continue;
        const bool isWhole = received == simulators::FrameReader::Received::Message && at + 1 == frame.size();
        return isWhole ? std::optional(reader.message()) : std::nullopt;
    }
    return {};
}

/// Whether the ones' complement sum of all words, check sum included, is right.
bool hasGoodSum(const QByteArray& frame) {
    const auto padded = frame.size() % 2 == 0 ? frame : frame.chopped(2) + '\0' + frame.last(2);
    quint64 sum = 0;
    for (qsizetype at = 0; at < padded.size(); at += 2)
        sum +=
            static_cast<quint64>(static_cast<quint8>(padded[at]) * 256 + static_cast<quint8>(padded[at + 1]));
    return sum != 0 && sum % 0xFFFF == 0;
}

void checkFrame(const QByteArray& body) {
    const auto frame = ModuleTSInterface::PreProcessMessage(body);
    require(hasGoodSum(frame), "a frame has a good check sum");
    require(ModuleTSInterface::CheckSum16(frame) == QByteArray(2, '\0'),
            "a frame passes the program's own check");
    // The one body whose last character is not sent: it stands behind an escape character.
    const bool losesLast =
        body.size() > 1 && body[body.size() - 2] == simulators::Dle && body.back() != simulators::Dle;
    const auto sent = losesLast ? body.chopped(1) : body;
    // An end of transmission behind an escape begins the link anew.
    const auto received = readFrame(frame);
    require(received == sent, "the calibrator reads the body out of its frame");
}

/// A field read over its hexadecimal digits: one for 10 to 15, two for all others.
qint32 readDigits(const QByteArray& field) {
    QByteArray digits;
    for (const char character : field.first(4)) {
        const auto byte = static_cast<quint8>(character);
        digits += byte < 10 ? "0" + QByteArray::number(byte, 16) : QByteArray::number(byte, 16);
    }
    return static_cast<qint32>(digits.toUInt(nullptr, 16));
}

void checkFields(Input& input) {
    WorkSession work;
    auto& session = work.session;
    const auto number = input.number(std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
    const auto field = ModuleTSInterface::Conv2Hex(session, number, 3);
    require(field == simulators::longBytes(number), "a number is its four bytes");
    require(ModuleTSInterface::Conv2Real(session, field) == readDigits(field), "it is read by its digits");

    const auto value = input.real();
    const auto scaled = ModuleTSInterface::Conv2Hex(session, value, 4);
    require(scaled.isEmpty() || scaled.size() == 4, "a scaled number has four bytes or none");
    if (!scaled.isEmpty()) {
        const auto tenThousandths = static_cast<qint32>(qFromBigEndian<quint32>(scaled.constData()));
        require(std::abs(tenThousandths - value * 10000) <= 0.5,
                "a scaled number is rounded to its last digit");
    }

    const auto any = input.bytes(6);
    const auto reports = session.reportCount;
    const auto date = ModuleTSInterface::Conv2Date(session, any);
    const auto time = ModuleTSInterface::Conv2Time(session, any);
    require((session.reportCount == reports) == (any.size() >= 4),
            "a field is reported when it is too short");
    if (any.size() < 4)
        return;
    require(ModuleTSInterface::Conv2Double(session, any) == readDigits(any) / 10000.0,
            "ten-thousandths are read");
    const auto digits = readDigits(any);
    const QDate expected(digits / 10000, digits / 100 % 100, digits % 100);
    if (digits >= 1000000 && expected.isValid() && expected.year() <= 9999)
        require(momentOf(date, u"YYYY/MM/DD") == Moment{expected, QTime(0, 0)}, "a date is read");
    require(date.count(u'-') >= 2 && time.count(u':') == 2, "date and time have three parts each");
}

void checkExchange(Input& input) {
    WorkSession work;
    work.clock.tick = 50;
    const auto body = input.field();
    FuzzedPort port(input);
    TorqueStar driver{work.session, port};
    const auto reply = ModuleTSInterface::ProcessMessageProtocol(driver, body);
    if (!driver.TSError.isEmpty()) {
        require(reply.isEmpty(), "an exchange that failed has no reply");
        return;
    }
    const auto& frame = port.beforeLast;
    require(hasGoodSum(frame), "no reply with a wrong check sum is accepted");
    if (const auto message = readFrame(frame))
        require(reply == *message, "the reply is what the calibrator has sent");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    switch (input.byte() % 3) {
    case 0:
        checkFrame(input.bytes(30000));
        break;
    case 1:
        checkFields(input);
        break;
    default:
        checkExchange(input);
    }
    return 0;
}
