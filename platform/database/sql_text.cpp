#include "platform/database/sql_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

bool isWordStart(QChar character) {
    const auto code = character.unicode();
    return (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') || code == u'_' || code >= 0x80;
}

bool isWordPart(QChar character) {
    return isWordStart(character) || isDigit(character) || character == u'$';
}

bool isBlank(QChar character) {
    return character == u' ' || (character >= u'\t' && character <= u'\r');
}

/// Walks over a text once; every routine leaves `at_` behind what it has read.
class Tokenizer {
  public:
    Tokenizer(QStringView text, SqlTokens& result) : text_(text), result_(result) {}

    void run() {
        while (at_ < text_.size())
            step();
    }

  private:
    QChar peek(qsizetype distance) const {
        return at_ + distance < text_.size() ? text_[at_ + distance] : QChar();
    }

    void step() {
        const auto character = text_[at_];
        if (isBlank(character))
            ++at_;
        else if (isWordStart(character))
            take(TokenKind::word, [](QChar next) { return isWordPart(next); });
        else if (character == u'\'')
            takeQuoted(TokenKind::text, u'\'');
        else if (isDigit(character))
            take(TokenKind::number, [](QChar next) { return isWordPart(next) || next == u'.'; });
        else if (character == u'"' || character == u'`')
            takeQuoted(TokenKind::quotedName, character);
        else if (character == u'[')
            takeUpTo(u']');
        else if (character == u'-' && peek(1) == u'-')
            lineComment();
        else if (character == u'/' && peek(1) == u'*')
            blockComment();
        else
            append(TokenKind::symbol, at_ + 1);
    }

    template <class Belongs>
    void take(TokenKind kind, Belongs belongs) {
        auto end = at_ + 1;
        while (end < text_.size() && belongs(text_[end]))
            ++end;
        append(kind, end);
    }

    void takeQuoted(TokenKind kind, QChar quote) {
        auto end = text_.indexOf(quote, at_ + 1);
        while (end >= 0 && end + 1 < text_.size() && text_[end + 1] == quote)
            end = text_.indexOf(quote, end + 2);
        closeAt(kind, end);
    }

    void takeUpTo(QChar closing) { closeAt(TokenKind::quotedName, text_.indexOf(closing, at_ + 1)); }

    void closeAt(TokenKind kind, qsizetype last) {
        if (last < 0) {
            result_.complete = false;
            last = text_.size() - 1;
        }
        append(kind, last + 1);
    }

    void lineComment() {
        const auto end = text_.indexOf(u'\n', at_);
        comment(end < 0 ? text_.size() : end);
    }

    void blockComment() {
        const auto end = text_.indexOf(u"*/", at_ + 2);
        result_.complete = result_.complete && end >= 0;
        comment(end < 0 ? text_.size() : end + 2);
    }

    void comment(qsizetype end) {
        result_.comments.append(text_.mid(at_, end - at_));
        at_ = end;
    }

    void append(TokenKind kind, qsizetype end) {
        result_.tokens.append({text_.mid(at_, end - at_), kind});
        at_ = end;
    }

    QStringView text_;
    qsizetype at_ = 0;
    SqlTokens& result_;
};

} // namespace

QString Token::name() const {
    if (kind != TokenKind::quotedName)
        return text.toString();
    auto inner = text.mid(1, text.size() - 2).toString();
    const auto quote = text.back();
    return quote == u']' ? inner : inner.replace(QString(2, quote), QString(quote));
}

SqlTokens tokensOf(QStringView statement) {
    SqlTokens result;
    Tokenizer(statement, result).run();
    return result;
}

QVarLengthArray<TokenSpan, 4> batchParts(const SqlTokens& sql) {
    QVarLengthArray<TokenSpan, 4> parts;
    const TokenSpan all(sql.tokens.data(), static_cast<std::size_t>(sql.tokens.size()));
    std::size_t start = 0;
    for (std::size_t at = 0; at <= all.size(); ++at) {
        if (at < all.size() && !all[at].is(u';'))
            continue;
        if (at > start)
            parts.append(all.subspan(start, at - start));
        start = at + 1;
    }
    return parts;
}

QString TextEdits::applyTo(QStringView text) const {
    auto edits = edits_;
    std::sort(edits.begin(), edits.end(),
              [](const Edit& left, const Edit& right) { return left.piece.data() < right.piece.data(); });
    QString result;
    result.reserve(text.size() + 64);
    auto from = text.begin();
    for (const auto& edit : edits) {
        if (edit.piece.begin() < from || edit.piece.end() > text.end())
            continue;
        result += QStringView(from, edit.piece.begin());
        result += edit.by;
        from = edit.piece.end();
    }
    return result += QStringView(from, text.end());
}

} // namespace kelvane
