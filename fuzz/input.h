#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

namespace kelvane::fuzz {

/// Takes an input apart, piece by piece. Behind its end come zeros and empty texts.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)) {}

    bool isEmpty() const { return rest_.isEmpty(); }
    quint8 byte();
    /// A whole number in that range, both included.
    int number(int low, int high);
    /// A number of any size, as its eight bytes have it: infinite ones and none, too.
    double real();
    /// The bytes up to the next unit separator (31), which is taken away.
    QByteArray field();
    /// Such a field as UTF-8; what is none becomes replacement characters.
    QString text() { return QString::fromUtf8(field()); }
    QByteArray bytes(qsizetype count);
    QByteArray rest() { return bytes(rest_.size()); }

  private:
    QByteArrayView rest_;
};

/// Ends the process with the property that does not hold; the fuzzer then keeps the input.
[[noreturn]] void fail(const char* property);
inline void require(bool holds, const char* property) {
    if (!holds)
        fail(property);
}

/// The process's working folder from the first call on: one of its own, in memory where the system has that.
QString workFolder();
void writeFile(const QString& path, const QByteArray& content);
/// Empty, too, when there is none.
QByteArray readFile(const QString& path);

} // namespace kelvane::fuzz
