#include "platform/database/refused_value.h"

#include "platform/database/sql_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The pieces between commas of the list in parentheses that `tokens` begins with, and what stands behind it.
/// A piece of more than one token gives null.
struct List {
    QVarLengthArray<const Token*, 64> pieces;
    TokenSpan behind;
};

List readList(TokenSpan tokens) {
    List list;
    int depth = 0;
    std::size_t begin = 1;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        const auto& token = tokens[at];
        depth += token.is(u'(') ? 1 : 0;
        if (depth == 1 && (token.is(u',') || token.is(u')'))) {
            list.pieces.append(at == begin + 1 ? &tokens[begin] : nullptr);
            begin = at + 1;
        }
        depth -= token.is(u')') ? 1 : 0;
        if (depth == 0) {
            list.behind = tokens.subspan(at + 1);
            break;
        }
    }
    return list;
}

/// What a text in single quotes stands for.
QString valueOf(const Token& literal) {
    return literal.text.mid(1, literal.text.size() - 2).toString().replace(u"''"_s, u"'"_s);
}

bool quotes(const QString& description, const Token* value) {
    return value != nullptr && value->kind == TokenKind::text &&
           description.contains(u'"' + valueOf(*value) + u'"');
}

} // namespace

QString columnOfRefusedValue(const QString& statement, const QString& description) {
    const auto sql = tokensOf(statement);
    const TokenSpan tokens(sql.tokens.data(), static_cast<std::size_t>(sql.tokens.size()));
    const auto open = std::ranges::find_if(tokens, [](const Token& token) { return token.is(u'('); });
    if (!sql.complete || tokens.empty() || !tokens.front().is("insert"_L1) || open == tokens.end())
        return {};
    const auto columns = readList({open, tokens.end()});
    if (columns.behind.empty() || !columns.behind.front().is("values"_L1))
        return {};
    const auto values = readList(columns.behind.subspan(1));
    const auto count = std::min(columns.pieces.size(), values.pieces.size());
    for (qsizetype place = 0; place < count; ++place) {
        if (quotes(description, values.pieces[place]) && columns.pieces[place] != nullptr)
            return columns.pieces[place]->name();
    }
    return {};
}

} // namespace kelvane
