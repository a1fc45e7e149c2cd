#pragma once

#include "platform/database/reading_connection.h"
#include "testkit/database_session.h"

namespace kelvane::testing {

using namespace Qt::StringLiterals;

/// A test on the demonstration database whose session can only read: what a screen tries to write is refused,
/// and the report of that fails the test. What the test itself writes goes past it, through `write`.
class ReadingSession : public ::testing::Test, protected WithScriptedOperator, protected LoggedInSession {
  protected:
    ReadingSession() : LoggedInSession(ui, users::technician, readingConnections(openConnections())) {}

    void write(const QString& statement) { database.executeElsewhere(statement); }
    /// Of the current record of an instrument.
    void setCurrent(const QString& asset, const QString& change) {
        write(u"update mt.calibration set "_s + change +
              u" where c2339 = '1' and mtag = (select mtag from mt.inventory where i4201 = '"_s + asset +
              u"')"_s);
    }
    QString day(int ahead) const {
        return clock.now().date().addDays(ahead).toString(QStringLiteral("yyyy-MM-dd"));
    }
};

} // namespace kelvane::testing
