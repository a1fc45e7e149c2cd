#include "platform/database/permissions.h"

#include "platform/error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

// Each table is in alphabetical order.

using Words = std::span<const QLatin1StringView>;

/// The words that begin the embedded engine's other statements.
constexpr QLatin1StringView embeddedBeginnings[] = {
    "alter"_L1,   "analyze"_L1,  "attach"_L1,    "begin"_L1,   "commit"_L1, "create"_L1,
    "detach"_L1,  "drop"_L1,     "end"_L1,       "explain"_L1, "pragma"_L1, "reindex"_L1,
    "release"_L1, "rollback"_L1, "savepoint"_L1, "vacuum"_L1,
};

/// And those of the shared one.
constexpr QLatin1StringView sharedBeginnings[] = {
    "abort"_L1,   "alter"_L1,   "analyse"_L1,  "analyze"_L1,   "begin"_L1,    "call"_L1,    "checkpoint"_L1,
    "close"_L1,   "cluster"_L1, "comment"_L1,  "commit"_L1,    "copy"_L1,     "create"_L1,  "deallocate"_L1,
    "declare"_L1, "discard"_L1, "do"_L1,       "drop"_L1,      "end"_L1,      "execute"_L1, "explain"_L1,
    "fetch"_L1,   "grant"_L1,   "import"_L1,   "listen"_L1,    "load"_L1,     "lock"_L1,    "merge"_L1,
    "move"_L1,    "notify"_L1,  "prepare"_L1,  "reassign"_L1,  "refresh"_L1,  "reindex"_L1, "release"_L1,
    "reset"_L1,   "revoke"_L1,  "rollback"_L1, "savepoint"_L1, "security"_L1, "set"_L1,     "show"_L1,
    "start"_L1,   "table"_L1,   "truncate"_L1, "unlisten"_L1,  "vacuum"_L1,
};

/// What a statement may call: aggregates, texts, numbers, dates, nulls, positions among rows, and the
/// dialect's own `isnull`, `locate` and `now`. Nothing that reaches a file, loads code or makes a value of
/// any size out of a short text.
constexpr QLatin1StringView functions[] = {
    "abs"_L1,         "avg"_L1,       "ceil"_L1,      "ceiling"_L1,      "char"_L1,       "coalesce"_L1,
    "count"_L1,       "date"_L1,      "datetime"_L1,  "degrees"_L1,      "dense_rank"_L1, "exp"_L1,
    "first_value"_L1, "floor"_L1,     "glob"_L1,      "group_concat"_L1, "hex"_L1,        "ifnull"_L1,
    "iif"_L1,         "instr"_L1,     "isnull"_L1,    "julianday"_L1,    "lag"_L1,        "last_value"_L1,
    "lead"_L1,        "length"_L1,    "like"_L1,      "ln"_L1,           "locate"_L1,     "log"_L1,
    "log10"_L1,       "lower"_L1,     "ltrim"_L1,     "max"_L1,          "min"_L1,        "mod"_L1,
    "now"_L1,         "nth_value"_L1, "ntile"_L1,     "nullif"_L1,       "pi"_L1,         "pow"_L1,
    "power"_L1,       "quote"_L1,     "radians"_L1,   "rank"_L1,         "replace"_L1,    "round"_L1,
    "row_number"_L1,  "rtrim"_L1,     "sign"_L1,      "sqrt"_L1,         "strftime"_L1,   "substr"_L1,
    "substring"_L1,   "sum"_L1,       "time"_L1,      "total"_L1,        "trim"_L1,       "trunc"_L1,
    "typeof"_L1,      "unicode"_L1,   "unixepoch"_L1, "upper"_L1,
};

