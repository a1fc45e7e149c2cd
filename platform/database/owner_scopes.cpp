#include "platform/database/owner_scopes.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

struct FromTable {
    const Token* owner;
    const Token* table;
    bool aliased;
};

/// One query: its tables, and the query around it.
struct Scope {
    std::size_t parent = none;
    std::vector<FromTable> tables = {};
};

/// A column "owner.table.column" and the query it stands in.
struct OwnedColumn {
    const Token* owner;
    const Token* table;
    std::size_t scope;
};

enum class Clause { other, tables, on };

/// What is open at one depth of parentheses.
struct Level {
    std::size_t scope = 0;
    Clause clause = Clause::other;
    bool tableExpected = false;
};

bool isOneOf(const Token& token, std::initializer_list<QLatin1StringView> words) {
    return token.kind == TokenKind::word &&
           std::any_of(words.begin(), words.end(), [&](QLatin1StringView word) { return token.is(word); });
}

bool sameName(const Token& left, const Token& right) {
    if (left.kind == TokenKind::word && right.kind == TokenKind::word)
        return left.text.compare(right.text, Qt::CaseInsensitive) == 0;
    return left.name().compare(right.name(), Qt::CaseInsensitive) == 0;
}

class ScopeReader {
  public:
    explicit ScopeReader(TokenSpan tokens) : tokens_(tokens), scopes_(1), levels_(1) {}

    void read() {
        levels_.back().tableExpected = !tokens_.empty() && tokens_.front().is("update"_L1);
        for (at_ = 0; at_ < tokens_.size(); ++at_)
            step(tokens_[at_]);
    }

    void resolve(TextEdits& edits) const {
        for (const auto& column : columns_) {
            if (const auto* owner = ownerOf(column))
                edits.replace(column.owner->text, owner->text.toString());
        }
    }

  private:
    bool symbolAt(std::size_t place, char16_t symbol) const {
        return place < tokens_.size() && tokens_[place].is(symbol);
    }
    bool nameAt(std::size_t place) const { return place < tokens_.size() && tokens_[place].isName(); }

    void step(const Token& token) {
        auto& level = levels_.back();
        if (token.is(u'('))
            open();
        else if (token.is(u')'))
            closeLevel();
        else if (token.is(u',') && level.clause != Clause::other)
            level = {level.scope, Clause::tables, true};
        else if (token.isName() && !keyword(token))
            name();
    }

    void open() {
        auto inner = levels_.back();
        if (at_ + 1 < tokens_.size() && isOneOf(tokens_[at_ + 1], {"select"_L1, "with"_L1, "values"_L1})) {
            // A query inside the list of tables does not see the tables beside it.
            const bool beside = inner.clause == Clause::tables;
            scopes_.push_back({beside ? scopes_[inner.scope].parent : inner.scope});
            levels_.back().tableExpected = false;
            inner = {scopes_.size() - 1};
        }
        levels_.push_back(inner);
    }

    void closeLevel() {
        if (levels_.size() > 1)
            levels_.pop_back();
        levels_.back().tableExpected = false;
    }

    /// Takes a keyword that begins or ends a list of tables; false for any other word.
    bool keyword(const Token& token) {
        auto& level = levels_.back();
        if (token.is("from"_L1) || token.is("join"_L1)) {
            level = {level.scope, Clause::tables, true};
        } else if (token.is("on"_L1) && level.clause == Clause::tables) {
            level.clause = Clause::on;
        } else if (isOneOf(token, {"union"_L1, "except"_L1, "intersect"_L1})) {
            scopes_.push_back({scopes_[level.scope].parent});
            level = {scopes_.size() - 1};
        } else if (isOneOf(token, {"where"_L1, "group"_L1, "having"_L1, "order"_L1, "limit"_L1, "set"_L1})) {
            level = {level.scope};
        } else {
            return isOneOf(token, {"select"_L1, "update"_L1});
        }
        return true;
    }

    void name() {
        const bool owned = symbolAt(at_ + 1, u'.') && nameAt(at_ + 2);
        auto& level = levels_.back();
        if (level.tableExpected) {
            level.tableExpected = false;
            if (owned) {
                scopes_[level.scope].tables.push_back(
                    {&tokens_[at_], &tokens_[at_ + 2], aliasFollows(at_ + 3)});
                at_ += 2;
            }
        } else if (owned && symbolAt(at_ + 3, u'.')) {
            columns_.push_back({&tokens_[at_], &tokens_[at_ + 2], level.scope});
            at_ += 4;
        }
    }

    bool aliasFollows(std::size_t place) const {
        return nameAt(place) &&
               !isOneOf(tokens_[place],
                        {"where"_L1, "join"_L1,    "inner"_L1,   "left"_L1,  "right"_L1,  "full"_L1,
                         "cross"_L1, "outer"_L1,   "natural"_L1, "on"_L1,    "using"_L1,  "group"_L1,
                         "order"_L1, "limit"_L1,   "having"_L1,  "union"_L1, "except"_L1, "intersect"_L1,
                         "set"_L1,   "indexed"_L1, "not"_L1,     "window"_L1});
    }

    const Token* ownerOf(const OwnedColumn& column) const {
        const Token* meant = nullptr;
        for (auto scope = column.scope; scope != none; scope = scopes_[scope].parent) {
            for (const auto& table : scopes_[scope].tables) {
                if (!sameName(*table.table, *column.table))
                    continue;
                if (sameName(*table.owner, *column.owner))
                    return nullptr;
                if (table.aliased)
                    continue;
                if (meant && !sameName(*meant, *table.owner))
                    return nullptr;
                meant = table.owner;
            }
        }
        return meant;
    }

    TokenSpan tokens_;
    std::size_t at_ = 0;
    std::vector<Scope> scopes_;
    std::vector<Level> levels_;
    std::vector<OwnedColumn> columns_;
};

/// Most statements hold no such column, and then there is nothing to read closely.
bool hasOwnedColumn(TokenSpan tokens) {
    for (std::size_t at = 4; at < tokens.size(); ++at) {
        if (tokens[at - 1].is(u'.') && tokens[at - 3].is(u'.') && tokens[at - 4].isName())
            return true;
    }
    return false;
}

} // namespace

void resolveOwners(TokenSpan statement, TextEdits& edits) {
    if (!hasOwnedColumn(statement))
        return;
    ScopeReader reader(statement);
    reader.read();
    reader.resolve(edits);
}

} // namespace kelvane
