#include "app/language.h"
#include "platform/error.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "testkit/shown_in.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class UnreadableSettings final : public SettingsStore {
  public:
    QString value(const QString&, const QString&) const override {
        throw makeError(ErrorNumber::pathFileAccess);
    }
    void setValue(const QString&, const QString&, const QString&) override {}
};

class LanguageOfTheProgram : public ::testing::Test {
  protected:
    QString choose(const QString& setting, const QStringList& desktop) {
        settings.values.insert(u"Texts/Language"_s, setting);
        return chooseLanguage(settings, desktop);
    }
    const ShownIn before{u"en"_s};
    MemorySettings settings;
};

} // namespace

TEST_F(LanguageOfTheProgram, IsThatOfTheSetting) {
    for (const auto& setting : {u"de"_s, u" DE "_s, u"de_AT"_s, u"de-CH"_s, u"de_DE.UTF-8@euro"_s}) {
        EXPECT_EQ(choose(setting, {u"en-US"_s}), QString());
        EXPECT_EQ(shownLanguage(), u"de"_s) << setting.toStdString();
    }
    EXPECT_EQ(choose(u"en"_s, {u"de-DE"_s}), QString());
    EXPECT_EQ(shownLanguage(), u"en"_s);
    EXPECT_TRUE(settings.writes.isEmpty());
}

TEST_F(LanguageOfTheProgram, IsTheFirstOfTheDesktopsThatHasTextsWhenNoneIsSet) {
    const struct {
        QStringList desktop;
        QString shown;
    } rows[] = {
        {{u"de-AT"_s, u"de"_s, u"de-Latn-AT"_s}, u"de"_s},
        {{u"fr-CH"_s, u"fr"_s, u"de-CH"_s, u"en"_s}, u"de"_s},
        {{u"en-US"_s, u"en"_s, u"de"_s}, u"en"_s},
        {{u"fr-FR"_s}, u"en"_s},
        {{u"C"_s}, u"en"_s},
        {{}, u"en"_s},
    };
    for (const auto& row : rows) {
        showLanguage(row.shown == u"de" ? u"en"_s : u"de"_s);
        EXPECT_EQ(choose({}, row.desktop), QString());
        EXPECT_EQ(shownLanguage(), row.shown) << row.desktop.join(u' ').toStdString();
    }
}

TEST_F(LanguageOfTheProgram, IsTheDesktopsAndTheLogTellsSoWhenTheSettingHasNoTexts) {
    EXPECT_EQ(choose(u"fr_FR"_s, {u"de-DE"_s}), u"Für die Sprache fr_FR gibt es keine Texte."_s);
    EXPECT_EQ(shownLanguage(), u"de"_s);
    EXPECT_EQ(choose(u"x"_s, {}), u"There are no texts for the language x."_s);
}

TEST_F(LanguageOfTheProgram, IsTheDesktopsWhenTheSettingsCanNotBeRead) {
    EXPECT_EQ(chooseLanguage(UnreadableSettings(), {u"de"_s}), QString());
    EXPECT_EQ(shownLanguage(), u"de"_s);
}

TEST_F(LanguageOfTheProgram, IsThatOfTheToolkitWhereItsTranslationIsInstalled) {
    const auto translation = QLibraryInfo::path(QLibraryInfo::TranslationsPath) + u"/qtbase_de.qm"_s;
    const ShownIn german(u"de"_s);
    translateToolkit(*QCoreApplication::instance());
    EXPECT_EQ(QCoreApplication::translate("QShortcut", "Ctrl"),
              QFile::exists(translation) ? u"Strg"_s : u"Ctrl"_s);
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>());
}

} // namespace kelvane::testing
