#include "platform/database/sql_text.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString joined(TokenSpan tokens) {
    QStringList texts;
    for (const auto& token : tokens)
        texts << token.text.toString();
    return texts.join(u'|');
}

QString joinTokens(const SqlTokens& sql) {
    return joined({sql.tokens.data(), static_cast<std::size_t>(sql.tokens.size())});
}

} // namespace

TEST(SqlText, IsCutIntoTokens) {
    struct Case {
        const char* rule;
        QString text;
        QString tokens;
    };
    const Case cases[] = {
        {"nothing", u""_s, u""_s},
        {"blanks only", u" \t\r\n "_s, u""_s},
        {"words and symbols", u"select a,b from mt.t"_s, u"select|a|,|b|from|mt|.|t"_s},
        {"a text", u"x = 'a b'"_s, u"x|=|'a b'"_s},
        {"a quote in a text", u"'it''s' y"_s, u"'it''s'|y"_s},
        {"two texts that touch a word", u"'a'b'c'"_s, u"'a'|b|'c'"_s},
        {"an empty text", u"'','x'"_s, u"''|,|'x'"_s},
        {"a quote at both ends", u"'''a'''"_s, u"'''a'''"_s},
        {"a semicolon in a text", u"';'; x"_s, u"';'|;|x"_s},
        {"a name in double quotes", u"\"a \"\"b\"\" 'c\" d"_s, u"\"a \"\"b\"\" 'c\"|d"_s},
        {"a name in brackets", u"[a 'b] c"_s, u"[a 'b]|c"_s},
        {"a name in backticks", u"`a;``b` c"_s, u"`a;``b`|c"_s},
        {"a line comment", u"a -- 'b\nc"_s, u"a|c"_s},
        {"a line comment at the end", u"a -- b"_s, u"a"_s},
        {"a block comment", u"a /* 'b; -- */ c"_s, u"a|c"_s},
        {"a comment mark in a text", u"'--' '/*' x"_s, u"'--'|'/*'|x"_s},
        {"a quote mark in a comment", u"a /* it's */ 'b'"_s, u"a|'b'"_s},
        {"minus and divide are no comments", u"a - -b / c*d"_s, u"a|-|-|b|/|c|*|d"_s},
        {"numbers", u"1 2.5 1e5 0x1F a1"_s, u"1|2.5|1e5|0x1F|a1"_s},
        {"a sign is apart from its number", u"now(*)-30"_s, u"now|(|*|)|-|30"_s},
        {"letters of other alphabets", u"größe = 'Ж' and 温度"_s, u"größe|=|'Ж'|and|温度"_s},
        {"words with digits, dollar and underscore", u"_a$1 hvm_kv"_s, u"_a$1|hvm_kv"_s},
    };
    for (const auto& testCase : cases) {
        const auto sql = tokensOf(testCase.text);
        EXPECT_EQ(joinTokens(sql), testCase.tokens) << testCase.rule;
        EXPECT_TRUE(sql.complete) << testCase.rule;
    }
}

TEST(SqlText, AnUnclosedQuoteOrCommentIsNotComplete) {
    for (const auto& text : {u"a 'b"_s, u"'"_s, u"'a''"_s, u"\"a"_s, u"[a"_s, u"`a"_s, u"a /* b"_s, u"/*/"_s})
        EXPECT_FALSE(tokensOf(text).complete) << text.toStdString();
}

TEST(SqlText, CommentsAreKeptApart) {
    const auto text = u"a /*b*/ -- c\nd"_s;
    const auto sql = tokensOf(text);
    ASSERT_EQ(sql.comments.size(), 2);
    EXPECT_EQ(sql.comments[0], u"/*b*/"_s);
    EXPECT_EQ(sql.comments[1], u"-- c"_s);
}

TEST(SqlText, NamesLoseTheirQuotes) {
    const auto text = u"a \"b\"\"c\" [d] `e``f`"_s;
    const auto sql = tokensOf(text);
    QStringList names;
    for (const auto& token : sql.tokens)
        names << token.name();
    EXPECT_EQ(names, (QStringList{u"a"_s, u"b\"c"_s, u"d"_s, u"e`f"_s}));
}

TEST(SqlText, ABatchIsCutAtSemicolonsAndEmptyPartsAreLeftOut) {
    const auto parts = [](const QString& text) {
        const auto sql = tokensOf(text);
        QStringList all;
        for (const auto part : batchParts(sql))
            all << joined(part);
        return all;
    };
    EXPECT_EQ(parts(u"a b;commit"_s), (QStringList{u"a|b"_s, u"commit"_s}));
    EXPECT_EQ(parts(u";; a ;/* c */; -- d"_s), QStringList{u"a"_s});
    EXPECT_EQ(parts(u"a ';' b"_s), QStringList{u"a|';'|b"_s});
    EXPECT_TRUE(parts(u" ; -- only a comment"_s).isEmpty());
}

TEST(SqlText, EditsAreAppliedInTheOrderOfTheText) {
    const auto text = u"one two three"_s;
    const QStringView view(text);
    TextEdits edits;
    edits.replace(view.mid(8, 5), u"3"_s);
    edits.replace(view.mid(0, 3), u"1"_s);
    edits.replace(view.mid(13, 0), u"!"_s);
    EXPECT_EQ(edits.applyTo(text), u"1 two 3!"_s);
    EXPECT_EQ(edits.applyTo(view.mid(4)), u"two 3!"_s) << "a piece before the text is left out";
}

} // namespace kelvane::testing
