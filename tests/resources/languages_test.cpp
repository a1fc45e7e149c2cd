#include "resources/languages.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "testkit/shown_in.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(Languages, AreThoseOfTheTables) {
    EXPECT_EQ(languages(), (QStringList{u"de"_s, u"en"_s}));
    EXPECT_EQ(shownLanguage(), u"en"_s) << "until another one is chosen";
}

TEST(Languages, ShowAllTextsAndCanBeChangedAtAnyTime) {
    const ShownIn german(u"de"_s);
    EXPECT_EQ(shownLanguage(), u"de"_s);
    EXPECT_EQ(text(TextId::fileMenu), u"Datei"_s);
    EXPECT_EQ(text(TextId::applicationName), u"Kelvane"_s);
    EXPECT_TRUE(showLanguage(u"en"_s));
    EXPECT_EQ(text(TextId::fileMenu), u"File"_s);
}

TEST(Languages, WithoutATableChangeNothing) {
    const ShownIn german(u"de"_s);
    for (const auto& unknown : {u"fr"_s, u"DE"_s, u"de-AT"_s, u"../strings"_s, u"*"_s, QString()}) {
        EXPECT_FALSE(showLanguage(unknown)) << unknown.toStdString();
        EXPECT_EQ(shownLanguage(), u"de"_s);
        EXPECT_EQ(text(TextId::fileMenu), u"Datei"_s);
    }
}

TEST(Languages, LieUnderATranslationAndEndIt) {
    const OwnFolder folder;
    folder.write(u"texts.txt"_s, "102\tAkte\n");
    const ShownIn german(u"de"_s);
    ASSERT_TRUE(overlayStrings(u"texts.txt"_s));
    EXPECT_EQ(text(TextId::fileMenu), u"Akte"_s);
    EXPECT_EQ(text(TextId::exitCommand), u"Beenden"_s);
    EXPECT_TRUE(showLanguage(u"de"_s));
    EXPECT_EQ(text(TextId::fileMenu), u"Datei"_s);
}

} // namespace kelvane::testing
