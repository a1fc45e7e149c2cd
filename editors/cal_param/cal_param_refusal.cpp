#include "editors/cal_param/cal_param_refusal.h"

#include "editors/cal_param/cal_param_columns.h"
#include "editors/refusal.h"
#include "ui/list_rows.h"

#include <QListWidget>
#include <QTabWidget>

#include <algorithm>

namespace kelvane {

namespace {

/// The tabs that have this as one of their pages; null for none.
QTabWidget* tabsAround(QWidget& page) {
    // Between them stands the stack of the pages.
    auto* stack = page.parentWidget();
    auto* tabs = stack ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
    return tabs && tabs->indexOf(&page) >= 0 ? tabs : nullptr;
}

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

bool isConfined(const QString& value) {
    return sqlText(value).isIntact();
}

/// Goes to the first message whose name would end its own quotes.
bool goToMessage(QListWidget& list) {
    const auto rows = rowsOf(list);
    const auto row = std::ranges::find_if_not(rows, isConfined);
    if (row == rows.end())
        return false;
    list.setCurrentRow(static_cast<int>(row - rows.begin()));
    goTo(list);
    return true;
}

} // namespace

void goToRefused(const CalParamControls& controls, const QString& instrument, const Error& error) {
    const auto columns = savedColumns(controls, instrument);
    auto refused = std::ranges::find_if(columns, [](const auto& column) { return !column.value.isIntact(); });
    if (refused == columns.end())
        refused = std::ranges::find_if(columns,
                                       [&](const auto& column) { return namesColumn(error, column.name); });
    if (refused != columns.end() && refused->control)
        goTo(*refused->control);
    else if (!goToMessage(*controls.ListPreDisplay))
        goToMessage(*controls.ListPostDisplay);
}

} // namespace kelvane
