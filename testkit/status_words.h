#pragma once

#include <QList>
#include <QString>

namespace kelvane::testing {

/// A status of a link library and the exact words for it.
struct StatusWords {
    qint16 code;
    QString words;
};

} // namespace kelvane::testing
