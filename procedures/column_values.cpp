#include "procedures/column_values.h"

namespace kelvane {

QStringList columnValues(Routine& routine, const Sql& query) {
    QStringList values;
    for (const auto rows = routine.select(query); rows->next();)
        values << notNull(rows->value(0));
    return values;
}

QStringList columnValuesNotNull(Routine& routine, const Sql& query) {
    QStringList values;
    for (const auto rows = routine.select(query); rows->next();) {
        if (const auto value = rows->value(0))
            values << *value;
    }
    return values;
}

} // namespace kelvane
