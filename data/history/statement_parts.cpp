#include "data/history/statement_parts.h"

#include "platform/values/moments.h"

namespace kelvane {

Sql sqlDate(const QDate& day) {
    return sqlText(formatMoment({day, QTime(0, 0)}, u"YYYY-MM-DD"));
}

Sql nullsLast(const Sql& column) {
    return u"case when " + column + u" is null then 1 else 0 end," + column;
}

} // namespace kelvane
