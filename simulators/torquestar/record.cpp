#include "simulators/torquestar/record.h"

#include "simulators/common/failure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

Record::Record(const QString& path) : file_(path) {
    if (!path.isEmpty() && !file_.open(QIODevice::Append | QIODevice::Unbuffered))
        throw Failure(u"The record %1 can't be written: %2"_s.arg(path, file_.errorString()));
}

void Record::line(const char* what, const QByteArray& bytes) {
    if (!file_.isOpen())
        return;
    QByteArray identifier = bytes.left(3);
    std::replace_if(
        identifier.begin(), identifier.end(), [](char byte) { return byte <= ' ' || byte > '~'; }, '.');
    file_.write(QByteArray(what) + ' ' + identifier + ' ' + bytes.toHex() + '\n');
}

} // namespace kelvane::simulators
