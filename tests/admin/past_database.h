#pragma once

#include "admin/past_instruments.h"
#include "testkit/embedded_database.h"
#include "testkit/fixtures.h"

#include <QHash>

namespace kelvane::testing {

/// A point of a record as its line shows it.
struct PastPoint {
    double nominal = 0;
    double applied = 0;
    double reading = 0;
    QString deviation;
    QString comment;
    QString verdict;
    QString line;
};

/// A record of the past as the database holds it.
struct PastRecord {
    QString ctag;
    QDate date;
    QTime time;
    QString due;
    QString state;
    QString technician;
    bool passed = false;
    bool isCurrent = false;
    int marginal = 0;
    int failed = 0;
    QList<PastPoint> points;
};

/// What an instrument may be off, as its parameters say: from the nominal output of an input.
struct PastLimits {
    double nominalOf(double applied) const {
        return (applied - inputLow) / (inputHigh - inputLow) * (outputHigh - outputLow) + outputLow;
    }

    float inputLow = 0;
    float inputHigh = 0;
    float outputLow = 0;
    float outputHigh = 0;
    double width = 0;
    int points = 0;
};

/// The demonstration data with the past, made by kelvane-admin for the present day: once for all tests of a
/// process, of which each works on a copy. Somebody is logged in, with the demonstration's result template.
class PastDatabase : public ::testing::Test {
  protected:
    PastDatabase();

    /// The rows of a query, columns joined with "|".
    QStringList rows(const QString& query, int columns = 1);
    /// The one value of a query.
    QString value(const QString& query);
    QString mtagOf(QStringView asset);
    /// The records of an instrument, as they were made.
    QList<PastRecord> recordsOf(QStringView asset);
    PastLimits limitsOf(QStringView asset);
    /// Instruments and standards.
    static QList<const admin::PastInstrument*> all();

    QDate day;
    EmbeddedDatabase database;
    OwnFolder folder;
    SetClock clock;
    MemorySettings settings;
    ScriptedUserInterface ui;
    Session session;

  private:
    PastPoint pointOf(const QString& line) const;
};

} // namespace kelvane::testing
