#include "platform/reason_log.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane {

bool appendToErrorLog(const QByteArray& lines) {
    QFile log(u"errors.log"_s);
    return log.open(QIODevice::Append) && log.write(lines) == lines.size() && log.flush();
}

void logReason(const Workstation& workstation, const QString& reason) {
    const auto stamp = u'[' + formatMoment(workstation.clock.moment(), u"YYYY-MM-DD HH:NN:SS") + u"] "_s;
    appendToErrorLog((stamp + reason.simplified() + u"\r\n"_s).toUtf8());
}

} // namespace kelvane
