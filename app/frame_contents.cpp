#include "app/frame_contents.h"

#include "resources/text_id.h"

namespace kelvane {

namespace {

constexpr qsizetype maxSteps = 6;

/// From the day's work to what is done once; nobody begins with leaving the program.
constexpr MenuEntry stepsInOrder[] = {
    MenuEntry::mnuDownload,   MenuEntry::mnuUpload,        MenuEntry::mnuPrint,   MenuEntry::mnuEnter,
    MenuEntry::mnuStrategies, MenuEntry::mnuCalParameters, MenuEntry::mnuPrompts, MenuEntry::mnuPredefined,
    MenuEntry::mnuWorkEntry,  MenuEntry::mnuConfiguration, MenuEntry::mnuODBC,    MenuEntry::mnuLogout,
};

} // namespace

FrameContents frameContents(const Session& session, const Menu& menu, std::optional<TextId> login,
                            const std::function<bool(MenuEntry)>& works) {
    FrameContents contents;
    // What a login enables stays until log out.
    const bool isLoggedIn = menu.isEnabled(MenuEntry::mnuLogout);
    contents.user = isLoggedIn
                        ? text(TextId::frameLoggedIn).arg(session.SessionUser, session.SessionDataSource)
                        : text(TextId::frameLoggedOut);
    if (isLoggedIn && !session.SessionConnected)
        contents.warning = text(TextId::frameConnectionLost).arg(session.SessionDataSource);
    if (login)
        contents.steps << FrameStep{MenuEntry::none, text(*login), {}};
    for (const auto entry : stepsInOrder) {
        const auto& row = menuTree()[static_cast<std::size_t>(entry)];
        if (contents.steps.size() < maxSteps && menu.isReachable(entry) && works(entry))
            contents.steps << FrameStep{entry, text(row.caption), row.shortcut.toString()};
    }
    return contents;
}

} // namespace kelvane
