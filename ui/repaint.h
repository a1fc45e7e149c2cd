#pragma once

namespace kelvane {

/// Paints all visible windows at once, while something holds the program up. No event is handled, so that no
/// input and no closing can come in between.
void repaintWindows();

} // namespace kelvane
