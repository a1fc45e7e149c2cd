// Statements of any text, and statements with any value in them: the tokens cover the text, a rewritten
// statement is not rewritten again, and no value makes more or fewer statements than the routine's own words.

#include "fuzz/input.h"
#include "platform/database/embedded_dialect.h"
#include "platform/database/sql.h"
#include "platform/database/sql_text.h"
#include "platform/error.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace kelvane;
using namespace kelvane::fuzz;

namespace {

bool isBlank(QStringView text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar part) { return part == u' ' || (part >= u'\t' && part <= u'\r'); });
}

void checkTokens(const QString& statement) {
    const auto sql = tokensOf(statement);
    std::vector<QStringView> pieces(sql.comments.begin(), sql.comments.end());
    for (const auto& token : sql.tokens) {
        require(!token.text.isEmpty(), "no token is empty");
        pieces.push_back(token.text);
    }
    std::ranges::sort(pieces, {}, [](QStringView piece) { return piece.data(); });
    const auto* at = statement.constBegin();
    for (const auto piece : pieces) {
        require(piece.begin() >= at && piece.end() <= statement.constEnd(),
                "tokens lie side by side in the text");
        require(isBlank(QStringView(at, piece.begin())), "only blanks stand between tokens");
        at = piece.end();
    }
    require(isBlank(QStringView(at, statement.constEnd())), "only blanks stand behind the last token");
}

void checkRewriting(const QString& statement) {
    try {
        const auto steps = embeddedBatch(statement);
        for (const auto& step : steps) {
            for (const auto& rewritten : step.statements) {
                if (!tokensOf(rewritten).complete)
                    continue;
                const auto again = embeddedBatch(rewritten);
                require(again.size() == 1 && again.front().statements == QStringList{rewritten},
                        "a statement that was rewritten is not rewritten again");
            }
        }
    } catch (const Error&) { // refused
    }
    const auto sql = tokensOf(statement);
    if (!sql.tokens.isEmpty() && sql.tokens.back().is(u'.'))
        return; // what is put behind it would be its column
    for (const auto rows : {Rows::all, Rows::first}) {
        try {
            const auto rewritten = embeddedQuery(statement, rows);
            require(embeddedQuery(rewritten, rows) == rewritten,
                    "a query that was rewritten is not rewritten again");
        } catch (const Error&) { // refused
        }
    }
}

/// How many statements an engine reads that knows more marks than the program: "$" and E'' quotes and nested
/// comments, or "//" and "%" comments.
class OtherEngine {
  public:
    OtherEngine(QStringView text, bool hasDollarQuotes) : text_(text), hasDollarQuotes_(hasDollarQuotes) {}

    int statements() {
        while (at_ < text_.size())
            step();
        return count_ + (pending_ ? 1 : 0);
    }

  private:
    bool startsWith(QStringView mark) const { return text_.sliced(at_).startsWith(mark); }

    void step() {
        const auto part = text_[at_];
        if (part == u'\'')
            quoted(u'\'', hasDollarQuotes_ && escapes_);
        else if (part == u'"')
            quoted(u'"', false);
        else if (startsWith(u"--") || (!hasDollarQuotes_ && (startsWith(u"//") || part == u'%')))
            skipTo(u"\n");
        else if (startsWith(u"/*"))
            comment();
        else if (hasDollarQuotes_ && part == u'$' && !inWord_)
            dollar();
        else
            plain(part);
    }

    void plain(QChar part) {
        const bool isWord = part.isLetterOrNumber() || part == u'_' || (inWord_ && part == u'$');
        escapes_ = !inWord_ && (part == u'e' || part == u'E');
        inWord_ = isWord;
        ++at_;
        if (part == u';') {
            count_ += pending_ ? 1 : 0;
            pending_ = false;
        } else if (!part.isSpace()) {
            pending_ = true;
        }
    }

    void quoted(QChar quote, bool escapes) {
        pending_ = true;
        inWord_ = escapes_ = false;
        for (++at_; at_ < text_.size(); ++at_) {
            if (escapes && text_[at_] == u'\\')
                ++at_;
            else if (text_[at_] == quote && (at_ + 1 >= text_.size() || text_[at_ + 1] != quote))
                break;
            else if (text_[at_] == quote)
                ++at_;
        }
        ++at_;
    }

    void skipTo(QStringView mark) {
        const auto end = text_.indexOf(mark, at_);
        at_ = end < 0 ? text_.size() : end + mark.size();
        inWord_ = escapes_ = false;
    }

    void comment() {
        int depth = 0;
        do {
            if (startsWith(u"/*")) {
                ++depth;
                at_ += 2;
            } else if (startsWith(u"*/")) {
                --depth;
                at_ += 2;
            } else {
                ++at_;
            }
        } while (at_ < text_.size() && depth > (hasDollarQuotes_ ? 0 : depth - 1));
        inWord_ = escapes_ = false;
    }

    void dollar() {
        auto end = at_ + 1;
        while (end < text_.size() && (text_[end].isLetterOrNumber() || text_[end] == u'_'))
            ++end;
        const bool isTag = end < text_.size() && text_[end] == u'$' && !text_[at_ + 1].isDigit();
        if (!isTag)
            return plain(u'$');
        const auto tag = text_.sliced(at_, end + 1 - at_);
        at_ = end + 1;
        pending_ = true;
        skipTo(tag);
    }

    QStringView text_;
    bool hasDollarQuotes_;
    qsizetype at_ = 0;
    int count_ = 0;
    bool pending_ = false;
    bool inWord_ = false;
    bool escapes_ = false;
};

void checkStatement(const Sql& statement, int statements) {
    if (!statement.isIntact())
        return;
    const auto& text = statement.text();
    const auto sql = tokensOf(text);
    require(sql.complete && sql.comments.isEmpty(), "no value begins a quote or a comment");
    require(batchParts(sql).size() == statements, "no value makes another statement");
    // A mark that hides the rest of a statement spoils it: the parenthesis stays open.
    require(OtherEngine(text, true).statements() <= statements, "nor for an engine with other quotes");
    require(OtherEngine(text, false).statements() <= statements, "nor for an engine with other comments");
    try {
        const auto steps = embeddedBatch(text);
        require(steps.size() == 1 && steps.front().committed && steps.front().statements.size() == 1,
                "a statement and its commit are one step");
    } catch (const Error&) { // refused
    }
}

/// The parenthesis of a condition is closed by the routine's own words.
void checkCondition(const QString& condition) {
    const auto part = sqlCondition(condition);
    if (!part.isIntact())
        return;
    int depth = 0;
    for (const auto& token : tokensOf(part.text()).tokens) {
        depth += token.is(u'(') ? 1 : token.is(u')') ? -1 : 0;
        require(depth >= 0, "a condition does not close what it has not opened");
    }
    require(depth == 0, "a condition closes what it opens");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const auto value = input.text();
    const auto name = input.text();
    const auto number = input.text();
    const auto condition = input.text();
    const auto statement = input.text();

    checkTokens(statement);
    checkRewriting(statement);
    checkCondition(condition);
    checkStatement(u"insert into mt.hvm_kv_prompts (pname,prompt) values (" + sqlText(value) + u"," +
                       sqlText(statement) + u");commit",
                   2);
    checkStatement(u"update " + sqlName(name) + u".inventory set " + sqlName(value) + u" = " +
                       sqlNumber(number) + u" where i4201 = " + sqlText(statement) + u" and i4201 in (" +
                       sqlCondition(condition) + u");commit",
                   2);
    return 0;
}
