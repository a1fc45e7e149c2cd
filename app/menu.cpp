#include "app/menu.h"

namespace kelvane {

const std::array<MenuRow, menuEntryCount>& menuTree() {
    using enum MenuEntry;
    constexpr bool shown = true, hidden = false, enabled = true, disabled = false;
    static constexpr std::array<MenuRow, menuEntryCount> tree{{
        {mnuFile, u"mnuFile", none, 102, u"", shown, enabled},
        {mnuLogout, u"mnuLogout", mnuFile, 538, u"Ctrl+L", shown, disabled},
        {mnuExit, u"mnuExit", mnuFile, 103, u"Ctrl+Q", shown, enabled},
        {mnuCalibration, u"mnuCalibration", none, 104, u"", hidden, enabled},
        {mnuDownload, u"mnuDownload", mnuCalibration, 105, u"F1", shown, disabled},
        {mnuUpload, u"mnuUpload", mnuCalibration, 107, u"F2", shown, disabled},
        {mnuPrint, u"mnuPrint", mnuCalibration, 106, u"Ctrl+W", shown, disabled},
        {mnuEnter, u"mnuEnter", mnuCalibration, 108, u"Ctrl+R", shown, disabled},
        {mnuParameters, u"mnuParameters", none, 110, u"", shown, enabled},
        {mnuStrategies, u"mnuStrategies", mnuParameters, 111, u"Ctrl+S", hidden, disabled},
        {mnuCalParameters, u"mnuCalParameters", mnuParameters, 112, u"Ctrl+P", hidden, disabled},
        {mnuPrompts, u"mnuPrompts", mnuParameters, 116, u"Ctrl+M", hidden, disabled},
        {mnuLocal, u"mnuLocal", mnuParameters, 124, u"", shown, enabled},
        {mnuODBC, u"mnuODBC", mnuLocal, 125, u"Ctrl+D", shown, enabled},
        {mnuConfiguration, u"mnuConfiguration", mnuLocal, 109, u"Ctrl+O", hidden, disabled},
        {mnuGlobal, u"mnuGlobal", mnuParameters, 281, u"", hidden, disabled},
        {mnuWorkEntry, u"mnuWorkEntry", mnuGlobal, 282, u"Ctrl+E", shown, disabled},
        {mnuPredefined, u"mnuPredefined", mnuGlobal, 610, u"Ctrl+T", shown, disabled},
        {mnuHelp, u"mnuHelp", none, 113, u"", hidden, enabled},
        {mnuAbout, u"mnuAbout", mnuHelp, 114, u"Ctrl+A", shown, disabled},
    }};
    return tree;
}

Menu::Menu() {
    for (const auto& row : menuTree())
        states_[static_cast<std::size_t>(row.entry)] = {row.shown, row.enabled};
}

bool Menu::canBeReached(MenuEntry entry) const {
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

} // namespace kelvane
