#pragma once

#include "workflow/download_list.h"

namespace kelvane::testing {

/// The screen as its routines see it; `events` lists what they did to it.
class ScriptedScreen final : public DownloadListScreen {
  public:
    QString calibrator() const override { return name; }
    QStringList rows() const override { return list; }
    void addRow(const QString& asset) override { list << asset; }
    void removeRow(int row) override { list.removeAt(row); }
    void clearEntry() override { events << QStringLiteral("empty"); }
    void focusEntry() override { events << QStringLiteral("focus"); }
    void closeScreen() override { events << QStringLiteral("close"); }

    QString name = QStringLiteral("Crane TorqueStar IVc");
    QStringList list;
    QStringList events;
};

} // namespace kelvane::testing
