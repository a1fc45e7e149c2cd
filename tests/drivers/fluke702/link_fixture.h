#pragma once

#include "drivers/fluke702/link.h"
#include "testkit/contact_fixture.h"
#include "testkit/recorded_link.h"

namespace kelvane::testing {

/// A contact with a Fluke 702 that the database knows as F-702.
class Contact702 : public ContactOf<RecordedLink, Fluke702, Module702Interface::Communicate702> {
  protected:
    static constexpr qint16 download = 1;
    static constexpr qint16 upload = 2;
    /// The modes that open the link.
    static constexpr qint16 openingModes[] = {download, upload};

    Contact702() : ContactOf(QStringLiteral("F-702"), QStringLiteral("Fluke 702")) {}

    const QString& serial() const { return driver.Calibrator702Serial; }
    const QString& asset() const { return driver.Calibrator702Asset; }
    const QString openOperation = QStringLiteral("DPCopen");
    const QString sectionOfSibling = QStringLiteral("Fluke 743/744");

    const QString downloadTitle = QStringLiteral("Download Task Package to Fluke 702");
    const QString routineName = QStringLiteral("Module702Interface,Communicate702");
};

} // namespace kelvane::testing
