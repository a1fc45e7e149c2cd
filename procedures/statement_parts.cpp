#include "procedures/statement_parts.h"

namespace kelvane {

Sql joinWithCommas(const QList<Sql>& parts) {
    Sql joined = u"";
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (i > 0)
            joined += u",";
        joined += parts[i];
    }
    return joined;
}

} // namespace kelvane
