#pragma once

#include "testkit/fixtures.h"

namespace kelvane::testing {

/// A contact with a calibrator on a recorded link, which the database knows as `asset`; its transfer takes
/// two steps. What happens stands in `ui.events`, the calls and the boxes ("box") among it.
template <class Link, class Driver, QString (*communicate)(Driver&, qint16)>
class ContactOf : public RecordedSession {
  protected:
    /// `section` is that of the calibrator's settings.
    ContactOf(const QString& asset, QString section) : section_(std::move(section)) {
        link.steps = 2;
        link.onCall = [this](const QString&) { ui.events << link.calls.last(); };
        ui.onBox = [this] { ui.events << QStringLiteral("box"); };
        script.answers.insert(selectAsset(link.serial), {{asset}});
    }

    static QString selectAsset(const QString& serial) {
        return QStringLiteral("select i4201 from MT.inventory where i4206 = '") + serial + u'\'';
    }
    /// A contact of its own, with what the last one left forgotten.
    QString contact(qint16 mode) {
        link.calls.clear();
        ui.events.clear();
        ui.busy = false;
        return communicate(driver, mode);
    }
    void store(const QString& key, const QString& value) {
        settings.values.insert(section_ + u'/' + key, value);
    }
    QStringList progressValues() const { return ui.events.filter(QStringLiteral("value ")); }

    const QString boxTitle = QStringLiteral("Download Procedures To Calibrator");
    const QString notInDatabase = QStringLiteral("Asset Number for Calibrator NOT Found In Database! A "
                                                 "record for the calibrator must be created before "
                                                 "uploading results.");

    Link link;
    Driver driver{session, link};

  private:
    QString section_;
};

} // namespace kelvane::testing
