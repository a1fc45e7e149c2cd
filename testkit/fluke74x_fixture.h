#pragma once

#include "drivers/fluke74x/driver.h"
#include "testkit/fluke_lab.h"
#include "testkit/recorded_link3.h"

namespace kelvane::testing {

/// A lab with process instruments and a Fluke 743 on a recorded link.
class Fluke74xFixture : public FlukeLab {
  protected:
    /// The calibrator's own row in the inventory: F743-01, key 910, with the serial number that the link
    /// gives.
    void addCalibrator() { addEquipment(QStringLiteral("F743-01"), QStringLiteral("910"), link.serial); }

    QString acceptable(const QString& asset) {
        return Module74xInterface::Fluke74x_acceptable(driver, asset);
    }
    bool requiresStandard(const QString& asset) {
        return Module74xInterface::Fluke74x_requires_standard(driver, asset);
    }
    QString download(const QString& task) { return Module74xInterface::Fluke74x_download(driver, task); }

    RecordedLink3 link;
    Fluke74x driver{session, link};
};

} // namespace kelvane::testing
