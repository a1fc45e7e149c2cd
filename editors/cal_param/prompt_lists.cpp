#include "editors/cal_param/prompt_lists.h"

#include "platform/workstation.h"
#include "ui/guarded.h"
#include "ui/list_rows.h"

#include <QListWidget>
#include <QPushButton>

namespace kelvane {

namespace {

void connectMoveRow(QListWidget* from, QListWidget* to, UserInterface& ui) {
    onRowChosen(from, ui, [from, to](int row) { moveRow(*from, row, *to); });
}

void connectPair(QListWidget* available, QListWidget* displayed, QPushButton* up, QPushButton* down,
                 UserInterface& ui) {
    connectMoveRow(available, displayed, ui);
    connectMoveRow(displayed, available, ui);
    connectGuarded(up, &QPushButton::clicked, displayed, ui,
                   [displayed] { moveSelectedRow(*displayed, -1); });
    connectGuarded(down, &QPushButton::clicked, displayed, ui,
                   [displayed] { moveSelectedRow(*displayed, 1); });
}

} // namespace

void connectPromptLists(const CalParamControls& c, Workstation& workstation) {
    connectPair(c.ListPreAvail, c.ListPreDisplay, c.CommandPreUp, c.CommandPreDown, workstation.ui);
    connectPair(c.ListPostAvail, c.ListPostDisplay, c.CommandPostUp, c.CommandPostDown, workstation.ui);
}

} // namespace kelvane
