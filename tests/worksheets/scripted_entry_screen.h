#pragma once

#include "worksheets/worksheet_entry.h"

namespace kelvane::testing {

/// The screen as the routines of the entry see it.
class ScriptedEntryScreen final : public WorksheetEntryScreen {
  public:
    QString asset() const override { return instrument; }
    void showAsset(const QString& asset) override { instrument = asset; }
    void clearFields() override { fields.clear(); }
    void addField(const QString& title, const QString& value) override { fields << std::pair(title, value); }
    QString fieldTitle(int row) const override { return fields.value(row).first; }
    void showValue(int row, const QString& value) override { fields[row].second = value; }
    QStringList standards() const override { return listed; }
    void addStandard(const QString& asset) override { listed << asset; }
    void endRecord() override {
        instrument.clear();
        ++ended;
    }
    void offerUnfinishedResult() override { ++offered; }

    /// The rows of the fields, title and value joined with "=".
    QStringList rows() const {
        QStringList texts;
        for (const auto& [title, value] : fields)
            texts << title + u'=' + value;
        return texts;
    }

    QString instrument;
    QList<std::pair<QString, QString>> fields;
    QStringList listed;
    int ended = 0;
    int offered = 0;
};

} // namespace kelvane::testing
