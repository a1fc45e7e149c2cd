#pragma once

#include "testkit/fixtures.h"
#include "testkit/given_params.h"
#include "tests/editors/cal_param/cal_param_screen.h"

namespace kelvane::testing {

/// The ten boxes of the tolerances, in the order of the checks.
QStringList toleranceBoxes();

/// The parameter editor over a recording connection that knows the instruments PT-1, PT-2 and PT-3 and the
/// strategies "FIVE" and "THREE"; no instrument has parameters yet.
class CalParamFixture : public RecordedSession {
  protected:
    CalParamFixture();
    /// Makes the screen ready to be saved: pressure in, current out, everything else as it starts.
    void makeReady();
    /// What such a screen stores, column by column in their order.
    static QStringList readyValues(const QString& instrument);
    /// The statements that change something.
    QStringList writes() const;
    /// The key of an instrument as statements name it.
    static QString key(const QString& asset);
    static QString selectKey(const QString& asset);
    static QString selectStored(const QString& asset);

    CalParamScreen screen{session, ui};
};

} // namespace kelvane::testing
