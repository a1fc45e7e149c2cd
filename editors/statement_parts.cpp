#include "editors/statement_parts.h"

namespace kelvane {

Sql instrumentQuery(const Session& session, const QString& asset) {
    return u"select mtag from " + sqlName(session.SessionOwner) + u".inventory where i4201 = " +
           sqlText(asset);
}

Sql instrumentKey(const Session& session, const QString& asset) {
    return u"(" + instrumentQuery(session, asset) + u")";
}

Sql commaJoined(const QList<Sql>& parts) {
    Sql joined = u"";
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (i > 0)
            joined += u",";
        joined += parts[i];
    }
    return joined;
}

} // namespace kelvane
