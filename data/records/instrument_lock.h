#pragma once

#include "data/session.h"

namespace kelvane {

/// While one exists, no other workstation writes a record of the instrument: its rows find each other by the
/// mark of the current record, so that two records at once would take each other's. Waits for another
/// workstation's; error 70 when that keeps it. On a site's own engine it does nothing.
///
/// Nobody may be asked anything meanwhile. One report may stand: that of a copied column that can't be
/// written, since the record's children follow it.
class InstrumentLock {
  public:
    /// `mtag` is the instrument's key in the tables of the session's owner.
    InstrumentLock(Session& session, const QString& mtag);
    ~InstrumentLock();
    InstrumentLock(const InstrumentLock&) = delete;
    InstrumentLock& operator=(const InstrumentLock&) = delete;

  private:
    Session& session_;
    QString name_;
};

} // namespace kelvane
