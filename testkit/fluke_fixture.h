#pragma once

#include "drivers/fluke702/driver.h"
#include "testkit/fluke_lab.h"
#include "testkit/recorded_link.h"

namespace kelvane::testing {

/// A lab with process instruments and a Fluke 702 on a recorded link.
class FlukeFixture : public FlukeLab {
  protected:
    /// The calibrator's own row in the inventory: F-702, key 900, with the serial number that the link gives.
    void addCalibrator() { addEquipment(QStringLiteral("F-702"), QStringLiteral("900"), link.serial); }

    QString acceptable(const QString& asset) {
        return Module702Interface::Fluke702_acceptable(driver, asset);
    }
    bool requiresStandard(const QString& asset) {
        return Module702Interface::Fluke702_requires_standard(driver, asset);
    }
    QString download(const QString& task) { return Module702Interface::Fluke702_download(driver, task); }

    RecordedLink link;
    Fluke702 driver{session, link};
};

} // namespace kelvane::testing