/// The words of the language that a parenthesis may follow without being called.
constexpr QLatin1StringView wordsBeforeParenthesis[] = {
    "all"_L1,    "and"_L1,      "as"_L1,       "between"_L1,      "by"_L1,     "case"_L1,
    "cast"_L1,   "conflict"_L1, "distinct"_L1, "else"_L1,         "escape"_L1, "except"_L1,
    "exists"_L1, "filter"_L1,   "from"_L1,     "having"_L1,       "in"_L1,     "intersect"_L1,
    "is"_L1,     "join"_L1,     "limit"_L1,    "materialized"_L1, "not"_L1,    "offset"_L1,
    "on"_L1,     "or"_L1,       "over"_L1,     "returning"_L1,    "select"_L1, "set"_L1,
    "then"_L1,   "union"_L1,    "using"_L1,    "values"_L1,       "when"_L1,   "where"_L1,
};

/// The words behind which a list of tables is over.
constexpr QLatin1StringView endsOfTables[] = {
    "except"_L1, "group"_L1, "having"_L1, "intersect"_L1, "limit"_L1, "order"_L1,  "returning"_L1,
    "select"_L1, "set"_L1,   "union"_L1,  "values"_L1,    "where"_L1, "window"_L1,
};

/// The schemas beside those of the owners.
constexpr QLatin1StringView embeddedSchemas[] = {"main"_L1, "temp"_L1};
constexpr QLatin1StringView sharedSchemas[] = {"dialect"_L1, "information_schema"_L1, "kelvane"_L1,
                                               "public"_L1};
/// What stands in `main`, and what the engine answers to without a schema.
constexpr QLatin1StringView embeddedTables[] = {"accounts"_L1, "dbstat"_L1, "kelvane_upgrades"_L1};
/// How the names of the engine's own tables and schemas begin.
constexpr QLatin1StringView embeddedNames[] = {"pragma_"_L1, "sqlite_"_L1};
constexpr QLatin1StringView sharedNames[] = {"pg_"_L1};

/// What an engine has that no statement may use.
struct Refused {
    Words beginnings;
    Words schemas;
    Words tables;
    Words namesBeginningWith;
};

constexpr Refused embedded{embeddedBeginnings, embeddedSchemas, embeddedTables, embeddedNames};
constexpr Refused shared{sharedBeginnings, sharedSchemas, {}, sharedNames};

bool contains(Words words, QStringView word) {
    return std::ranges::any_of(words, [&](QLatin1StringView entry) {
        return word.size() == entry.size() && word.compare(entry, Qt::CaseInsensitive) == 0;
    });
}

bool beginsWithOneOf(Words beginnings, QStringView name) {
    return std::ranges::any_of(beginnings, [&](QLatin1StringView beginning) {
        return name.startsWith(beginning, Qt::CaseInsensitive);
    });
}

[[noreturn]] void refuse(TextId textId, const QString& name) {
    throw Error{static_cast<double>(ErrorNumber::invalidArgument), text(textId).arg(name)};
}

class Permissions {
  public:
    Permissions(TokenSpan tokens, const Refused& refused) : tokens_(tokens), refused_(refused), levels_(1) {}

    void require() {
        if (tokens_.front().kind == TokenKind::word && contains(refused_.beginnings, tokens_.front().text))
            refuse(TextId::statementNotAllowed, tokens_.front().text.toString());
        for (at_ = 0; at_ < tokens_.size(); ++at_)
            step(tokens_[at_]);
    }

  private:
    /// What is open at one depth of parentheses.
    struct Level {
        /// A list of tables runs here: a comma goes on with the next one.
        bool inTables = false;
        bool tableExpected = false;
        /// The parenthesis behind the table holds columns, not arguments.
        bool columnsMayFollow = false;
    };

    bool wordAt(std::size_t place, QLatin1StringView word) const {
        return place < tokens_.size() && tokens_[place].is(word);
    }
    bool symbolAt(std::size_t place, char16_t symbol) const {
        return place < tokens_.size() && tokens_[place].is(symbol);
    }

    void step(const Token& token) {
        auto& level = levels_.back();
        if (token.is(u'(')) {
            // "from (a, b)" goes on with tables; any other parenthesis holds none.
            const bool tables = level.tableExpected;
            level.tableExpected = false;
            levels_.push_back({tables, tables, false});
        } else if (token.is(u')')) {
            if (levels_.size() > 1)
                levels_.pop_back();
        } else if (token.is(u',') && level.inTables) {
            level.tableExpected = true;
        } else if (token.kind == TokenKind::text && level.tableExpected) {
            refuse(TextId::tableNotAllowed, token.text.toString()); // the engine takes it for a name
        } else if (token.isName() && !keyword(token)) {
            name(token);
        }
    }

