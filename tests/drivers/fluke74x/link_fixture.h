#pragma once

#include "drivers/fluke74x/link.h"
#include "testkit/contact_fixture.h"
#include "testkit/recorded_link3.h"

namespace kelvane::testing {

/// A contact with a Fluke 743 that the database knows as F743-01; its maps take two steps too.
class Contact74x : public ContactOf<RecordedLink3, Fluke74x, Module74xInterface::Communicate74x> {
  protected:
    /// The two halves of a download, and an upload.
    static constexpr qint16 firstHalf = 1;
    static constexpr qint16 upload = 2;
    static constexpr qint16 lastHalf = 3;
    /// The modes that open the link.
    static constexpr qint16 openingModes[] = {firstHalf, upload};

    Contact74x() : ContactOf(QStringLiteral("F743-01"), QStringLiteral("Fluke 743/744")) {
        link.mapSteps = 2;
    }

    /// The contact that has to come before one in that mode.
    void begin(qint16 mode) {
        if (mode == lastHalf) {
            EXPECT_EQ(contact(firstHalf), QString());
        }
    }
    /// A contact in a mode, after the one that has to come before it.
    QString contactIn(qint16 mode) {
        begin(mode);
        return contact(mode);
    }
    static QStringList values(std::initializer_list<int> list) {
        QStringList texts;
        for (const int value : list)
            texts << QStringLiteral("value %1").arg(value);
        return texts;
    }

    const QString& serial() const { return driver.Calibrator74xSerial; }
    const QString& asset() const { return driver.Calibrator74xAsset; }
    const QString openOperation = QStringLiteral("DPC3open");
    const QString sectionOfSibling = QStringLiteral("Fluke 702");

    const QStringList opened{QStringLiteral("DPC3close()"),
                             QStringLiteral("DPC3open(9600, \"COM1\", 1000, 5)"),
                             QStringLiteral("DPC3get74X()")};
    const QString routineName = QStringLiteral("Module74xInterface,Communicate74x");
};

} // namespace kelvane::testing
