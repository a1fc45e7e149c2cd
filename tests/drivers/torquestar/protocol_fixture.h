#pragma once

#include "drivers/torquestar/protocol.h"
#include "resources/strings.h"
#include "testkit/fixtures.h"
#include "testkit/line_peer.h"

namespace kelvane::testing {

inline const QByteArray linkStart = hex("10 04 02");
inline const QByteArray linkTest = hex("54 30 41 10 03 67 bf");
inline const QByteArray ack = hex("06");
inline const QByteArray stx = hex("02");
inline const QByteArray nak = hex("15");

inline const QString channelFailed = QStringLiteral("Unable to open communications channel to calibrator! "
                                                    "Please check communications settings and try again.");
inline const QString linkFailed = QStringLiteral(
    "Communications with calibrator failed!\r\nCheck to make sure that \"PC COMMS\" has been selected "
    "(option 8) from the Main Menu and the calibrator is correctly connected and configured.");
inline const QString noResponse = QStringLiteral(
    "Communications with calibrator failed!\r\nCalibrator received command but failed to respond.");
inline const QString timeout = QStringLiteral("Communications Timeout on Command Acknowledgement");
inline const BoxStyle linkBox{BoxIcon::warning, BoxButtons::abortRetryIgnore, 2};

/// One second passes with each reading of the clock, so that a wait of 2500 ms has 3 polls of the line, one
/// of 5000 ms has 6, one of 10000 ms has 11.
class TorqueProtocol : public RecordedSession {
  protected:
    TorqueProtocol() { clock.tick = 1; }

    QByteArray exchange() { return ModuleTSInterface::ProcessMessageProtocol(driver, "T0A"); }

    void expectLinkBox(BoxAnswer answer) {
        ui.expectBox(linkFailed, QStringLiteral("Download Procedures To Calibrator"), linkBox, answer);
    }

    /// Everything up to the call for the reply.
    void feedAnnouncement() { port.feed({ack, ack + stx}); }

    /// The exchange fails with this text and leaves the port closed.
    void expectFailure(const QString& reason) {
        EXPECT_EQ(exchange(), QByteArray());
        EXPECT_EQ(driver.TSError, reason);
        EXPECT_FALSE(port.portOpen());
    }

    /// The exchange succeeds with this reply and leaves the port open.
    void expectReply(const QByteArray& body) {
        EXPECT_EQ(exchange().toHex(' '), body.toHex(' '));
        EXPECT_EQ(driver.TSError, QString());
        EXPECT_TRUE(port.portOpen());
    }

    int sentCount(const QByteArray& bytes) const { return static_cast<int>(port.sent.count(bytes)); }

    ScriptedSerialPort port;
    TorqueStar driver{session, port};
};

} // namespace kelvane::testing
