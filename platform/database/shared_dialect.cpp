#include "platform/database/shared_dialect.h"

#include "platform/database/permissions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The comparison of texts with a pattern takes no notice of case, and a backslash in the pattern is nothing
/// special.
void rewriteLike(TokenSpan statement, std::size_t at, TextEdits& edits) {
    edits.replace(statement[at].text, u"ilike"_s);
    if (at + 1 >= statement.size() || statement[at + 1].kind != TokenKind::text)
        return;
    const auto pattern = statement[at + 1].text;
    const bool escapes = at + 2 < statement.size() && statement[at + 2].is("escape"_L1);
    if (!escapes && pattern.contains(u'\\'))
        edits.replace(QStringView(pattern.end(), pattern.end()), u" escape ''"_s);
}

/// A date, time or number that is compared with an empty text: the server would refuse the text, and it is
/// equal to none of them.
bool isComparedWithNothing(TokenSpan query, std::size_t at) {
    return query[at].isName() && at + 2 < query.size() && query[at + 1].is(u'=') &&
           query[at + 2].text == u"''";
}

void rewriteWords(TokenSpan statement, TextEdits& edits) {
    const bool isQuery = statement.front().is("select"_L1);
    for (std::size_t at = 0; at < statement.size(); ++at) {
        if (isQuery && isComparedWithNothing(statement, at))
            edits.replace(QStringView(statement[at].text.end(), statement[at].text.end()), u"::text"_s);
        if (at > 0 && statement[at - 1].is(u'.'))
            continue;
        if (const auto end = behindPresentMoment(statement, at)) {
            edits.replace(textFrom(statement[at], statement[end - 1]), u"present_moment()"_s);
            at = end - 1;
        } else if (statement[at].is("like"_L1)) {
            rewriteLike(statement, at, edits);
        }
    }
}

/// The key of a table whose rows are shown in its order.
struct TableOrder {
    QLatin1StringView table;
    QLatin1StringView key;
};

constexpr TableOrder orders[] = {
    {"hvm_kv_prompts"_L1, "pname"_L1},
    {"inventory"_L1, "mtag"_L1},
};

/// Words of the outermost query behind which an order can't be put, or has no use.
constexpr QLatin1StringView ordering[] = {
    "except"_L1, "fetch"_L1,  "for"_L1,   "group"_L1, "having"_L1, "intersect"_L1,
    "limit"_L1,  "offset"_L1, "order"_L1, "union"_L1, "window"_L1,
};

/// What gives one row of all.
constexpr QLatin1StringView aggregates[] = {"avg"_L1, "count"_L1, "max"_L1, "min"_L1, "sum"_L1};

template <std::size_t length>
bool isOneOf(const QLatin1StringView (&words)[length], const Token& token) {
    return std::ranges::any_of(words, [&](QLatin1StringView word) { return token.is(word); });
}

/// The outermost query of a statement, as far as its order goes.
class OuterQuery {
  public:
    explicit OuterQuery(TokenSpan query) : query_(query) {
        int depth = 0;
        for (std::size_t at = 0; at < query.size(); ++at) {
            const auto& token = query[at];
            depth += token.is(u'(') ? 1 : token.is(u')') ? -1 : 0;
            if (depth == 0)
                read(token, at);
        }
    }

    /// The table that the query reads, when it reads one and has no order; a null one otherwise.
    const Token* table() const {
        if (from_ == 0 || ordered_ || from_ + 3 >= query_.size() || !query_[from_ + 2].is(u'.'))
            return nullptr;
        const auto behind = from_ + 4;
        const bool alone = behind == query_.size() || query_[behind].is("where"_L1);
        return alone ? &query_[from_ + 3] : nullptr;
    }
    bool isDistinct() const { return query_.size() > 1 && query_[1].is("distinct"_L1); }

  private:
    void read(const Token& token, std::size_t at) {
        if (token.is("from"_L1) && from_ == 0)
            from_ = at;
        else if (isOneOf(ordering, token) || (from_ == 0 && isOneOf(aggregates, token)))
            ordered_ = true;
    }

    TokenSpan query_;
    std::size_t from_ = 0;
    bool ordered_ = false;
};

QString orderOf(TokenSpan query) {
    if (!query.front().is("select"_L1))
        return {};
    const OuterQuery outer(query);
    const auto* table = outer.table();
    if (table == nullptr)
        return {};
    if (outer.isDistinct())
        return u" order by 1"_s;
    const auto* known =
        std::ranges::find_if(orders, [&](const TableOrder& row) { return table->is(row.table); });
    return known == std::end(orders) ? QString() : u" order by "_s + known->key;
}

constexpr EngineDialect sharedDialect{requirePermittedShared, rewriteWords, orderOf};

} // namespace

QList<BatchStep> sharedBatch(const QString& batch) {
    return batchSteps(batch, sharedDialect);
}

QString sharedQuery(const QString& query, Rows rows) {
    return engineQuery(query, rows, sharedDialect);
}

} // namespace kelvane
