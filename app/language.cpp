#include "app/language.h"

#include "platform/error.h"
#include "resources/languages.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The language of a locale, as "de" of "de-AT" or "de_DE.UTF-8".
QString languageOf(const QString& locale) {
    static const QRegularExpression behind(u"[-_.@].*"_s);
    return locale.trimmed().toLower().remove(behind);
}

/// The setting; an empty text when there is none, or the store can't be read: whoever reads it next reports
/// that.
QString chosenLanguage(const SettingsStore& settings) {
    try {
        return settings.value(u"Texts"_s, u"Language"_s).trimmed();
    } catch (const Error&) {
        return {};
    }
}

void followDesktop(const QStringList& desktopLanguages) {
    for (const auto& locale : desktopLanguages) {
        if (showLanguage(languageOf(locale)))
            return;
    }
    showLanguage(ownLanguage.toString());
}

} // namespace

QString chooseLanguage(const SettingsStore& settings, const QStringList& desktopLanguages) {
    const auto chosen = chosenLanguage(settings);
    if (!chosen.isEmpty() && showLanguage(languageOf(chosen)))
        return {};
    followDesktop(desktopLanguages);
    return chosen.isEmpty() ? QString() : text(TextId::languageUnknown).arg(chosen);
}

void translateToolkit(QCoreApplication& application) {
    auto* translator = new QTranslator(&application);
    if (translator->load(u"qtbase_"_s + shownLanguage(), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(translator);
}

} // namespace kelvane
