#include "platform/database/embedded_dialect.h"

#include "platform/database/embedded_permissions.h"
#include "platform/database/embedded_scopes.h"
#include "platform/database/sql_text.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

QStringView textFrom(const Token& first, const Token& last) {
    return {first.text.begin(), last.text.end()};
}

/// Rewrites the functions of one statement.
class Functions {
  public:
    Functions(TokenSpan tokens, TextEdits& edits) : tokens_(tokens), edits_(edits) {}

    void rewrite() {
        for (std::size_t at = 0; at < tokens_.size(); ++at) {
            const auto& token = tokens_[at];
            if (token.kind != TokenKind::word || !symbolAt(at + 1, u'(') ||
                (at > 0 && symbolAt(at - 1, u'.')))
                continue;
            if (token.is("locate"_L1))
                edits_.replace(token.text, u"instr"_s);
            else if (token.is("isnull"_L1))
                edits_.replace(token.text, u"coalesce"_s);
            else if (const auto end = presentMoment(at))
                at = moment(at, end, "datetime"_L1);
            else if (const auto date = presentDate(at))
                at = moment(at, date, "date"_L1);
        }
    }

  private:
    bool symbolAt(std::size_t place, char16_t symbol) const {
        return place < tokens_.size() && tokens_[place].is(symbol);
    }

    /// The place behind "now(*)", or 0 when it doesn't stand here.
    std::size_t presentMoment(std::size_t at) const {
        const bool stands = tokens_[at].is("now"_L1) && symbolAt(at + 1, u'(') && symbolAt(at + 2, u'*') &&
                            symbolAt(at + 3, u')');
        return stands ? at + 4 : 0;
    }

    /// The place behind "date(now(*))", or 0.
    std::size_t presentDate(std::size_t at) const {
        if (!tokens_[at].is("date"_L1) || at + 2 >= tokens_.size())
            return 0;
        const auto end = presentMoment(at + 2);
        return end != 0 && symbolAt(end, u')') ? end + 1 : 0;
    }

    /// Puts the engine's call in place of the tokens from `first` to before `end` and of the days added or
    /// taken behind them; gives the last place that is done.
    std::size_t moment(std::size_t first, std::size_t end, QLatin1StringView function) {
        auto call = u"%1('now','localtime'"_s.arg(function);
        while (daysFollow(end)) {
            call += u",'%1%2 days'"_s.arg(tokens_[end].text, tokens_[end + 1].text);
            end += 2;
        }
        edits_.replace(textFrom(tokens_[first], tokens_[end - 1]), call + u')');
        return end - 1;
    }

    /// A sign and a plain number of days that no further factor belongs to.
    bool daysFollow(std::size_t at) const {
        if (!symbolAt(at, u'-') && !symbolAt(at, u'+'))
            return false;
        if (at + 1 >= tokens_.size() || tokens_[at + 1].kind != TokenKind::number)
            return false;
        const auto number = tokens_[at + 1].text;
        const bool plain = std::all_of(number.begin(), number.end(), [](QChar character) {
            return character == u'.' || (character >= u'0' && character <= u'9');
        });
        return plain && !symbolAt(at + 2, u'*') && !symbolAt(at + 2, u'/') && !symbolAt(at + 2, u'%') &&
               !symbolAt(at + 2, u'|');
    }

    TokenSpan tokens_;
    TextEdits& edits_;
};

/// True for a query that may be cut after its first row by a limit behind it.
bool takesLimit(TokenSpan part) {
    if (!part.front().is("select"_L1))
        return false;
    int depth = 0;
    for (const auto& token : part) {
        if (token.is(u'('))
            ++depth;
        else if (token.is(u')'))
            --depth;
        else if (depth == 0 && token.is("limit"_L1))
            return false;
    }
    return depth == 0;
}

QString rewritePart(const QString& batch, TokenSpan part, const SqlTokens& sql, Rows rows) {
    TextEdits edits;
    Functions(part, edits).rewrite();
    resolveOwners(part, edits);
    // The driver counts the parameter markers of comments, and takes a trailing one for a statement.
    for (const auto comment : sql.comments)
        edits.replace(comment, u" "_s);
    const auto piece = textFrom(part.front(), part.back());
    if (rows == Rows::first && takesLimit(part))
        edits.replace(QStringView(piece.end(), piece.end()), u" limit 1"_s);
    if (!edits.isEmpty())
        return edits.applyTo(piece);
    return piece.size() == batch.size() ? batch : piece.toString();
}

bool isCommit(TokenSpan part) {
    return part.size() == 1 && part.front().is("commit"_L1);
}

void requireStatement(bool found) {
    if (!found)
        throw Error{static_cast<double>(ErrorNumber::invalidArgument), text(TextId::statementEmpty)};
}

/// An incomplete text is checked too: the driver may carry out what stands before the piece that is never
/// closed.
void requireAllPermitted(const QVarLengthArray<TokenSpan, 4>& parts) {
    for (const auto part : parts)
        requirePermitted(part);
}

} // namespace

QList<BatchStep> embeddedBatch(const QString& batch) {
    const auto sql = tokensOf(batch);
    const auto parts = batchParts(sql);
    if (!sql.complete) {
        requireAllPermitted(parts);
        return {{{batch}}};
    }
    requireStatement(!parts.isEmpty());
    QList<BatchStep> steps;
    BatchStep step;
    for (const auto part : parts) {
        if (isCommit(part)) {
            step.committed = true;
            steps << std::exchange(step, {});
        } else {
            requirePermitted(part);
            step.statements << rewritePart(batch, part, sql, Rows::all);
        }
    }
    if (!step.statements.isEmpty())
        steps << step;
    return steps;
}

QString embeddedQuery(const QString& query, Rows rows) {
    const auto sql = tokensOf(query);
    auto parts = batchParts(sql);
    if (parts.size() > 1 && isCommit(parts.back()))
        parts.removeLast();
    requireAllPermitted(parts);
    if (!sql.complete)
        return query;
    requireStatement(!parts.isEmpty());
    return parts.size() == 1 ? rewritePart(query, parts.front(), sql, rows) : query;
}

} // namespace kelvane
