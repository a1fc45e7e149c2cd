#pragma once

#include "drivers/fluke702/driver.h"
#include "testkit/recorded_link.h"
#include "testkit/upload_lab.h"

namespace kelvane::testing {

/// The demonstration laboratory with its Fluke 702 (F702-01, serial number 6841207) on the recorded link.
class FlukeUpload : public UploadLab {
  protected:
    QString upload() {
        const auto result = Module702Interface::Fluke702_upload(driver);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_FALSE(ui.busy);
        return result;
    }

    /// A run of an instrument, stored a minute after the one before.
    StoredRun& store(const QString& tag, const QList<ResultEntry>& entries, qint16 kind = 1) {
        StoredRun run;
        run.kind = kind;
        run.minute = static_cast<qint16>(link.runs.size() % 60);
        run.tag = tag;
        run.serial = QStringLiteral("V88101");
        run.technician = QStringLiteral("Joe Doe");
        run.entries = entries;
        link.runs << run;
        return link.runs.last();
    }
    /// A run of the round instrument that passes, or fails at its last point.
    StoredRun& addGoodRun(const QString& tag = QStringLiteral("PT-101"), qint16 kind = 1) {
        return store(tag, {at(0, 0), at(50, 50), at(100, 100)}, kind);
    }
    StoredRun& addBadRun(const QString& tag = QStringLiteral("PT-101"), qint16 kind = 1) {
        return store(tag, {at(0, 0), at(50, 50), at(100, 90, -0.1F)}, kind);
    }
    static ResultEntry at(float applied, float reading, float error = 0) { return {reading, applied, error}; }

    RecordedLink link;
    Fluke702 driver{session, link};

    static inline const QString routine = QStringLiteral("Module702Interface,Fluke702_upload");
};

} // namespace kelvane::testing
