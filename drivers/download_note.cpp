#include "drivers/download_note.h"

#include "resources/strings.h"

using namespace Qt::StringLiterals;

namespace kelvane {

void tellDownloadNote(UserInterface& ui, const QString& asset, const QString& note) {
    ui.messageBox(asset + u": "_s + note, text(105), box::information);
}

} // namespace kelvane
