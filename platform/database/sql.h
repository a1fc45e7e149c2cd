#pragma once

#include "platform/database/sql_words.h"

#include <QString>

namespace kelvane {

/// A statement under construction. The program's own words are literals of its source; what is known only at
/// run time goes in through `sqlText`, `sqlName`, `sqlNumber` or `sqlCondition`, each of which has its place
/// in the statement and must not leave it: a text that ends its own quotes, a name that is more than a name
/// or a condition that closes its own parenthesis would make another statement of it. Such a statement is not
/// sent (`isIntact`). An intact one therefore holds as many statements as its routine's own words have: one,
/// one and "commit", or the batch that stands in the source.
class Sql {
  public:
    /// The program's own words.
    template <std::size_t length>
    Sql(const char16_t (&words)[length])
        : text_(QStringView(words, length - 1).toString()) {} // NOLINT(*-explicit-*)
    Sql(SqlWords words) : text_(words.view().toString()) {}   // NOLINT(*-explicit-*)

    const QString& text() const { return text_; }
    /// False when a value has left its place.
    bool isIntact() const { return intact_; }

    Sql& operator+=(const Sql& right) {
        text_ += right.text_;
        intact_ = intact_ && right.intact_;
        return *this;
    }
    template <std::size_t length>
    Sql& operator+=(const char16_t (&words)[length]) {
        text_ += QStringView(words, length - 1);
        return *this;
    }
    friend Sql operator+(Sql left, const Sql& right) {
        left += right;
        return left;
    }
    template <std::size_t length>
    friend Sql operator+(Sql left, const char16_t (&words)[length]) {
        left += words;
        return left;
    }

  private:
    Sql(QString text, bool intact) : text_(std::move(text)), intact_(intact) {}
    friend Sql sqlText(const QString& value);
    friend Sql sqlName(const QString& name);
    friend Sql sqlNumber(const QString& number);
    friend Sql sqlCondition(const QString& condition);

    QString text_;
    bool intact_ = true;
};

/// The value between single quotes, as it stands. Its own quotes must come in pairs.
Sql sqlText(const QString& value);
/// A name without quotes: of a table, its owner, or a column. Blanks around it do no harm: columns of a fixed
/// width give them.
Sql sqlName(const QString& name);
/// A number, with a sign where it has one.
Sql sqlNumber(const QString& number);
/// An expression or query that a site has stored, to stand between parentheses: it closes what it opens and
/// holds neither a second statement nor a comment.
Sql sqlCondition(const QString& condition);

/// The text of a statement that may be sent; throws `syntaxError` when a value has left its place.
const QString& requireIntact(const Sql& statement);

} // namespace kelvane
