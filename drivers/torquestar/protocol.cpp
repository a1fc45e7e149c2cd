#include "drivers/torquestar/protocol.h"

#include "data/routine.h"
#include "drivers/line_settings.h"
#include "drivers/serial_ports.h"
#include "drivers/torquestar/control_characters.h"
#include "drivers/torquestar/framing.h"
#include "platform/error_report.h"
#include "platform/reason_log.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleTSInterface {

namespace {

/// Both the link start and the announcement of a reply are tried so often.
constexpr int maxAttempts = 3;
/// A link start without an answer is followed by the next one after so many milliseconds.
constexpr int linkAnswerTime = 2500;
constexpr int acknowledgeTime = 5000;
constexpr int replyTime = 10000;
/// Three characters, the frame end and the checksum: no reply is shorter.
constexpr int shortestReply = 7;
/// A checksum is not made over more than 32767 characters.
constexpr qsizetype tooLongReply = 32768;

const QString lineBreak = u"\r\n"_s;

/// One exchange: link start, command, announcement of the reply, reply. Each step does its part of the
/// conversation and names the step that follows.
class Exchange {
  public:
    Exchange(TorqueStar& driver, const QByteArray& body)
        : driver_(driver), port_(driver.MSCommSerialShared), frame_(PreProcessMessage(body)) {}

    QByteArray carryOut();

  private:
    enum class Step { startLink, askOperator, awaitLink, command, announcement, reply, check, done, failed };

    void configure();
    bool open();
    Step take(Step step);
    Step startLink();
    Step askOperator();
    Step awaitLink();
    Step command();
    Step announcement();
    Step reply();
    Step check();
    Step fail(const QString& reason);
    bool isAnnounced() const;
    bool hasReplyEnded() const;
    QByteArray replyBody() const;

    QDateTime deadlineIn(int milliseconds) const { return now().addMSecs(milliseconds); }
    QDateTime now() const { return driver_.session.clock.now(); }
    bool wait(int bytes, const QDateTime& deadline);
    void send(char character) { port_.output(QByteArray(1, character)); }

