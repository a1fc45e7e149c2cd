#include "editors/prompt_lists.h"

#include "platform/workstation.h"
#include "ui/guarded.h"
#include "ui/list_rows.h"

#include <QListWidget>
#include <QPushButton>
#include <QShortcut>

namespace kelvane {

namespace {

void connectHandOver(QListWidget* from, QListWidget* to, UserInterface& ui) {
    onSignal(from, &QListWidget::itemDoubleClicked, from, ui,
             [from, to] { handOver(*from, from->currentRow(), *to); });
    // For those who work without a mouse.
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* handing = new QShortcut(QKeySequence(key), from);
        handing->setContext(Qt::WidgetShortcut);
        onSignal(handing, &QShortcut::activated, from, ui,
                 [from, to] { handOver(*from, selectedRow(*from), *to); });
    }
}

void connectPair(QListWidget* available, QListWidget* displayed, QPushButton* up, QPushButton* down,
                 UserInterface& ui) {
    connectHandOver(available, displayed, ui);
    connectHandOver(displayed, available, ui);
    onSignal(up, &QPushButton::clicked, displayed, ui, [displayed] { moveSelectedRow(*displayed, -1); });
    onSignal(down, &QPushButton::clicked, displayed, ui, [displayed] { moveSelectedRow(*displayed, 1); });
}

} // namespace

void connectPromptLists(const CalParamControls& c, Workstation& workstation) {
    connectPair(c.ListPreAvail, c.ListPreDisplay, c.CommandPreUp, c.CommandPreDown, workstation.ui);
    connectPair(c.ListPostAvail, c.ListPostDisplay, c.CommandPostUp, c.CommandPostDown, workstation.ui);
}

} // namespace kelvane
