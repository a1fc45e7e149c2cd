#include "platform/database/accounts.h"

#include "platform/system.h"

namespace kelvane {

namespace {

/// Compares without stopping at the first difference.
bool sameBytes(QByteArrayView left, QByteArrayView right) {
    if (left.size() != right.size())
        return false;
    int difference = 0;
    for (qsizetype at = 0; at < left.size(); ++at)
        difference |= left[at] ^ right[at];
    return difference == 0;
}

} // namespace

bool passwordMatches(const QString& password, const QByteArray& hash) {
    const auto phrase = password.toUtf8();
    const auto computed = hashOf(phrase, hash);
    return !computed.isEmpty() && sameBytes(computed, hash) && !phrase.contains('\0');
}

QByteArray newHash(const QByteArray& password) {
    const auto setting = newHashSetting();
    return setting.isEmpty() ? QByteArray() : hashOf(password, setting);
}

QByteArray dummyHash() {
    return "$y$j9T$nobodynobodynobodynob.$............................................";
}

} // namespace kelvane
