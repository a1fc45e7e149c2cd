#include "drivers/download_note.h"

#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

void showDownloadNote(UserInterface& ui, const QString& asset, const QString& note) {
    ui.messageBox(asset + u": "_s + note, text(TextId::downloadProcedures), box::information);
}

} // namespace kelvane
