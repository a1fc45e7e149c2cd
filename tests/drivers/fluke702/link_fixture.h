#pragma once

#include "drivers/fluke702/link.h"
#include "testkit/fixtures.h"
#include "testkit/recorded_link.h"

namespace kelvane::testing {

/// A contact with a calibrator that the database knows as F-702; its transfer takes two steps.
class Contact702 : public RecordedSession {
  protected:
    static constexpr qint16 download = 1;
    static constexpr qint16 upload = 2;

    Contact702() {
        link.steps = 2;
        link.onCall = [this](const QString&) { ui.events << link.calls.last(); };
        ui.onBox = [this] { ui.events << QStringLiteral("box"); };
        script.answers.insert(selectAsset(link.serial), {{QStringLiteral("F-702")}});
    }

    static QString selectAsset(const QString& serial) {
        return QStringLiteral("select i4201 from MT.inventory where i4206 = '") + serial + u'\'';
    }
    /// A contact of its own, with what the last one left forgotten.
    QString contact(qint16 mode) {
        link.calls.clear();
        ui.events.clear();
        ui.busy = false;
        return Module702Interface::Communicate702(driver, mode);
    }
    void store(const QString& key, const QString& value) {
        settings.values.insert(QStringLiteral("Fluke 702/") + key, value);
    }
    QStringList progressValues() const { return ui.events.filter(QStringLiteral("value ")); }

    const QString downloadTitle = QStringLiteral("Download Task Package to Fluke 702");
    const QString boxTitle = QStringLiteral("Download Procedures To Calibrator");
    const QString notInDatabase = QStringLiteral("Asset Number for Calibrator NOT Found In Database! A "
                                                 "record for the calibrator must be created before "
                                                 "uploading results.");
    const QString routineName = QStringLiteral("Module702Interface,Communicate702");

    RecordedLink link;
    Fluke702 driver{session, link};
};

} // namespace kelvane::testing