    /// Takes a word that begins or ends a list of tables; false for any other one.
    bool keyword(const Token& token) {
        auto& level = levels_.back();
        if (token.kind != TokenKind::word)
            return false;
        if (token.is("from"_L1) && at_ > 0 && wordAt(at_ - 1, "distinct"_L1))
            return true; // "is distinct from"
        if (token.is("from"_L1) || token.is("join"_L1))
            level = {true, true, false};
        else if (token.is("into"_L1) || (token.is("update"_L1) && !wordAt(at_ + 1, "set"_L1)))
            level = {false, true, true};
        else if (token.is("in"_L1) && !symbolAt(at_ + 1, u'('))
            level = {level.inTables, true, false};
        else if (token.is("or"_L1) && level.tableExpected)
            ++at_; // "update or replace": what to do about a conflict
        else if (token.is("on"_L1))
            level.tableExpected = false;
        else if (contains(endsOfTables, token.text))
            level = {};
        else
            return false;
        return true;
    }

    void name(const Token& token) {
        auto& level = levels_.back();
        if (level.tableExpected) {
            level.tableExpected = false;
            table();
        } else if (symbolAt(at_ + 1, u'(')) {
            checkCall(token);
        } else if (symbolAt(at_ + 1, u'.') && isRefusedSchema(token.name())) {
            refuse(TextId::tableNotAllowed, token.name());
        }
    }

    bool isRefusedSchema(const QString& name) const {
        return contains(refused_.schemas, name) || beginsWithOneOf(refused_.namesBeginningWith, name);
    }

    /// The table whose name begins here; goes on to its last token.
    void table() {
        const bool owned = symbolAt(at_ + 1, u'.') && at_ + 2 < tokens_.size();
        const auto schema = owned ? tokens_[at_].name() : QString();
        at_ += owned ? 2 : 0;
        const auto& last = tokens_[at_];
        const auto table = last.kind == TokenKind::text ? last.text.toString() : last.name();
        const bool called = symbolAt(at_ + 1, u'(') && !levels_.back().columnsMayFollow;
        if (isRefusedSchema(schema) || contains(refused_.tables, table) ||
            beginsWithOneOf(refused_.namesBeginningWith, table) || called || last.kind == TokenKind::text)
            refuse(TextId::tableNotAllowed, owned ? schema + u'.' + table : table);
    }

    void checkCall(const Token& token) const {
        if (token.kind == TokenKind::word && contains(wordsBeforeParenthesis, token.text))
            return;
        // A method of nothing, a type behind "as", or the columns of a query that gets a name.
        if (at_ > 0 && (symbolAt(at_ - 1, u'.') || wordAt(at_ - 1, "as"_L1)))
            return;
        if (!contains(functions, token.name()) && !namesQuery(at_ + 1))
            refuse(TextId::loadExtensionNotAllowed, token.name());
    }

    /// Whether "as (" follows the parenthesis that opens at `place`.
    bool namesQuery(std::size_t place) const {
        int depth = 0;
        for (; place < tokens_.size(); ++place) {
            depth += tokens_[place].is(u'(') ? 1 : tokens_[place].is(u')') ? -1 : 0;
            if (depth == 0)
                break;
        }
        return wordAt(place + 1, "as"_L1) &&
               (symbolAt(place + 2, u'(') || wordAt(place + 2, "materialized"_L1) ||
                wordAt(place + 2, "not"_L1));
    }

    TokenSpan tokens_;
    const Refused& refused_;
    std::size_t at_ = 0;
    std::vector<Level> levels_;
};

} // namespace

void requirePermittedEmbedded(TokenSpan statement) {
    if (!statement.empty())
        Permissions(statement, embedded).require();
}

void requirePermittedShared(TokenSpan statement) {
    if (!statement.empty())
        Permissions(statement, shared).require();
}

} // namespace kelvane
