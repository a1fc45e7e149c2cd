#include "resources/captions.h"

using namespace Qt::StringLiterals;

namespace kelvane {

QString titleOf(TextId caption) {
    return text(caption).remove(u"..."_s).trimmed();
}

QStringList captionsOf(std::span<const TextId> ids) {
    QStringList captions;
    for (const auto id : ids)
        captions << text(id);
    return captions;
}

} // namespace kelvane
