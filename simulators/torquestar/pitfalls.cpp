#include "simulators/torquestar/pitfalls.h"

#include "simulators/torquestar/line.h"
#include "simulators/torquestar/messages.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

QString lossOf(const QString& what) {
    return u"%1 has a byte from 0A to 0F inside: the workstation reads another number"_s.arg(what);
}

QString announcementIn(const QString& what) {
    return u"%1 makes a reply that ends in STX: the workstation takes it for a new announcement and gives up"_s
        .arg(what);
}

} // namespace

bool losesDigit(qint32 number) {
    bool digitsBefore = false;
    for (const char byte : longBytes(number)) {
        if (digitsBefore && byte >= 0x0A && byte <= 0x0F)
            return true;
        digitsBefore = digitsBefore || byte != 0;
    }
    return false;
}

bool endsInAnnouncement(const QByteArray& reply) {
    return frame(reply).endsWith(Stx);
}

QStringList pitfallsOfSerial(qint32 serial) {
    QStringList sentences;
    const QString words = u"serial number %1"_s.arg(serial);
    if (losesDigit(serial))
        sentences += lossOf(words);
    if (endsInAnnouncement(identityReply(serial)))
        sentences += announcementIn(words);
    return sentences;
}

QStringList pitfallsOfResult(const Result& result) {
    QStringList sentences;
    for (const qint32 sample : result.samples) {
        const QString sentence = lossOf(u"reading %1"_s.arg(sample / scale, 0, 'f', 4));
        if (losesDigit(sample) && !sentences.contains(sentence))
            sentences += sentence;
    }
    if (losesDigit(result.date))
        sentences += lossOf(u"date %1"_s.arg(result.date));
    if (losesDigit(result.time))
        sentences += lossOf(u"time %1"_s.arg(result.time, 6, 10, QChar(u'0')));
    if (endsInAnnouncement(resultReply(result)))
        sentences += announcementIn(u"the result of %1"_s.arg(result.time, 6, 10, QChar(u'0')));
    return sentences;
}

QStringList pitfallsOfComment(const QString& comment) {
    return endsInAnnouncement(commentReply(comment)) ? QStringList{announcementIn(u"the comment"_s)}
                                                     : QStringList{};
}

} // namespace kelvane::simulators
