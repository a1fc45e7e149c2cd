#pragma once

class QIcon;

namespace kelvane {

/// The program's own icon, in the sizes that title bars, task bars and the start of the program show.
QIcon programIcon();

} // namespace kelvane
