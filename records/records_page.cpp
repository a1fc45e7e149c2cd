#include "records/records_page.h"

#include "records/keys.h"

#include <QKeySequence>

namespace kelvane {

RecordsPage::RecordsPage(UserInterface& ui, QWidget* parent) : QWidget(parent) {
    connectPageKeys(*this, QKeySequence::Refresh, ui, [this] { readAgain(); });
}

} // namespace kelvane
