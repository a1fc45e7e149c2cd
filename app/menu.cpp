#include "app/menu.h"

#include "resources/text_id.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

const std::array<MenuRow, menuEntryCount>& menuTree() {
    using enum MenuEntry;
    constexpr bool shown = true, hidden = false, enabled = true, disabled = false;
    static constexpr std::array<MenuRow, menuEntryCount> tree{{
        {mnuFile, u"mnuFile", none, TextId::fileMenu, u"", shown, enabled},
        {mnuLogout, u"mnuLogout", mnuFile, TextId::logOutCommand, u"Ctrl+L", shown, disabled},
        {mnuExit, u"mnuExit", mnuFile, TextId::exitCommand, u"Ctrl+Q", shown, enabled},
        {mnuCalibration, u"mnuCalibration", none, TextId::calibrationMenu, u"", hidden, enabled},
        {mnuDownload, u"mnuDownload", mnuCalibration, TextId::downloadProcedures, u"F1", shown, disabled},
        {mnuUpload, u"mnuUpload", mnuCalibration, TextId::uploadTestResults, u"F2", shown, disabled},
        {mnuPrint, u"mnuPrint", mnuCalibration, TextId::printWorksheets, u"Ctrl+W", shown, disabled},
        {mnuEnter, u"mnuEnter", mnuCalibration, TextId::enterWorksheetResults, u"Ctrl+R", shown, disabled},
        {mnuParameters, u"mnuParameters", none, TextId::parametersMenu, u"", shown, enabled},
        {mnuStrategies, u"mnuStrategies", mnuParameters, TextId::testStrategies, u"Ctrl+S", hidden, disabled},
        {mnuCalParameters, u"mnuCalParameters", mnuParameters, TextId::calibrationParameters, u"Ctrl+P",
         hidden, disabled},
        {mnuPrompts, u"mnuPrompts", mnuParameters, TextId::editTestMessages, u"Ctrl+M", hidden, disabled},
        {mnuLocal, u"mnuLocal", mnuParameters, TextId::localConfigurationMenu, u"", shown, enabled},
        {mnuODBC, u"mnuODBC", mnuLocal, TextId::databaseConnection, u"Ctrl+D", shown, enabled},
        {mnuConfiguration, u"mnuConfiguration", mnuLocal, TextId::calibratorConfiguration, u"Ctrl+O", hidden,
         disabled},
        {mnuGlobal, u"mnuGlobal", mnuParameters, TextId::globalConfigurationMenu, u"", hidden, disabled},
        {mnuWorkEntry, u"mnuWorkEntry", mnuGlobal, TextId::recordConfiguration, u"Ctrl+E", shown, disabled},
        {mnuPredefined, u"mnuPredefined", mnuGlobal, TextId::predefinedTaskPackages, u"Ctrl+T", shown,
         disabled},
        {mnuHelp, u"mnuHelp", none, TextId::helpMenu, u"", hidden, enabled},
        {mnuAbout, u"mnuAbout", mnuHelp, TextId::aboutCommand, u"Ctrl+A", shown, disabled},
    }};
    return tree;
}

bool isMenu(MenuEntry entry) {
    return std::ranges::any_of(menuTree(), [entry](const MenuRow& row) { return row.parent == entry; });
}

Menu::Menu() {
    for (const auto& row : menuTree())
        states_[static_cast<std::size_t>(row.entry)] = {row.shown, row.enabled};
}

bool Menu::isReachable(MenuEntry entry) const {
    for (; entry != MenuEntry::none; entry = menuTree()[static_cast<std::size_t>(entry)].parent) {
        if (!isShown(entry) || !isEnabled(entry))
            return false;
    }
    return true;
}

void Menu::set(Entries entries, bool State::*property, bool value) {
    for (const auto entry : entries)
        states_[static_cast<std::size_t>(entry)].*property = value;
    if (changed)
        changed();
}

void Menu::show(Entries entries) {
    set(entries, &State::shown, true);
}

void Menu::hide(Entries entries) {
    set(entries, &State::shown, false);
}

void Menu::enable(Entries entries) {
    set(entries, &State::enabled, true);
}

void Menu::disable(Entries entries) {
    set(entries, &State::enabled, false);
}

QString withMnemonic(QString caption, QString& taken) {
    caption.replace(u'&', u"&&"_s);
    for (qsizetype i = 0; i < caption.size(); ++i) {
        const auto letter = caption[i].toUpper();
        if (letter.isLetterOrNumber() && !taken.contains(letter)) {
            taken += letter;
            return caption.insert(i, u'&');
        }
    }
    return caption;
}

} // namespace kelvane
