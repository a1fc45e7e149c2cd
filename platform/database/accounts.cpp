#include "platform/database/accounts.h"

#if __has_include(<crypt.h>)
#include <crypt.h>
#define KELVANE_HAS_CRYPT 1
#endif

#include <memory>

namespace kelvane {

namespace {

/// Compares without stopping at the first difference.
bool sameBytes(QByteArrayView one, QByteArrayView other) {
    if (one.size() != other.size())
        return false;
    int difference = 0;
    for (qsizetype at = 0; at < one.size(); ++at)
        difference |= one[at] ^ other[at];
    return difference == 0;
}

} // namespace

#ifdef KELVANE_HAS_CRYPT
bool passwordMatches(const QString& password, const QByteArray& hash) {
    const auto phrase = password.toUtf8();
    auto work = std::make_unique<crypt_data>(); // 32 KB, too large for comfort on the stack
    const char* computed = crypt_r(phrase.constData(), hash.constData(), work.get());
    // A failure is told by a text that begins with "*", which no hash does.
    const bool valid = computed && computed[0] != '*' && !hash.isEmpty() && hash[0] != '*';
    return valid && sameBytes(computed, hash) && !phrase.contains('\0');
}
#else
// Without the library there is no way to check a password, so none is right.
bool passwordMatches(const QString&, const QByteArray&) {
    return false;
}
#endif

QByteArray nobodysHash() {
    return "$y$j9T$nobodynobodynobodynob.$............................................";
}

} // namespace kelvane
