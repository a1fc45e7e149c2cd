#pragma once

class QIcon;

namespace kelvane {

/// What a button does, as a small picture beside its caption. Few buttons have one: those that are looked
/// for.
enum class ButtonIcon { accept, cancel, add, remove, save, print, download };

/// The picture, drawn in the colour that the letters of buttons have at that moment, in any size.
QIcon buttonIcon(ButtonIcon icon);

} // namespace kelvane
