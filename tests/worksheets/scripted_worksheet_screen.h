#pragma once

#include "worksheets/worksheet_list.h"

namespace kelvane::testing {

/// The screen as its routines see it; `events` lists what they did to it.
class ScriptedWorksheetScreen final : public WorksheetListScreen {
  public:
    QStringList rows() const override { return list; }
    void addRow(const QString& asset) override { list << asset; }
    void removeRow(int row) override { list.removeAt(row); }
    void clearEntry() override { events << QStringLiteral("empty"); }
    void focusEntry() override { events << QStringLiteral("focus"); }

    QStringList list;
    QStringList events;
};

} // namespace kelvane::testing
