#include "data/history/instrument_keys.h"

namespace kelvane {

void InstrumentKeys::append(const QString& mtag, const QString& asset) {
    appendEntry(mtag);
    appendEntry(asset);
}

void InstrumentKeys::appendEntry(const QString& entry) {
    texts_ += entry.toUtf8();
    ends_ << static_cast<quint32>(texts_.size());
}

QString InstrumentKeys::entry(qsizetype at) const {
    const qsizetype begin = at == 0 ? 0 : ends_.at(at - 1);
    return QString::fromUtf8(QByteArrayView(texts_).sliced(begin, ends_.at(at) - begin));
}

} // namespace kelvane
