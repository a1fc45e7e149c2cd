#include "editors/cal_param/cal_param_focus.h"

#include "procedures/cal_param_saving.h"
#include "ui/list_rows.h"

#include <QListWidget>
#include <QTabWidget>

namespace kelvane {

namespace {

/// The tabs that have this as one of their pages; null for none.
QTabWidget* tabsAround(QWidget& page) {
    // Between them stands the stack of the pages.
    auto* stack = page.parentWidget();
    auto* tabs = stack ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
    return tabs && tabs->indexOf(&page) >= 0 ? tabs : nullptr;
}

} // namespace

void goTo(QWidget& field) {
    for (auto* page = &field; page; page = page->parentWidget()) {
        if (auto* tabs = tabsAround(*page)) {
            tabs->show();
            tabs->setTabEnabled(tabs->indexOf(page), true);
            tabs->setCurrentWidget(page);
        }
    }
    field.setEnabled(true);
    field.setFocus();
}

void showSubPage(QWidget& field, const QTabWidget& pages) {
    for (auto* page = &field; page; page = page->parentWidget()) {
        auto* tabs = tabsAround(*page);
        if (tabs && tabs != &pages)
            tabs->setCurrentWidget(page);
    }
}

bool focusMessageList(QListWidget& list) {
    const auto row = refusedMessage(rowsOf(list));
    if (row < 0)
        return false;
    list.setCurrentRow(static_cast<int>(row));
    goTo(list);
    return true;
}

} // namespace kelvane
