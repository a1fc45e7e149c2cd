#pragma once

#include "app/menu.h"
#include "data/session.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace kelvane {

/// A step that a user can take next. `entry` is the entry of the menu that takes it; `none` is the login,
/// which has none. `keys` is empty without a shortcut.
struct FrameStep {
    MenuEntry entry = MenuEntry::none;
    QString caption;
    QString keys;

    bool operator==(const FrameStep&) const = default;
};

/// What the main window says behind its child windows.
struct FrameContents {
    /// Who is logged in, and where.
    QString user;
    /// Empty while all is well.
    QString warning;
    QList<FrameStep> steps;

    bool operator==(const FrameContents&) const = default;
};

/// The contents as session and menu are now. The steps stand in the order of the work: first the login, while
/// `login` gives a caption for it, then the entries of the menu that can be reached and that `works` agrees
/// to; no more than six.
FrameContents frameContents(const Session& session, const Menu& menu, std::optional<TextId> login,
                            const std::function<bool(MenuEntry)>& works);

} // namespace kelvane
