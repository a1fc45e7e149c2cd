// The log of the torque line against what the calibrator recorded.
#include "tests/end_to_end/torque_end_to_end.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Bytes that went in one direction, until the other one spoke.
struct Transmission {
    QString direction;
    QByteArray bytes;
};

/// A message without frame end, checksum and doubled DLE.
QByteArray bodyOf(const QByteArray& frame) {
    return frame.chopped(4).replace("\x10\x10", "\x10");
}

bool isFrame(const QByteArray& bytes) {
    return bytes.size() > 4 && bytes.sliced(bytes.size() - 4, 2) == "\x10\x03";
}

} // namespace

class TorqueCommunicationLog : public TorqueEndToEnd {
  protected:
    TorqueCommunicationLog() { switchLog(u"1"_s); }

    void switchLog(const QString& value) { workplace.settings.setValue(logSection, torqueStarName, value); }
    QStringList logged() const {
        QStringList words;
        for (const auto& line : folder.read(u"crane-torquestar-ivc.log"_s).split(u'\n', Qt::SkipEmptyParts))
            words << line.section(u"] "_s, 1);
        return words;
    }
    QList<Transmission> transmissions() const {
        static const QRegularExpression form(u"^(sent|received) ((?:[0-9A-F]{2} )+)\\| "_s);
        QList<Transmission> all;
        for (const auto& line : logged()) {
            const auto match = form.match(line);
            if (!match.hasMatch())
                continue;
            const auto bytes = QByteArray::fromHex(match.captured(2).toLatin1());
            if (!all.isEmpty() && all.last().direction == match.captured(1) && bytes.size() > 0 &&
                match.captured(1) == u"received")
                all.last().bytes += bytes;
            else
                all << Transmission{match.captured(1), bytes};
        }
        return all;
    }
    /// The bodies of all messages in a direction, in hexadecimal digits.
    QStringList bodies(const QString& direction) const {
        QStringList found;
        for (const auto& transmission : transmissions()) {
            if (transmission.direction == direction && isFrame(transmission.bytes))
                found << QString::fromLatin1(bodyOf(transmission.bytes).toHex());
        }
        return found;
    }
    /// The same of the calibrator's record: "heard" or "sent".
    QStringList recorded(const QByteArray& what) const {
        QStringList found;
        for (const auto& line : simulatorFolder.contentOf(u"record"_s).split('\n')) {
            if (line.startsWith(what + ' '))
                found << QString::fromLatin1(line.sliced(what.size() + 5));
        }
        return found;
    }
};

TEST_F(TorqueCommunicationLog, HoldsEachByteThatTheCalibratorReceivedAndSent) {
    list(u"TW-101"_s);
    list(u"TW-102"_s);
    download();
    carryOut({u"TW-101"_s, u"TW-102"_s});
    upload({u"TW-101"_s, u"TW-102"_s});
    ASSERT_GT(recorded("heard").size(), 10);
    EXPECT_EQ(bodies(u"sent"_s), recorded("heard"));
    EXPECT_EQ(bodies(u"received"_s), recorded("sent"));
    // Every exchange begins with the opening of the port, and names it.
    EXPECT_EQ(logged().filter(QRegularExpression(u"^opened COM1: /dev/pts/\\d+; 9600,N,8,1$"_s)).size(),
              recorded("heard").size());
}

TEST_F(TorqueCommunicationLog, HoldsNothingWhenItIsOff) {
    switchLog(u"0"_s);
    list(u"TW-101"_s);
    download();
    EXPECT_EQ(logged(), QStringList());
    EXPECT_FALSE(QFile::exists(calibrators.torqueStarLog.path()));
}

TEST_F(TorqueCommunicationLog, ShowsALineOnWhichNothingAnswers) {
    switchOn({u"silent"_s});
    list(u"TW-101"_s);
    expectNoLink();
    download(messages::noLink());
    const auto lines = logged();
    EXPECT_EQ(lines.filter(u"sent 10 04 02 | <DLE><EOT><STX>"_s).size(), 4)
        << lines.join(u'\n').toStdString();
    EXPECT_EQ(lines.filter(u"received"_s), QStringList());
    EXPECT_EQ(lines.last(), u"closed"_s);
}

TEST_F(TorqueCommunicationLog, NamesThePortThatCanNotBeOpened) {
    workplace.settings.setValue(u"Ports"_s, u"COM1"_s, u"A50285BI"_s);
    list(u"TW-101"_s);
    download(messages::noPort());
    ASSERT_TRUE(calibrators.torqueStarLog.opening().has_value());
    const auto reason = text(TextId::portNoSuchDevice).arg(u"COM1"_s) + u' ' +
                        text(TextId::portIdentityUnknown).arg(u"A50285BI"_s);
    EXPECT_EQ(calibrators.torqueStarLog.opening()->refusal, reason);
    EXPECT_TRUE(logged().last().startsWith(u"not opened COM1: no device A50285BI; "_s) &&
                logged().last().endsWith(reason))
        << logged().last().toStdString();
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(reason));
}

} // namespace kelvane::testing
