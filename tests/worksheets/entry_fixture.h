#pragma once

#include "testkit/fixtures.h"
#include "tests/worksheets/entry_database.h"
#include "tests/worksheets/scripted_entry_screen.h"
#include "tests/worksheets/worksheet_questions.h"

namespace kelvane::testing {

/// The entry of worksheets over that database, with a scripted operator.
class EntryFixture : public RecordedSession, protected EntryDatabase {
  protected:
    EntryFixture() : EntryDatabase(script) {}

    void start() {
        entry.startDataEntry();
        EXPECT_TRUE(ui.hasMetAll());
    }
    void save() {
        entry.save();
        EXPECT_TRUE(ui.hasMetAll());
    }
    /// An entry of PT-1 whose fields are not asked for, with these standards.
    void enter(const QStringList& standards = {}) {
        ask.instrument(QStringLiteral("PT-1"));
        for (const auto& standard : standards)
            ask.standard(standard);
        ask.noMoreStandards();
        start();
    }
    QStringList sent(const QString& beginning) const {
        QStringList found;
        for (const auto& statement : script.statements) {
            if (statement.startsWith(beginning))
                found << statement;
        }
        return found;
    }
    bool hasRecord() const { return !sent(QStringLiteral("insert into MT.calibration")).isEmpty(); }
    static Error serverError() { return {-158, QStringLiteral("Value out of range")}; }

    WorksheetQuestions ask{ui};
    ScriptedEntryScreen screen;
    WorksheetEntry entry{session, screen};
};

} // namespace kelvane::testing
