#include "platform/database/embedded_dialect.h"

#include "platform/database/permissions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

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
            else if (const auto end = behindPresentMoment(tokens_, at))
                at = moment(at, end, "datetime"_L1);
            else if (const auto date = presentDate(at))
                at = moment(at, date, "date"_L1);
        }
    }

  private:
    bool symbolAt(std::size_t place, char16_t symbol) const {
        return place < tokens_.size() && tokens_[place].is(symbol);
    }

    /// The place behind "date(now(*))", or 0.
    std::size_t presentDate(std::size_t at) const {
        if (!tokens_[at].is("date"_L1) || at + 2 >= tokens_.size())
            return 0;
        const auto end = behindPresentMoment(tokens_, at + 2);
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

void rewriteFunctions(TokenSpan statement, TextEdits& edits) {
    Functions(statement, edits).rewrite();
}

constexpr EngineDialect embeddedDialect{requirePermittedEmbedded, rewriteFunctions};

} // namespace

QList<BatchStep> embeddedBatch(const QString& batch) {
    return batchSteps(batch, embeddedDialect);
}

QString embeddedQuery(const QString& query, Rows rows) {
    return engineQuery(query, rows, embeddedDialect);
}

} // namespace kelvane
