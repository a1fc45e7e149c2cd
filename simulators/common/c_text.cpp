#include "simulators/common/c_text.h"

#include "simulators/common/text_bytes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace kelvane::simulators {

std::optional<QString> textIn(const char* text) {
    if (text == nullptr)
        return {};
    return fromBytes(QByteArrayView(text, static_cast<qsizetype>(::strnlen(text, 1024))));
}

void putText(char* buffer, qsizetype width, const QString& text) {
    const QByteArray bytes = toBytes(text);
    const qsizetype length = std::min(bytes.size(), width - 1);
    std::copy_n(bytes.constData(), length, buffer);
    buffer[length] = '\0';
}

QString digitsOf(float number) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return QString::fromLatin1(digits.data(), end.ptr - digits.data());
}

} // namespace kelvane::simulators
