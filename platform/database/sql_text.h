#pragma once

#include <QString>
#include <QVarLengthArray>

#include <span>

namespace kelvane {

enum class TokenKind : quint8 {
    /// A name or keyword without quotes.
    word,
    /// A name in double quotes, brackets or backticks.
    quotedName,
    /// A text in single quotes.
    text,
    number,
    /// One character of anything else.
    symbol,
};

struct Token {
    QStringView text;
    TokenKind kind = TokenKind::symbol;

    bool is(char16_t symbol) const { return kind == TokenKind::symbol && text.front() == symbol; }
    /// The keyword or plain name `word`, in any case.
    bool is(QLatin1StringView word) const {
        return kind == TokenKind::word && text.size() == word.size() &&
               text.compare(word, Qt::CaseInsensitive) == 0;
    }
    bool isName() const { return kind == TokenKind::word || kind == TokenKind::quotedName; }
    /// What a name stands for, its quotes taken off.
    QString name() const;
};

using TokenSpan = std::span<const Token>;

/// A statement's text in tokens. They point into the text, which has to outlive them.
struct SqlTokens {
    QVarLengthArray<Token, 192> tokens;
    QVarLengthArray<QStringView, 2> comments;
    /// False when a quote or a comment is never closed: the meaning of such a text is unknown.
    bool complete = true;
};

SqlTokens tokensOf(QStringView statement);

/// The parts of a batch, cut at ";"; parts without a token are left out.
QVarLengthArray<TokenSpan, 4> batchParts(const SqlTokens& sql);

/// Pieces of a text that are to be replaced.
class TextEdits {
  public:
    /// `piece` points into the text; an empty one stands for a place to insert at.
    void replace(QStringView piece, const QString& by) { edits_.append({piece, by}); }
    bool isEmpty() const { return edits_.isEmpty(); }
    /// `text` with all the pieces that lie in it replaced. Of pieces that overlap the first one
    /// counts.
    QString applyTo(QStringView text) const;

  private:
    struct Edit {
        QStringView piece;
        QString by;
    };
    QVarLengthArray<Edit, 8> edits_;
};

} // namespace kelvane
