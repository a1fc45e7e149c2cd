#include "data/history/asset_number.h"

#include "data/routine.h"
#include "data/small_routines.h"
#include "platform/values/texts.h"

using namespace Qt::StringLiterals;

namespace kelvane {

Sql isNumberButForBlanks(const QString& asset) {
    return u"lower(rtrim(i4201)) = lower(" + sqlText(ModuleGlobals::SQLSafe(trimBlanks(asset))) + u")";
}

Lookup<QString> storedAssetNumber(Session& session, const QString& asset) {
    Routine routine(session, u"History,assetNumber"_s);
    const auto numbersWhere = [&](const Sql& condition) {
        QList<QString> numbers;
        const auto rows = routine.select(u"select i4201 from " + sqlName(session.SessionOwner) +
                                         u".inventory where " + condition + u" order by i4201 asc");
        while (rows->next())
            numbers << rows->value(0).value_or(QString());
        return numbers;
    };
    return lookupOf(routine.resultOf([&] {
        const auto exact = numbersWhere(u"i4201 = " + sqlText(ModuleGlobals::SQLSafe(asset)));
        return exact.isEmpty() ? numbersWhere(isNumberButForBlanks(asset)) : exact;
    }));
}

} // namespace kelvane
