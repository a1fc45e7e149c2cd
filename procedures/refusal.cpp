#include "procedures/refusal.h"

#include "platform/database/sql.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane {

bool isConfined(const QString& value) {
    return sqlText(value).isIntact();
}

bool namesColumn(const Error& error, QLatin1StringView column) {
    const QRegularExpression word(u"\\b%1\\b"_s.arg(column));
    return word.match(error.description).hasMatch();
}

bool saysMissing(const Error& error, QLatin1StringView column) {
    static const QRegularExpression null(u"\\bnull\\b"_s, QRegularExpression::CaseInsensitiveOption);
    return namesColumn(error, column) && null.match(error.description).hasMatch();
}

} // namespace kelvane