    TorqueStar& driver_;
    SerialPort& port_;
    QByteArray frame_;
    int attempts_ = 0;
    char acknowledge_ = ACK;
    QByteArray received_;
    QByteArray reply_;
};

QByteArray Exchange::carryOut() {
    if (port_.portOpen())
        port_.setPortOpen(false);
    configure();
    if (!open())
        return {};
    auto step = Step::startLink;
    while (step != Step::done && step != Step::failed)
        step = take(step);
    if (step == Step::failed)
        return {};
    driver_.TSError.clear();
    return replyBody();
}

Exchange::Step Exchange::take(Step step) {
    switch (step) {
    case Step::startLink:
        return startLink();
    case Step::askOperator:
        return askOperator();
    case Step::awaitLink:
        return awaitLink();
    case Step::command:
        return command();
    case Step::announcement:
        return announcement();
    case Step::reply:
        return reply();
    case Step::check:
        return check();
    case Step::done:
    case Step::failed:
        break;
    }
    return step;
}

QString parityLetter(const QString& word) {
    const auto* found = std::ranges::find(parities, word, &Parity::word);
    return found == std::end(parities) ? QString() : QString(found->letter);
}

void Exchange::configure() {
    const auto setting = [this](QStringView key) { return lineSetting(driver_.session, identity, key); };
    const auto baud = setting(lineKey::baudRate);
    if (baud.isEmpty()) {
        port_.setCommPort(linePort({}, {}));
        port_.setSettings(u"9600,N,8,1"_s);
        return;
    }
    port_.setCommPort(linePort(baud, setting(lineKey::port)));
    port_.setSettings(QStringList{baud, parityLetter(setting(lineKey::parity)), setting(lineKey::dataBits),
                                  setting(lineKey::stopBits)}
                          .join(u','));
}

bool Exchange::open() {
    try {
        port_.setPortOpen(true);
        return true;
    } catch (const Error& error) {
        logReason(driver_.session, error.description);
        driver_.TSError = text(TextId::lineCannotBeOpened);
        driver_.session.ui.setNormalPointer();
        return false;
    }
}

/// One link start more than is waited for goes out before the operator is asked.
Exchange::Step Exchange::startLink() {
    port_.output(linkStart);
    return ++attempts_ > maxAttempts ? Step::askOperator : Step::awaitLink;
}

Exchange::Step Exchange::askOperator() {
    const auto reason = text(TextId::lineCommunicationFailed) + lineBreak + text(TextId::linePcCommsAdvice);
    driver_.TSError = reason;
    const BoxStyle style{BoxIcon::warning, BoxButtons::abortRetryIgnore, 2};
    if (driver_.session.ui.messageBox(reason, text(TextId::downloadProcedures), style) != BoxAnswer::retry)
        return fail(reason);
    attempts_ = 0;
    return Step::startLink;
}

Exchange::Step Exchange::awaitLink() {
    if (!wait(1, deadlineIn(linkAnswerTime)))
        return Step::startLink;
    const auto answer = port_.input();
    if (!answer.startsWith(DLE) && !answer.startsWith(ACK))
        return Step::startLink;
    acknowledge_ = answer.front();
    return Step::command;
}

/// A wrong acknowledge goes back to the link start, whose attempts are counted on.
Exchange::Step Exchange::command() {
    port_.output(frame_);
    if (!wait(1, deadlineIn(acknowledgeTime)))
        return fail(text(TextId::lineAcknowledgementTimeout));
    received_ = port_.input();
    if (!received_.startsWith(acknowledge_))
        return Step::startLink;
    received_.remove(0, 1);
    attempts_ = 0;
    return Step::announcement;
}

/// The contents of the receive buffer are examined repeatedly; only an empty one is filled from the line.
Exchange::Step Exchange::announcement() {
    if (++attempts_ > maxAttempts)
        return fail(text(TextId::lineCommunicationFailed) + lineBreak + text(TextId::lineNoResponse));
    if (received_.isEmpty()) {
        if (!wait(1, deadlineIn(replyTime)))
            return Step::announcement;
        received_ = port_.input();
    }
    return isAnnounced() ? Step::reply : Step::announcement;
}

bool Exchange::isAnnounced() const {
    return received_.endsWith(STX) || (received_.endsWith(acknowledge_) && received_.startsWith(STX));
}

Exchange::Step Exchange::reply() {
    send(acknowledge_);
    const auto deadline = deadlineIn(replyTime);
    if (!wait(shortestReply, deadline))
        return fail(text(TextId::lineAcknowledgementTimeout));
    reply_ = port_.input();
    while (!hasReplyEnded()) {
        reply_ += port_.input();
        // Endless noise must not fill the memory; what is cut here stays too long for a checksum.
        if (reply_.size() > 2 * tooLongReply)
            reply_ = reply_.last(tooLongReply);
        if (now() > deadline)
            return fail(text(TextId::lineAcknowledgementTimeout));
        driver_.session.ui.repaint();
    }
    return Step::check;
}

/// The frame end, with two characters behind it or with three.
bool Exchange::hasReplyEnded() const {
    const auto endsBefore = [this](qsizetype rest) {
        const auto at = reply_.size() - rest - frameEnd.size();
        return at >= 0 && reply_.indexOf(frameEnd, at) == at;
    };
    return endsBefore(2) || endsBefore(3);
}

/// A reply that ends in STX is one that the calibrator has begun anew, whatever its checksum. The check value
/// of a bad reply stays in the receive buffer and is taken for the next announcement there, which as a rule
/// ends the exchange.
Exchange::Step Exchange::check() {
    if (reply_.endsWith(STX))
        return Step::announcement;
    received_ = CheckSum16(reply_);
    if (received_ != QByteArray(2, '\0')) {
        send(NAK);
        return Step::announcement;
    }
    send(acknowledge_);
    return Step::done;
}

/// The reply without frame end and checksum, each doubled DLE single.
QByteArray Exchange::replyBody() const {
    const auto inside = reply_.chopped(4);
    QByteArray body;
    for (qsizetype i = 0; i < inside.size(); ++i) {
        body += inside[i];
        if (inside[i] == DLE)
            ++i;
    }
    return body;
}

Exchange::Step Exchange::fail(const QString& reason) {
    driver_.TSError = reason;
    port_.setPortOpen(false);
    return Step::failed;
}

/// Polls the port until so many bytes are waiting; false when the clock has gone past the deadline. The port
/// itself sees to it that polling is cheap; the windows are painted meanwhile.
bool Exchange::wait(int bytes, const QDateTime& deadline) {
    while (port_.inBufferCount() < bytes) {
        if (now() > deadline)
            return false;
        driver_.session.ui.repaint();
    }
    return true;
}

} // namespace

QByteArray ProcessMessageProtocol(TorqueStar& driver, const QByteArray& body) {
    QByteArray reply;
    Routine routine(driver.session, u"ModuleTSInterface,ProcessMessageProtocol"_s);
    // No caller may take a broken exchange for a completed one with an empty reply.
    if (!routine.run([&] { reply = Exchange(driver, body).carryOut(); }))
        driver.TSError = text(TextId::lineCommunicationFailed);
    return reply;
}

int linePort(const QString& baudRate, const QString& port) {
    return baudRate.isEmpty() ? 1 : portNumber(port);
}

} // namespace kelvane::ModuleTSInterface
