#pragma once

#include "resources/strings.h"

#include <QString>

#include <array>
#include <functional>
#include <initializer_list>

namespace kelvane {

/// The entries of the menu tree, in the order in which the menus show them.
enum class MenuEntry {
    mnuFile,
    mnuLogout,
    mnuExit,
    mnuCalibration,
    mnuDownload,
    mnuUpload,
    mnuPrint,
    mnuEnter,
    mnuParameters,
    mnuStrategies,
    mnuCalParameters,
    mnuPrompts,
    mnuLocal,
    mnuODBC,
    mnuConfiguration,
    mnuGlobal,
    mnuWorkEntry,
    mnuPredefined,
    mnuHelp,
    mnuAbout,
    none,
};
inline constexpr std::size_t menuEntryCount = static_cast<std::size_t>(MenuEntry::none);

/// An entry as it is designed: its name, the menu it stands in (`none`: the menu bar), its caption,
/// its shortcut, and whether it is shown and enabled before anyone has logged in.
struct MenuRow {
    MenuEntry entry;
    QStringView name;
    MenuEntry parent;
    TextId caption;
    QStringView shortcut;
    bool shown;
    bool enabled;
};

/// The menu tree; row n is the entry of number n.
const std::array<MenuRow, menuEntryCount>& menuTree();
/// True for an entry with others below it.
bool isMenu(MenuEntry entry);

/// Which entries are shown and enabled. An entry can be reached when it and all menus above it are shown and
/// enabled.
class Menu {
  public:
    using Entries = std::initializer_list<MenuEntry>;

    /// The design state.
    Menu();

    bool isShown(MenuEntry entry) const { return state(entry).shown; }
    bool isEnabled(MenuEntry entry) const { return state(entry).enabled; }
    bool isReachable(MenuEntry entry) const;

    void show(Entries entries);
    void hide(Entries entries);
    void enable(Entries entries);
    void disable(Entries entries);

    /// Called after each change; set by the window that shows the menu.
    std::function<void()> changed;

  private:
    struct State {
        bool shown = false;
        bool enabled = false;
    };
    const State& state(MenuEntry entry) const { return states_[static_cast<std::size_t>(entry)]; }
    void set(Entries entries, bool State::*property, bool value);

    std::array<State, menuEntryCount> states_;
};

/// A caption with the mark of the letter that chooses it: the first one that is not among `taken`, where it
/// is added.
QString withMnemonic(QString caption, QString& taken);

} // namespace kelvane
