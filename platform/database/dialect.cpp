#include "platform/database/dialect.h"

#include "platform/database/owner_scopes.h"
#include "platform/error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

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

/// One statement of a text, in the words of an engine.
class Part {
  public:
    Part(const QString& batch, TokenSpan tokens, const SqlTokens& sql, const EngineDialect& dialect)
        : batch_(batch), piece_(textFrom(tokens.front(), tokens.back())) {
        dialect.rewrite(tokens, edits_);
        resolveOwners(tokens, edits_);
        // A driver counts the parameter markers of comments, and may take a trailing one for a statement.
        for (const auto comment : sql.comments)
            edits_.replace(comment, u" "_s);
    }

    /// Puts `words` behind the statement.
    void add(const QString& words) {
        if (!words.isEmpty())
            edits_.replace(QStringView(piece_.end(), piece_.end()), words);
    }

    QString text() const {
        if (!edits_.isEmpty())
            return edits_.applyTo(piece_);
        return piece_.size() == batch_.size() ? batch_ : piece_.toString();
    }

  private:
    const QString& batch_;
    QStringView piece_;
    TextEdits edits_;
};

bool isCommit(TokenSpan part) {
    return part.size() == 1 && part.front().is("commit"_L1);
}

void requireStatement(bool found) {
    if (!found)
        throw Error{static_cast<double>(ErrorNumber::invalidArgument), text(TextId::statementEmpty)};
}

/// An incomplete text is checked too: the driver may carry out what stands before the piece that is never
/// closed.
void requireAllPermitted(const QVarLengthArray<TokenSpan, 4>& parts, const EngineDialect& dialect) {
    for (const auto part : parts)
        dialect.requirePermitted(part);
}

} // namespace

QStringView textFrom(const Token& first, const Token& last) {
    return {first.text.begin(), last.text.end()};
}

std::size_t behindPresentMoment(TokenSpan statement, std::size_t at) {
    const bool stands = at + 3 < statement.size() && statement[at].is("now"_L1) &&
                        statement[at + 1].is(u'(') && statement[at + 2].is(u'*') &&
                        statement[at + 3].is(u')');
    return stands ? at + 4 : 0;
}

QList<BatchStep> batchSteps(const QString& batch, const EngineDialect& dialect) {
    const auto sql = tokensOf(batch);
    const auto parts = batchParts(sql);
    if (!sql.complete) {
        requireAllPermitted(parts, dialect);
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
            dialect.requirePermitted(part);
            step.statements << Part(batch, part, sql, dialect).text();
        }
    }
    if (!step.statements.isEmpty())
        steps << step;
    return steps;
}

QString engineQuery(const QString& query, Rows rows, const EngineDialect& dialect) {
    const auto sql = tokensOf(query);
    auto parts = batchParts(sql);
    if (parts.size() > 1 && isCommit(parts.back()))
        parts.removeLast();
    requireAllPermitted(parts, dialect);
    if (!sql.complete)
        return query;
    requireStatement(!parts.isEmpty());
    if (parts.size() != 1)
        return query;
    Part part(query, parts.front(), sql, dialect);
    QString end = dialect.orderOf ? dialect.orderOf(parts.front()) : QString();
    if (rows == Rows::first && takesLimit(parts.front()))
        end += u" limit 1"_s;
    part.add(end);
    return part.text();
}

} // namespace kelvane
