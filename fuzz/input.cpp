#include "fuzz/input.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace kelvane::fuzz {

namespace {

constexpr char unitSeparator = 31;

} // namespace

quint8 Input::byte() {
    if (rest_.isEmpty())
        return 0;
    const auto first = static_cast<quint8>(rest_.front());
    rest_ = rest_.sliced(1);
    return first;
}

int Input::number(int low, int high) {
    quint32 value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8U | byte();
    const auto span = static_cast<qint64>(high) - low + 1;
    return static_cast<int>(low + static_cast<qint64>(value) % span);
}

double Input::real() {
    double value = 0;
    const auto stored = bytes(sizeof value);
    std::memcpy(&value, stored.constData(), static_cast<std::size_t>(stored.size()));
    return value;
}

QByteArray Input::field() {
    const auto end = rest_.indexOf(unitSeparator);
    const auto field = rest_.first(end < 0 ? rest_.size() : end).toByteArray();
    rest_ = rest_.sliced(end < 0 ? rest_.size() : end + 1);
    return field;
}

QByteArray Input::bytes(qsizetype count) {
    const auto taken = rest_.first(std::min(count, rest_.size())).toByteArray();
    rest_ = rest_.sliced(taken.size());
    return taken;
}

void fail(const char* property) {
    std::fprintf(stderr, "This does not hold: %s\n", property);
    std::abort();
}

QString workFolder() {
    static const QTemporaryDir folder(
        (QFileInfo(u"/dev/shm"_s).isWritable() ? u"/dev/shm"_s : QDir::tempPath()) +
        u"/kelvane-fuzz-XXXXXX"_s);
    static const bool entered = QDir::setCurrent(folder.path());
    require(entered, "there is a folder to work in");
    return folder.path();
}

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size(),
            "the folder can be written to");
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace kelvane::fuzz
