#include "ui/guarded.h"

#include "resources/strings.h"

namespace kelvane {

void showUnwritableReport(UserInterface& ui) {
    ui.setNormalPointer();
    ui.messageBox(text(1064), text(101), box::stop);
}

} // namespace kelvane
