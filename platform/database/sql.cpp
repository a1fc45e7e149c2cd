#include "platform/database/sql.h"

#include "platform/database/sql_text.h"
#include "platform/error.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Drivers take a text up to its first NUL.
bool hasNul(QStringView value) {
    return value.contains(QChar());
}

bool hasPairedQuotes(QStringView value) {
    for (qsizetype at = value.indexOf(u'\''); at >= 0; at = value.indexOf(u'\'', at + 2)) {
        if (at + 1 >= value.size() || value[at + 1] != u'\'')
            return false;
    }
    return true;
}

bool isNamePart(QChar character) {
    return character.isLetterOrNumber() || QStringView(u"_@#$").contains(character);
}

bool isPlainName(QStringView value) {
    while (value.startsWith(u' '))
        value = value.sliced(1);
    while (value.endsWith(u' '))
        value.chop(1);
    return !value.isEmpty() && std::all_of(value.begin(), value.end(), isNamePart);
}

bool isPlainNumber(const QString& value) {
    static const QRegularExpression number(u"\\A[+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)([eE][+-]?[0-9]+)?\\z"_s);
    return number.match(value).hasMatch();
}

/// Engines differ on where some quotes and comments end: "//" and "%" begin a comment of one, "$" a quote of
/// another, and brackets, backticks and E'' hold quotes in their own ways.
bool readsDifferently(QStringView value, const Token* before, const Token& token) {
    const bool adjoins = before && before->text.end() == token.text.begin();
    const auto inner = token.text.mid(1, token.text.size() - 2);
    switch (token.kind) {
    case TokenKind::symbol:
        return token.is(u'$') || (token.is(u'/') && adjoins && before->is(u'/')) ||
               (token.is(u'%') && (value.contains(u'\n') || value.contains(u'\r')));
    case TokenKind::number:
        return token.text.contains(u'$');
    case TokenKind::quotedName:
        return token.text.front() != u'"' && std::ranges::any_of(inner, [](QChar part) {
                   return QStringView(u"'\"`[]();").contains(part);
               });
    case TokenKind::text:
        return inner.contains(u"\\'") || (inner.endsWith(u'\\') && !(before && before->is("escape"_L1))) ||
               (adjoins && before->is("e"_L1) && inner.contains(u'\\'));
    case TokenKind::word:
        return false;
    }
    return false;
}

bool staysInParentheses(QStringView value) {
    const auto sql = tokensOf(value);
    if (!sql.complete || !sql.comments.isEmpty())
        return false;
    int depth = 0;
    const Token* before = nullptr;
    for (const auto& token : sql.tokens) {
        if (readsDifferently(value, before, token))
            return false;
        before = &token;
        if (token.is(u'('))
            ++depth;
        else if (token.is(u')'))
            --depth;
        if (depth < 0 || token.is(u';'))
            return false;
    }
    return depth == 0;
}

} // namespace

Sql sqlText(const QString& value) {
    return {u'\'' + value + u'\'', !hasNul(value) && hasPairedQuotes(value)};
}

Sql sqlName(const QString& name) {
    return {name, isPlainName(name)};
}

Sql sqlNumber(const QString& number) {
    return {number, isPlainNumber(number)};
}

Sql sqlCondition(const QString& condition) {
    return {condition, !hasNul(condition) && staysInParentheses(condition)};
}

const QString& requireIntact(const Sql& statement) {
    if (!statement.isIntact())
        throw syntaxError();
    return statement.text();
}

} // namespace kelvane
