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

    Contact702() : ContactOf(QStringLiteral("F-702"), QStringLiteral("Fluke 702")) {}

    const QString downloadTitle = QStringLiteral("Download Task Package to Fluke 702");
    const QString routineName = QStringLiteral("Module702Interface,Communicate702");
};

} // namespace kelvane::testing
