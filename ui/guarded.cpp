#include "ui/guarded.h"

#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane {

void showUnwritableReport(UserInterface& ui) {
    ui.setNormalPointer();
    ui.messageBox(text(TextId::errorReportNotWritten), text(TextId::applicationName), box::stop);
}

} // namespace kelvane
