#include "simulators/torquestar/record.h"

#include "simulators/torquestar/failure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

Record::Record(const QString& path) : m_file(path) {
    if (!path.isEmpty() && !m_file.open(QIODevice::Append | QIODevice::Unbuffered))
        throw Failure(u"The record %1 can't be written: %2"_s.arg(path, m_file.errorString()));
}

void Record::line(const char* what, const QByteArray& bytes) {
    if (!m_file.isOpen())
        return;
    QByteArray identifier = bytes.left(3);
    std::replace_if(
        identifier.begin(), identifier.end(), [](char byte) { return byte <= ' ' || byte > '~'; }, '.');
    m_file.write(QByteArray(what) + ' ' + identifier + ' ' + bytes.toHex() + '\n');
}

} // namespace kelvane::simulators
